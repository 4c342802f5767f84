// Collecting the module's objects and the refresh kinds from model space, with and
// without the contents of block references, and the redraw that clears display statuses.
#include "DrawingFixture.h"

#include "host/db/AcDbBlockReference.h"
#include "host/db/AcDbRegAppTable.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/db/acutads.h"
#include "host/rx/acutPrintf.h"
#include "proxy/SVbasic.h"
#include "services/Collectors.h"
#include "services/Regen.h"

namespace {

class CollectorsTest : public DrawingFixture {
protected:
    void SetUp() override
    {
        DrawingFixture::SetUp();
        if (!SVdim::desc())
            SVdim::rxInit();
    }
    // A chain whose integer parameters are all 1 (n of them).
    static AcDbObjectId AddChain(AcDbObjectId blockId = AcDbObjectId::kNull, int n = 23)
    {
        auto* pChain = new SVdim;
        pChain->arrayInt.SetSize(n);
        for (int i = 0; i < n; ++i)
            pChain->arrayInt[i] = 1;
        return Append(pChain, blockId);
    }
    static AcDbObjectId NewBlock(const wchar_t* name, int flags)
    {
        AcDbBlockTable* pTable = nullptr;
        EXPECT_EQ(Db()->getBlockTable(pTable, AcDb::kForWrite), Acad::eOk);
        auto* pBlock = new AcDbBlockTableRecord;
        pBlock->setName(name);
        pBlock->setBlockFlags(flags);
        AcDbObjectId id;
        EXPECT_EQ(pTable->add(id, pBlock), Acad::eOk);
        pBlock->close();
        pTable->close();
        return id;
    }
    static std::vector<UINT> Statuses(AcDbObjectId id)
    {
        SVdim* pChain = nullptr;
        EXPECT_EQ(acdbOpenObject(pChain, id, AcDb::kForRead), Acad::eOk);
        std::vector<UINT> values;
        for (INT_PTR i = 20; pChain && i < pChain->arrayInt.GetSize(); ++i)
            values.push_back(pChain->arrayInt[i]);
        if (pChain)
            pChain->close();
        return values;
    }
};

TEST_F(CollectorsTest, ChainsInsideBlocksButNotInExternalReferences)
{
    const AcDbObjectId block = NewBlock(L"WITH_CHAIN", 0);
    const AcDbObjectId xref = NewBlock(L"XREF", 4);
    const AcDbObjectId overlay = NewBlock(L"OVERLAY", 8);
    const AcDbObjectId inBlock = AddChain(block);
    AddChain(xref);
    AddChain(overlay);
    const AcDbObjectId direct = AddChain();
    for (AcDbObjectId b : {block, xref, overlay})
        Append(new AcDbBlockReference(AcGePoint3d::kOrigin, b));
    AddLine();

    struct Row {
        int iKind;
        AcDbObjectIdArray expected;
    };
    AcDbObjectIdArray directOnly, both, none;
    directOnly.append(direct);
    both.append(direct);
    both.append(inBlock);
    const Row rows[] = {{1, directOnly}, {2, directOnly}, {-1, both}, {-2, both}, {3, none}, {-3, none}};
    for (const Row& r : rows) {
        SCOPED_TRACE(r.iKind);
        AcDbObjectIdArray ids;
        EXPECT_EQ(GetSorvaneObjects(ids, r.iKind, nullptr), r.expected.length());
        EXPECT_EQ(ids, r.expected);
    }
    AcDbObjectIdArray kept;
    kept.append(AcDbObjectId::kNull);
    EXPECT_EQ(GetSorvaneObjects(kept, 1, Db()), 2) << "the array isn't emptied first";
}

TEST_F(CollectorsTest, EntityKinds)
{
    const AcDbObjectId chain = AddChain();
    const AcDbObjectId line = AddLine();
    const AcDbObjectId dim =
        Append(new AcDbRotatedDimension(0.0, AcGePoint3d(0, 0, 0), AcGePoint3d(5, 0, 0), AcGePoint3d(0, 2, 0)));
    const AcDbObjectId ref = Append(new AcDbBlockReference(AcGePoint3d::kOrigin, NewBlock(L"EMPTY", 0)));
    ASSERT_EQ(acdbRegApp(Db(), L"SORVANE_UT_MARK"), Acad::eOk);
    AcDbEntity* pLine = nullptr;
    ASSERT_EQ(acdbOpenAcDbEntity(pLine, line, AcDb::kForWrite), Acad::eOk);
    resbuf* pData = acutBuildList(1001, L"SORVANE_UT_MARK", 1005, L"2A", 0);
    EXPECT_EQ(pLine->setXData(pData), Acad::eOk);
    acutRelRb(pData);
    pLine->close();

    struct Row {
        int iKind;
        std::vector<AcDbObjectId> expected;
    };
    const Row rows[] = {
        {0, {chain, line, dim, ref}}, {1, {dim}}, {2, {chain}}, {6, {chain}},  {3, {}},
        {8, {line}},                  {-2, {chain, ref}},       {-1, {dim, ref}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.iKind);
        AcDbObjectIdArray ids, expected;
        for (AcDbObjectId id : r.expected)
            expected.append(id);
        EXPECT_EQ(GetEntities(&ids, r.iKind), 4) << "every entity is visited";
        EXPECT_EQ(ids, expected);
    }
    AcDbObjectIdArray unused;
    EXPECT_EQ(GetEntities(nullptr, &unused, 2), 0) << "no database";
    EXPECT_EQ(GetEntities(nullptr, 6), 4) << "without an array the matches are refreshed";
    EXPECT_EQ(Doc()->lockCount(), 0);
}

// Each mode clears its own display status, only on arrays long enough to hold it.
TEST_F(CollectorsTest, RegenClearsTheStatusOfTheMode)
{
    struct Row {
        int iMode;
        std::vector<UINT> expected;  // indices 20, 21, 22
    };
    const Row rows[] = {{1, {0, 1, 1}}, {2, {1, 0, 1}}, {3, {1, 1, 0}}, {4, {1, 1, 1}}};
    for (const Row& r : rows) {
        SCOPED_TRACE(r.iMode);
        const AcDbObjectId full = AddChain();
        const AcDbObjectId shorter = AddChain(AcDbObjectId::kNull, 22);
        DwgRegenSVdim(r.iMode);
        EXPECT_EQ(Statuses(full), r.expected);
        std::vector<UINT> expectedShort(r.expected.begin(), r.expected.begin() + 2);
        if (r.iMode == 3)
            expectedShort[1] = 1;  // index 22 isn't there
        EXPECT_EQ(Statuses(shorter), expectedShort);
    }
    EXPECT_EQ(Doc()->lockCount(), 0);
    EXPECT_TRUE(lockedDocuments.IsEmpty());
}

TEST_F(CollectorsTest, RegenHandsTheActivityBack)
{
    svwin::ResetSimWindows();
    const HWND hPanel = svwin::CreateSimWindow(L"panel");
    SetActiveWindow(hPanel);
    DwgRegenSVdim(2);
    EXPECT_EQ(GetActiveWindow(), hPanel);
    EXPECT_EQ(GetFocus(), adsw_acadMainWnd());
    svwin::DestroySimWindow(hPanel);
}

} // namespace
