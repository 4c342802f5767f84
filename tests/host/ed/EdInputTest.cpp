// Input functions driven by scripts: points in every form, numbers, strings, keywords,
// acedInitGet flags, Enter, Esc, and input that runs out.
#include <cmath>

#include "EdTestSupport.h"

using namespace edtest;

namespace {

struct Result {
    int rc = 0;
    ads_point pt = {0, 0, 0};
    double real = 0;
    int integer = 0;
    std::wstring text;
};

enum class Call { kPoint, kPointBase, kDist, kAngle, kInt, kReal, kString, kStringCr, kKword, kPointKw };

Result Ask(Call call, int flags = 0, const wchar_t* kw = nullptr)
{
    Result r;
    ACHAR buf[133] = {};
    const ads_point base = {10, 10, 0};
    if (flags || kw)
        acedInitGet(flags, kw);
    switch (call) {
    case Call::kPoint: r.rc = acedGetPoint(nullptr, L"\nPunkt: ", r.pt); break;
    case Call::kPointBase: r.rc = acedGetPoint(base, L"\nZweiter: ", r.pt); break;
    case Call::kDist: r.rc = acedGetDist(base, L"\nAbstand: ", &r.real); break;
    case Call::kAngle: r.rc = acedGetAngle(base, L"\nWinkel: ", &r.real); break;
    case Call::kInt: r.rc = acedGetInt(L"\nZahl: ", &r.integer); break;
    case Call::kReal: r.rc = acedGetReal(L"\nWert: ", &r.real); break;
    case Call::kString: r.rc = acedGetString(0, L"\nText: ", buf); r.text = buf; break;
    case Call::kStringCr: r.rc = acedGetString(1, L"\nText: ", buf); r.text = buf; break;
    case Call::kKword: r.rc = acedGetKword(L"\nOption: ", buf); r.text = buf; break;
    case Call::kPointKw:
        r.rc = acedGetPoint(nullptr, L"\nEntfernen/<Maßpunkt>: ", r.pt);
        if (r.rc == RTKWORD) {
            acedGetInput(buf);
            r.text = buf;
        }
        break;
    }
    return r;
}

class EdInputTest : public EdFixture {};

struct Case {
    const char* name;
    Call call;
    int flags;
    const wchar_t* keywords;
    const wchar_t* answers;  // the lines after "EDT"
    int rc;
    double x, y;  // point, or real in x, or integer in x
    const wchar_t* text;
};

const Case kCases[] = {
    {"absolute", Call::kPoint, 0, nullptr, L"3,4", RTNORM, 3, 4, L""},
    {"absolute3d", Call::kPoint, 0, nullptr, L"3,4,5", RTNORM, 3, 4, L""},
    {"relativeToLast", Call::kPoint, 0, nullptr, L"@2,1", RTNORM, 2, 1, L""},  // LASTPOINT is the origin
    {"relativeToBase", Call::kPointBase, 0, nullptr, L"@2,1", RTNORM, 12, 11, L""},
    {"polarToBase", Call::kPointBase, 0, nullptr, L"@10<90", RTNORM, 10, 20, L""},
    {"click", Call::kPoint, 0, nullptr, L"@@click 7,8", RTNORM, 7, 8, L""},
    {"enter", Call::kPoint, 0, nullptr, L"", RTNONE, 0, 0, L""},
    {"esc", Call::kPoint, 0, nullptr, L"@@esc", RTCAN, 0, 0, L""},
    {"noNullAsksAgain", Call::kPoint, RSG_NONULL, nullptr, L"\n5,6", RTNORM, 5, 6, L""},
    {"badPointAsksAgain", Call::kPoint, 0, nullptr, L"abc\n1,1", RTNORM, 1, 1, L""},
    {"keywordFull", Call::kPointKw, 0, L"Entfernen Remove", L"Entfernen", RTKWORD, 0, 0, L"Entfernen"},
    {"keywordCapital", Call::kPointKw, 0, L"Entfernen Remove", L"e", RTKWORD, 0, 0, L"Entfernen"},
    {"keywordUpper", Call::kPointKw, 0, L"Entfernen Remove", L"REMOVE", RTKWORD, 0, 0, L"Remove"},
    {"keywordPrefix", Call::kPointKw, 0, L"Entfernen Remove", L"Ent", RTKWORD, 0, 0, L"Entfernen"},
    {"keywordGlobal", Call::kPointKw, 0, L"Entfernen Weg _ Remove Away", L"_Away", RTKWORD, 0, 0, L"Away"},
    {"keywordAbbrev", Call::kPointKw, 0, L"Lagepunkt,L", L"l", RTKWORD, 0, 0, L"Lagepunkt"},
    {"otherText", Call::kPointKw, RSG_OTHER, nullptr, L"hallo", RTKWORD, 0, 0, L"hallo"},
    {"pointWithKeywordsArmed", Call::kPointKw, 0, L"Entfernen", L"1,2", RTNORM, 1, 2, L""},
    {"distNumber", Call::kDist, 0, nullptr, L"2.5", RTNORM, 2.5, 0, L""},
    {"distPoint", Call::kDist, 0, nullptr, L"13,14", RTNORM, 5, 0, L""},
    {"distNoZero", Call::kDist, RSG_NOZERO, nullptr, L"0\n4", RTNORM, 4, 0, L""},
    {"distNoNeg", Call::kDist, RSG_NONEG, nullptr, L"-1\n3", RTNORM, 3, 0, L""},
    {"angleDegrees", Call::kAngle, 0, nullptr, L"90", RTNORM, M_PI / 2, 0, L""},
    {"anglePoint", Call::kAngle, 0, nullptr, L"10,20", RTNORM, M_PI / 2, 0, L""},
    {"int", Call::kInt, 0, nullptr, L"42", RTNORM, 42, 0, L""},
    {"intRejectsReal", Call::kInt, 0, nullptr, L"4.5\n-7", RTNORM, -7, 0, L""},
    {"intNoZero", Call::kInt, RSG_NOZERO, nullptr, L"0\n9", RTNORM, 9, 0, L""},
    {"intEnter", Call::kInt, 0, nullptr, L"", RTNONE, 0, 0, L""},
    {"real", Call::kReal, 0, nullptr, L"-1.25", RTNORM, -1.25, 0, L""},
    {"stringWord", Call::kString, 0, nullptr, L"zwei Worte", RTNORM, 0, 0, L"zwei"},
    {"stringLine", Call::kStringCr, 0, nullptr, L"zwei Worte", RTNORM, 0, 0, L"zwei Worte"},
    {"stringEmpty", Call::kString, 0, nullptr, L"", RTNORM, 0, 0, L""},
    {"kwordBadThenGood", Call::kKword, 0, L"Ja Nein", L"vielleicht\nn", RTNORM, 0, 0, L"Nein"},
    {"kwordEsc", Call::kKword, 0, L"Ja Nein", L"@@esc", RTCAN, 0, 0, L""},
};

TEST_F(EdInputTest, AnswersTable)
{
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        eded::resetState();
        Result got;
        Body() = [&] { got = Ask(c.call, c.flags, c.keywords); };
        EXPECT_TRUE(Run(std::wstring(L"EDT\n") + c.answers + L"\n")) << session->transcript().text().c_str();
        session->clearFailure();
        EXPECT_EQ(got.rc, c.rc);
        if (c.rc != RTNORM && c.rc != RTKWORD)
            continue;
        switch (c.call) {
        case Call::kPoint:
        case Call::kPointBase:
        case Call::kPointKw:
            if (c.rc == RTNORM) {
                EXPECT_NEAR(got.pt[0], c.x, 1e-9);
                EXPECT_NEAR(got.pt[1], c.y, 1e-9);
            }
            break;
        case Call::kDist:
        case Call::kAngle:
        case Call::kReal:
            EXPECT_NEAR(got.real, c.x, 1e-9);
            break;
        case Call::kInt:
            EXPECT_EQ(got.integer, static_cast<int>(c.x));
            break;
        default:
            break;
        }
        if (c.rc == RTKWORD || c.call == Call::kString || c.call == Call::kStringCr || c.call == Call::kKword) {
            EXPECT_EQ(got.text, c.text);
        }
    }
}

