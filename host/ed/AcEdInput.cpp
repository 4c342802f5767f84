// The input functions: one prompt engine that reads answers, checks them against what the
// caller wants and the acedInitGet flags, and asks again after an answer it cannot take.
#include "host/ed/AcEdInput.h"

#include <cmath>
#include <cwchar>

#include "host/db/AcDbOpen.h"
#include "host/ed/AcEdSelection.h"
#include "host/ed/AcEdSysVar.h"
#include "host/ed/EdCore.h"
#include "host/ed/EdKeywords.h"
#include "host/ge/geassign.h"

using namespace eded;

namespace {

enum class Want { kPoint, kDist, kAngle, kInt, kReal, kString, kKword, kEntSel };

struct Answer {
    AcGePoint3d point;  // UCS
    double real = 0.0;
    int integer = 0;
    std::wstring text;
    AcEdPickHit hit;
};

constexpr double kPi = 3.14159265358979323846;

bool IsInteger(const std::wstring& t, int& v)
{
    const std::wstring s = trim(t);
    if (s.empty())
        return false;
    wchar_t* end = nullptr;
    const long long x = std::wcstoll(s.c_str(), &end, 10);
    if (*end != L'\0' || x < -32768 || x > 32767)  // the platform's integers are 16-bit
        return false;
    v = static_cast<int>(x);
    return true;
}

// Picks the topmost entity at a UCS point; false on a miss.
bool PickAt(const AcGePoint3d& ucs, AcEdPickHit& hit)
{
    const std::vector<AcEdPickHit> hits = acedPicker()->pickAt(ucsToWcs(ucs), aperture());
    if (hits.empty())
        return false;
    hit = hits.back();
    return true;
}

// The prompt engine. Returns the result code and fills the answer.
int Ask(Want want, const ACHAR* promptIn, const AcGePoint3d* base, int cronly, Answer& ans)
{
    State& st = state();
    const int flags = st.initFlags;
    const std::vector<Keyword> keywords = parseKeywords(st.initKeywords);
    st.initFlags = 0;
    st.initKeywords.clear();
    const std::wstring prompt = promptIn ? promptIn : L"";
    write(prompt);
    for (;;) {
        AcEdInputItem item;
        bool first = false;
        const ReadResult r = readAnswer(item, prompt, first);
        if (r != ReadResult::kItem) {
            const int rc = noItemResult(r, first);
            echo(rc == RTCAN ? L"*Cancel*" : L"");
            if (want == Want::kEntSel && rc == RTNONE) {
                AcEdSysVars::setErrno(kErrnoNullInput);
                return RTERROR;
            }
            return rc;
        }
        auto retry = [&](const std::wstring& why) {
            echo(item.kind == AcEdInputKind::kText ? item.text : std::wstring());
            write(L"\n" + why);
            write(prompt);
        };
        markAnswer(false);
        switch (item.kind) {
        case AcEdInputKind::kEnter:
            if ((flags & RSG_NONULL) && want != Want::kEntSel) {
                retry(L"Enter is not accepted here.");
                continue;
            }
            echo(L"");
            if (want == Want::kString) {
                ans.text.clear();
                return RTNORM;
            }
            if (want == Want::kEntSel) {
                AcEdSysVars::setErrno(kErrnoNullInput);
                return RTERROR;
            }
            return RTNONE;
        case AcEdInputKind::kMove:
            continue;  // the cursor moved; no answer yet
        case AcEdInputKind::kClick:
        case AcEdInputKind::kPick: {
            AcGePoint3d p;
            AcEdPickHit hit;
            bool ok = false;
            if (item.kind == AcEdInputKind::kClick) {
                ok = !item.args.empty() && parsePoint(item.args[0], base, p);
                if (ok && want == Want::kEntSel && !PickAt(p, hit)) {
                    echo(formatPoint(p));
                    write(L"\n*Invalid selection*");
                    AcEdSysVars::setErrno(kErrnoNoEntity);
                    return RTERROR;
                }
            } else {
                const AcDbObjectId id = item.args.empty() ? AcDbObjectId() : resolveHandle(item.args[0]);
                Adesk::GsMarker marker = 0;
                if (item.args.size() > 1)
                    marker = std::wcstoll(item.args[1].c_str(), nullptr, 10);
                ok = !id.isNull() && acedPicker()->pickEntity(id, marker, hit);
                if (ok)
                    p = wcsToUcs(hit.point);
                else {
                    error(L"@@pick: no entity with the handle \"" + (item.args.empty() ? L"" : item.args[0]) + L"\"");
                    if (want == Want::kEntSel) {
                        echo(L"");
                        AcEdSysVars::setErrno(kErrnoNoEntity);
                        return RTERROR;
                    }
                    write(prompt);
                    continue;
                }
            }
            if (!ok) {
                error(L"a click needs a point, e.g. \"@@click 10,20\"");
                write(prompt);
                continue;
            }
            echo(formatPoint(p));
            if (want == Want::kEntSel) {
                ans.hit = hit;
                ans.point = p;
                return RTNORM;
            }
            if (want == Want::kPoint) {
                ans.point = p;
                st.lastPointUcs = p;
                return RTNORM;
            }
            if ((want == Want::kDist || want == Want::kAngle) && base) {
                if (want == Want::kDist) {
                    const double dz = (flags & RSG_2D) ? 0.0 : p.z - base->z;
                    ans.real = std::sqrt((p.x - base->x) * (p.x - base->x) + (p.y - base->y) * (p.y - base->y) + dz * dz);
                } else {
                    ans.real = std::atan2(p.y - base->y, p.x - base->x);
                    if (ans.real < 0)
                        ans.real += 2 * kPi;
                }
                return RTNORM;
            }
            write(L"\nA point is not accepted here.");
            write(prompt);
            continue;
        }
        case AcEdInputKind::kText:
            break;
        default:
            error(L"this line answers no prompt of this kind (\"" + trim(prompt) + L"\")");
            write(prompt);
            continue;
        }

        // Typed text.
        const std::wstring text = item.text;
        if (want == Want::kString) {
            std::wstring t = text;
            if (!cronly) {
                const size_t blank = t.find(L' ');
                if (blank != std::wstring::npos)
                    t.erase(blank);
            }
            echo(text);
            ans.text = t;
            return RTNORM;
        }
        const int k = keywords.empty() ? -1 : matchKeyword(keywords, text);
        if (k >= 0) {
            echo(text);
            st.lastInput = keywords[static_cast<size_t>(k)].global;
            ans.text = st.lastInput;
            return want == Want::kKword ? RTNORM : RTKWORD;
        }
        bool taken = false;
        std::wstring why;
        switch (want) {
        case Want::kPoint: {
            AcGePoint3d p;
            if (parsePoint(text, base, p)) {
                ans.point = p;
                st.lastPointUcs = p;
                taken = true;
            } else
                why = keywords.empty() ? L"Invalid point." : L"Point or option keyword required.";
            break;
        }
        case Want::kDist:
        case Want::kReal:
        case Want::kAngle: {
            double v = 0;
            AcGePoint3d p;
            if (parseReal(text, v)) {
                ans.real = want == Want::kAngle ? v * kPi / 180.0 : v;
                taken = true;
            } else if (want != Want::kReal && base && parsePoint(text, base, p)) {
                if (want == Want::kDist)
                    ans.real = std::hypot(p.x - base->x, p.y - base->y);
                else
                    ans.real = std::atan2(p.y - base->y, p.x - base->x);
                taken = true;
            } else
                why = want == Want::kAngle ? L"Requires a valid angle or two points."
                                           : (want == Want::kDist ? L"Requires numeric distance or two points."
                                                                  : L"Requires a real value.");
            if (taken && want != Want::kAngle) {
                if ((flags & RSG_NOZERO) && ans.real == 0.0) {
                    taken = false;
                    why = L"Value must be nonzero.";
                } else if ((flags & RSG_NONEG) && ans.real < 0.0) {
                    taken = false;
                    why = L"Value must be positive.";
                }
            }
            break;
        }
        case Want::kInt: {
            int v = 0;
            if (IsInteger(text, v)) {
                ans.integer = v;
                taken = true;
                if ((flags & RSG_NOZERO) && v == 0) {
                    taken = false;
                    why = L"Value must be nonzero.";
                } else if ((flags & RSG_NONEG) && v < 0) {
                    taken = false;
                    why = L"Value must be positive.";
                }
            } else
                why = L"Requires an integer value.";
            break;
        }
        case Want::kEntSel: {
            AcGePoint3d p;
            if (parsePoint(text, nullptr, p)) {
                echo(text);
                if (!PickAt(p, ans.hit)) {
                    write(L"\n*Invalid selection*");
                    AcEdSysVars::setErrno(kErrnoNoEntity);
                    return RTERROR;
                }
                ans.point = p;
                return RTNORM;
            }
            why = L"*Invalid selection*";
            break;
        }
        case Want::kKword:
            why = L"Invalid option keyword.";
            break;
        case Want::kString:
            break;
        }
        if (taken) {
            echo(text);
            return RTNORM;
        }
        if (flags & RSG_OTHER) {
            echo(text);
            st.lastInput = text;
            ans.text = text;
            return RTKWORD;
        }
        retry(why);
    }
}

void ToAds(const AcGePoint3d& p, ads_point out)
{
    out[0] = p.x;
    out[1] = p.y;
    out[2] = p.z;
}

int CopyText(const std::wstring& text, ACHAR* out, size_t bufsize)
{
    if (!out || bufsize == 0)
        return RTERROR;
    const size_t n = text.size() < bufsize ? text.size() : bufsize - 1;
    std::wmemcpy(out, text.c_str(), n);
    out[n] = L'\0';
    return n < text.size() ? RTINPUTTRUNCATED : RTNORM;
}

int GetPointImpl(const ads_point pt, const ACHAR* prompt, ads_point result)
{
    Answer a;
    AcGePoint3d base;
    if (pt)
        base = asPnt3d(pt);
    const int rc = Ask(Want::kPoint, prompt, pt ? &base : nullptr, 0, a);
    if (rc == RTNORM && result)
        ToAds(a.point, result);
    return rc;
}

} // namespace

