// The ADS value types: resbuf chains, entity names, points, and the RT result/type codes.
#pragma once

#include "host/rx/AcChar.h"
#include "host/rx/Adesk.h"

using ads_real = double;
using ads_point = ads_real[3];
using ads_matrix = ads_real[4][4];
// An entity or selection set name. An entity name holds the object id's old id in [0].
using ads_name = Adesk::LongPtr[2];
using ads_pointp = ads_real*;
using ads_namep = Adesk::LongPtr*;

// Result and value type codes, with their documented numbers.
constexpr int RTNONE = 5000;
constexpr int RTREAL = 5001;
constexpr int RTPOINT = 5002;
constexpr int RTSHORT = 5003;
constexpr int RTANG = 5004;
constexpr int RTSTR = 5005;
constexpr int RTENAME = 5006;
constexpr int RTPICKS = 5007;
constexpr int RTORINT = 5008;
constexpr int RT3DPOINT = 5009;
constexpr int RTLONG = 5010;
constexpr int RTVOID = 5014;
constexpr int RTLB = 5016;
constexpr int RTLE = 5017;
constexpr int RTDOTE = 5018;
constexpr int RTNIL = 5019;
constexpr int RTDXF0 = 5020;
constexpr int RTT = 5021;
constexpr int RTRESBUF = 5023;
constexpr int RTMODELESS = 5027;
constexpr int RTLONG_PTR = 5030;
constexpr int RTINT64 = 5031;

constexpr int RTNORM = 5100;
constexpr int RTERROR = -5001;
constexpr int RTCAN = -5002;
constexpr int RTREJ = -5003;
constexpr int RTFAIL = -5004;
constexpr int RTKWORD = -5005;
constexpr int RTINPUTTRUNCATED = -5008;

// Results of a defun'd function, as the entry point reports them.
constexpr int RSRSLT = 1;
constexpr int RSERR = 3;

struct ads_binary {
    short clen;
    char* buf;  // owned by the resbuf when it belongs to a chain made by acutNewRb
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring;  // owned by the resbuf (allocated with new[]) in chains from acutNewRb
    Adesk::LongPtr rlname[2];
    Adesk::Int32 rlong;
    Adesk::Int64 mnInt64;
    ads_binary rbinary;
    unsigned char ihandle[8];
};

// One link of a value chain. restype is an RT code or a DXF group code.
struct resbuf {
    resbuf* rbnext;
    short restype;
    ads_u_val resval;
};
