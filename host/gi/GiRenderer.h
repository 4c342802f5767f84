// Pictures of display lists: SVG, PDF and PNG through one drawing path, of the whole extents
// or of a window, at a true paper scale or fitted to a size.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/ge/AcGePoint2d.h"
#include "host/gi/AcCmColor.h"
#include "host/gi/GiDisplayList.h"

enum class GiOutputFormat { kSvg, kPdf, kPng };

struct GiRenderOptions {
    GiOutputFormat format = GiOutputFormat::kSvg;
    // The part of the drawing shown, in world x and y; without it, the extents of all lists.
    bool hasWindow = false;
    AcGePoint2d windowMin;
    AcGePoint2d windowMax;
    // Paper millimetres = drawing units / (unitsPerMm * scale): scale 50 is 1:50, unitsPerMm
    // is 1 for a drawing in millimetres and 0.001 for one in metres. A scale of 0 or less fits
    // the window's longer side into fitMm.
    double scale = 0.0;
    double unitsPerMm = 1.0;
    double fitMm = 297.0;
    double marginMm = 5.0;
    double dpi = 96.0;                    // PNG pixels per inch of paper
    double defaultLineWeightMm = 0.18;    // lines of weight ByLayer, ByBlock or Default
    Adesk::UInt32 background = 0xFFFFFF;  // 0xRRGGBB
    // Layers the predicate refuses are not drawn (the database hides off and frozen ones).
    std::function<bool(AcGiLayerKey)> layerVisible;
    // The colour of a layer, for ByLayer primitives; without it they are black.
    std::function<AcCmEntityColor(AcGiLayerKey)> layerColor;
};

// The RGB a primitive is painted in: true colours as given, index 7 (and ByBlock, and
// ByLayer without a layer colour) black on a light background and white on a dark one, the
// other indexes from the standard palette.
Adesk::UInt32 giResolveColor(const GiTraits& traits, const GiRenderOptions& options);

// Draws the lists, in order, into one picture. false with *error set when it cannot be made.
bool giRenderToBytes(const std::vector<const GiDisplayList*>& lists, const GiRenderOptions& options,
                     std::string& bytes, std::string* error = nullptr);
bool giRenderToFile(const std::vector<const GiDisplayList*>& lists, const GiRenderOptions& options,
                    const std::string& path, std::string* error = nullptr);
