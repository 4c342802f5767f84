// Chains in a drawing file: saved and opened again they file the same record,
// and an independent reader audits the file clean and decodes their graphics.
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "host/db/AcDbBinaryFiler.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbOpen.h"
#include "host/dxf/DxfFileIo.h"
#include "host/rx/AcRxClass.h"
#include "tests/sorvane/proxy/SVbasicFixture.h"
#include "tests/support/EzdxfRunner.h"

namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<Adesk::UInt8>;

Bytes RecordOf(AcDbObjectId id)
{
    SVdim* pChain = nullptr;
    EXPECT_EQ(acdbOpenObject(pChain, id, AcDb::kForRead), Acad::eOk);
    if (!pChain)
        return {};
    AcDbBinaryFiler filer;
    EXPECT_EQ(pChain->dwgOutFields(&filer), Acad::eOk);
    pChain->close();
    return filer.bytes();
}

// Every chain of model space, by handle.
std::map<std::wstring, AcDbObjectId> ChainsOf(AcDbDatabase& db)
{
    std::map<std::wstring, AcDbObjectId> chains;
    AcDbBlockTableRecord* pSpace = nullptr;
    EXPECT_EQ(acdbOpenObject(pSpace, db.modelSpaceId(), AcDb::kForRead), Acad::eOk);
    if (!pSpace)
        return chains;
    AcDbBlockTableRecordIterator* pIt = nullptr;
    pSpace->newIterator(pIt);
    for (; !pIt->done(); pIt->step()) {
        AcDbObjectId id;
        pIt->getEntityId(id);
        if (id.objectClass() && id.objectClass()->isDerivedFrom(SVdim::desc())) {
            ACHAR buffer[32];
            id.handle().getIntoAsciiBuffer(buffer);
            chains[buffer] = id;
        }
    }
    delete pIt;
    pSpace->close();
    return chains;
}

class ChainFileTest : public ChainFixture {
protected:
    void SetUp() override
    {
        ChainFixture::SetUp();
        if (!SVdim::desc())
            SVdim::rxInit();
        m_pOldDb = acdbHostApplicationServices()->workingDatabase();
        acdbHostApplicationServices()->setWorkingDatabase(&m_db);
    }
    void TearDown() override
    {
        acdbHostApplicationServices()->setWorkingDatabase(m_pOldDb);
        ChainFixture::TearDown();
    }

