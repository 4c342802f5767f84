// Drawing of single-line text with its alignments, and of MText at its attachment point.
#include <cmath>

#include "host/db/AcDbDraw.h"
#include "host/db/AcDbMText.h"
#include "host/db/AcDbText.h"
#include "host/gi/AcGiWorldDraw.h"

namespace {

// The object x axis of a normal, turned by angle about it.
AcGeVector3d EcsDirection(const AcGeVector3d& normal, double angle)
{
    AcGeVector3d x(1.0, 0.0, 0.0);
    x.transformBy(AcGeMatrix3d::planeToWorld(normal));
    return x.rotateBy(angle, normal).normal();
}

} // namespace

Adesk::Boolean AcDbText::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw || m_text.empty())
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    worldDraw->subEntityTraits().setSelectionMarker(1);

    AcGiTextStyle style;
    acdbTextStyleFromRecord(m_style, style);
    double height = m_height;
    double xScale = m_widthFactor > 0.0 ? m_widthFactor : 1.0;
    style.setTextSize(height);
    style.setXScale(xScale);
    style.setObliquingAngle(m_oblique);
    style.setBackward((m_generation & 2) != 0);
    style.setUpsideDown((m_generation & 4) != 0);

    const AcGeVector3d normal = m_normal.normal();
    AcGeVector3d dir = EcsDirection(normal, m_rotation);
    AcGePoint2d boxMin, boxMax;
    style.extentsBox(m_text.c_str(), Adesk::kTrue, -1, Adesk::kFalse, boxMin, boxMax);
    double width = boxMax.x - boxMin.x;

    AcGePoint3d start = m_position;
    if (!isDefaultAlignment()) {
        const AcGeVector3d span = m_alignment - m_position;
        const double length = span.length();
        const bool fitted = (m_hmode == 3 || m_hmode == 5) && length > 0.0 && width > 0.0;
        if (fitted) {
            // Aligned keeps the proportions and scales the height; fit squeezes the width only.
            dir = span / length;
            if (m_hmode == 3)
                height *= length / width;
            else
                xScale *= length / width;
            style.setTextSize(height);
            style.setXScale(xScale);
            width = length;
        } else {
            const AcGeVector3d up = normal.crossProduct(dir).normal();
            double along = 0.0, above = 0.0;
            switch (m_hmode) {
            case 1: along = width / 2.0; break;
            case 2: along = width; break;
            case 4: along = width / 2.0; above = height / 2.0; break;
            default: break;
            }
            if (m_hmode != 4) {
                switch (m_vmode) {
                case 1: above = -kAcDbTextDescent * height; break;
                case 2: above = height / 2.0; break;
                case 3: above = height; break;
                default: break;
                }
            }
            start = m_alignment - dir * along - up * above;
        }
    }
    worldDraw->geometry().text(start, normal, dir, m_text.c_str(), -1, Adesk::kFalse, style);
    return Adesk::kTrue;
}

Adesk::Boolean AcDbMText::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw || m_contents.empty())
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    worldDraw->subEntityTraits().setSelectionMarker(1);

    AcDbTextLayoutParams params;
    acdbTextStyleFromRecord(m_style, params.style);
    params.height = m_height;
    params.width = m_width;
    params.attachment = m_attachment;
    params.lineSpacingFactor = m_spacingFactor;
    const AcDbTextBlock block = acdbLayoutMText(m_contents, params);
    acdbDrawTextBlock(worldDraw, block, m_location, m_direction, m_normal.normal());
    return Adesk::kTrue;
}
