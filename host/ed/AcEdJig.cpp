// AcEdJig: the headless drag loop. Each input item becomes one sample: the sampler sees it
// through acquirePoint/Dist/Angle, update runs when the sampler reports a change, and a
// click, Enter, Esc, keyword or other text ends the drag.
#include "host/ed/AcEdJig.h"

#include <cmath>
#include <cstdarg>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/EdCore.h"
#include "host/ed/EdKeywords.h"
#include "host/win/wsprintf.h"

using namespace eded;

AcEdJig::AcEdJig() = default;
AcEdJig::~AcEdJig() = default;

AcEdJig::DragStatus AcEdJig::sampler()
{
    return kNormal;
}

Adesk::Boolean AcEdJig::update()
{
    return Adesk::kTrue;
}

AcDbEntity* AcEdJig::entity() const
{
    return nullptr;
}

void AcEdJig::setDispPrompt(const ACHAR* format, ...)
{
    if (!format) {
        m_prompt.clear();
        return;
    }
    va_list ap;
    va_start(ap, format);
    m_prompt = FormatWideV(format, ap);
    va_end(ap);
}

void AcEdJig::setKeywordList(const ACHAR* keywords)
{
    m_keywords = keywords ? keywords : L"";
}

AcEdJig::DragStatus AcEdJig::drag()
{
    const std::vector<Keyword> keywords = parseKeywords(m_keywords);
    const bool acceptOther = (m_controls & kAcceptOtherInputString) != 0;
    State& st = state();
    write(m_prompt);
    ++st.jigDepth;
    struct DepthGuard {
        int& d;
        ~DepthGuard() { --d; }
    } guard{st.jigDepth};
    m_inDrag = true;
    struct FlagGuard {
        bool& f;
        ~FlagGuard() { f = false; }
    } flagGuard{m_inDrag};

    for (;;) {
        AcEdInputItem item;
        bool first = false;
        const ReadResult r = readAnswer(item, m_prompt, first);
        Sample s;
        bool ends = true;
        std::wstring shown;
        if (r != ReadResult::kItem) {
            // Input that ran out ends a drag as Esc does, always: no loop may wait on it.
            s.status = kCancel;
            markAnswer(true);
            shown = L"*Cancel*";
        } else {
            markAnswer(false);
            switch (item.kind) {
            case AcEdInputKind::kMove:
            case AcEdInputKind::kClick: {
                AcGePoint3d p;
                const AcGePoint3d* base = m_hasLast ? &m_lastPoint : nullptr;
                AcGePoint3d baseUcs;
                if (base) {
                    baseUcs = wcsToUcs(*base);
                    base = &baseUcs;
                }
                if (item.args.empty() || !parsePoint(item.args[0], base, p)) {
                    error(L"a cursor position needs a point, e.g. \"@@move 10,20\"");
                    continue;
                }
                s.point = ucsToWcs(p);
                ends = item.kind == AcEdInputKind::kClick;
                shown = formatPoint(p);
                if (ends && !(m_controls & kDontUpdateLastPoint))
                    st.lastPointUcs = p;
                break;
            }
            case AcEdInputKind::kPick: {
                AcEdPickHit hit;
                const AcDbObjectId id = item.args.empty() ? AcDbObjectId() : resolveHandle(item.args[0]);
                if (id.isNull() || !acedPicker()->pickEntity(id, 0, hit)) {
                    error(L"@@pick: no entity with that handle");
                    continue;
                }
                s.point = hit.point;
                shown = formatPoint(wcsToUcs(hit.point));
                break;
            }
            case AcEdInputKind::kEnter:
                s.status = kNull;
                break;
            case AcEdInputKind::kText: {
                shown = item.text;
                const int k = keywords.empty() ? -1 : matchKeyword(keywords, item.text);
                AcGePoint3d p;
                double v = 0;
                if (k >= 0 && k < 9) {
                    s.status = static_cast<DragStatus>(kKW1 + k);
                    s.text = keywords[static_cast<size_t>(k)].global;
                    st.lastInput = s.text;
                } else if (parsePoint(item.text, nullptr, p)) {
                    s.point = ucsToWcs(p);
                } else if (parseReal(item.text, v)) {
                    s.hasValue = true;
                    s.value = v;
                } else if (acceptOther) {
                    s.status = kOther;
                    s.text = item.text;
                    st.lastInput = item.text;
                } else {
                    echo(item.text);
                    write(L"\nInvalid input.");
                    write(m_prompt);
                    continue;
                }
                break;
            }
            default:
                error(L"this line does not answer a drag");
                continue;
            }
        }
        if (!shown.empty() || ends)
            echo(shown);
        m_sample = s;
        const DragStatus fromSampler = sampler();
        if (!ends) {  // the cursor moved
            if (fromSampler == kNormal)
                update();
            else if (fromSampler != kNoChange)
                return fromSampler;
            continue;
        }
        if (s.status == kNull || s.status == kCancel)
            return fromSampler == kNormal || fromSampler == kNoChange ? s.status : fromSampler;
        if (fromSampler == kNormal)
            update();
        return fromSampler == kNoChange ? s.status : fromSampler;
    }
}

