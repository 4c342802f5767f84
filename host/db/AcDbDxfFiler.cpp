// Base behaviour of the group-code filer interface: conveniences built on the primitives.
#include "host/db/AcDbDxfFiler.h"

#include <cmath>
#include <cwchar>

#include "host/db/AcDbDxfCode.h"
#include "host/db/AcDbOpen.h"
#include "host/rx/AcRxBoiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDxfFiler, AcRxObject)

Acad::ErrorStatus AcDbDxfFiler::dwgVersion(AcDb::AcDbDwgVersion& version,
                                           AcDb::MaintenanceReleaseVersion& maintRelease) const
{
    version = AcDb::kDHL_CURRENT;
    maintRelease = AcDb::kMReleaseCurrent;
    return Acad::eOk;
}

void AcDbDxfFiler::reportError(Acad::ErrorStatus status, const ACHAR*)
{
    setFilerStatus(status);
}

bool AcDbDxfFiler::atSubclassData(const ACHAR* subClassName)
{
    if (atEOF())
        return false;
    resbuf rb;
    if (readResBuf(&rb) != Acad::eOk)
        return false;
    if (rb.restype == AcDb::kDxfSubclass && rb.resval.rstring && subClassName &&
        std::wcscmp(rb.resval.rstring, subClassName) == 0)
        return true;
    pushBackItem();
    return false;
}

Acad::ErrorStatus AcDbDxfFiler::skipToNextSubclass()
{
    resbuf rb;
    while (!atEOF()) {
        const Acad::ErrorStatus es = readResBuf(&rb);
        if (es != Acad::eOk)
            return es;
        if (rb.restype == AcDb::kDxfSubclass) {
            pushBackItem();
            break;
        }
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDxfFiler::writeUInt16(AcDb::DxfCode code, Adesk::UInt16 value)
{
    return writeInt16(code, static_cast<Adesk::Int16>(value));
}

Acad::ErrorStatus AcDbDxfFiler::writeUInt32(AcDb::DxfCode code, Adesk::UInt32 value)
{
    return writeInt32(code, static_cast<Adesk::Int32>(value));
}

Acad::ErrorStatus AcDbDxfFiler::writeVector3d(AcDb::DxfCode code, const AcGeVector3d& v, int prec)
{
    return writePoint3d(code, AcGePoint3d(v.x, v.y, v.z), prec);
}

Acad::ErrorStatus AcDbDxfFiler::writeVector2d(AcDb::DxfCode code, const AcGeVector2d& v, int prec)
{
    return writePoint2d(code, AcGePoint2d(v.x, v.y), prec);
}

Acad::ErrorStatus AcDbDxfFiler::writeScale3d(AcDb::DxfCode code, const AcGeScale3d& v, int prec)
{
    return writePoint3d(code, AcGePoint3d(v.sx, v.sy, v.sz), prec);
}

Acad::ErrorStatus AcDbDxfFiler::writeAngle(AcDb::DxfCode code, double radians, int prec)
{
    return writeDouble(code, radians * 180.0 / M_PI, prec);
}

Acad::ErrorStatus AcDbDxfFiler::writeResBuf(const resbuf& rb)
{
    const auto code = acdbDxfCode(rb.restype);
    switch (acdbGroupCodeKind(rb.restype)) {
    case AcDb::kDxfKindPoint:
        if (acdbIsPointXCode(rb.restype))
            return writePoint3d(code, AcGePoint3d(rb.resval.rpoint[0], rb.resval.rpoint[1], rb.resval.rpoint[2]));
        return writeDouble(code, rb.resval.rreal);
    case AcDb::kDxfKindDouble: return writeDouble(code, rb.resval.rreal);
    case AcDb::kDxfKindInt8: return writeInt8(code, static_cast<Adesk::Int8>(rb.resval.rint));
    case AcDb::kDxfKindInt16: return writeInt16(code, rb.resval.rint);
    case AcDb::kDxfKindInt32: return writeInt32(code, rb.resval.rlong);
    case AcDb::kDxfKindInt64: return writeInt64(code, rb.resval.mnInt64);
    case AcDb::kDxfKindBool: return writeBool(code, rb.resval.rint != 0);
    case AcDb::kDxfKindHandle: return writeHandle(code, AcDbHandle(rb.resval.rstring));
    case AcDb::kDxfKindObjectId: {
        AcDbObjectId id;
        acdbGetObjectId(id, rb.resval.rlname);
        return writeObjectId(code, id);
    }
    case AcDb::kDxfKindBinary:
        return writeBytes(code, rb.resval.rbinary.buf, static_cast<Adesk::UIntPtr>(rb.resval.rbinary.clen));
    case AcDb::kDxfKindString: return writeString(code, rb.resval.rstring ? rb.resval.rstring : L"");
    default: return Acad::eInvalidDxfCode;
    }
}
