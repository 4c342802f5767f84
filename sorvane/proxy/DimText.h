// The one value formatter, shared by chains, height marks and the style
// bridge: a distance in drawing units to the text an architect writes.
#pragma once

#include "host/mfc/CString.h"
#include "host/mfc/afxcoll.h"
#include "options/DoubleArray.h"

// iType of DistanceToText.
constexpr int kDistChain = 2;       // a chain's own value
constexpr int kDistAlternative = -2;  // alternative units (any negative iType)
constexpr int kDistHeight = 3;      // height marks: "m/cm" never falls to centimetres
constexpr int kDistStyle = 5;       // style bridge: sign kept, raised digit in MTEXT codes

// The mark of a raised digit inside a value text: "1.25^5".
constexpr wchar_t kRaisedMark = L'^';

// The value with 0 to 14 decimals; any other count prints "%f" and trims.
// With bTrim, trailing zeros go, and a bare "." after them (a "," stays).
// Untrimmed, a negative text that reads as zero loses its sign. A non-empty
// delimiter replaces "," and "." (each unless it is that sign itself).
CString& DoubleToText(CString& strOut, double dValue, int iDecimals, int bTrim, const wchar_t* pszDelimiter);

// The formatted distance for iType (see the constants above). dValue is in
// drawing units; arrayDouble[9] (drawing units per mm) is repaired from 0 to
// 0.001. arrayString[2] is the measure, [3] the INI file with the alternative
// units, [5] the delimiter; arrayInt[2] rounds (1: 5 mm, 2: 2.5 mm), [4] the
// decimals, [9] keeps "m/cm" in centimetres up to 10 m, [16] trims. Exactly
// 0 gives ""; without the option store "...<value>".
CString& DistanceToText(CString& strOut, int iType, double dValue, const CStringArray& arrayString,
                        const CUIntArray& arrayInt, CDoubleArray& arrayDouble);

// The tolerant parser of value texts: the first "," after the first
// character reads as "."; a text that then gives 0 but holds a "." after the
// first character is read again with a "," there.
double ValueTextToDouble(const CString& strText);

// A value text with a raised digit as a number: "1.25^5" reads 1.255,
// "85^6" reads 85.6.
double ParseRaisedValue(const CString& strText);

// An entry of "General Info" in the chain's own INI file (arrayString[3]);
// strDefault while the chain names no file or the file lacks the key.
CString ReadChainIniEntry(const CString& strIniFile, const wchar_t* pszKey, const CString& strDefault);