TEST_F(EdInputTest, PointsFollowTheUcs)
{
    acedSetCurrentUcs(AcGePoint3d(100, 0, 0), AcGeVector3d(0, 1, 0), AcGeVector3d(-1, 0, 0));
    ads_point pt = {};
    ads_point wcs = {};
    Body() = [&] {
        acedGetPoint(nullptr, L"\nP: ", pt);
        acdbUcs2Wcs(pt, wcs, false);
    };
    EXPECT_TRUE(Run(L"EDT\n1,2\n"));
    EXPECT_DOUBLE_EQ(pt[0], 1);  // answers stay in UCS
    EXPECT_DOUBLE_EQ(wcs[0], 98);
    EXPECT_DOUBLE_EQ(wcs[1], 1);
    AcGeMatrix3d m;
    acdbUcsMatrix(m);
    AcGePoint3d o;
    AcGeVector3d x, y, z;
    m.getCoordSystem(o, x, y, z);
    EXPECT_EQ(o, AcGePoint3d(100, 0, 0));
    EXPECT_TRUE(z.isEqualTo(AcGeVector3d::kZAxis));
}

TEST_F(EdInputTest, KeywordsApplyToOneCallOnly)
{
    int first = 0, second = 0;
    Body() = [&] {
        ads_point p;
        acedInitGet(0, L"Lagepunkt");
        first = acedGetPoint(nullptr, L"\nA: ", p);
        second = acedGetPoint(nullptr, L"\nB: ", p);
    };
    Run(L"EDT\nL\nL\n5,5\n");
    EXPECT_EQ(first, RTKWORD);
    EXPECT_EQ(second, RTNORM);  // "L" was no point: asked again, then 5,5
    EXPECT_TRUE(session->transcript().contains(L"Invalid point."));
}

