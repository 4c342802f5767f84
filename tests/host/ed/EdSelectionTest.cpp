// Selections: wildcard matching, filters on real entities, modes, pickfirst, ERRNO and the
// pick path of acedSSNameX.
#include <cstring>

#include "EdTestSupport.h"

using namespace edtest;

namespace {

TEST(EdWcMatchTest, Table)
{
    struct Row {
        const wchar_t* s;
        const wchar_t* p;
        bool match;
    };
    const Row rows[] = {
        {L"KOVA_SORVANE", L"KOVA_*", true},      {L"KOVA_SORVANE", L"*DIM*", false},
        {L"DIMENSION", L"*DIMENSION*", true},    {L"dimension", L"*DIM*", true},
        {L"TEXT", L"*TEXT", true},               {L"MTEXT", L"*TEXT", true},
        {L"INSERT", L"*DIM*,INSERT", true},      {L"LINE", L"*DIM*,INSERT", false},
        {L"A1", L"@#", true},                    {L"AB", L"@#", false},
        {L"A-", L"@.", true},                    {L"A1", L"A?", true},
        {L"B", L"[A-C]", true},                  {L"D", L"[A-C]", false},
        {L"D", L"[~A-C]", true},                 {L"LINE", L"~LINE", false},
        {L"ARC", L"~LINE", true},                {L"A*B", L"A`*B", true},
        {L"AXB", L"A`*B", false},                {L"A,B", L"A`,B", true},
        {L"", L"*", true},                       {L"", L"?", false},
        {L"DIM_1_50", L"DIM_#_##", true},        {L"Maßkette", L"MASSKETTE,maß*", true},
        {L"[x", L"[x", true},
    };
    for (const Row& r : rows)
        EXPECT_EQ(acutWcMatch(r.s, r.p) == RTNORM, r.match) << "\"" << r.s << "\" vs \"" << r.p << "\"";
    EXPECT_EQ(acutWcMatch(nullptr, L"*"), RTERROR);
}

class EdSelectionTest : public EdFixture {
protected:
    void SetUp() override
    {
        EdFixture::SetUp();
        a = AddLine(AcGePoint3d(10, 10, 0), L"DIM_1_50", 1, 11);
        b = AddLine(AcGePoint3d(20, 10, 0), L"0", 2, 12);
        c = AddLine(AcGePoint3d(20, 11, 0), L"Wand", 256, 13);  // under b's pick box too, drawn later
    }
    // Runs acedSSGet(mode) in the command and returns the ids selected (empty on failure).
    std::vector<AcDbObjectId> Select(const std::wstring& script, const wchar_t* mode, const resbuf* filter,
                                     int* rcOut = nullptr, const char* command = "EDT")
    {
        std::vector<AcDbObjectId> ids;
        Body() = [&] {
            ads_name ss;
            const int rc = acedSSGet(mode, nullptr, nullptr, filter, ss);
            if (rcOut)
                *rcOut = rc;
            if (rc != RTNORM)
                return;
            Adesk::Int32 n = 0;
            acedSSLength(ss, &n);
            for (Adesk::Int32 i = 0; i < n; ++i) {
                ads_name en;
                acedSSName(ss, i, en);
                AcDbObjectId id;
                acdbGetObjectId(id, en);
                ids.push_back(id);
            }
            acedSSFree(ss);
        };
        Run(std::wstring(command, command + std::strlen(command)) + L"\n" + script);
        return ids;
    }
    AcDbObjectId a, b, c;
};

TEST_F(EdSelectionTest, FiltersTable)
{
    resbuf* dimLayer = acutBuildList(8, L"DIM_*", 0);
    resbuf* lineOr = acutBuildList(-4, L"<or", 8, L"Wand", 62, 1, -4, L"or>", 0);
    resbuf* notLine = acutBuildList(-4, L"<not", RTDXF0, L"LINE", -4, L"not>", 0);
    resbuf* andBoth = acutBuildList(-4, L"<and", RTDXF0, L"*LINE", 8, L"0", -4, L"and>", 0);
    resbuf* dims = acutBuildList(RTDXF0, L"*DIMENSION*", 0);
    struct Row {
        const char* name;
        const resbuf* filter;
        std::vector<AcDbObjectId> want;
    };
    const std::vector<Row> rows = {
        {"none", nullptr, {a, b, c}},          {"layer wildcard", dimLayer, {a}},
        {"or", lineOr, {a, c}},                {"not", notLine, {}},
        {"and", andBoth, {b}},                 {"dxf name", dims, {}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        EXPECT_EQ(Select(L"", L"_X", r.filter), r.want);
    }
    for (resbuf* rb : {dimLayer, lineOr, notLine, andBoth, dims})
        acutRelRb(rb);
}

TEST_F(EdSelectionTest, InteractiveModes)
{
    int rc = 0;
    EXPECT_EQ(Select(L"10,10\n@@select " + Hex(c) + L"\n\n", nullptr, nullptr), (std::vector<AcDbObjectId>{a, c}));
    EXPECT_EQ(Select(L"20,10\n", L"_-W-C:S", nullptr), (std::vector<AcDbObjectId>{c}));  // topmost
    EXPECT_EQ(Select(L"20,10\n", L"_-W-C:S:E", nullptr), (std::vector<AcDbObjectId>{b, c}));
    EXPECT_EQ(Select(L"@@window 0,0 15,15\n\n", nullptr, nullptr), (std::vector<AcDbObjectId>{a}));
    EXPECT_TRUE(Select(L"@@window 0,0 15,15\n", L"_-W-C:S", nullptr, &rc).empty());  // refused, then input ran out
    EXPECT_EQ(Select(L"ALL\n\n", nullptr, nullptr), (std::vector<AcDbObjectId>{a, b, c}));
    EXPECT_EQ(Select(L"", L"P", nullptr), (std::vector<AcDbObjectId>{a, b, c}));
    EXPECT_EQ(Select(L"", L"L", nullptr), (std::vector<AcDbObjectId>{c}));
}

TEST_F(EdSelectionTest, ErrnoAfterEnterAndAfterAMiss)
{
    int rc = 0, err = 0;
    Select(L"\n", L"_-W-C:S", nullptr, &rc);
    AcEdSysVars::getInt(L"ERRNO", err);
    EXPECT_EQ(rc, RTERROR);
    EXPECT_EQ(err, kErrnoNullInput);
    Select(L"500,500\n", L"_-W-C:S", nullptr, &rc);
    AcEdSysVars::getInt(L"ERRNO", err);
    EXPECT_EQ(rc, RTERROR);
    EXPECT_NE(err, kErrnoNullInput);
    Select(L"@@esc\n", nullptr, nullptr, &rc);
    EXPECT_EQ(rc, RTCAN);
}

TEST_F(EdSelectionTest, PickfirstIsConsumedByTheFirstSelectionOfAPicksetCommand)
{
    std::vector<std::vector<AcDbObjectId>> got;
    Body() = [&] {
        for (int i = 0; i < 2; ++i) {
            ads_name ss;
            std::vector<AcDbObjectId> ids;
            if (acedSSGet(L"_-W-C:S", nullptr, nullptr, nullptr, ss) == RTNORM) {
                ads_name en;
                acedSSName(ss, 0, en);
                AcDbObjectId id;
                acdbGetObjectId(id, en);
                ids.push_back(id);
                acedSSFree(ss);
            }
            got.push_back(ids);
        }
    };
    EXPECT_TRUE(Run(L"@@select " + Hex(b) + L"\nEDTPICK\n10,10\n"));
    ASSERT_EQ(got.size(), 2u);
    EXPECT_EQ(got[0], (std::vector<AcDbObjectId>{b}));  // without asking
    EXPECT_EQ(got[1], (std::vector<AcDbObjectId>{a}));  // asked: 10,10
    EXPECT_TRUE(acedPickfirstIds().empty());
    // A command without the flag drops the pickfirst set.
    Run(L"@@click 10,10\n");
    EXPECT_EQ(acedPickfirstIds(), (std::vector<AcDbObjectId>{a}));
    Body() = [] {};
    Run(L"EDT\n");
    EXPECT_TRUE(acedPickfirstIds().empty());
}

TEST_F(EdSelectionTest, PickPathCarriesTheMarker)
{
    Body() = [&] {
        ads_name ss;
        ASSERT_EQ(acedSSGet(L"_-W-C:S", nullptr, nullptr, nullptr, ss), RTNORM);
        resbuf* rb = nullptr;
        ASSERT_EQ(acedSSNameX(&rb, ss, 0), RTNORM);
        std::vector<short> types;
        for (resbuf* p = rb; p; p = p->rbnext)
            types.push_back(p->restype);
        EXPECT_EQ(types, (std::vector<short>{RTLB, RTSHORT, RTENAME, RTLONG, RTLB, RTSHORT, RT3DPOINT, RTLE, RTLE}));
        AcDbObjectId id;
        acdbGetObjectId(id, rb->rbnext->rbnext->resval.rlname);
        EXPECT_EQ(id, a);
        EXPECT_EQ(rb->rbnext->resval.rint, 1);                  // a pick
        EXPECT_EQ(rb->rbnext->rbnext->rbnext->resval.rlong, 7);  // the marker given
        acutRelRb(rb);
        EXPECT_EQ(acedSSNameX(&rb, ss, 1), RTERROR);
        acedSSFree(ss);
    };
    EXPECT_TRUE(Run(L"EDT\n@@pick " + Hex(a) + L" 7\n"));
    EXPECT_EQ(acedSSCount(), 0);
}

TEST_F(EdSelectionTest, SetFunctions)
{
    ads_name ea, eb, ss;
    acdbGetAdsName(ea, a);
    acdbGetAdsName(eb, b);
    ASSERT_EQ(acedSSAdd(ea, nullptr, ss), RTNORM);
    EXPECT_EQ(acedSSAdd(eb, ss, ss), RTNORM);
    EXPECT_EQ(acedSSAdd(eb, ss, ss), RTNORM);  // no duplicates
    Adesk::Int32 n = 0;
    acedSSLength(ss, &n);
    EXPECT_EQ(n, 2);
    EXPECT_EQ(acedSSMemb(eb, ss), RTNORM);
    EXPECT_EQ(acedSSDel(eb, ss), RTNORM);
    EXPECT_EQ(acedSSMemb(eb, ss), RTERROR);
    EXPECT_EQ(acedSSSetFirst(ss, nullptr), RTNORM);
    EXPECT_EQ(acedPickfirstIds(), (std::vector<AcDbObjectId>{a}));
    EXPECT_EQ(acedSSFree(ss), RTNORM);
    EXPECT_EQ(acedSSFree(ss), RTERROR);
    EXPECT_EQ(acedSSName(ss, 0, ea), RTERROR);
}

} // namespace
