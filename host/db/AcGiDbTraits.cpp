// The id forms of the drawing traits: the display layer keys layers and
// linetypes by the object's stub, which only the database can name.
#include "host/db/AcDbObjectId.h"
#include "host/gi/AcGiSubEntityTraits.h"

void AcGiSubEntityTraits::setLayer(const AcDbObjectId& layerId)
{
    setLayer(static_cast<AcGiLayerKey>(layerId.asOldId()));
}

void AcGiSubEntityTraits::setLineType(const AcDbObjectId& linetypeId)
{
    setLineType(static_cast<AcGiLinetypeKey>(linetypeId.asOldId()));
}
