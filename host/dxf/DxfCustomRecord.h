// The binary record of custom objects in DXF files: after the groups its dxfOutFields writes,
// a custom object carries its whole dwgOutFields record in a subclass of its own:
//   100 SvBinaryRecord
//    90 <number of bytes>
//   310 <hex bytes, up to 127 bytes a group> ...
// The record is in the stream format of AcDbBinaryFiler, ids as handles. Other programs keep
// the subclass as unknown data; group 92 and the 310 groups of the AcDbEntity subclass stay
// free for proxy graphics.
#pragma once

#include "host/db/AcDbObject.h"
#include "host/dxf/DxfTagRecord.h"
#include "host/dxf/DxfTagWriter.h"

#include <cstdint>
#include <string>
#include <vector>

inline constexpr const char* kDxfCustomRecordMarker = "SvBinaryRecord";
inline constexpr const wchar_t* kDxfCustomRecordMarkerW = L"SvBinaryRecord";

// Writes the subclass with object's record; the error text when dwgOutFields fails.
bool dxfWriteCustomRecord(DxfTagWriter& out, const AcDbObject* object, AcDbDatabase* db,
                          std::string& error);

// The index of the "100 SvBinaryRecord" item in [0, end), or end when there is none.
std::size_t dxfFindCustomRecord(const std::vector<DxfItem>& items, std::size_t begin, std::size_t end);

// Gathers the record's bytes from the items after the marker. Throws DxfError when the size
// group is missing or disagrees with the bytes, or a group other than 310 follows.
std::vector<std::uint8_t> dxfCollectCustomRecord(const std::vector<DxfItem>& items,
                                                 std::size_t markerIndex, std::size_t end,
                                                 const std::string& fileName);

// Reads the record into the object with dwgInFields; the status it gave, with the filer's
// explanation in error.
Acad::ErrorStatus dxfReadCustomRecord(AcDbObject* object, const std::vector<std::uint8_t>& bytes,
                                      AcDbDatabase* db, std::string& error);
