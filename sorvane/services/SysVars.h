// System variables by name, with a zero answer and a trace line when one is unknown.
#pragma once

#include "host/ge/AcGePoint3d.h"

// The value, or 0 (the origin for a point) with a trace line when it can't be read.
double GetAcadVarD(const wchar_t* name);
int GetAcadVarI(const wchar_t* name);
AcGePoint3d GetAcadVarP(const wchar_t* name);
// Sets an integer variable and returns its old value; 0 and a trace line when the variable
// does not exist.
int SetAcadVar(const wchar_t* name, int value);
