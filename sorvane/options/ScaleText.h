// Drawing scales as text ("1:100") and as the number the parameters keep.
#pragma once

#include "host/mfc/CString.h"

// "a:b" gives a / b, with a b of 0 read as 100 and an a of 0 as 1; a text
// without ":" is read as a number. "AnnoScale", "" and the annotative word
// (string 7102, "BMaß") give 0.01. Never 0: a text that would give 0 gives 1
// and a trace line.
double ScaleStr2Double(const CString& strScale);
