// The entity traits every native worldDraw starts with, and drawing text styles taken from
// text style records.
#include "host/db/AcDbDraw.h"

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/gi/AcGiWorldDraw.h"

void acdbSetEntityTraits(const AcDbEntity* entity, AcGiWorldDraw* worldDraw)
{
    AcGiSubEntityTraits& traits = worldDraw->subEntityTraits();
    const AcCmEntityColor color = entity->entityColor();
    if (color.isByColor())
        traits.setTrueColor(color);
    else
        traits.setColor(static_cast<Adesk::UInt16>(color.colorIndex()));
    // Always set, null ids too: traits carry over from the entity drawn before.
    traits.setLayer(entity->layerId());
    traits.setLineType(entity->linetypeId());
    traits.setLineWeight(static_cast<int>(entity->lineWeight()));
    traits.setLineTypeScale(entity->linetypeScale());
    traits.setSelectionMarker(0);
}

bool acdbTextStyleFromRecord(AcDbObjectId styleId, AcGiTextStyle& style)
{
    // A peek and not an open: drawing must not fail because someone has the record open.
    const AcDbPeek peek(styleId);
    const auto* record = peek.as<AcDbTextStyleTableRecord>();
    if (!record)
        return false;
    style.setStyleName(record->name().c_str());
    style.setFileName(record->fileName());
    style.setBigFontFileName(record->bigFontFileName());
    if (!record->typeface().empty()) {
        ACHAR* typeface = nullptr;
        bool bold = false, italic = false;
        int charset = 0, pitchAndFamily = 0;
        if (record->font(typeface, bold, italic, charset, pitchAndFamily) == Acad::eOk && typeface)
            style.setFont(typeface, bold, italic, charset, pitchAndFamily);
        delete[] typeface;
    }
    if (record->textSize() > 0.0)
        style.setTextSize(record->textSize());
    style.setXScale(record->xScale() > 0.0 ? record->xScale() : 1.0);
    style.setObliquingAngle(record->obliquingAngle());
    return true;
}
