// Pictures of a database: model space (or a window of it) drawn entity by entity into a
// display list and rendered to SVG, PDF or PNG, with the drawing's layers and draw order.
#pragma once

#include <string>

#include "host/db/AcDbEntity.h"
#include "host/gi/GiRenderer.h"

class AcDbDatabase;

struct AcDbRenderOptions {
    GiOutputFormat format = GiOutputFormat::kSvg;
    // The part of the drawing shown, in world x and y; without it, the extents of all drawn.
    bool hasWindow = false;
    AcGePoint2d windowMin;
    AcGePoint2d windowMax;
    // Paper scale: 50 is 1:50. 0 fits the picture into fitMm (the usual choice for SVG and
    // PNG); a PDF at a scale prints true to scale.
    double scale = 0.0;
    // Drawing units per millimetre; 0 takes it from the drawing's INSUNITS (millimetres when
    // unset).
    double unitsPerMm = 0.0;
    double fitMm = 297.0;
    double marginMm = 5.0;
    double dpi = 96.0;
    Adesk::UInt32 background = 0xFFFFFF;
    // Paper space instead of model space.
    bool paperSpace = false;
};

// Sets the entity's traits as the display does before it draws (colour, layer, linetype,
// line weight, marker 0) and calls its worldDraw. Custom entities that set no traits of their
// own so still draw on their layer.
Adesk::Boolean acdbDrawEntity(AcDbEntity* entity, AcGiWorldDraw* worldDraw);

// Draws the space's visible entities in draw order (the sort-entities table's, else the
// order they were added), leaving out erased and invisible ones and those on frozen layers.
Acad::ErrorStatus acdbDrawSpace(AcDbDatabase* db, GiDisplayList& out, bool paperSpace = false,
                                AcGiRegenType regenType = kAcGiStandardDisplay);

// The renderer's settings for db: layers off or frozen hidden, ByLayer resolved through the
// layer's colour, the options' window and scale.
GiRenderOptions acdbRenderOptions(AcDbDatabase* db, const AcDbRenderOptions& options);

// The picture's bytes or file. eNullObjectPointer without a database, eInvalidInput when
// the picture cannot be made (*error says why: an empty drawing, a file that cannot be
// written).
Acad::ErrorStatus acdbRenderDatabase(AcDbDatabase* db, const AcDbRenderOptions& options, std::string& bytes,
                                     std::string* error = nullptr);
Acad::ErrorStatus acdbRenderDatabaseToFile(AcDbDatabase* db, const AcDbRenderOptions& options,
                                           const std::string& path, std::string* error = nullptr);
