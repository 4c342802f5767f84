// Writing and reading the binary record of custom objects.
#include "host/dxf/DxfCustomRecord.h"

#include "host/db/AcDbBinaryFiler.h"
#include "host/dxf/DxfError.h"
#include "host/dxf/DxfWideText.h"

#include <limits>

bool dxfWriteCustomRecord(DxfTagWriter& out, const AcDbObject* object, AcDbDatabase* db,
                          std::string& error)
{
    AcDbBinaryFiler filer(AcDb::kFileFiler, db);
    const Acad::ErrorStatus es = object->dwgOutFields(&filer);
    if (es != Acad::eOk || filer.filerStatus() != Acad::eOk) {
        error = "its record could not be written: " + dxfUtf8(filer.errorText()) + " (" +
                dxfUtf8(acadErrorStatusText(es != Acad::eOk ? es : filer.filerStatus())) + ")";
        return false;
    }
    const std::vector<Adesk::UInt8>& bytes = filer.bytes();
    if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        error = "its record is larger than 2 GB";
        return false;
    }
    out.writeString(100, kDxfCustomRecordMarker);
    out.writeInt(90, static_cast<std::int64_t>(bytes.size()));
    out.writeBinary(310, bytes.data(), bytes.size());
    return true;
}

std::size_t dxfFindCustomRecord(const std::vector<DxfItem>& items, std::size_t begin, std::size_t end)
{
    for (std::size_t i = begin; i < end; ++i) {
        const DxfTag& tag = items[i].tag;
        if (tag.code == 100 && tag.value == kDxfCustomRecordMarker)
            return i;
    }
    return end;
}

std::vector<std::uint8_t> dxfCollectCustomRecord(const std::vector<DxfItem>& items,
                                                 std::size_t markerIndex, std::size_t end,
                                                 const std::string& fileName)
{
    const std::size_t markerLine = items[markerIndex].tag.line;
    std::size_t i = markerIndex + 1;
    if (i >= end || items[i].tag.code != 90)
        throw DxfError(fileName, markerLine, "expected group 90 with the record size after 100/" +
                                                 std::string(kDxfCustomRecordMarker));
    const std::int64_t size = items[i].tag.asInt32();
    if (size < 0)
        throw DxfError(fileName, items[i].tag.line, "expected a record size of 0 or more");
    std::vector<std::uint8_t> bytes;
    for (++i; i < end; ++i) {
        const DxfTag& tag = items[i].tag;
        if (tag.code != 310)
            throw DxfError::expected(fileName, tag.line, "group 310 of the custom record",
                                     tag.describe());
        tag.appendBinary(bytes);
        // Checked while reading, so a file claiming little and holding much stops early.
        if (bytes.size() > static_cast<std::size_t>(size))
            break;
    }
    if (bytes.size() != static_cast<std::size_t>(size))
        throw DxfError(fileName, markerLine,
                       "custom record holds " + std::to_string(bytes.size()) +
                           " bytes, group 90 says " + std::to_string(size));
    return bytes;
}

Acad::ErrorStatus dxfReadCustomRecord(AcDbObject* object, const std::vector<std::uint8_t>& bytes,
                                      AcDbDatabase* db, std::string& error)
{
    AcDbBinaryFiler filer(bytes, AcDb::kFileFiler, db);
    Acad::ErrorStatus es = object->dwgInFields(&filer);
    if (es == Acad::eOk)
        es = filer.filerStatus();
    if (es == Acad::eOk && !filer.atEnd()) {
        error = "the record has bytes its class did not read";
        return Acad::eInvalidInput;
    }
    if (es != Acad::eOk)
        error = filer.errorText().empty() ? dxfUtf8(acadErrorStatusText(es)) : dxfUtf8(filer.errorText());
    return es;
}
