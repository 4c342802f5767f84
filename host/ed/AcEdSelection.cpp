// Selection sets: the set table, acedSSGet and its modes, filters, pickfirst, pick paths.
#include "host/ed/AcEdSelection.h"

#include <algorithm>

#include "host/db/AcDbBlockReference.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbSymbolTable.h"
#include "host/db/acutads.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/AcEdSysVar.h"
#include "host/ed/AcEditorReactor.h"
#include "host/ed/EdCore.h"
#include "host/ge/geassign.h"
#include "host/rx/AcRxClass.h"

using namespace eded;

namespace {

constexpr Adesk::LongPtr kSetTag = 0x5353;

class NullPicker : public AcEdPicker {
public:
    std::vector<AcEdPickHit> pickAt(const AcGePoint3d&, double) override { return {}; }
    std::vector<AcEdPickHit> window(const AcGePoint3d&, const AcGePoint3d&, bool) override { return {}; }
    std::vector<AcEdPickHit> fence(const std::vector<AcGePoint3d>&) override { return {}; }
    std::vector<AcDbObjectId> all() override { return {}; }
    bool pickEntity(AcDbObjectId id, Adesk::GsMarker marker, AcEdPickHit& hit) override
    {
        if (id.isNull() || !id.isValid())
            return false;
        hit.id = id;
        hit.marker = marker;
        hit.point = AcGePoint3d();
        return true;
    }
};

AcEdPicker*& PickerSlot()
{
    static AcEdPicker* picker = nullptr;
    return picker;
}

std::vector<SelectionEntry>* Find(const ads_name ss)
{
    if (!ss || ss[1] != kSetTag)
        return nullptr;
    auto it = state().sets.find(ss[0]);
    return it == state().sets.end() ? nullptr : &it->second;
}

void NewSet(std::vector<SelectionEntry> entries, ads_name ss)
{
    State& st = state();
    const Adesk::LongPtr n = st.nextSet++;
    st.sets[n] = std::move(entries);
    ss[0] = n;
    ss[1] = kSetTag;
}

// Facts of an entity the filter tests.
struct Facts {
    bool ok = false;
    std::wstring dxfName;
    std::wstring layer;
    std::wstring blockName;
    int color = 256;
};

Facts FactsOf(AcDbObjectId id)
{
    Facts f;
    AcDbEntity* ent = nullptr;
    if (acdbOpenAcDbEntity(ent, id, AcDb::kForRead) != Acad::eOk)
        return f;
    f.ok = true;
    if (AcRxClass* cls = ent->isA())
        f.dxfName = cls->dxfName();
    f.layer = ent->layerName();
    f.color = ent->colorIndex();
    if (auto* br = AcDbBlockReference::cast(ent)) {
        AcDbSymbolTableRecord* rec = nullptr;
        if (acdbOpenObject(rec, br->blockTableRecord(), AcDb::kForRead) == Acad::eOk) {
            const ACHAR* name = nullptr;
            if (rec->getName(name) == Acad::eOk && name)
                f.blockName = name;
            rec->close();
        }
    }
    ent->close();
    return f;
}

bool Wc(const std::wstring& s, const ACHAR* pattern)
{
    return pattern && acutWcMatch(s.c_str(), pattern) == RTNORM;
}

bool IsOp(const resbuf* rb, const wchar_t* op)
{
    return rb && rb->restype == -4 && rb->resval.rstring && equalsNoCase(rb->resval.rstring, op);
}

bool EvalItem(const resbuf*& rb, const Facts& f);

// Items until the closing operator (or the end for the outermost list), combined.
bool EvalGroup(const resbuf*& rb, const Facts& f, const wchar_t* close, int mode /*0 and,1 or,2 xor*/)
{
    bool result = mode == 0;
    int trues = 0;
    while (rb && !(close && IsOp(rb, close))) {
        const bool v = EvalItem(rb, f);
        trues += v;
        if (mode == 0)
            result = result && v;
        else if (mode == 1)
            result = result || v;
    }
    if (rb && close)
        rb = rb->rbnext;  // past the closing operator
    return mode == 2 ? trues == 1 : result;
}

bool EvalItem(const resbuf*& rb, const Facts& f)
{
    if (rb->restype == -4) {
        const resbuf* op = rb;
        rb = rb->rbnext;
        if (IsOp(op, L"<and"))
            return EvalGroup(rb, f, L"and>", 0);
        if (IsOp(op, L"<or"))
            return EvalGroup(rb, f, L"or>", 1);
        if (IsOp(op, L"<xor"))
            return EvalGroup(rb, f, L"xor>", 2);
        if (IsOp(op, L"<not"))
            return !EvalGroup(rb, f, L"not>", 0);
        return false;  // a closing operator out of place, or a relational test
    }
    const resbuf* item = rb;
    rb = rb->rbnext;
    switch (item->restype) {
    case 0:
    case RTDXF0:
        return Wc(f.dxfName, item->resval.rstring);
    case 8:
        return Wc(f.layer, item->resval.rstring);
    case 2:
        return Wc(f.blockName, item->resval.rstring);
    case 62:
        return f.color == item->resval.rint;
    default:
        return false;  // codes this host does not filter on select nothing
    }
}

std::vector<SelectionEntry> Filtered(const std::vector<SelectionEntry>& in, const resbuf* filter)
{
    std::vector<SelectionEntry> out;
    for (const SelectionEntry& e : in) {
        if (std::any_of(out.begin(), out.end(), [&](const SelectionEntry& o) { return o.id == e.id; }))
            continue;
        if (acedFilterMatches(e.id, filter))
            out.push_back(e);
    }
    return out;
}

std::vector<SelectionEntry> FromHits(const std::vector<AcEdPickHit>& hits, int method)
{
    std::vector<SelectionEntry> out;
    for (const AcEdPickHit& h : hits)
        out.push_back({h.id, method, h.marker, h.point});
    return out;
}

std::vector<SelectionEntry> FromIds(const std::vector<AcDbObjectId>& ids)
{
    std::vector<SelectionEntry> out;
    for (const AcDbObjectId& id : ids)
        out.push_back({id, 0, 0, AcGePoint3d()});
    return out;
}

struct Mode {
    bool single = false, everything = false, noWindow = false, noCrossing = false;
    wchar_t kind = 0;  // 0 interactive or pick at pt1; 'F','W','C','X','L','P','I'
    bool valid = true;
};

Mode ParseMode(const ACHAR* str)
{
    Mode m;
    if (!str)
        return m;
    std::wstring s = upper(str);
    size_t i = 0;
    while (i < s.size()) {
        const wchar_t c = s[i];
        if (c == L'_' || c == L' ') {
            ++i;
        } else if (c == L':' && i + 1 < s.size()) {
            const wchar_t o = s[i + 1];
            if (o == L'S')
                m.single = true;
            else if (o == L'E')
                m.everything = true;
            else if (o != L'N' && o != L'D' && o != L'U' && o != L'V' && o != L'R')
                m.valid = false;
            i += 2;
        } else if (c == L'-' && i + 1 < s.size()) {
            if (s[i + 1] == L'W')
                m.noWindow = true;
            else if (s[i + 1] == L'C')
                m.noCrossing = true;
            else
                m.valid = false;
            i += 2;
        } else if (s.compare(i, 3, L"ALL") == 0 || c == L'X') {
            m.kind = L'X';
            i += c == L'X' ? 1 : 3;
        } else if (c == L'F' || c == L'W' || c == L'C' || c == L'L' || c == L'P' || c == L'I') {
            m.kind = c;
            ++i;
        } else {
            m.valid = false;
            ++i;
        }
    }
    return m;
}

// Picks at a UCS point by the mode's rule.
std::vector<SelectionEntry> PickPoint(const AcGePoint3d& ucs, bool everything)
{
    std::vector<AcEdPickHit> hits = acedPicker()->pickAt(ucsToWcs(ucs), aperture());
    if (!everything && hits.size() > 1)
        hits.erase(hits.begin(), hits.end() - 1);  // the topmost
    return FromHits(hits, 1);
}

int Finish(std::vector<SelectionEntry> entries, ads_name ss, bool enter)
{
    if (entries.empty()) {
        AcEdSysVars::setErrno(enter ? kErrnoNullInput : kErrnoNoEntity);
        return RTERROR;
    }
    State& st = state();
    st.previous.clear();
    for (const SelectionEntry& e : entries)
        st.previous.push_back(e.id);
    NewSet(std::move(entries), ss);
    return RTNORM;
}

int Interactive(const Mode& m, const resbuf* filter, ads_name ss)
{
    const std::wstring prompt = m.single ? L"\nSelect object: " : L"\nSelect objects: ";
    write(prompt);
    std::vector<SelectionEntry> chosen;
    for (;;) {
        AcEdInputItem item;
        bool first = false;
        const ReadResult r = readAnswer(item, prompt, first);
        if (r != ReadResult::kItem) {
            const int rc = noItemResult(r, first);
            if (rc == RTCAN) {
                echo(L"*Cancel*");
                return RTCAN;
            }
            echo(L"");
            return Finish(std::move(chosen), ss, true);
        }
        markAnswer(false);
        std::vector<SelectionEntry> found;
        bool understood = true;
        std::wstring shown = item.text;
        switch (item.kind) {
        case AcEdInputKind::kEnter:
            echo(L"");
            return Finish(std::move(chosen), ss, true);
        case AcEdInputKind::kMove:
            continue;
        case AcEdInputKind::kClick: {
            AcGePoint3d p;
            understood = !item.args.empty() && parsePoint(item.args[0], nullptr, p);
            if (understood) {
                found = PickPoint(p, m.everything);
                shown = formatPoint(p);
            }
            break;
        }
        case AcEdInputKind::kPick: {
            AcEdPickHit hit;
            const AcDbObjectId id = item.args.empty() ? AcDbObjectId() : resolveHandle(item.args[0]);
            const Adesk::GsMarker marker = item.args.size() > 1 ? std::wcstoll(item.args[1].c_str(), nullptr, 10) : 0;
            if (!id.isNull() && acedPicker()->pickEntity(id, marker, hit))
                found = FromHits({hit}, 1);
            shown = L"@@pick " + item.text;
            break;
        }
        case AcEdInputKind::kSelect:
            for (const std::wstring& h : item.args) {
                const AcDbObjectId id = resolveHandle(h);
                if (id.isNull())
                    error(L"@@select: no entity with the handle \"" + h + L"\"");
                else
                    found.push_back({id, 1, 0, AcGePoint3d()});
            }
            shown = L"@@select " + item.text;
            break;
        case AcEdInputKind::kWindow:
        case AcEdInputKind::kCrossing: {
            const bool crossing = item.kind == AcEdInputKind::kCrossing;
            AcGePoint3d a, b;
            understood = item.args.size() == 2 && parsePoint(item.args[0], nullptr, a) && parsePoint(item.args[1], nullptr, b);
            if (understood && ((crossing && m.noCrossing) || (!crossing && m.noWindow))) {
                error(std::wstring(crossing ? L"a crossing" : L"a window") + L" is not allowed at this selection");
                write(prompt);
                continue;
            }
            if (understood)
                found = FromHits(acedPicker()->window(ucsToWcs(a), ucsToWcs(b), crossing), crossing ? 3 : 2);
            shown = (crossing ? L"@@crossing " : L"@@window ") + item.text;
            break;
        }
        case AcEdInputKind::kFence: {
            std::vector<AcGePoint3d> pts;
            for (const std::wstring& a : item.args) {
                AcGePoint3d p;
                if (!parsePoint(a, nullptr, p)) {
                    understood = false;
                    break;
                }
                pts.push_back(ucsToWcs(p));
            }
            understood = understood && pts.size() >= 2;
            if (understood)
                found = FromHits(acedPicker()->fence(pts), 4);
            shown = L"@@fence " + item.text;
            break;
        }
        case AcEdInputKind::kText: {
            const std::wstring t = upper(trim(item.text));
            AcGePoint3d p;
            if (t == L"ALL" || t == L"_ALL")
                found = FromIds(acedPicker()->all());
            else if (t == L"L" || t == L"_L" || t == L"LAST") {
                const std::vector<AcDbObjectId> all = acedPicker()->all();
                if (!all.empty())
                    found = FromIds({all.back()});
            } else if (t == L"P" || t == L"_P" || t == L"PREVIOUS")
                found = FromIds(state().previous);
            else if (parsePoint(item.text, nullptr, p))
                found = PickPoint(p, m.everything);
            else
                understood = false;
            break;
        }
        default:
            error(L"this line does not answer a selection");
            write(prompt);
            continue;
        }
        echo(shown);
        if (!understood) {
            write(L"\n*Invalid selection*");
            if (m.single) {
                AcEdSysVars::setErrno(kErrnoNoEntity);
                return RTERROR;
            }
            write(prompt);
            continue;
        }
        const size_t before = found.size();
        found = Filtered(found, filter);
        size_t added = 0;
        for (const SelectionEntry& e : found)
            if (std::none_of(chosen.begin(), chosen.end(), [&](const SelectionEntry& c) { return c.id == e.id; })) {
                chosen.push_back(e);
                ++added;
            }
        std::wstring report = L"\n" + std::to_wstring(before) + L" found";
        if (before > found.size())
            report += L", " + std::to_wstring(before - found.size()) + L" filtered out";
        write(report);
        if (m.single)
            return Finish(std::move(chosen), ss, false);
        write(prompt);
    }
}

} // namespace

