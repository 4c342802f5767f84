// System variables by name. Editor-held variables live in the editor's table; any other
// name is looked up in the working drawing's header ("TEXTSIZE" is "$TEXTSIZE").
// Names ignore case. A change fires sysVarWillChange/sysVarChanged.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/db/adsdef.h"
#include "host/rx/AcChar.h"

// RTNORM with the value in result (a string value is new[]-allocated: free it with
// acutRelRb on a chain, or delete[]); RTERROR for an unknown name.
int acedGetVar(const ACHAR* sym, resbuf* result);
// RTNORM; RTERROR for an unknown name, a read-only variable, a value of the wrong type or
// out of its range. A short variable takes RTSHORT/RTLONG, a real one RTREAL/RTSHORT, a
// point one RTPOINT/RT3DPOINT, a string one RTSTR.
int acedSetVar(const ACHAR* sym, const resbuf* val);

// The engine behind the variables, for the host's SETVAR command and for tests.
namespace AcEdSysVars {

// One editor-held variable. get fills a resbuf (restype and value) from the current state;
// set (absent: read-only) takes a checked value and returns false to refuse it.
struct Definition {
    std::wstring name;  // upper case
    short type = RTSHORT;  // RTSHORT, RTREAL, RTSTR, RT3DPOINT
    std::function<void(resbuf&)> get;
    std::function<bool(const resbuf&)> set;
};

// Adds or replaces an editor-held variable.
void define(Definition def);
bool isDefined(const std::wstring& name);
// Editor-held names, sorted.
std::vector<std::wstring> names();
// True when the name is held by the working drawing's header.
bool isDrawingVariable(const std::wstring& name);

// Convenience forms over acedGetVar/acedSetVar.
bool getInt(const std::wstring& name, int& value);
bool getReal(const std::wstring& name, double& value);
bool getString(const std::wstring& name, std::wstring& value);
bool setInt(const std::wstring& name, int value);
bool setReal(const std::wstring& name, double value);
bool setString(const std::wstring& name, const std::wstring& value);
// Sets from typed text as SETVAR does: parsed by the variable's type. An empty error means
// success; otherwise the reason ("unknown variable", "read-only", "expects an integer").
std::wstring setFromText(const std::wstring& name, const std::wstring& text);
// The value as SETVAR shows it ("1", "2.5000", "\"0\"", "0.0000,0.0000,1.0000").
std::wstring valueText(const std::wstring& name);

// Editor-held values the editor sets itself (not through acedSetVar, which refuses them
// as read-only): no reactor fires for these.
void setErrno(int value);
int errnoValue();

} // namespace AcEdSysVars