int acedInitGet(int val, const ACHAR* kwl)
{
    if (val < 0)
        return RTERROR;
    state().initFlags = val;
    state().initKeywords = kwl ? kwl : L"";
    return RTNORM;
}

int acedGetPoint(const ads_point pt, const ACHAR* prompt, ads_point result)
{
    return GetPointImpl(pt, prompt, result);
}

int acedGetCorner(const ads_point pt, const ACHAR* prompt, ads_point result)
{
    return GetPointImpl(pt, prompt, result);
}

namespace {
int GetRealWithBase(Want want, const ads_point pt, const ACHAR* prompt, ads_real* result)
{
    Answer a;
    AcGePoint3d base;
    if (pt)
        base = asPnt3d(pt);
    const int rc = Ask(want, prompt, pt ? &base : nullptr, 0, a);
    if (rc == RTNORM && result)
        *result = a.real;
    return rc;
}
} // namespace

int acedGetDist(const ads_point pt, const ACHAR* prompt, ads_real* result)
{
    return GetRealWithBase(Want::kDist, pt, prompt, result);
}

int acedGetAngle(const ads_point pt, const ACHAR* prompt, ads_real* result)
{
    return GetRealWithBase(Want::kAngle, pt, prompt, result);
}

int acedGetOrient(const ads_point pt, const ACHAR* prompt, ads_real* result)
{
    return GetRealWithBase(Want::kAngle, pt, prompt, result);
}