AcEdPicker* acedSetPicker(AcEdPicker* picker)
{
    AcEdPicker* before = acedPicker();
    PickerSlot() = picker;
    return before;
}

AcEdPicker* acedPicker()
{
    static NullPicker fallback;
    return PickerSlot() ? PickerSlot() : &fallback;
}

bool acedFilterMatches(AcDbObjectId id, const resbuf* filter)
{
    if (!filter)
        return !id.isNull();
    const Facts f = FactsOf(id);
    if (!f.ok)
        return false;
    const resbuf* rb = filter;
    return EvalGroup(rb, f, nullptr, 0);
}

int acedSSGet(const ACHAR* str, const void* pt1, const void* pt2, const resbuf* filter, ads_name ss)
{
    if (!ss)
        return RTERROR;
    const Mode m = ParseMode(str);
    if (!m.valid) {
        error(std::wstring(L"acedSSGet: unknown mode \"") + (str ? str : L"") + L"\"");
        return RTERROR;
    }
    State& st = state();
    ActiveCommand* cmd = innermost();
    const bool interactive = m.kind == 0 && !pt1;
    if (cmd && cmd->pickfirstPending && (interactive || m.kind == L'I')) {
        cmd->pickfirstPending = false;
        std::vector<SelectionEntry> implied = Filtered(FromIds(st.pickfirst), filter);
        setPickfirst({});
        if (!implied.empty())
            return Finish(std::move(implied), ss, false);
    }
    switch (m.kind) {
    case L'I':
        return Finish(Filtered(FromIds(st.pickfirst), filter), ss, false);
    case L'X':
        return Finish(Filtered(FromIds(acedPicker()->all()), filter), ss, false);
    case L'L': {
        const std::vector<AcDbObjectId> all = acedPicker()->all();
        return Finish(all.empty() ? std::vector<SelectionEntry>() : Filtered(FromIds({all.back()}), filter), ss, false);
    }
    case L'P':
        return Finish(Filtered(FromIds(st.previous), filter), ss, false);
    case L'W':
    case L'C':
        if (!pt1 || !pt2)
            return RTERROR;
        return Finish(Filtered(FromHits(acedPicker()->window(ucsToWcs(asPnt3d(static_cast<const ads_real*>(pt1))), ucsToWcs(asPnt3d(static_cast<const ads_real*>(pt2))), m.kind == L'C'),
                                        m.kind == L'C' ? 3 : 2),
                               filter),
                      ss, false);
    case L'F': {
        std::vector<AcGePoint3d> pts;
        for (auto* rb = static_cast<const resbuf*>(pt1); rb; rb = rb->rbnext)
            if (rb->restype == RTPOINT || rb->restype == RT3DPOINT)
                pts.push_back(ucsToWcs(AcGePoint3d(rb->resval.rpoint[0], rb->resval.rpoint[1],
                                                   rb->restype == RTPOINT ? 0.0 : rb->resval.rpoint[2])));
        if (pts.size() < 2)
            return RTERROR;
        return Finish(Filtered(FromHits(acedPicker()->fence(pts), 4), filter), ss, false);
    }
    default:
        break;
    }
    if (pt1)
        return Finish(Filtered(PickPoint(asPnt3d(static_cast<const ads_real*>(pt1)), m.everything), filter), ss, false);
    return Interactive(m, filter, ss);
}

