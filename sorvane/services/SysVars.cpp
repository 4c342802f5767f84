// Reading and setting system variables through acedGetVar and acedSetVar.
#include "services/SysVars.h"

#include "host/db/adsdef.h"
#include "host/ed/AcEdSysVar.h"
#include "services/Trace.h"

namespace {

// The variable's value, with a string value freed: only numbers and points are wanted.
int ReadVar(const wchar_t* name, resbuf& rb)
{
    rb = resbuf{};
    const int iResult = acedGetVar(name, &rb);
    if (iResult == RTNORM && rb.restype == RTSTR) {
        delete[] rb.resval.rstring;
        rb.resval.rstring = nullptr;
    }
    return iResult;
}

} // namespace

double GetAcadVarD(const wchar_t* name)
{
    resbuf rb;
    const int iResult = ReadVar(name, rb);
    if (iResult != RTNORM) {
        TraceF(L"\n!!!!**** GetAcadVarD( %s ) Er=%d", name, iResult);
        return 0.0;
    }
    switch (rb.restype) {
    case RTREAL:
    case RTANG:
        return rb.resval.rreal;
    case RTSHORT:
        return rb.resval.rint;
    case RTLONG:
        return rb.resval.rlong;
    default:
        return 0.0;
    }
}

int GetAcadVarI(const wchar_t* name)
{
    resbuf rb;
    const int iResult = ReadVar(name, rb);
    if (iResult != RTNORM) {
        TraceF(L"\n!!!!**** GetAcadVarI( %s ) Er=%d", name, iResult);
        return 0;
    }
    switch (rb.restype) {
    case RTSHORT:
        return rb.resval.rint;
    case RTLONG:
        return rb.resval.rlong;
    case RTREAL:
        return static_cast<int>(rb.resval.rreal);
    default:
        return 0;
    }
}

AcGePoint3d GetAcadVarP(const wchar_t* name)
{
    resbuf rb;
    const int iResult = ReadVar(name, rb);
    if (iResult != RTNORM || (rb.restype != RTPOINT && rb.restype != RT3DPOINT)) {
        TraceF(L"\n!!!!**** GetAcadVarP( %s ) Er=%d", name, iResult);
        return AcGePoint3d::kOrigin;
    }
    const double z = rb.restype == RT3DPOINT ? rb.resval.rpoint[2] : 0.0;
    return AcGePoint3d(rb.resval.rpoint[0], rb.resval.rpoint[1], z);
}

int SetAcadVar(const wchar_t* name, int value)
{
    resbuf rb;
    const int iResult = ReadVar(name, rb);
    if (iResult != RTNORM) {
        TraceF(L"\n** SetAcadVar(%s,%d)ads_getvar=%d !!! ", name, value, iResult);
        return 0;
    }
    const int iOld = rb.restype == RTLONG ? rb.resval.rlong : rb.resval.rint;
    resbuf set{};
    set.restype = RTSHORT;
    set.resval.rint = static_cast<short>(value);
    acedSetVar(name, &set);
    return iOld;
}
