// The database's shared enumerations: open modes, sub-entity kinds, colours, weights, units.
#pragma once

namespace AcDb {

enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

enum SubentType {
    kNullSubentType = 0,
    kFaceSubentType = 1,
    kEdgeSubentType = 2,
    kVertexSubentType = 3,
    kMlineSubentCache = 4,
    kClassSubentType = 5,
    kAxisSubentType = 6,
};

enum Intersect { kOnBothOperands = 0, kExtendThis = 1, kExtendArg = 2, kExtendBoth = 3 };

enum Visibility { kInvisible = 1, kVisible = 0 };

enum LineWeight {
    kLnWt000 = 0, kLnWt005 = 5, kLnWt009 = 9, kLnWt013 = 13, kLnWt015 = 15, kLnWt018 = 18,
    kLnWt020 = 20, kLnWt025 = 25, kLnWt030 = 30, kLnWt035 = 35, kLnWt040 = 40, kLnWt050 = 50,
    kLnWt053 = 53, kLnWt060 = 60, kLnWt070 = 70, kLnWt080 = 80, kLnWt090 = 90, kLnWt100 = 100,
    kLnWt106 = 106, kLnWt120 = 120, kLnWt140 = 140, kLnWt158 = 158, kLnWt200 = 200,
    kLnWt211 = 211,
    kLnWtByLayer = -1,
    kLnWtByBlock = -2,
    kLnWtByLwDefault = -3,
};

// Which kind of filing a filer serves; objects file differently for some (see AcDbObject).
enum FilerType {
    kFileFiler = 0,
    kCopyFiler = 1,
    kUndoFiler = 2,
    kBagFiler = 3,
    kIdXlateFiler = 4,
    kPageFiler = 5,
    kDeepCloneFiler = 6,
    kIdFiler = 7,
    kPurgeFiler = 8,
    kWblockCloneFiler = 9,
};

// Deep clone flavours, as the id map records them.
enum DeepCloneType {
    kDcCopy = 0,
    kDcExplode = 1,
    kDcBlock = 2,
    kDcXrefBind = 3,
    kDcSymTableMerge = 4,
    kDcInsert = 6,
    kDcWblock = 7,
    kDcObjects = 8,
    kDcXrefInsert = 9,
    kDcInsertCopy = 10,
    kDcWblkObjects = 11,
};

enum DuplicateRecordCloning {
    kDrcNotApplicable = 0,
    kDrcIgnore = 1,
    kDrcReplace = 2,
    kDrcXrefMangleName = 3,
    kDrcMangleName = 4,
    kDrcUnmangleName = 5,
};

enum UnitsValue {
    kUnitsUndefined = 0, kUnitsInches = 1, kUnitsFeet = 2, kUnitsMiles = 3,
    kUnitsMillimeters = 4, kUnitsCentimeters = 5, kUnitsMeters = 6, kUnitsKilometers = 7,
    kUnitsMicroinches = 8, kUnitsMils = 9, kUnitsYards = 10, kUnitsAngstroms = 11,
    kUnitsNanometers = 12, kUnitsMicrons = 13, kUnitsDecimeters = 14, kUnitsDekameters = 15,
    kUnitsHectometers = 16, kUnitsGigameters = 17, kUnitsAstronomical = 18,
    kUnitsLightYears = 19, kUnitsParsecs = 20, kUnitsMax = kUnitsParsecs,
};

enum MeasurementValue { kEnglish = 0, kMetric = 1 };

enum OsnapMode {
    kOsModeEnd = 1, kOsModeMid = 2, kOsModeCen = 3, kOsModeNode = 4, kOsModeQuad = 5,
    kOsModeIns = 7, kOsModePerp = 8, kOsModeTan = 9, kOsModeNear = 10, kOsModeApint = 11,
    kOsModePar = 12, kOsModeStart = 13,
};

// Drawing versions a database can be saved as; the number is the platform's.
enum AcDbDwgVersion {
    kDHL_MC0_0 = 0,
    kDHL_1012 = 16,  // R12
    kDHL_1015 = 23,  // R2000
    kDHL_1018 = 25,  // R2004
    kDHL_1021 = 27,  // R2007
    kDHL_1024 = 29,  // R2010
    kDHL_1027 = 31,  // R2013
    kDHL_1032 = 33,  // R2018
    kDHL_CURRENT = kDHL_1032,
    kDHL_Unknown = 32766,
};

enum MaintenanceReleaseVersion { kMRelease0 = 0, kMReleaseCurrent = 228 };

// Standard colour indices.
constexpr int kColorByBlock = 0;
constexpr int kColorByLayer = 256;

// The DXF group codes the database and its objects use by name. Values are the DXF ones.
enum DxfCode {
    kDxfInvalid = -9999,
    kDxfXDictionary = -6,
    kDxfPReactors = -5,
    kDxfOperator = -4,
    kDxfXDataStart = -3,
    kDxfHeaderId = -2,
    kDxfEnd = -1,
    kDxfStart = 0,
    kDxfText = 1,
    kDxfXRefPath = 1,
    kDxfShapeName = 2,
    kDxfBlockName = 2,
    kDxfAttributeTag = 2,
    kDxfSymbolTableName = 2,
    kDxfMstyleName = 2,
    kDxfSymTableRecName = 2,
    kDxfAttributePrompt = 3,
    kDxfDimStyleName = 3,
    kDxfLinetypeProse = 3,
    kDxfTextFontFile = 3,
    kDxfDescription = 3,
    kDxfDimPostStr = 3,
    kDxfTextBigFontFile = 4,
    kDxfDimAPostStr = 4,
    kDxfCLShapeName = 4,
    kDxfSymTableRecComments = 4,
    kDxfHandle = 5,
    kDxfDimBlk = 5,
    kDxfDimBlk1 = 6,
    kDxfLinetypeName = 6,
    kDxfDimBlk2 = 7,
    kDxfTextStyleName = 7,
    kDxfLayerName = 8,
    kDxfCLShapeText = 9,
    kDxfXCoord = 10,
    kDxfYCoord = 20,
    kDxfZCoord = 30,
    kDxfElevation = 38,
    kDxfThickness = 39,
    kDxfReal = 40,
    kDxfViewportHeight = 40,
    kDxfTxtSize = 40,
    kDxfTxtStyleXScale = 41,
    kDxfViewWidth = 41,
    kDxfViewportAspect = 41,
    kDxfTxtStylePSize = 42,
    kDxfViewLensLength = 42,
    kDxfViewFrontClip = 43,
    kDxfViewBackClip = 44,
    kDxfShapeXOffset = 44,
    kDxfShapeYOffset = 45,
    kDxfViewHeight = 45,
    kDxfShapeScale = 46,
    kDxfPixelScale = 47,
    kDxfLinetypeScale = 48,
    kDxfDashLength = 49,
    kDxfMlineOffset = 49,
    kDxfLinetypeElement = 49,
    kDxfAngle = 50,
    kDxfViewportSnapAngle = 50,
    kDxfViewportTwist = 51,
    kDxfVisibility = 60,
    kDxfLayerLinetype = 61,
    kDxfColor = 62,
    kDxfHasSubentities = 66,
    kDxfViewportVisibility = 67,
    kDxfViewportActive = 68,
    kDxfViewportNumber = 69,
    kDxfInt16 = 70,
    kDxfViewMode = 71,
    kDxfCircleSides = 72,
    kDxfViewportZoom = 73,
    kDxfViewportIcon = 74,
    kDxfViewportSnap = 75,
    kDxfViewportGrid = 76,
    kDxfViewportSnapStyle = 77,
    kDxfViewportSnapPair = 78,
    kDxfRegAppFlags = 71,
    kDxfTxtStyleFlags = 71,
    kDxfLinetypeAlign = 72,
    kDxfLinetypePDC = 73,
    kDxfInt32 = 90,
    kDxfSubclass = 100,
    kDxfEmbeddedObjectStart = 101,
    kDxfControlString = 102,
    kDxfDimVarHandle = 105,
    kDxfUCSOrg = 110,
    kDxfUCSOriX = 111,
    kDxfUCSOriY = 112,
    kDxfXReal = 140,
    kDxfInt64 = 160,
    kDxfXInt16 = 170,
    kDxfNormalX = 210,
    kDxfNormalY = 220,
    kDxfNormalZ = 230,
    kDxfXXInt16 = 270,
    kDxfInt8 = 280,
    kDxfRenderMode = 281,
    kDxfBool = 290,
    kDxfXTextString = 300,
    kDxfBinaryChunk = 310,
    kDxfArbHandle = 320,
    kDxfSoftPointerId = 330,
    kDxfHardPointerId = 340,
    kDxfSoftOwnershipId = 350,
    kDxfHardOwnershipId = 360,
    kDxfLineWeight = 370,
    kDxfPlotStyleNameType = 380,
    kDxfPlotStyleNameId = 390,
    kDxfXXXInt16 = 400,
    kDxfLayoutName = 410,
    kDxfColorRGB = 420,
    kDxfColorName = 430,
    kDxfAlpha = 440,
    kDxfGradientObjType = 450,
    kDxfGradientPatType = 451,
    kDxfGradientTintType = 452,
    kDxfGradientColCount = 453,
    kDxfGradientAngle = 460,
    kDxfGradientShift = 461,
    kDxfGradientTintVal = 462,
    kDxfGradientColVal = 463,
    kDxfGradientName = 470,
    kDxfFaceStyleId = 480,
    kDxfEdgeStyleId = 481,
    kDxfComment = 999,
    kDxfXdAsciiString = 1000,
    kDxfRegAppName = 1001,
    kDxfXdControlString = 1002,
    kDxfXdLayerName = 1003,
    kDxfXdBinaryChunk = 1004,
    kDxfXdHandle = 1005,
    kDxfXdXCoord = 1010,
    kDxfXdYCoord = 1020,
    kDxfXdZCoord = 1030,
    kDxfXdWorldXCoord = 1011,
    kDxfXdWorldYCoord = 1021,
    kDxfXdWorldZCoord = 1031,
    kDxfXdWorldXDisp = 1012,
    kDxfXdWorldYDisp = 1022,
    kDxfXdWorldZDisp = 1032,
    kDxfXdWorldXDir = 1013,
    kDxfXdWorldYDir = 1023,
    kDxfXdWorldZDir = 1033,
    kDxfXdReal = 1040,
    kDxfXdDist = 1041,
    kDxfXdScale = 1042,
    kDxfXdInteger16 = 1070,
    kDxfXdInteger32 = 1071,
    kDxfXdMax = 1071,
};

// What kind of value a DXF group code carries (see acdbGroupCodeKind in AcDbDxfCode.h).
enum DxfValueKind {
    kDxfKindUnknown = 0,
    kDxfKindString,
    kDxfKindDouble,
    kDxfKindPoint,     // x code; the reader joins its +10 and +20 partners
    kDxfKindInt8,      // 280-289: written as 16-bit, range 0..255 or -128..127
    kDxfKindInt16,
    kDxfKindInt32,
    kDxfKindInt64,
    kDxfKindBool,
    kDxfKindHandle,    // a handle in hex text that is not an object reference (5, 105, 320, 1005)
    kDxfKindObjectId,  // 330-369, 390-399, 480-481: an object reference by handle
    kDxfKindBinary,    // 310-319, 1004: hex text of bytes
};

}  // namespace AcDb
