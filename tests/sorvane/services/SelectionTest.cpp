// Selections: the prompts, the panel hidden while the user picks and shown again, and a
// selection that ends without objects.
#include "DrawingFixture.h"

#include "services/Selection.h"

namespace {

class SelectionTest : public DrawingFixture {};

TEST_F(SelectionTest, NothingSelectedReturnsZeroAndTheVisiblePanelComesBack)
{
    struct Row {
        int iKind;
        bool bPanelVisible;
        bool bChainPrompt;
    };
    const Row rows[] = {{1, true, false}, {50, true, true}, {52, false, false}, {7, false, true}};
    for (const Row& r : rows) {
        SCOPED_TRACE(r.iKind);
        FakePanel::Install();
        FakePanel::bExists = true;
        FakePanel::bVisible = r.bPanelVisible;
        int iResult = -1;
        std::wstring strTranscript;
        RunCommand(L"SVT_SELECT", [&] {
            AcDbObjectIdArray ids;
            iResult = GetSelectedEntities(ids, r.iKind);
        }, L"\n", &strTranscript);
        EXPECT_EQ(iResult, 0);
        EXPECT_EQ(FakePanel::iHides, r.bPanelVisible ? 1 : 0);
        EXPECT_EQ(FakePanel::iShows, r.bPanelVisible ? 1 : 0);
        EXPECT_EQ(FakePanel::bVisible, r.bPanelVisible);
        EXPECT_NE(strTranscript.find(L"\nWählen..."), std::wstring::npos);
        EXPECT_EQ(strTranscript.find(L"\nMaßketten wählen...") != std::wstring::npos, r.bChainPrompt);
    }
}

} // namespace
