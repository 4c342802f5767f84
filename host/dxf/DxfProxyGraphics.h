// Proxy graphics in DXF files: the picture of a custom entity written for readers without its
// class, and the graphics a kept record carries.
#pragma once

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbEntity.h"
#include "host/dxf/DxfRawObject.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

// Records entities' worldDraw with regen type kAcGiSaveWorldDrawForProxy (traits set as the
// display sets them) and encodes it; layers and linetypes are named by their position in the
// file's tables, which hold a database's records in table order without the erased ones.
class DxfProxyGraphicsWriter {
public:
    explicit DxfProxyGraphicsWriter(AcDbDatabase& db);

    // Empty when the entity draws nothing.
    std::vector<std::uint8_t> graphicsOf(AcDbEntity* entity) const;

private:
    std::unordered_map<std::uintptr_t, std::uint32_t> m_layers;
    std::unordered_map<std::uintptr_t, std::uint32_t> m_linetypes;
};

// The graphics in a kept entity's groups: 92 and the 310 groups after it in the AcDbEntity
// subclass. Empty when there are none or they disagree with their size.
std::vector<std::uint8_t> dxfProxyGraphicsOfTags(const std::vector<DxfRawTag>& tags);
