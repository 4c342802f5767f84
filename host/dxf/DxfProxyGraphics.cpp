// Proxy graphics of custom entities on save, and of kept records on read.
#include "host/dxf/DxfProxyGraphics.h"

#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbRender.h"
#include "host/db/AcDbSymbolTable.h"
#include "host/gi/GiProxyGraphics.h"
#include "host/gi/GiRecordingDraw.h"

namespace {

void indexTable(AcDbObjectId tableId, std::unordered_map<std::uintptr_t, std::uint32_t>& out)
{
    const AcDbPeek peek(tableId);
    const auto* table = peek.as<AcDbSymbolTable>();
    if (!table)
        return;
    std::uint32_t index = 0;
    for (const AcDbObjectId& id : table->recordIds()) {
        if (id.isErased())
            continue;
        out.emplace(static_cast<std::uintptr_t>(id.asOldId()), index++);
    }
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

bool appendHex(const std::string& text, std::vector<std::uint8_t>& out)
{
    if (text.size() % 2 != 0)
        return false;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = hexDigit(text[i]);
        const int low = hexDigit(text[i + 1]);
        if (high < 0 || low < 0)
            return false;
        out.push_back(static_cast<std::uint8_t>(high << 4 | low));
    }
    return true;
}

}  // namespace

DxfProxyGraphicsWriter::DxfProxyGraphicsWriter(AcDbDatabase& db)
{
    indexTable(db.layerTableId(), m_layers);
    indexTable(db.linetypeTableId(), m_linetypes);
}

std::vector<std::uint8_t> DxfProxyGraphicsWriter::graphicsOf(AcDbEntity* entity) const
{
    GiDisplayList list;
    GiRecordingOptions recording;
    recording.regenType = kAcGiSaveWorldDrawForProxy;
    recording.database = entity->database();
    GiRecordingWorldDraw draw(list, recording);
    acdbDrawEntity(entity, &draw);
    if (list.empty())
        return {};
    GiProxyEncodeOptions options;
    // A key the tables don't know (a record of another drawing) falls back to the first one.
    options.layerIndex = [this](AcGiLayerKey key) {
        const auto it = m_layers.find(key);
        return it == m_layers.end() ? 0u : it->second;
    };
    options.linetypeIndex = [this](AcGiLinetypeKey key) {
        const auto it = m_linetypes.find(key);
        return it == m_linetypes.end() ? 0u : it->second;
    };
    return giEncodeProxyGraphics(list, options);
}

std::vector<std::uint8_t> dxfProxyGraphicsOfTags(const std::vector<DxfRawTag>& tags)
{
    std::size_t i = 0;
    while (i < tags.size() && !(tags[i].code == 100 && tags[i].value == "AcDbEntity"))
        ++i;
    for (++i; i < tags.size() && tags[i].code != 100; ++i) {
        if (tags[i].code != 92)
            continue;
        long long size = 0;
        try {
            size = std::stoll(tags[i].value);
        } catch (const std::exception&) {
            return {};
        }
        std::vector<std::uint8_t> bytes;
        for (++i; i < tags.size() && tags[i].code == 310; ++i)
            if (!appendHex(tags[i].value, bytes))
                return {};
        if (size < 0 || bytes.size() != static_cast<std::size_t>(size))
            return {};
        return bytes;
    }
    return {};
}