TEST_F(EdInputTest, ExhaustedInputCancelsOnceThenAnswersEnterAndFailsTheRun)
{
    std::vector<int> rcs;
    Body() = [&] {
        ads_point p;
        rcs.push_back(acedGetPoint(nullptr, L"\nErster: ", p));
        rcs.push_back(acedGetPoint(nullptr, L"\nZweiter: ", p));
        rcs.push_back(acedGetPoint(nullptr, L"\nDritter: ", p));
    };
    EXPECT_FALSE(Run(L"EDT\n1,1\n"));
    EXPECT_EQ(rcs, (std::vector<int>{RTNORM, RTCAN, RTNONE}));
    EXPECT_TRUE(session->failed());
    ASSERT_EQ(session->errors().size(), 1u);
    EXPECT_EQ(session->errors()[0], L"t.scr:2: input ran out at the prompt \"Zweiter:\"");
}

TEST_F(EdInputTest, LoopsThatIgnoreEnterAndEscStillEnd)
{
    int asked = 0;
    Body() = [&] {
        ads_point p;
        while (acedGetPoint(nullptr, L"", p) != RTNORM)
            ++asked;
    };
    EXPECT_FALSE(Run(L"EDT\n"));
    EXPECT_EQ(asked, eded::kExhaustedPromptLimit);
    EXPECT_FALSE(acedIsCommandActive());
}

TEST_F(EdInputTest, EntSelPicksAndReportsMissesAndEnter)
{
    const AcDbObjectId a = AddLine(AcGePoint3d(50, 50, 0));
    std::vector<int> rcs, errnos;
    AcDbObjectId got;
    Body() = [&] {
        for (int i = 0; i < 3; ++i) {
            ads_name en;
            ads_point pt;
            rcs.push_back(acedEntSel(L"\nWählen: ", en, pt));
            int e = 0;
            AcEdSysVars::getInt(L"ERRNO", e);
            errnos.push_back(e);
            if (rcs.back() == RTNORM)
                acdbGetObjectId(got, en);
        }
    };
    EXPECT_TRUE(Run(L"EDT\n50,50\n900,900\n\n"));
    EXPECT_EQ(rcs, (std::vector<int>{RTNORM, RTERROR, RTERROR}));
    EXPECT_EQ(errnos[1], kErrnoNoEntity);
    EXPECT_EQ(errnos[2], kErrnoNullInput);
    EXPECT_EQ(got, a);
}

} // namespace
