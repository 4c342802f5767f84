// System variables: the editor-held table, the drawing header fallback, acedGetVar and
// acedSetVar with their reactor events, and SETVAR's text forms.
#include "host/ed/AcEdSysVar.h"

#include <cmath>
#include <map>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/acutads.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/AcEdUcs.h"
#include "host/ed/AcEdWindow.h"
#include "host/ed/AcEditorReactor.h"
#include "host/ed/EdCore.h"

using namespace eded;
using AcEdSysVars::Definition;

namespace {

AcDbDatabase* Db()
{
    return acdbHostApplicationServices()->workingDatabase();
}

void SetShort(resbuf& rb, int v)
{
    rb.restype = RTSHORT;
    rb.resval.rint = static_cast<short>(v);
}

void SetReal(resbuf& rb, double v)
{
    rb.restype = RTREAL;
    rb.resval.rreal = v;
}

void SetPoint(resbuf& rb, const AcGePoint3d& p)
{
    rb.restype = RT3DPOINT;
    rb.resval.rpoint[0] = p.x;
    rb.resval.rpoint[1] = p.y;
    rb.resval.rpoint[2] = p.z;
}

void SetString(resbuf& rb, const std::wstring& s)
{
    rb.restype = RTSTR;
    rb.resval.rstring = acutNewString(s.c_str());
}

int AsInt(const resbuf& rb)
{
    return rb.restype == RTSHORT ? rb.resval.rint : static_cast<int>(rb.resval.rlong);
}

// An editor-held integer with a range.
Definition IntVar(const std::wstring& name, int initial, int lo, int hi)
{
    auto value = std::make_shared<int>(initial);
    return Definition{name, RTSHORT, [value](resbuf& rb) { SetShort(rb, *value); },
                      [value, lo, hi](const resbuf& rb) {
                          const int v = AsInt(rb);
                          if (v < lo || v > hi)
                              return false;
                          *value = v;
                          return true;
                      }};
}

Definition ReadOnly(const std::wstring& name, short type, std::function<void(resbuf&)> get)
{
    return Definition{name, type, std::move(get), {}};
}

std::wstring FileName()
{
    AcDbDatabase* db = Db();
    std::wstring path = db ? db->filename() : L"";
    return path;
}

std::map<std::wstring, Definition>& Table()
{
    static std::map<std::wstring, Definition> table;
    static bool made = false;
    if (made)
        return table;
    made = true;
    auto add = [&](Definition d) { table[d.name] = std::move(d); };
    add(ReadOnly(L"CMDNAMES", RTSTR, [](resbuf& rb) { SetString(rb, commandNamesValue()); }));
    add(ReadOnly(L"CMDACTIVE", RTSHORT, [](resbuf& rb) { SetShort(rb, commandActiveValue()); }));
    add(Definition{L"ERRNO", RTSHORT, [](resbuf& rb) { SetShort(rb, state().errnoValue); },
                   [](const resbuf& rb) {
                       state().errnoValue = AsInt(rb);
                       return true;
                   }});
    add(ReadOnly(L"VIEWDIR", RT3DPOINT, [](resbuf& rb) {
        const AcGeVector3d v = wcsToUcs(AcGeVector3d::kZAxis);
        SetPoint(rb, AcGePoint3d(v.x, v.y, v.z));
    }));
    add(IntVar(L"SDI", 0, 0, 3));
    add(IntVar(L"FILEDIA", 1, 0, 1));
    add(IntVar(L"PICKFIRST", 1, 0, 1));
    add(IntVar(L"PICKBOX", 3, 0, 50));
    add(IntVar(L"APERTURE", 10, 1, 50));
    add(IntVar(L"CMDECHO", 1, 0, 1));
    add(IntVar(L"EXPERT", 0, 0, 5));
    add(IntVar(L"HIGHLIGHT", 1, 0, 1));
    add(IntVar(L"GRIPS", 1, 0, 2));
    add(IntVar(L"OSMODE", 0, 0, 32767));
    add(IntVar(L"CVPORT", 2, 1, 32767));
    add(Definition{L"LASTPOINT", RT3DPOINT, [](resbuf& rb) { SetPoint(rb, state().lastPointUcs); },
                   [](const resbuf& rb) {
                       state().lastPointUcs = AcGePoint3d(rb.resval.rpoint[0], rb.resval.rpoint[1],
                                                          rb.restype == RTPOINT ? 0.0 : rb.resval.rpoint[2]);
                       return true;
                   }});
    add(ReadOnly(L"UCSORG", RT3DPOINT, [](resbuf& rb) { SetPoint(rb, state().ucsOrigin); }));
    add(ReadOnly(L"UCSXDIR", RT3DPOINT, [](resbuf& rb) {
        const AcGeVector3d& v = state().ucsX;
        SetPoint(rb, AcGePoint3d(v.x, v.y, v.z));
    }));
    add(ReadOnly(L"UCSYDIR", RT3DPOINT, [](resbuf& rb) {
        const AcGeVector3d& v = state().ucsY;
        SetPoint(rb, AcGePoint3d(v.x, v.y, v.z));
    }));
    add(ReadOnly(L"WORLDUCS", RTSHORT, [](resbuf& rb) { SetShort(rb, acedIsWorldUcs() ? 1 : 0); }));
    add(ReadOnly(L"DWGNAME", RTSTR, [](resbuf& rb) {
        const std::wstring path = FileName();
        const size_t slash = path.find_last_of(L"/\\");
        SetString(rb, path.empty() ? L"Drawing1.dwg" : path.substr(slash == std::wstring::npos ? 0 : slash + 1));
    }));
    add(ReadOnly(L"DWGPREFIX", RTSTR, [](resbuf& rb) {
        const std::wstring path = FileName();
        const size_t slash = path.find_last_of(L"/\\");
        SetString(rb, slash == std::wstring::npos ? L"" : path.substr(0, slash + 1));
    }));
    add(ReadOnly(L"DWGTITLED", RTSHORT, [](resbuf& rb) { SetShort(rb, FileName().empty() ? 0 : 1); }));
    add(ReadOnly(L"DBMOD", RTSHORT, [](resbuf& rb) { SetShort(rb, Db() ? (Db()->dbmod() ? 1 : 0) : 0); }));
    add(ReadOnly(L"VIEWCTR", RT3DPOINT, [](resbuf& rb) { SetPoint(rb, wcsToUcs(acedGetViewState().center)); }));
    add(ReadOnly(L"VIEWSIZE", RTREAL, [](resbuf& rb) {
        const AcEdViewState v = acedGetViewState();
        SetReal(rb, v.height * v.unitsPerPixel);
    }));
    add(ReadOnly(L"SCREENSIZE", RTPOINT, [](resbuf& rb) {
        const AcEdViewState v = acedGetViewState();
        rb.restype = RTPOINT;
        rb.resval.rpoint[0] = v.width;
        rb.resval.rpoint[1] = v.height;
        rb.resval.rpoint[2] = 0.0;
    }));
    add(ReadOnly(L"PRODUCT", RTSTR, [](resbuf& rb) { SetString(rb, L"Sorvane Host"); }));
    // Dimension scale is kept with the drawing's dimension variables, not in the header list.
    add(Definition{L"DIMSCALE", RTREAL, [](resbuf& rb) { SetReal(rb, Db() ? Db()->dimscale() : 1.0); },
                   [](const resbuf& rb) {
                       const double v = rb.restype == RTREAL ? rb.resval.rreal : AsInt(rb);
                       return Db() && v >= 0.0 && Db()->setDimscale(v) == Acad::eOk;
                   }});
    return table;
}

// The header tags of a drawing-held variable, or null.
const AcDbTagList* HeaderTags(const std::wstring& name)
{
    AcDbDatabase* db = Db();
    return db ? db->headerVars().get(L"$" + name) : nullptr;
}

bool ResbufFromTag(const AcDbTag& tag, resbuf& rb)
{
    if (std::holds_alternative<Adesk::Int64>(tag.value)) {
        const Adesk::Int64 v = std::get<Adesk::Int64>(tag.value);
        if (v >= -32768 && v <= 32767)
            SetShort(rb, static_cast<int>(v));
        else {
            rb.restype = RTLONG;
            rb.resval.rlong = static_cast<Adesk::Int32>(v);
        }
    } else if (std::holds_alternative<double>(tag.value)) {
        SetReal(rb, std::get<double>(tag.value));
    } else if (std::holds_alternative<std::wstring>(tag.value)) {
        SetString(rb, std::get<std::wstring>(tag.value));
    } else if (std::holds_alternative<AcGePoint3d>(tag.value)) {
        SetPoint(rb, std::get<AcGePoint3d>(tag.value));
        if (tag.is2d)
            rb.restype = RTPOINT;
    } else {
        return false;
    }
    return true;
}

// The tag with the new value, when the resbuf's type fits the tag's.
bool TagFromResbuf(const AcDbTag& old, const resbuf& rb, AcDbTag& out)
{
    out = old;
    if (std::holds_alternative<Adesk::Int64>(old.value)) {
        if (rb.restype != RTSHORT && rb.restype != RTLONG)
            return false;
        out.value = static_cast<Adesk::Int64>(AsInt(rb));
    } else if (std::holds_alternative<double>(old.value)) {
        if (rb.restype == RTREAL)
            out.value = rb.resval.rreal;
        else if (rb.restype == RTSHORT || rb.restype == RTLONG)
            out.value = static_cast<double>(AsInt(rb));
        else
            return false;
    } else if (std::holds_alternative<std::wstring>(old.value)) {
        if (rb.restype != RTSTR || !rb.resval.rstring)
            return false;
        out.value = std::wstring(rb.resval.rstring);
    } else if (std::holds_alternative<AcGePoint3d>(old.value)) {
        if (rb.restype != RTPOINT && rb.restype != RT3DPOINT)
            return false;
        out.value = AcGePoint3d(rb.resval.rpoint[0], rb.resval.rpoint[1], rb.restype == RTPOINT ? 0.0 : rb.resval.rpoint[2]);
    } else {
        return false;
    }
    return true;
}

bool TypeFits(short type, const resbuf& rb)
{
    switch (type) {
    case RTSHORT:
        return rb.restype == RTSHORT || rb.restype == RTLONG;
    case RTREAL:
        return rb.restype == RTREAL || rb.restype == RTSHORT || rb.restype == RTLONG;
    case RTSTR:
        return rb.restype == RTSTR && rb.resval.rstring;
    case RTPOINT:
    case RT3DPOINT:
        return rb.restype == RTPOINT || rb.restype == RT3DPOINT;
    default:
        return false;
    }
}

} // namespace

