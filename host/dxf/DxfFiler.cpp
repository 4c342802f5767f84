// The DXF file filer: groups of one object to and from the tag level.
#include "host/dxf/DxfFiler.h"

#include "host/db/AcDbDxfCode.h"
#include "host/dxf/DxfError.h"
#include "host/dxf/DxfTagValue.h"
#include "host/dxf/DxfWideText.h"

#include <algorithm>
#include <exception>

DxfFiler::DxfFiler(DxfTagWriter& out, AcDbDatabase* db) : m_out(&out), m_db(db) {}

DxfFiler::DxfFiler(AcDbDatabase* db, DxfHandleResolver resolver, const std::string& fileName)
    : m_db(db), m_resolve(std::move(resolver)), m_file(fileName), m_wideFile(dxfWide(fileName))
{
}

void DxfFiler::setItems(const DxfItem* begin, const DxfItem* end)
{
    m_begin = m_pos = begin;
    m_end = end;
}

void DxfFiler::resetFilerStatus()
{
    m_status = Acad::eOk;
    m_error.clear();
    m_errorMessage.clear();
    m_errorLine = 0;
}

const ACHAR* DxfFiler::sourceName() const
{
    return m_wideFile.empty() ? nullptr : m_wideFile.c_str();
}

long DxfFiler::sourceLine() const
{
    if (!m_begin || m_begin == m_end)
        return 0;
    const DxfItem* at = m_pos > m_begin ? m_pos - 1 : m_begin;
    return static_cast<long>(at->tag.line);
}

void DxfFiler::fail(std::size_t line, const std::string& message)
{
    if (m_status == Acad::eOk)
        m_status = Acad::eInvalidInput;
    if (!m_error.empty())
        return;
    m_errorMessage = message;
    m_errorLine = line;
    if (m_out)
        m_error = message;
    else
        m_error = DxfError(m_file, line, message).what();
}

void DxfFiler::reportError(Acad::ErrorStatus status, const ACHAR* message)
{
    fail(static_cast<std::size_t>(sourceLine()), dxfUtf8(message ? message : L"invalid data"));
    m_status = status == Acad::eOk ? Acad::eInvalidInput : status;
}

Acad::ErrorStatus DxfFiler::readResBuf(resbuf* item)
{
    if (!item)
        return Acad::eInvalidInput;
    if (m_pos >= m_end) {
        item->restype = static_cast<short>(AcDb::kDxfEnd);
        return Acad::eEndOfObject;
    }
    const DxfItem& current = *m_pos++;
    const DxfTag& tag = current.tag;
    m_lastPoint2d = current.isPoint && !current.point.hasZ;
    item->restype = static_cast<short>(tag.code);
    try {
        switch (acdbGroupCodeKind(tag.code)) {
        case AcDb::kDxfKindDouble:
            item->resval.rreal = tag.asDouble();
            break;
        case AcDb::kDxfKindPoint:
            if (current.isPoint) {
                item->resval.rpoint[0] = current.point.x;
                item->resval.rpoint[1] = current.point.y;
                item->resval.rpoint[2] = current.point.z;
            } else {
                item->resval.rpoint[0] = tag.asDouble();
                item->resval.rpoint[1] = item->resval.rpoint[2] = 0;
            }
            break;
        case AcDb::kDxfKindInt8:
        case AcDb::kDxfKindInt16:
        case AcDb::kDxfKindBool:
            item->resval.rint = tag.asInt16();
            break;
        case AcDb::kDxfKindInt32:
            item->resval.rlong = tag.asInt32();
            break;
        case AcDb::kDxfKindInt64:
            item->resval.mnInt64 = tag.asInt64();
            break;
        case AcDb::kDxfKindObjectId: {
            const std::uint64_t handle = tag.asHandle();
            const AcDbObjectId id = handle && m_resolve ? m_resolve(handle) : AcDbObjectId();
            item->resval.rlname[0] = id.asOldId();
            item->resval.rlname[1] = 0;
            break;
        }
        case AcDb::kDxfKindBinary:
            m_bytes.clear();
            tag.appendBinary(m_bytes);
            item->resval.rbinary.clen = static_cast<short>(std::min<std::size_t>(m_bytes.size(), 32767));
            item->resval.rbinary.buf = reinterpret_cast<char*>(m_bytes.data());
            break;
        case AcDb::kDxfKindHandle:
        case AcDb::kDxfKindString:
        case AcDb::kDxfKindUnknown:
            m_text.clear();
            dxfAppendUtf8AsWide(tag.value, m_text);
            item->resval.rstring = m_text.data();
            break;
        }
    } catch (const DxfError& e) {
        fail(e.line(), e.message());
        m_text.clear();
        item->resval.rstring = m_text.data();
        return m_status;
    }
    return Acad::eOk;
}

void DxfFiler::pushBackItem()
{
    if (m_pos > m_begin)
        --m_pos;
}

template <typename Fn>
Acad::ErrorStatus DxfFiler::guarded(int code, Fn&& write)
{
    if (!m_out)
        return Acad::eNotApplicable;
    try {
        write();
    } catch (const std::exception& e) {
        fail(0, "group " + std::to_string(code) + ": " + e.what());
    }
    return m_status;
}

