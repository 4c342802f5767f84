// What the native entities' worldDraw bodies share: the entity's own traits, drawing text
// styles made from style records, and MText contents laid out into runs (dimension texts
// are MText contents too).
#pragma once

#include <string>
#include <vector>

#include "host/db/AcDbObjectId.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeVector3d.h"
#include "host/gi/AcGiTextStyle.h"
#include "host/rx/Adesk.h"

class AcDbEntity;
class AcGiWorldDraw;

// Colour (index, or the true colour), layer, linetype, line weight and linetype scale of the
// entity, and selection marker 0. ByLayer and ByBlock stay as they are: the renderer and a
// block insert resolve them.
void acdbSetEntityTraits(const AcDbEntity* entity, AcGiWorldDraw* worldDraw);

// A drawing text style with the record's font, big font, size, x scale and obliquing angle.
// An id that names no text style record leaves the style as it is and answers false.
bool acdbTextStyleFromRecord(AcDbObjectId styleId, AcGiTextStyle& style);

// Below the baseline, as a share of the text height, where "bottom" alignments put the
// lowest descender: the outline fonts' descender is close to 0.3 of their cap height.
constexpr double kAcDbTextDescent = 0.3;

// One piece of laid-out text: a string in one style, starting on its baseline at (x, y) in
// the text's own axes, relative to the attachment point.
struct AcDbTextRun {
    std::wstring text;  // shown characters: codes are already translated
    AcGiTextStyle style;
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    int colorIndex = -1;  // -1: the entity's colour
    bool hasTrueColor = false;
    Adesk::UInt32 trueColor = 0;
};

// Laid-out MText: runs, fraction bars (pairs of points in text axes) and the box of it all.
struct AcDbTextBlock {
    std::vector<AcDbTextRun> runs;
    std::vector<double> bars;  // x0, y0, x1, y1 per bar
    double minX = 0.0, minY = 0.0, maxX = 0.0, maxY = 0.0;
};

struct AcDbTextLayoutParams {
    AcGiTextStyle style;          // the base font; its text size is not used
    double height = 1.0;          // the entity's text height
    double width = 0.0;           // wrapping width; 0 wraps only at paragraphs
    int attachment = 1;           // AcDbMText::AttachmentPoint, 1 top left .. 9 bottom right
    double lineSpacingFactor = 1.0;
};

// Lays out MText contents with their format codes: paragraphs, simple word wrap, height,
// width, font, colour and alignment switches, and stacks ("\S5^;" is a raised part).
AcDbTextBlock acdbLayoutMText(const std::wstring& contents, const AcDbTextLayoutParams& params);

// Draws laid-out text with its origin (the attachment point) at origin, x along direction.
// Colour switches are drawn with the traits and the colour of the moment is restored.
void acdbDrawTextBlock(AcGiWorldDraw* worldDraw, const AcDbTextBlock& block, const AcGePoint3d& origin,
                       const AcGeVector3d& direction, const AcGeVector3d& normal);