int acedSSFree(const ads_name sname)
{
    if (!Find(sname))
        return RTERROR;
    state().sets.erase(sname[0]);
    return RTNORM;
}

int acedSSLength(const ads_name sname, Adesk::Int32* len)
{
    const auto* set = Find(sname);
    if (!set || !len)
        return RTERROR;
    *len = static_cast<Adesk::Int32>(set->size());
    return RTNORM;
}

int acedSSName(const ads_name ss, Adesk::Int32 i, ads_name entres)
{
    const auto* set = Find(ss);
    if (!set || i < 0 || static_cast<size_t>(i) >= set->size() || !entres)
        return RTERROR;
    return acdbGetAdsName(entres, (*set)[static_cast<size_t>(i)].id) == Acad::eOk ? RTNORM : RTERROR;
}

int acedSSNameX(resbuf** rbpp, const ads_name ss, Adesk::Int32 i, unsigned int)
{
    if (!rbpp)
        return RTERROR;
    *rbpp = nullptr;
    const auto* set = Find(ss);
    if (!set || i < 0 || static_cast<size_t>(i) >= set->size())
        return RTERROR;
    const SelectionEntry& e = (*set)[static_cast<size_t>(i)];
    ads_name name;
    if (acdbGetAdsName(name, e.id) != Acad::eOk)
        return RTERROR;
    const ads_real pt[3] = {e.point.x, e.point.y, e.point.z};
    *rbpp = acutBuildList(RTLB, RTSHORT, e.method, RTENAME, name, RTLONG, static_cast<int>(e.marker), RTLB, RTSHORT, 0,
                          RT3DPOINT, pt, RTLE, RTLE, 0);
    return *rbpp ? RTNORM : RTERROR;
}

