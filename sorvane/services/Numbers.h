// Numbers and their text: formatting for a precision and decimal sign, and
// reading numbers that may carry either decimal sign.
#pragma once

#include "host/mfc/CString.h"

// The value with 0 to 14 decimals (fewer count as 0, more as 14). With
// trimZeros, trailing zeros and a bare decimal sign go. A result that reads
// as zero never carries a minus sign. A non-empty decimalSign replaces the
// other sign: anything but "." replaces a point, anything but "," a comma.
CString FormatDouble(double value, int decimals, int trimZeros, const wchar_t* decimalSign = nullptr);
// FormatDouble with trailing zeros trimmed and a point as decimal sign.
CString Double2Str(double value, int decimals);

// Reads a number whose decimal sign is "," or "."; empty or null gives 0.0.
double Str2Double(const wchar_t* text);
// The INI reader's form: commas are read as points; a text that gives 0 but
// holds a point is read again with the point as a comma.
double StrToDouble(const wchar_t* text);

// 1 if the text is a plain number (digits, points, commas, one leading minus
// sign), 0 if it holds signs, blanks, operators or letters a to z.
int IsNumber(CString text);