    // A chain of six points along the type's direction, with a tick of every
    // kind, every other extension line hidden, a user value, affixes and two
    // appended texts.
    AcDbObjectId AddChain(int iType, const AcGePoint3d& ptAt)
    {
        const AcGeVector3d vAligned = AcGeVector3d(3, 4, 0).normal();
        const AcGeVector3d vAlong = iType == SVdim::kHorizontal ? AcGeVector3d::kXAxis
                                    : iType == SVdim::kVertical ? AcGeVector3d::kYAxis
                                                                : vAligned;
        const AcGeVector3d vAcross = vAlong.perpVector();
        const AcGeMatrix3d world;
        auto* pChain = new SVdim(ptAt, ptAt + vAlong * 1.0, ptAt + vAcross * 0.8 + vAlong * 0.5, iType,
                                 iType == SVdim::kAligned ? &vAligned : nullptr, AcDbObjectId::kNull, 0, &world);
        for (int i = 2; i < 6; ++i) {
            AcGePoint3d point = ptAt + vAlong * (1.0 + 0.7 * (i - 1));
            pChain->AddPointInput(point);
        }
        pChain->Regenerate(-1);
        for (int i = 0; i < 6; ++i) {
            EXPECT_TRUE(pChain->SetTickType(i, i));
            pChain->SetExtLineVisible(i, i % 2 == 0);
        }
        pChain->SetDimTextUser(1, L"2.50");
        pChain->SetDimTextPrefix(2, L"ca. ");
        pChain->SetDimTextPostfix(3, L" m");
        CAppendTextObject text;
        text.strText = L"Fenster";
        text.bAutoPos = 1;
        pChain->SetAppendingText(2, &text);
        text.strText = L"Tür";
        pChain->SetAppendingText(4, &text);
        pChain->AdjustTexts(0);

        AcDbBlockTableRecord* pSpace = nullptr;
        EXPECT_EQ(acdbOpenObject(pSpace, m_db.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(pSpace->appendAcDbEntity(id, pChain), Acad::eOk);
        pChain->close();
        pSpace->close();
        return id;
    }

    std::string Folder() const { return (m_dir / "files").string(); }

    AcDbDatabase m_db{true, true};
    AcDbDatabase* m_pOldDb = nullptr;
};

TEST_F(ChainFileTest, ChainsOfEveryLinearTypeSurviveSaveAndOpen)
{
    fs::create_directories(Folder());
    std::map<std::wstring, Bytes> saved;
    double dY = 0;
    for (int iType : {SVdim::kHorizontal, SVdim::kVertical, SVdim::kAligned}) {
        const AcDbObjectId id = AddChain(iType, AcGePoint3d(0, dY, 0));
        dY += 5;
        ACHAR buffer[32];
        id.handle().getIntoAsciiBuffer(buffer);
        saved[buffer] = RecordOf(id);
    }
    const std::string path = Folder() + "/chains.dxf";
    std::string error;
    ASSERT_EQ(dxfSaveFile(m_db, path, false, error), Acad::eOk) << error;

    AcDbDatabase reopened(false, true);
    ASSERT_EQ(dxfReadFile(reopened, path, error), Acad::eOk) << error;
    const auto chains = ChainsOf(reopened);
    ASSERT_EQ(chains.size(), saved.size());
    for (const auto& [handle, id] : chains) {
        SCOPED_TRACE(CString(handle.c_str()).ToUtf8());
        ASSERT_TRUE(saved.count(handle));
        EXPECT_EQ(RecordOf(id), saved[handle]);
    }

    // A second save of the opened drawing writes the same file.
    const std::string again = Folder() + "/again.dxf";
    ASSERT_EQ(dxfSaveFile(reopened, again, false, error), Acad::eOk) << error;
    std::ifstream a(path, std::ios::binary), b(again, std::ios::binary);
    std::stringstream sa, sb;
    sa << a.rdbuf();
    sb << b.rdbuf();
    EXPECT_EQ(sa.str(), sb.str());
}

TEST_F(ChainFileTest, AnIndependentReaderAuditsTheFileAndDrawsTheChains)
{
    if (!EzdxfAvailable())
        GTEST_SKIP() << "ezdxf is not installed";
    fs::create_directories(Folder());
    for (int iType : {SVdim::kHorizontal, SVdim::kVertical, SVdim::kAligned})
        AddChain(iType, AcGePoint3d(0, 5.0 * iType, 0));
    const std::string path = Folder() + "/chains.dxf";
    std::string error;
    ASSERT_EQ(dxfSaveFile(m_db, path, false, error), Acad::eOk) << error;

    const std::string audit = RunEzdxf("audit '" + path + "'");
    EXPECT_NE(audit.find("errors 0\n"), std::string::npos) << audit;
    EXPECT_NE(audit.find("fixes 0\n"), std::string::npos) << audit;

    // Each chain's graphics decode into lines and the value texts, among them
    // the user value and the appended texts.
    const std::string decoded = RunEzdxf("proxy '" + path + "'");
    std::istringstream lines(decoded);
    std::string line;
    int nChains = 0, nTexts = 0, nLines = 0;
    while (std::getline(lines, line)) {
        nChains += line.rfind("PROXY ", 0) == 0;
        nTexts += line.rfind("TEXT|", 0) == 0;
        nLines += line.rfind("LINE|", 0) == 0 || line.rfind("POLYLINE|", 0) == 0;
    }
    EXPECT_EQ(nChains, 3) << decoded;
    EXPECT_GE(nTexts, 3 * 5) << decoded;
    EXPECT_GE(nLines, 3 * 6) << decoded;
    for (const char* text : {"text=2.50", "text=Fenster", "text=T\xC3\xBCr"})
        EXPECT_NE(decoded.find(text), std::string::npos) << text << "\n" << decoded;
}

}  // namespace
