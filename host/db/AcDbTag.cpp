// Kept DXF groups: typed access and writing/reading them through a DXF filer.
#include "host/db/AcDbTag.h"

#include <cstring>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfCode.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbOpen.h"

Adesk::Int64 AcDbTag::asInt(Adesk::Int64 fallback) const
{
    if (const auto* v = std::get_if<Adesk::Int64>(&value))
        return *v;
    return fallback;
}

double AcDbTag::asReal(double fallback) const
{
    if (const auto* v = std::get_if<double>(&value))
        return *v;
    if (const auto* v = std::get_if<Adesk::Int64>(&value))
        return static_cast<double>(*v);
    return fallback;
}

std::wstring AcDbTag::asText(const std::wstring& fallback) const
{
    if (const auto* v = std::get_if<std::wstring>(&value))
        return *v;
    return fallback;
}

AcGePoint3d AcDbTag::asPoint(const AcGePoint3d& fallback) const
{
    if (const auto* v = std::get_if<AcGePoint3d>(&value))
        return *v;
    return fallback;
}

void acdbWriteTags(AcDbDxfFiler* filer, const AcDbTagList& tags)
{
    for (const AcDbTag& t : tags) {
        const auto code = acdbDxfCode(t.code);
        switch (acdbGroupCodeKind(t.code)) {
        case AcDb::kDxfKindPoint:
            if (t.is2d)
                filer->writePoint2d(code, AcGePoint2d(t.asPoint().x, t.asPoint().y));
            else if (std::holds_alternative<AcGePoint3d>(t.value))
                filer->writePoint3d(code, t.asPoint());
            else
                filer->writeDouble(code, t.asReal());
            break;
        case AcDb::kDxfKindDouble: filer->writeDouble(code, t.asReal()); break;
        case AcDb::kDxfKindInt8: filer->writeInt8(code, static_cast<Adesk::Int8>(t.asInt())); break;
        case AcDb::kDxfKindInt16: filer->writeInt16(code, static_cast<Adesk::Int16>(t.asInt())); break;
        case AcDb::kDxfKindInt32: filer->writeInt32(code, static_cast<Adesk::Int32>(t.asInt())); break;
        case AcDb::kDxfKindInt64: filer->writeInt64(code, t.asInt()); break;
        case AcDb::kDxfKindBool: filer->writeBool(code, t.asInt() != 0); break;
        case AcDb::kDxfKindHandle: filer->writeHandle(code, AcDbHandle(t.asText().c_str())); break;
        case AcDb::kDxfKindObjectId: {
            AcDbObjectId id;
            if (filer->database())
                filer->database()->getAcDbObjectId(id, true, AcDbHandle(t.asText().c_str()));
            filer->writeObjectId(code, id);
            break;
        }
        case AcDb::kDxfKindBinary: {
            const auto* bytes = std::get_if<std::vector<Adesk::UInt8>>(&t.value);
            if (bytes)
                filer->writeBytes(code, bytes->data(), bytes->size());
            break;
        }
        default: filer->writeString(code, t.asText().c_str()); break;
        }
    }
}

void acdbReadTags(AcDbDxfFiler* filer, AcDbTagList& tags)
{
    resbuf rb;
    while (!filer->atEOF()) {
        if (filer->readResBuf(&rb) != Acad::eOk)
            break;
        if (rb.restype == AcDb::kDxfSubclass) {
            filer->pushBackItem();
            break;
        }
        AcDbTag t;
        t.code = rb.restype;
        switch (acdbGroupCodeKind(rb.restype)) {
        case AcDb::kDxfKindPoint:
            if (acdbIsPointXCode(rb.restype)) {
                t.value = AcGePoint3d(rb.resval.rpoint[0], rb.resval.rpoint[1], rb.resval.rpoint[2]);
                t.is2d = filer->lastPointWas2d();
            } else
                t.value = rb.resval.rreal;
            break;
        case AcDb::kDxfKindDouble: t.value = rb.resval.rreal; break;
        case AcDb::kDxfKindInt8:
        case AcDb::kDxfKindInt16:
        case AcDb::kDxfKindBool: t.value = static_cast<Adesk::Int64>(rb.resval.rint); break;
        case AcDb::kDxfKindInt32: t.value = static_cast<Adesk::Int64>(rb.resval.rlong); break;
        case AcDb::kDxfKindInt64: t.value = rb.resval.mnInt64; break;
        case AcDb::kDxfKindObjectId: {
            AcDbObjectId id;
            acdbGetObjectId(id, rb.resval.rlname);
            ACHAR buf[17];
            id.handle().getIntoAsciiBuffer(buf);
            t.value = std::wstring(buf);
            break;
        }
        case AcDb::kDxfKindBinary: {
            std::vector<Adesk::UInt8> bytes(static_cast<size_t>(rb.resval.rbinary.clen));
            if (!bytes.empty())
                std::memcpy(bytes.data(), rb.resval.rbinary.buf, bytes.size());
            t.value = std::move(bytes);
            break;
        }
        default: t.value = std::wstring(rb.resval.rstring ? rb.resval.rstring : L""); break;
        }
        tags.push_back(std::move(t));
    }
}

void acdbWriteTags(AcDbDwgFiler* f, const AcDbTagList& tags)
{
    f->writeInt32(static_cast<Adesk::Int32>(tags.size()));
    for (const AcDbTag& t : tags) {
        f->writeInt16(t.code);
        f->writeUInt8(static_cast<Adesk::UInt8>(t.value.index()));
        f->writeBool(t.is2d);
        switch (t.value.index()) {
        case 1: f->writeInt64(t.asInt()); break;
        case 2: f->writeDouble(t.asReal()); break;
        case 3: f->writeString(t.asText().c_str()); break;
        case 4: f->writePoint3d(t.asPoint()); break;
        case 5: {
            const auto& b = std::get<std::vector<Adesk::UInt8>>(t.value);
            f->writeBinaryChunk(reinterpret_cast<const char*>(b.data()), static_cast<Adesk::UInt32>(b.size()));
            break;
        }
        default: break;
        }
    }
}

Acad::ErrorStatus acdbReadTags(AcDbDwgFiler* f, AcDbTagList& tags)
{
    Adesk::Int32 n = 0;
    f->readInt32(&n);
    AcDbTagList read;
    for (Adesk::Int32 i = 0; i < n && f->filerStatus() == Acad::eOk; ++i) {
        AcDbTag t;
        Adesk::UInt8 kind = 0;
        f->readInt16(&t.code);
        f->readUInt8(&kind);
        f->readBool(&t.is2d);
        switch (kind) {
        case 1: { Adesk::Int64 v = 0; f->readInt64(&v); t.value = v; break; }
        case 2: { double v = 0; f->readDouble(&v); t.value = v; break; }
        case 3: { std::wstring v; f->readString(v); t.value = v; break; }
        case 4: { AcGePoint3d v; f->readPoint3d(&v); t.value = v; break; }
        case 5: {
            char* buf = nullptr;
            Adesk::UInt32 size = 0;
            f->readBinaryChunk(&buf, size);
            t.value = std::vector<Adesk::UInt8>(buf, buf + size);
            delete[] buf;
            break;
        }
        default: break;
        }
        read.push_back(std::move(t));
    }
    if (f->filerStatus() == Acad::eOk)
        tags = std::move(read);
    return f->filerStatus();
}