int acedGetVar(const ACHAR* sym, resbuf* result)
{
    if (!sym || !result)
        return RTERROR;
    const std::wstring name = upper(trim(sym));
    auto& table = Table();
    auto it = table.find(name);
    if (it != table.end()) {
        result->rbnext = nullptr;
        it->second.get(*result);
        return RTNORM;
    }
    const AcDbTagList* tags = HeaderTags(name);
    if (!tags || tags->empty())
        return RTERROR;
    result->rbnext = nullptr;
    return ResbufFromTag(tags->front(), *result) ? RTNORM : RTERROR;
}

int acedSetVar(const ACHAR* sym, const resbuf* val)
{
    if (!sym || !val)
        return RTERROR;
    const std::wstring name = upper(trim(sym));
    auto& table = Table();
    auto it = table.find(name);
    if (it != table.end()) {
        Definition& d = it->second;
        if (!d.set || !TypeFits(d.type, *val))
            return RTERROR;
        resbuf copy = *val;
        if (d.type == RTREAL && copy.restype != RTREAL) {
            copy.resval.rreal = AsInt(*val);
            copy.restype = RTREAL;
        }
        AcEdEvents::sysVarWillChange(name.c_str());
        const bool ok = d.set(copy);
        AcEdEvents::sysVarChanged(name.c_str(), ok);
        return ok ? RTNORM : RTERROR;
    }
    const AcDbTagList* tags = HeaderTags(name);
    if (!tags || tags->empty())
        return RTERROR;
    AcDbTagList changed = *tags;
    if (!TagFromResbuf(tags->front(), *val, changed.front()))
        return RTERROR;
    AcEdEvents::sysVarWillChange(name.c_str());
    const bool ok = Db()->setHeaderVar(L"$" + name, changed) == Acad::eOk;
    AcEdEvents::sysVarChanged(name.c_str(), ok);
    return ok ? RTNORM : RTERROR;
}