int acedSSAdd(const ads_name ename, const ads_name sname, ads_name result)
{
    if (!result)
        return RTERROR;
    AcDbObjectId id;
    if (ename && acdbGetObjectId(id, ename) != Acad::eOk)
        return RTERROR;
    if (!sname) {
        std::vector<SelectionEntry> entries;
        if (ename)
            entries.push_back({id, 0, 0, AcGePoint3d()});
        NewSet(std::move(entries), result);
        return RTNORM;
    }
    auto* set = Find(sname);
    if (!set)
        return RTERROR;
    if (ename && std::none_of(set->begin(), set->end(), [&](const SelectionEntry& e) { return e.id == id; }))
        set->push_back({id, 0, 0, AcGePoint3d()});
    result[0] = sname[0];
    result[1] = sname[1];
    return RTNORM;
}

int acedSSDel(const ads_name ename, const ads_name ss)
{
    auto* set = Find(ss);
    AcDbObjectId id;
    if (!set || !ename || acdbGetObjectId(id, ename) != Acad::eOk)
        return RTERROR;
    const auto it = std::find_if(set->begin(), set->end(), [&](const SelectionEntry& e) { return e.id == id; });
    if (it == set->end())
        return RTERROR;
    set->erase(it);
    return RTNORM;
}

int acedSSMemb(const ads_name ename, const ads_name ss)
{
    const auto* set = Find(ss);
    AcDbObjectId id;
    if (!set || !ename || acdbGetObjectId(id, ename) != Acad::eOk)
        return RTERROR;
    return std::any_of(set->begin(), set->end(), [&](const SelectionEntry& e) { return e.id == id; }) ? RTNORM : RTERROR;
}

