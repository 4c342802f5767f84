// The common part of every object in a DXF file (handle, reactors, extension dictionary,
// owner) and its extended data: written from the object, split off a record when reading.
#pragma once

#include "host/db/AcDbObject.h"
#include "host/dxf/DxfFiler.h"
#include "host/dxf/DxfTagRecord.h"
#include "host/dxf/DxfTagWriter.h"

#include <cstdint>
#include <string>
#include <vector>

// 0 <type>, (2 <tableName> for table heads), 5 <handle> (105 for dimension styles),
// 102 {ACAD_REACTORS ... }, 102 {ACAD_XDICTIONARY ... }, 330 <owner> (0 for none).
void dxfWriteCommonPart(DxfTagWriter& out, std::string_view type, const AcDbObject* object,
                        int handleCode = 5, std::string_view tableName = {});
// The 1001 groups of the object's extended data.
void dxfWriteXData(DxfFiler& filer, const AcDbObject* object);

// Where a record's parts are. The body is [bodyBegin, bodyEnd); extended data runs from
// bodyEnd to the end. A handle after the body's first group (as some old files write it) is
// found too; its index is then handleIndex, which the body excludes by the caller's choice.
struct DxfCommonPart {
    bool hasHandle = false;
    std::uint64_t handle = 0;
    std::size_t handleLine = 0;
    std::size_t handleIndex = SIZE_MAX;  // only set for a handle inside the body
    bool hasOwner = false;
    std::uint64_t owner = 0;
    std::vector<std::uint64_t> reactors;
    std::uint64_t extensionDictionary = 0;
    std::size_t bodyBegin = 0;
    std::size_t bodyEnd = 0;
};

// Splits a record. handleCode is 5, or 105 for dimension styles. Throws DxfError for a broken
// 102 group or a bad handle.
void dxfSplitRecord(const DxfRecord& record, DxfCommonPart& part, const std::string& fileName,
                    int handleCode = 5);

// The extended data items [begin, end) as a resbuf chain for setXDataAsRead (the caller frees
// it with acutRelRb); null when there are none.
resbuf* dxfReadXData(DxfFiler& filer, const DxfItem* begin, const DxfItem* end);
