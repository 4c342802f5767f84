// The working database with its fallbacks, documents by file name, and the session
// helpers that read system variables.
#include "DrawingFixture.h"

#include "host/ed/AcEdCommandLoop.h"
#include "host/ed/AcEdSysVar.h"
#include "services/Documents.h"
#include "services/Session.h"
#include "services/SysVars.h"

namespace {

class DocumentsLookupTest : public DrawingFixture {};

TEST_F(DocumentsLookupTest, CurDwgRepairsANullWorkingDatabase)
{
    AcDbDatabase* pDb = Db();
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(acdbCurDwg(), pDb);
    EXPECT_EQ(Db(), pDb);
    EXPECT_EQ(FakePanel::iEndApps, 0);
}

TEST_F(DocumentsLookupTest, WithAllDrawingsClosedThePanelIsClosed)
{
    FakePanel::bExists = true;
    acDocManager->closeAll();
    EXPECT_EQ(acdbCurDwg(), nullptr);
    EXPECT_EQ(FakePanel::iEndApps, 1);
    EXPECT_TRUE(GetCurrentDWGName().IsEmpty());
    EXPECT_EQ(IsCurrentDWG(L"", 1), 0);
}

TEST_F(DocumentsLookupTest, DocumentsByFileName)
{
    AcApDocument* pFirst = Doc();
    AcApDocument* pSecond = NewDocument();
    const CString strFirst(pFirst->fileName());
    CString strUpper(strFirst);
    strUpper.MakeUpper();
    struct Row {
        CString strName;
        AcDbDatabase* pExpected;
    };
    const Row rows[] = {
        {strFirst, pFirst->database()},
        {strUpper, pFirst->database()},
        {strFirst + L" *", pFirst->database()},  // as a list shows a modified drawing
        {CString(L"nowhere.dxf"), nullptr},
        {CString(L""), nullptr},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(static_cast<const wchar_t*>(r.strName));
        EXPECT_EQ(GetFromEditor(r.strName), r.pExpected);
        EXPECT_EQ(IsDocumentOpen(r.strName), r.pExpected ? 1 : 0);
    }
    EXPECT_EQ(GetCurrentDWGName(), CString(pSecond->fileName()));
    EXPECT_EQ(DwgName(nullptr), CString());

    CPtrArray databases;
    EXPECT_EQ(GetDatabases(databases), 2);
    CStringArray others, all;
    GetOpenDrawings(others, 0);
    GetOpenDrawings(all, 1);
    ASSERT_EQ(others.GetSize(), 1);
    EXPECT_EQ(others[0], strFirst);
    EXPECT_EQ(all.GetSize(), 2);
}

TEST_F(DocumentsLookupTest, FileNamesCompareWithoutCaseOrSeparatorKind)
{
    EXPECT_TRUE(IsSameFileName(L"C:\\Plans\\A.DXF", L"c:/plans/a.dxf"));
    EXPECT_FALSE(IsSameFileName(L"/plans/a.dxf", L"/plans/b.dxf"));
}

TEST_F(DocumentsLookupTest, OwnCommandsDontCountAsActive)
{
    struct Row {
        const wchar_t* pszCommand;
        int iIncludeOwn;
        const wchar_t* pszExpected;
    };
    const Row rows[] = {
        {L"KOVA_HDIM", 0, L""},
        {L"KOVA_HDIM", 1, L"KOVA_HDIM"},
        {L"SVT_foreign", 0, L"SVT_FOREIGN"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.pszCommand);
        CString strSeen(L"?");
        int iActive = -1;
        ASSERT_TRUE(RunCommand(r.pszCommand, [&] {
            strSeen = GetActiveCommand(r.iIncludeOwn);
            iActive = IsCommandActive(0);
        }));
        EXPECT_EQ(strSeen, CString(r.pszExpected));
        EXPECT_EQ(iActive, r.iIncludeOwn || *r.pszExpected == 0 ? 0 : 1);
    }
    EXPECT_TRUE(GetActiveCommand(1).IsEmpty());
}

TEST_F(DocumentsLookupTest, FilediaPairRestoresTheOldValue)
{
    const int iOriginal = GetAcadVarI(L"FILEDIA");
    const int iOld = SetFiledia(0);
    acedRunPostedCommands();  // the same setting, sent as a command line
    EXPECT_EQ(iOld, iOriginal);
    EXPECT_EQ(GetAcadVarI(L"FILEDIA"), 0);
    EXPECT_EQ(SetFiledia(iOld), 0);
    acedRunPostedCommands();
    EXPECT_EQ(GetAcadVarI(L"FILEDIA"), iOriginal);
}

TEST_F(DocumentsLookupTest, SystemVariablesAnswerZeroWhenUnknown)
{
    EXPECT_EQ(GetAcadVarI(L"NO_SUCH_VARIABLE"), 0);
    EXPECT_EQ(GetAcadVarD(L"NO_SUCH_VARIABLE"), 0.0);
    EXPECT_EQ(GetAcadVarP(L"NO_SUCH_VARIABLE"), AcGePoint3d::kOrigin);
    EXPECT_EQ(SetAcadVar(L"NO_SUCH_VARIABLE", 1), 0);
    EXPECT_EQ(GetAcadVarI(L"TILEMODE"), 1);
    EXPECT_EQ(IsPaperSpace(), 0);
    EXPECT_EQ(GetTilemode(L""), 1);
    EXPECT_EQ(IsDrawingModified(), 0);
}

} // namespace