int acedGetInt(const ACHAR* prompt, int* result)
{
    Answer a;
    const int rc = Ask(Want::kInt, prompt, nullptr, 0, a);
    if (rc == RTNORM && result)
        *result = a.integer;
    return rc;
}

int acedGetReal(const ACHAR* prompt, ads_real* result)
{
    return GetRealWithBase(Want::kReal, nullptr, prompt, result);
}

int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, size_t bufsize)
{
    Answer a;
    const int rc = Ask(Want::kString, prompt, nullptr, cronly, a);
    if (rc != RTNORM)
        return rc;
    return CopyText(a.text, result, bufsize);
}

int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result)
{
    return acedGetString(cronly, prompt, result, 133);
}

int acedGetKword(const ACHAR* prompt, ACHAR* result, size_t bufsize)
{
    Answer a;
    const int rc = Ask(Want::kKword, prompt, nullptr, 0, a);
    if (rc != RTNORM)
        return rc;
    return CopyText(a.text, result, bufsize);
}

int acedGetKword(const ACHAR* prompt, ACHAR* result)
{
    return acedGetKword(prompt, result, 133);
}

int acedGetInput(ACHAR* str, size_t bufsize)
{
    return CopyText(state().lastInput, str, bufsize);
}

int acedGetInput(ACHAR* str)
{
    return acedGetInput(str, 133);
}

int acedEntSel(const ACHAR* str, ads_name entres, ads_point ptres)
{
    Answer a;
    const int rc = Ask(Want::kEntSel, str, nullptr, 0, a);
    if (rc != RTNORM)
        return rc;
    if (entres && acdbGetAdsName(entres, a.hit.id) != Acad::eOk)
        return RTERROR;
    if (ptres)
        ToAds(a.point, ptres);
    return RTNORM;
}

int acedNEntSelP(const ACHAR* str, ads_name entres, ads_point ptres, int pickflag, ads_matrix xformres,
                 resbuf** refstkres)
{
    if (refstkres)
        *refstkres = nullptr;
    int rc = RTNORM;
    if (pickflag) {
        // The point in ptres picks without asking.
        AcEdPickHit hit;
        if (!ptres || !PickAt(asPnt3d(ptres), hit)) {
            AcEdSysVars::setErrno(kErrnoNoEntity);
            return RTERROR;
        }
        if (entres && acdbGetAdsName(entres, hit.id) != Acad::eOk)
            return RTERROR;
    } else {
        rc = acedEntSel(str, entres, ptres);
    }
    if (rc == RTNORM && xformres)
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j)
                xformres[i][j] = i == j ? 1.0 : 0.0;
    return rc;
}

int acedNEntSel(const ACHAR* str, ads_name entres, ads_point ptres, ads_point xformres[4], resbuf** refstkres)
{
    if (refstkres)
        *refstkres = nullptr;
    const int rc = acedEntSel(str, entres, ptres);
    if (rc == RTNORM && xformres)
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 3; ++j)
                xformres[i][j] = i == j ? 1.0 : 0.0;
    return rc;
}

int acedPrompt(const ACHAR* str)
{
    if (str)
        write(str);
    return RTNORM;
}

int acedUsrBrk()
{
    return 0;
}