namespace AcEdSysVars {

void define(Definition def)
{
    def.name = upper(def.name);
    Table()[def.name] = std::move(def);
}

bool isDefined(const std::wstring& name)
{
    return Table().count(upper(name)) != 0;
}

std::vector<std::wstring> names()
{
    std::vector<std::wstring> out;
    for (const auto& [k, v] : Table())
        out.push_back(k);
    return out;
}

bool isDrawingVariable(const std::wstring& name)
{
    return !isDefined(name) && HeaderTags(upper(name)) != nullptr;
}

namespace {
bool Get(const std::wstring& name, resbuf& rb)
{
    rb = resbuf();
    return acedGetVar(name.c_str(), &rb) == RTNORM;
}
} // namespace

bool getInt(const std::wstring& name, int& value)
{
    resbuf rb;
    if (!Get(name, rb))
        return false;
    if (rb.restype == RTSTR)
        delete[] rb.resval.rstring;
    if (rb.restype != RTSHORT && rb.restype != RTLONG)
        return false;
    value = AsInt(rb);
    return true;
}

bool getReal(const std::wstring& name, double& value)
{
    resbuf rb;
    if (!Get(name, rb))
        return false;
    if (rb.restype == RTSTR)
        delete[] rb.resval.rstring;
    if (rb.restype == RTREAL)
        value = rb.resval.rreal;
    else if (rb.restype == RTSHORT || rb.restype == RTLONG)
        value = AsInt(rb);
    else
        return false;
    return true;
}

bool getString(const std::wstring& name, std::wstring& value)
{
    resbuf rb;
    if (!Get(name, rb))
        return false;
    if (rb.restype != RTSTR)
        return false;
    value = rb.resval.rstring ? rb.resval.rstring : L"";
    delete[] rb.resval.rstring;
    return true;
}

bool setInt(const std::wstring& name, int value)
{
    resbuf rb{};
    SetShort(rb, value);
    if (value < -32768 || value > 32767) {
        rb.restype = RTLONG;
        rb.resval.rlong = value;
    }
    return acedSetVar(name.c_str(), &rb) == RTNORM;
}

bool setReal(const std::wstring& name, double value)
{
    resbuf rb{};
    SetReal(rb, value);
    return acedSetVar(name.c_str(), &rb) == RTNORM;
}

bool setString(const std::wstring& name, const std::wstring& value)
{
    resbuf rb{};
    rb.restype = RTSTR;
    std::wstring copy = value;
    rb.resval.rstring = copy.data();
    return acedSetVar(name.c_str(), &rb) == RTNORM;
}

std::wstring setFromText(const std::wstring& nameIn, const std::wstring& textIn)
{
    const std::wstring name = upper(trim(nameIn));
    const std::wstring text = trim(textIn);
    resbuf current{};
    if (acedGetVar(name.c_str(), &current) != RTNORM)
        return L"unknown variable";
    const short type = current.restype;
    if (type == RTSTR)
        delete[] current.resval.rstring;
    auto it = Table().find(name);
    if (it != Table().end() && !it->second.set)
        return L"read-only";
    resbuf rb{};
    std::wstring holder;
    switch (type) {
    case RTSHORT:
    case RTLONG: {
        double v = 0;
        if (!parseReal(text, v) || v != std::floor(v))
            return L"expects an integer";
        rb.restype = RTLONG;
        rb.resval.rlong = static_cast<Adesk::Int32>(v);
        if (v >= -32768 && v <= 32767)
            SetShort(rb, static_cast<int>(v));
        break;
    }
    case RTREAL: {
        double v = 0;
        if (!parseReal(text, v))
            return L"expects a number";
        SetReal(rb, v);
        break;
    }
    case RTSTR:
        holder = text.size() >= 2 && text.front() == L'"' && text.back() == L'"' ? text.substr(1, text.size() - 2) : text;
        rb.restype = RTSTR;
        rb.resval.rstring = holder.data();
        break;
    default: {
        AcGePoint3d p;
        if (!parsePoint(text, nullptr, p))
            return L"expects a point";
        SetPoint(rb, p);
        break;
    }
    }
    return acedSetVar(name.c_str(), &rb) == RTNORM ? std::wstring() : L"value refused";
}

std::wstring valueText(const std::wstring& name)
{
    resbuf rb{};
    if (acedGetVar(name.c_str(), &rb) != RTNORM)
        return std::wstring();
    wchar_t buf[128];
    switch (rb.restype) {
    case RTSHORT:
    case RTLONG:
        return std::to_wstring(AsInt(rb));
    case RTREAL:
        std::swprintf(buf, 128, L"%.4f", rb.resval.rreal);
        return buf;
    case RTSTR: {
        std::wstring s = L"\"" + std::wstring(rb.resval.rstring ? rb.resval.rstring : L"") + L"\"";
        delete[] rb.resval.rstring;
        return s;
    }
    case RTPOINT:
        std::swprintf(buf, 128, L"%.4f,%.4f", rb.resval.rpoint[0], rb.resval.rpoint[1]);
        return buf;
    default:
        std::swprintf(buf, 128, L"%.4f,%.4f,%.4f", rb.resval.rpoint[0], rb.resval.rpoint[1], rb.resval.rpoint[2]);
        return buf;
    }
}

void setErrno(int value)
{
    state().errnoValue = value;
}

int errnoValue()
{
    return state().errnoValue;
}

} // namespace AcEdSysVars
