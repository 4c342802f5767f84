// Drawing of proxy entities: the graphics their original class left behind, played back.
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDraw.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLinetypeTable.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbProxyEntity.h"
#include "host/gi/AcGiWorldDraw.h"
#include "host/gi/GiProxyGraphics.h"

namespace {

// The key of the record at a table position (proxy graphics name layers and linetypes by
// their index in the drawing's table); 0 when there is no such record.
std::uintptr_t KeyAt(AcDbObjectId tableId, std::uint32_t index)
{
    const AcDbPeek peek(tableId);
    const auto* table = peek.as<AcDbSymbolTable>();
    if (!table || index >= static_cast<std::uint32_t>(table->recordIds().length()))
        return 0;
    return static_cast<std::uintptr_t>(table->recordIds()[static_cast<int>(index)].asOldId());
}

} // namespace

Adesk::Boolean AcDbProxyEntity::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw || m_graphics.empty())
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    AcDbDatabase* db = database();
    GiProxyDecodeOptions options;
    if (db) {
        const AcDbObjectId layers = db->layerTableId();
        const AcDbObjectId linetypes = db->linetypeTableId();
        options.layerKey = [layers](std::uint32_t i) { return KeyAt(layers, i); };
        options.linetypeKey = [linetypes](std::uint32_t i) { return KeyAt(linetypes, i); };
    }
    // Malformed graphics draw what came before the fault; the entity itself stays as it is.
    giDrawProxyGraphics(m_graphics.data(), m_graphics.size(), *worldDraw, nullptr, options);
    return Adesk::kTrue;
}