AcEdJig::DragStatus AcEdJig::acquire(AcGePoint3d* point, const AcGePoint3d* basePoint, double* dist, double* angle)
{
    const Sample& s = m_sample;
    if (s.status != kNormal)
        return s.status;
    if (point) {
        if (s.hasValue)
            return kNoChange;  // a number is no point
        const bool same = m_hasLast && s.point.isEqualTo(m_lastPoint);
        *point = s.point;
        m_lastPoint = s.point;
        m_hasLast = true;
        return same ? kNoChange : kNormal;
    }
    double v = 0.0;
    if (s.hasValue) {
        v = angle ? s.value * 3.14159265358979323846 / 180.0 : s.value;
    } else {
        const AcGePoint3d base = basePoint ? *basePoint : AcGePoint3d();
        const AcGePoint3d pu = wcsToUcs(s.point), bu = wcsToUcs(base);
        v = angle ? std::atan2(pu.y - bu.y, pu.x - bu.x) : s.point.distanceTo(base);
        if (angle && v < 0)
            v += 2 * 3.14159265358979323846;
    }
    if ((m_controls & kNoZeroResponseAccepted) && v == 0.0)
        return kNoChange;
    if ((m_controls & kNoNegativeResponseAccepted) && v < 0.0)
        return kNoChange;
    if (dist)
        *dist = v;
    if (angle)
        *angle = v;
    return kNormal;
}

AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& point)
{
    return acquire(&point, nullptr, nullptr, nullptr);
}

AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& point, const AcGePoint3d&)
{
    return acquire(&point, nullptr, nullptr, nullptr);
}

AcEdJig::DragStatus AcEdJig::acquireDist(double& distance)
{
    return acquire(nullptr, nullptr, &distance, nullptr);
}

AcEdJig::DragStatus AcEdJig::acquireDist(double& distance, const AcGePoint3d& basePoint)
{
    return acquire(nullptr, &basePoint, &distance, nullptr);
}

AcEdJig::DragStatus AcEdJig::acquireAngle(double& angle)
{
    return acquire(nullptr, nullptr, nullptr, &angle);
}

AcEdJig::DragStatus AcEdJig::acquireAngle(double& angle, const AcGePoint3d& basePoint)
{
    return acquire(nullptr, &basePoint, nullptr, &angle);
}

AcEdJig::DragStatus AcEdJig::acquireString(std::wstring& text)
{
    text = m_sample.text;
    return m_sample.status;
}

AcDbObjectId AcEdJig::append()
{
    AcDbEntity* ent = entity();
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    if (!ent || !db)
        return AcDbObjectId();
    AcDbBlockTableRecord* space = nullptr;
    if (acdbOpenObject(space, db->currentSpaceId(), AcDb::kForWrite) != Acad::eOk)
        return AcDbObjectId();
    AcDbObjectId id;
    const Acad::ErrorStatus es = space->appendAcDbEntity(id, ent);
    space->close();
    if (es != Acad::eOk)
        return AcDbObjectId();
    ent->close();
    return id;
}
