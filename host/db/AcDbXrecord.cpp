// Xrecords: a resbuf chain kept as tags.
#include "host/db/AcDbXrecord.h"

#include <cstring>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfCode.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbOpen.h"
#include "host/db/acutads.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, 0, 0, 0, XRECORD, ACAD)

AcDbXrecord::AcDbXrecord() = default;

AcDbXrecord::~AcDbXrecord() = default;

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase*) const
{
    assertReadEnabled();
    if (!chain)
        return Acad::eInvalidInput;
    resbuf* head = nullptr;
    resbuf** tail = &head;
    for (const AcDbTag& t : m_data) {
        resbuf* rb = acutNewRb(t.code);
        switch (acutRbKind(t.code)) {
        case AcutRbKind::kString: rb->resval.rstring = acutNewString(t.asText().c_str()); break;
        case AcutRbKind::kReal: rb->resval.rreal = t.asReal(); break;
        case AcutRbKind::kPoint: {
            const AcGePoint3d p = t.asPoint();
            rb->resval.rpoint[0] = p.x;
            rb->resval.rpoint[1] = p.y;
            rb->resval.rpoint[2] = p.z;
            break;
        }
        case AcutRbKind::kShort: rb->resval.rint = static_cast<short>(t.asInt()); break;
        case AcutRbKind::kLong: rb->resval.rlong = static_cast<Adesk::Int32>(t.asInt()); break;
        case AcutRbKind::kInt64: rb->resval.mnInt64 = t.asInt(); break;
        case AcutRbKind::kName: {
            AcDbObjectId id;
            if (AcDbDatabase* db = database())
                db->getAcDbObjectId(id, false, AcDbHandle(t.asText().c_str()));
            acdbGetAdsName(rb->resval.rlname, id);
            break;
        }
        case AcutRbKind::kBinary: {
            const auto* b = std::get_if<std::vector<Adesk::UInt8>>(&t.value);
            const size_t n = b ? b->size() : 0;
            rb->resval.rbinary.clen = static_cast<short>(n);
            rb->resval.rbinary.buf = new char[n ? n : 1];
            if (n)
                std::memcpy(rb->resval.rbinary.buf, b->data(), n);
            break;
        }
        case AcutRbKind::kNone: break;
        }
        *tail = rb;
        tail = &rb->rbnext;
    }
    *chain = head;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase*)
{
    AcDbTagList data;
    for (const resbuf* rb = &chain; rb; rb = rb->rbnext) {
        if (rb->restype >= RTNONE || acdbGroupCodeKind(rb->restype) == AcDb::kDxfKindUnknown)
            return Acad::eInvalidResBuf;
        AcDbTag t;
        t.code = rb->restype;
        switch (acutRbKind(rb->restype)) {
        case AcutRbKind::kString: t.value = std::wstring(rb->resval.rstring ? rb->resval.rstring : L""); break;
        case AcutRbKind::kReal: t.value = rb->resval.rreal; break;
        case AcutRbKind::kPoint: t.value = AcGePoint3d(rb->resval.rpoint[0], rb->resval.rpoint[1], rb->resval.rpoint[2]); break;
        case AcutRbKind::kShort: t.value = static_cast<Adesk::Int64>(rb->resval.rint); break;
        case AcutRbKind::kLong: t.value = static_cast<Adesk::Int64>(rb->resval.rlong); break;
        case AcutRbKind::kInt64: t.value = rb->resval.mnInt64; break;
        case AcutRbKind::kName: {
            AcDbObjectId id;
            acdbGetObjectId(id, rb->resval.rlname);
            ACHAR buf[17];
            id.handle().getIntoAsciiBuffer(buf);
            t.value = std::wstring(buf);
            break;
        }
        case AcutRbKind::kBinary: {
            const auto n = static_cast<size_t>(rb->resval.rbinary.clen > 0 ? rb->resval.rbinary.clen : 0);
            std::vector<Adesk::UInt8> b(n);
            if (n)
                std::memcpy(b.data(), rb->resval.rbinary.buf, n);
            t.value = std::move(b);
            break;
        }
        case AcutRbKind::kNone: return Acad::eInvalidResBuf;
        }
        data.push_back(std::move(t));
    }
    assertWriteEnabled();
    m_data = std::move(data);
    return Acad::eOk;
}

AcDb::DuplicateRecordCloning AcDbXrecord::mergeStyle() const { return m_mergeStyle; }
void AcDbXrecord::setMergeStyle(AcDb::DuplicateRecordCloning s) { assertWriteEnabled(); m_mergeStyle = s; }

Acad::ErrorStatus AcDbXrecord::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeInt16(static_cast<Adesk::Int16>(m_mergeStyle));
    acdbWriteTags(f, m_data);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbXrecord::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    Adesk::Int16 merge = 1;
    f->readInt16(&merge);
    AcDbTagList data;
    if (acdbReadTags(f, data) == Acad::eOk) {
        m_mergeStyle = static_cast<AcDb::DuplicateRecordCloning>(merge);
        m_data = std::move(data);
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbXrecord::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbXrecord"));
    f->writeInt8(AcDb::kDxfInt8, static_cast<Adesk::Int8>(m_mergeStyle));
    acdbWriteTags(f, m_data);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbXrecord::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbXrecord"));
    AcDbTagList tags;
    acdbReadTags(f, tags);
    m_data.clear();
    bool first = true;
    for (AcDbTag& t : tags) {
        if (first && t.code == 280)
            m_mergeStyle = static_cast<AcDb::DuplicateRecordCloning>(t.asInt());
        else
            m_data.push_back(std::move(t));
        first = false;
    }
    return f->filerStatus();
}