Acad::ErrorStatus DxfFiler::writeNumber(int code, std::int64_t value)
{
    return guarded(code, [&] {
        switch (dxfValueType(code)) {
        case DxfValueType::Double:
            m_out->writeDouble(code, static_cast<double>(value));
            break;
        case DxfValueType::Bool:
            m_out->writeBool(code, value != 0);
            break;
        case DxfValueType::Handle:
            m_out->writeHandle(code, static_cast<std::uint64_t>(value));
            break;
        case DxfValueType::String:
        case DxfValueType::Binary: {
            char buffer[kDxfNumberBufferSize];
            const std::size_t n = dxfFormatInt(value, 0, buffer);
            m_out->writeString(code, std::string_view(buffer, n));
            break;
        }
        default:
            m_out->writeInt(code, value);
        }
    });
}

void DxfFiler::setEntityGraphics(const std::vector<std::uint8_t>* graphics)
{
    m_graphics = graphics && !graphics->empty() ? graphics : nullptr;
    m_inEntitySubclass = false;
}

void DxfFiler::setGroupInSubclass(std::string marker, int beforeCode, int code, std::string value)
{
    m_hasAfterGroup = true;
    m_inAfterSubclass = false;
    m_afterBefore = beforeCode;
    m_afterMarker = std::move(marker);
    m_afterCode = code;
    m_afterValue = std::move(value);
}

void DxfFiler::finishInsertions()
{
    if (m_graphics && m_inEntitySubclass)
        writeGraphics();
    m_graphics = nullptr;
    m_inEntitySubclass = false;
    m_hasAfterGroup = false;
}

void DxfFiler::writeGraphics()
{
    m_out->writeInt(92, static_cast<std::int64_t>(m_graphics->size()));
    m_out->writeBinary(310, m_graphics->data(), m_graphics->size());
    m_graphics = nullptr;
}

// Called with the marker's text in m_scratch, before the marker is written.
void DxfFiler::onSubclassMarker()
{
    if (m_inEntitySubclass) {
        writeGraphics();
        m_inEntitySubclass = false;
    } else if (m_scratch == "AcDbEntity") {
        m_inEntitySubclass = true;
    }
}

Acad::ErrorStatus DxfFiler::writeString(AcDb::DxfCode code, const ACHAR* value)
{
    m_scratch.clear();
    if (value)
        dxfAppendWideAsUtf8(value, m_scratch);
    if (m_hasAfterGroup) {
        if (code == AcDb::kDxfSubclass) {
            m_inAfterSubclass = m_scratch == m_afterMarker;
        } else if (m_inAfterSubclass && code == m_afterBefore) {
            m_out->writeString(m_afterCode, m_afterValue);
            m_hasAfterGroup = false;
        }
    }
    if (code == AcDb::kDxfSubclass && m_graphics)
        onSubclassMarker();
    return guarded(code, [&] { m_out->writeString(code, m_scratch); });
}

Acad::ErrorStatus DxfFiler::writeBool(AcDb::DxfCode code, bool value)
{
    return writeNumber(code, value ? 1 : 0);
}

Acad::ErrorStatus DxfFiler::writeInt8(AcDb::DxfCode code, Adesk::Int8 value)
{
    return writeNumber(code, value);
}

Acad::ErrorStatus DxfFiler::writeInt16(AcDb::DxfCode code, Adesk::Int16 value)
{
    return writeNumber(code, value);
}

Acad::ErrorStatus DxfFiler::writeInt32(AcDb::DxfCode code, Adesk::Int32 value)
{
    return writeNumber(code, value);
}

Acad::ErrorStatus DxfFiler::writeInt64(AcDb::DxfCode code, Adesk::Int64 value)
{
    return writeNumber(code, value);
}

Acad::ErrorStatus DxfFiler::writeDouble(AcDb::DxfCode code, double value, int)
{
    return guarded(code, [&] { m_out->writeDouble(code, value); });
}

Acad::ErrorStatus DxfFiler::writePoint3d(AcDb::DxfCode code, const AcGePoint3d& value, int)
{
    // Codes without a z partner (18) take the point's x and y.
    if (dxfIsPointCode(code) && dxfPointZCode(code) < 0)
        return guarded(code, [&] { m_out->writePoint(code, value.x, value.y); });
    return guarded(code, [&] { m_out->writePoint(code, value.x, value.y, value.z); });
}

Acad::ErrorStatus DxfFiler::writePoint2d(AcDb::DxfCode code, const AcGePoint2d& value, int)
{
    return guarded(code, [&] { m_out->writePoint(code, value.x, value.y); });
}

Acad::ErrorStatus DxfFiler::writeObjectId(AcDb::DxfCode code, const AcDbObjectId& id)
{
    const std::uint64_t handle = id.isNull() ? 0 : id.handle().value();
    return guarded(code, [&] { m_out->writeHandle(code, handle); });
}

Acad::ErrorStatus DxfFiler::writeHandle(AcDb::DxfCode code, const AcDbHandle& handle)
{
    return guarded(code, [&] { m_out->writeHandle(code, handle.value()); });
}

Acad::ErrorStatus DxfFiler::writeBytes(AcDb::DxfCode code, const void* data, Adesk::UIntPtr size)
{
    return guarded(code, [&] {
        m_out->writeBinary(code, static_cast<const std::uint8_t*>(data), static_cast<std::size_t>(size));
    });
}
