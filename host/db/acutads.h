// Building, copying and freeing resbuf chains, as the ADS helpers do.
#pragma once

#include "host/db/adsdef.h"

// What kind of value a resbuf of this type (RT code or DXF group code) carries.
enum class AcutRbKind { kNone, kString, kReal, kPoint, kShort, kLong, kInt64, kName, kBinary };
AcutRbKind acutRbKind(int restype);

// A new resbuf of that type with a zeroed value; the caller frees it with acutRelRb. A
// string or binary value set later must be allocated with new[] (see acutNewString).
resbuf* acutNewRb(int restype);
// Frees the whole chain from rb on, with the strings and binary chunks it owns. RTNORM.
int acutRelRb(resbuf* rb);
// A new[] copy of the text ("" for null) for a resbuf's rstring.
ACHAR* acutNewString(const ACHAR* text);
// A deep copy of the chain (strings and chunks copied); null for null.
resbuf* acutCopyRb(const resbuf* rb);
// The number of links.
int acutRbLength(const resbuf* rb);

// Builds a chain from (type, value) pairs ended by 0 or RTNONE. Values by type:
// RTSHORT and 16-bit group codes: int; RTLONG and 32-bit codes: int (Adesk::Int32);
// RTREAL, RTANG and real codes: double; RTSTR and string codes: const ACHAR*; RTPOINT,
// RT3DPOINT and point codes: const ads_real* (three values); RTENAME, RTPICKS: a const
// Adesk::LongPtr* (ads_name); RTLB, RTLE, RTDOTE, RTNIL, RTT, RTVOID: no value; RTDXF0
// stands for group 0 and takes a string; binary codes (1004, 310) take an int length and a
// const char*. Null on an unknown type.
resbuf* acutBuildList(int rtype, ...);
