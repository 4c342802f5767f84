// Jigs: the sampler/update sequence over cursor moves, and how a drag ends.
#include "EdTestSupport.h"

using namespace edtest;

namespace {

class TraceJig : public AcEdJig {
public:
    std::vector<std::wstring> log;
    bool nested = false;
    DragStatus sampler() override
    {
        AcGePoint3d p;
        const DragStatus s = acquirePoint(p);
        log.push_back(L"sample " + eded::formatPoint(p) + L" " + std::to_wstring(s));
        if (nested && s == kKW1) {
            ads_point a, b;
            if (acedGetPoint(nullptr, L"\n Lagepunkt:", a) != RTNORM || acedGetPoint(a, L"\n Maßkette plazieren:", b) != RTNORM)
                return kCancel;
            log.push_back(L"nested " + eded::formatPoint(AcGePoint3d(b[0], b[1], b[2])));
            return kNormal;
        }
        return s;
    }
    Adesk::Boolean update() override
    {
        log.push_back(L"update");
        return Adesk::kTrue;
    }
};

class EdJigTest : public EdFixture {};

TEST_F(EdJigTest, EndingsTable)
{
    struct Row {
        const char* name;
        const wchar_t* script;
        AcEdJig::DragStatus status;
        std::vector<std::wstring> log;
    };
    const std::vector<Row> rows = {
        {"moves then click", L"@@move 1,1\n@@move 1,1\n@@move 2,2\n3,3\n", AcEdJig::kNormal,
         {L"sample 1,1 0", L"update", L"sample 1,1 -6", L"sample 2,2 0", L"update", L"sample 3,3 0", L"update"}},
        {"click by directive", L"@@click 4,5\n", AcEdJig::kNormal, {L"sample 4,5 0", L"update"}},
        {"enter", L"@@move 1,1\n\n", AcEdJig::kNull, {L"sample 1,1 0", L"update", L"sample 0,0 -1"}},
        {"esc", L"@@esc\n", AcEdJig::kCancel, {L"sample 0,0 -4"}},
        {"keyword capital", L"l\n", AcEdJig::kKW1, {L"sample 0,0 1"}},
        {"keyword word", L"LAGEPUNKT\n", AcEdJig::kKW1, {L"sample 0,0 1"}},
        {"second keyword", L"x\n", AcEdJig::kKW2, {L"sample 0,0 2"}},
        {"other text", L"hallo\n", AcEdJig::kOther, {L"sample 0,0 -3"}},
        {"input runs out", L"@@move 1,1\n", AcEdJig::kCancel, {L"sample 1,1 0", L"update", L"sample 0,0 -4"}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        TraceJig jig;
        jig.setDispPrompt(L"\n%d. Maßpunkt: ", 2);
        jig.setKeywordList(L"Lagepunkt,L eXtra");
        jig.setUserInputControls(AcEdJig::UserInputControls(AcEdJig::kNullResponseAccepted | AcEdJig::kAcceptOtherInputString));
        AcEdJig::DragStatus got = AcEdJig::kModeless;
        Body() = [&] { got = jig.drag(); };
        Run(std::wstring(L"EDT\n") + r.script);
        session->clearFailure();
        EXPECT_EQ(got, r.status);
        EXPECT_EQ(jig.log, r.log);
    }
    EXPECT_TRUE(session->transcript().contains(L"2. Maßpunkt: "));
}

TEST_F(EdJigTest, NestedPointInputInsideTheSampler)
{
    TraceJig jig;
    jig.nested = true;
    jig.setKeywordList(L"Lagepunkt,L");
    AcEdJig::DragStatus got = AcEdJig::kModeless;
    Body() = [&] { got = jig.drag(); };
    EXPECT_TRUE(Run(L"EDT\nL\n1,1\n@0,5\n"));
    EXPECT_EQ(got, AcEdJig::kNormal);
    EXPECT_EQ(jig.log, (std::vector<std::wstring>{L"sample 0,0 1", L"nested 1,6", L"update"}));
    // Without the two points the sampler cancels.
    TraceJig again;
    again.nested = true;
    again.setKeywordList(L"Lagepunkt,L");
    Body() = [&] { got = again.drag(); };
    Run(L"EDT\nL\n@@esc\n");
    EXPECT_EQ(got, AcEdJig::kCancel);
}

TEST_F(EdJigTest, AppendAddsTheEntityToTheCurrentSpace)
{
    class LineJig : public AcEdJig {
    public:
        AcDbLine* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
        AcDbEntity* entity() const override { return line; }
    } jig;
    const AcDbObjectId id = jig.append();
    ASSERT_FALSE(id.isNull());
    AcDbEntity* ent = nullptr;
    ASSERT_EQ(acdbOpenAcDbEntity(ent, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(ent->ownerId(), db->modelSpaceId());
    ent->close();
}

} // namespace
