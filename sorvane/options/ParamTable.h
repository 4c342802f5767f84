// The table of numbered parameters: modes, parameter classes, the key each
// (class, index) is stored under and the value a key has when no file holds it.
#pragma once

#include "host/mfc/CString.h"
#include "host/win/WinTypes.h"

// Which kind of object a set of parameters is meant for.
constexpr int kModeAll = 1;            // every set at once (option sheet, mixed selections)
constexpr int kModeLinear = 2;         // linear chains
constexpr int kModeSectionHeight = 3;  // section height marks
constexpr int kModePlanHeight = 4;     // plan height marks
constexpr int kModeText = 5;           // texts

// Parameter classes: what (class, index) addresses.
constexpr int kParamString = 0;     // string of the current set
constexpr int kParamDouble = 1;     // double of the current set
constexpr int kParamInt = 2;        // integer of the current set
constexpr int kParamIntAlt = 3;     // integer too; named like class 2
constexpr int kParamOptString = 5;  // general string (arrayOptString)
constexpr int kParamOptInt = 6;     // general integer (arrayOptInt)

// Sizes every set is forced to before it is read.
constexpr int kSetDoubles = 18;
constexpr int kSetStrings = 13;
constexpr int kSetInts = 27;
// Sizes of the general arrays (the highest named index plus one).
constexpr int kOptStrings = 5;
constexpr int kOptInts = 16;

// The three sets, in the order they are loaded.
constexpr int kSetLinear = 0;
constexpr int kSetHeight = 1;
constexpr int kSetText = 2;
constexpr int kSetCount = 3;

// The set a mode reads and writes: height for 3 and 4, text for 5, linear
// for anything else (mode 1 reads the linear set).
int SetOfMode(int iMode);
// The mode a set is loaded and saved in: 2, 3 or 5.
int ModeOfSet(int iSet);
// Section prefix of a mode: "DH_" for 3 and 4, "TXT_" for 5, else "".
CString SectionPrefix(int iMode);

// Selected general integers and strings that code elsewhere reads by index.
constexpr int kOptIntAcadDimAssociative = 4;
constexpr int kOptIntWipeOut = 10;
constexpr int kOptIntAutoPosIgnoreExt = 12;  // bit 0 of the first AutoPosLocationOrder value
constexpr int kOptIntAutoPosMirror = 13;     // bit 1 of the same value
constexpr int kOptStringScalePaperSpace = 0;
constexpr int kOptStringAutoPosLocationOrder = 1;
constexpr int kOptStringAltFormatList = 4;
// Integer 22 knows only these two values; anything else counts as the second.
constexpr UINT kAltUnitsOn = 7;
constexpr UINT kAltUnitsDefault = 9;

// The key of (class, index) in a mode (already resolved: 0 is not "current"
// here). Rows with two names give the second in mode 3 only, since plan marks
// keep the first form. Null for an index without a name; classes 2 and 3 share
// their names.
LPCWSTR ParamKey(int iClass, int iIndex, int iMode);
// The text a key holds while no file has it, keyed like ParamKey; "" where the
// key has no default or (class, index) no name.
LPCWSTR ParamDefault(int iClass, int iIndex, int iMode);