int acedSSSetFirst(const ads_name pset, const ads_name)
{
    if (!pset) {
        setPickfirst({});
        return RTNORM;
    }
    const auto* set = Find(pset);
    if (!set)
        return RTERROR;
    std::vector<AcDbObjectId> ids;
    for (const SelectionEntry& e : *set)
        ids.push_back(e.id);
    setPickfirst(std::move(ids));
    return RTNORM;
}

int acedSSGetFirst(resbuf** gset, resbuf** pset)
{
    if (gset)
        *gset = nullptr;
    if (!pset)
        return RTNORM;
    const std::vector<AcDbObjectId>& ids = state().pickfirst;
    if (ids.empty()) {
        *pset = acutNewRb(RTNIL);
        return RTNORM;
    }
    ads_name ss;
    NewSet(FromIds(ids), ss);
    *pset = acutNewRb(RTPICKS);
    (*pset)->resval.rlname[0] = ss[0];
    (*pset)->resval.rlname[1] = ss[1];
    return RTNORM;
}

std::vector<AcDbObjectId> acedPickfirstIds()
{
    return state().pickfirst;
}

void acedSetPickfirstIds(const std::vector<AcDbObjectId>& ids)
{
    setPickfirst(ids);
}

int acedSSCount()
{
    return static_cast<int>(state().sets.size());
}
