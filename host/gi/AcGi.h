// The display layer's shared enumerations and the opaque keys it uses for layers and linetypes.
#pragma once

#include <cstdint>

// Why a world draw runs; the numbers are the platform's.
enum AcGiRegenType {
    eAcGiRegenTypeInvalid = 0,
    kAcGiStandardDisplay = 2,
    kAcGiHideOrShadeCommand = 3,
    kAcGiRenderCommand = 4,
    kAcGiShadedDisplay = kAcGiRenderCommand,
    kAcGiForExplode = 5,
    kAcGiSaveWorldDrawForProxy = 6,
};

enum AcGiFillType {
    kAcGiFillAlways = 1,
    kAcGiFillNever = 2,
};

// How a circular arc is closed: open, as a pie slice through the centre, or by its chord.
enum AcGiArcType {
    kAcGiArcSimple = 0,
    kAcGiArcSector = 1,
    kAcGiArcChord = 2,
};

enum AcGiDeviationType {
    kAcGiMaxDevForCircle = 0,
    kAcGiMaxDevForCurve = 1,
    kAcGiMaxDevForBoundary = 2,
    kAcGiMaxDevForIsoline = 3,
    kAcGiMaxDevForFacet = 4,
};

// A layer or linetype as the display layer sees it: an opaque number that the database
// chooses (it passes the id's old-id value); 0 means "none given" (layer 0, linetype ByLayer).
// gi never looks inside a key, so it needs nothing of the database.
using AcGiLayerKey = std::uintptr_t;
using AcGiLinetypeKey = std::uintptr_t;

// Line weights in hundredths of a millimetre; the negative values are the platform's
// ByLayer, ByBlock and Default.
namespace AcGiLineWeight {
constexpr int kByLayer = -1;
constexpr int kByBlock = -2;
constexpr int kDefault = -3;
}  // namespace AcGiLineWeight
