// AcEdJig: interactive dragging. drag() reads the input: a cursor move calls sampler()
// (and update() when the sampler reports a change); a click samples the clicked point and
// ends with kNormal; Enter gives kNull, Esc kCancel, a keyword kKW1 ... kKW9.
#pragma once

#include <string>

#include "host/db/AcDbObjectId.h"
#include "host/ge/AcGePoint3d.h"
#include "host/rx/AcChar.h"
#include "host/rx/Adesk.h"

class AcDbEntity;

class AcEdJig {
public:
    enum UserInputControls {
        kGovernedByOrthoMode = 0x0001,
        kNullResponseAccepted = 0x0002,
        kDontEchoCancelForCtrlC = 0x0004,
        kDontUpdateLastPoint = 0x0008,
        kNoDwgLimitsChecking = 0x0010,
        kNoZeroResponseAccepted = 0x0020,
        kNoNegativeResponseAccepted = 0x0040,
        kAccept3dCoordinates = 0x0080,
        kAcceptMouseUpAsPoint = 0x0100,
        kAnyBlankTerminatesInput = 0x0200,
        kInitialBlankTerminatesInput = 0x0400,
        kAcceptOtherInputString = 0x0800,
        kGovernedByUCSDetect = 0x1000,
        kNoZDirectionOrtho = 0x2000,
        kImpliedFaceForUCSChange = 0x4000,
        kUseBasePointElevation = 0x8000,
        kDisableDirectDistanceInput = 0x10000,
    };

    enum DragStatus {
        kModeless = -17,
        kNoChange = -6,
        kCancel = -4,
        kOther = -3,
        kNull = -1,
        kNormal = 0,
        kKW1 = 1, kKW2, kKW3, kKW4, kKW5, kKW6, kKW7, kKW8, kKW9,
    };

    enum CursorType {
        kNoSpecialCursor = -1,
        kCrosshair = 0,
        kRectCursor,
        kRubberBand,
        kNotRotated,
        kTargetBox,
        kRotatedCrosshair,
        kCrosshairNoRotate,
        kInvisible,
        kEntitySelect,
        kParallelogram,
        kEntitySelectNoPersp,
        kPkfirstOrGrips,
        kCrosshairDashed,
    };

    AcEdJig();
    virtual ~AcEdJig();
    AcEdJig(const AcEdJig&) = delete;
    AcEdJig& operator=(const AcEdJig&) = delete;

    // Writes the prompt and runs the input loop until a click, Enter, Esc, a keyword,
    // other text (with kAcceptOtherInputString: kOther) or a sampler status other than
    // kNormal/kNoChange. Input that runs out ends it with kCancel.
    DragStatus drag();

    virtual DragStatus sampler();
    virtual Adesk::Boolean update();
    virtual AcDbEntity* entity() const;

    // Appends entity() to the current space of the working database and closes it. The
    // null id when there is no entity or no database.
    AcDbObjectId append();

    // Inside sampler(): the status of the input being sampled and its value. Points are
    // WCS. A typed number answers acquireDist/acquireAngle (degrees typed, radians given);
    // a point answers them as its distance from, or angle about, the base point.
    DragStatus acquirePoint(AcGePoint3d& point);
    DragStatus acquirePoint(AcGePoint3d& point, const AcGePoint3d& basePoint);
    DragStatus acquireDist(double& distance);
    DragStatus acquireDist(double& distance, const AcGePoint3d& basePoint);
    DragStatus acquireAngle(double& angle);
    DragStatus acquireAngle(double& angle, const AcGePoint3d& basePoint);
    // The other text of a kOther answer.
    DragStatus acquireString(std::wstring& text);

    const ACHAR* dispPrompt() const { return m_prompt.c_str(); }
    // printf-style, as the platform's.
    void setDispPrompt(const ACHAR* format, ...);
    // Same syntax as acedInitGet's list ("Lagepunkt,L L").
    void setKeywordList(const ACHAR* keywords);
    const ACHAR* keywordList() const { return m_keywords.c_str(); }
    void setUserInputControls(UserInputControls controls) { m_controls = controls; }
    UserInputControls userInputControls() const { return m_controls; }
    void setSpecialCursorType(CursorType type) { m_cursor = type; }
    CursorType specialCursorType() const { return m_cursor; }

    // The host's view of a running drag (one per nesting level).
    struct Sample {
        DragStatus status = kNormal;
        AcGePoint3d point;       // WCS
        bool hasValue = false;   // a typed number (value) rather than a point
        double value = 0.0;
        std::wstring text;       // the keyword's full form or other text
    };

private:
    DragStatus acquire(AcGePoint3d* point, const AcGePoint3d* basePoint, double* dist, double* angle);

    std::wstring m_prompt;
    std::wstring m_keywords;
    UserInputControls m_controls = UserInputControls(0);
    CursorType m_cursor = kNoSpecialCursor;
    Sample m_sample;
    AcGePoint3d m_lastPoint;
    bool m_hasLast = false;
    bool m_inDrag = false;
};
