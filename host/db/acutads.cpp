// resbuf chains: allocation, deep copy, release and acutBuildList.
#include "host/db/acutads.h"

#include <cstdarg>
#include <cstring>
#include <cwchar>

#include "host/db/AcDbDxfCode.h"

AcutRbKind acutRbKind(int t)
{
    switch (t) {
    case RTREAL:
    case RTANG:
    case RTORINT: return AcutRbKind::kReal;
    case RTPOINT:
    case RT3DPOINT: return AcutRbKind::kPoint;
    case RTSHORT: return AcutRbKind::kShort;
    case RTSTR:
    case RTDXF0: return AcutRbKind::kString;
    case RTENAME:
    case RTPICKS: return AcutRbKind::kName;
    case RTLONG: return AcutRbKind::kLong;
    case RTINT64:
    case RTLONG_PTR: return AcutRbKind::kInt64;
    case RTNONE:
    case RTVOID:
    case RTLB:
    case RTLE:
    case RTDOTE:
    case RTNIL:
    case RTT:
    case RTRESBUF:
    case RTNORM: return AcutRbKind::kNone;
    default: break;
    }
    if (t == -3)
        return AcutRbKind::kNone;
    switch (acdbGroupCodeKind(t)) {
    case AcDb::kDxfKindString:
    case AcDb::kDxfKindHandle: return AcutRbKind::kString;
    case AcDb::kDxfKindDouble: return AcutRbKind::kReal;
    case AcDb::kDxfKindPoint: return acdbIsPointXCode(t) ? AcutRbKind::kPoint : AcutRbKind::kReal;
    case AcDb::kDxfKindInt8:
    case AcDb::kDxfKindInt16:
    case AcDb::kDxfKindBool: return AcutRbKind::kShort;
    case AcDb::kDxfKindInt32: return AcutRbKind::kLong;
    case AcDb::kDxfKindInt64: return AcutRbKind::kInt64;
    case AcDb::kDxfKindObjectId: return AcutRbKind::kName;
    case AcDb::kDxfKindBinary: return AcutRbKind::kBinary;
    default: return AcutRbKind::kNone;
    }
}

resbuf* acutNewRb(int restype)
{
    auto* rb = new resbuf;
    std::memset(rb, 0, sizeof(resbuf));
    rb->restype = static_cast<short>(restype);
    return rb;
}

static void freeValue(resbuf* rb)
{
    switch (acutRbKind(rb->restype)) {
    case AcutRbKind::kString: delete[] rb->resval.rstring; break;
    case AcutRbKind::kBinary: delete[] rb->resval.rbinary.buf; break;
    default: break;
    }
}

int acutRelRb(resbuf* rb)
{
    while (rb) {
        resbuf* next = rb->rbnext;
        freeValue(rb);
        delete rb;
        rb = next;
    }
    return RTNORM;
}

ACHAR* acutNewString(const ACHAR* text)
{
    if (!text)
        text = L"";
    const size_t n = std::wcslen(text);
    auto* copy = new ACHAR[n + 1];
    std::wmemcpy(copy, text, n + 1);
    return copy;
}

resbuf* acutCopyRb(const resbuf* rb)
{
    resbuf* head = nullptr;
    resbuf** tail = &head;
    for (; rb; rb = rb->rbnext) {
        resbuf* c = acutNewRb(rb->restype);
        c->resval = rb->resval;
        if (acutRbKind(rb->restype) == AcutRbKind::kString)
            c->resval.rstring = acutNewString(rb->resval.rstring);
        else if (acutRbKind(rb->restype) == AcutRbKind::kBinary) {
            const auto n = static_cast<size_t>(rb->resval.rbinary.clen > 0 ? rb->resval.rbinary.clen : 0);
            c->resval.rbinary.buf = new char[n ? n : 1];
            if (n && rb->resval.rbinary.buf)
                std::memcpy(c->resval.rbinary.buf, rb->resval.rbinary.buf, n);
        }
        *tail = c;
        tail = &c->rbnext;
    }
    return head;
}

int acutRbLength(const resbuf* rb)
{
    int n = 0;
    for (; rb; rb = rb->rbnext)
        ++n;
    return n;
}

resbuf* acutBuildList(int rtype, ...)
{
    va_list ap;
    va_start(ap, rtype);
    resbuf* head = nullptr;
    resbuf** tail = &head;
    for (int t = rtype; t != 0 && t != RTNONE; t = va_arg(ap, int)) {
        const int stored = (t == RTDXF0) ? 0 : t;
        resbuf* rb = acutNewRb(stored);
        switch (acutRbKind(t)) {
        case AcutRbKind::kString: rb->resval.rstring = acutNewString(va_arg(ap, const ACHAR*)); break;
        case AcutRbKind::kReal: rb->resval.rreal = va_arg(ap, double); break;
        case AcutRbKind::kPoint: {
            const ads_real* p = va_arg(ap, const ads_real*);
            for (int i = 0; i < 3; ++i)
                rb->resval.rpoint[i] = p ? p[i] : 0.0;
            break;
        }
        case AcutRbKind::kShort: rb->resval.rint = static_cast<short>(va_arg(ap, int)); break;
        case AcutRbKind::kLong: rb->resval.rlong = va_arg(ap, Adesk::Int32); break;
        case AcutRbKind::kInt64: rb->resval.mnInt64 = va_arg(ap, Adesk::Int64); break;
        case AcutRbKind::kName: {
            const Adesk::LongPtr* n = va_arg(ap, const Adesk::LongPtr*);
            rb->resval.rlname[0] = n ? n[0] : 0;
            rb->resval.rlname[1] = n ? n[1] : 0;
            break;
        }
        case AcutRbKind::kBinary: {
            // A binary chunk takes two values: its length (int) and the bytes.
            const int len = va_arg(ap, int);
            const char* bytes = va_arg(ap, const char*);
            rb->resval.rbinary.clen = static_cast<short>(len);
            rb->resval.rbinary.buf = new char[len > 0 ? len : 1];
            if (len > 0 && bytes)
                std::memcpy(rb->resval.rbinary.buf, bytes, static_cast<size_t>(len));
            break;
        }
        case AcutRbKind::kNone:
            if (acdbGroupCodeKind(t) == AcDb::kDxfKindUnknown && t > 0 && t < RTNONE && t != -3) {
                acutRelRb(rb);
                acutRelRb(head);
                va_end(ap);
                return nullptr;
            }
            break;
        }
        *tail = rb;
        tail = &rb->rbnext;
    }
    va_end(ap);
    return head;
}
