// Draw order: each entity moves in the sort table of its own block, an empty list touches
// nothing, and the lock taken for the moves is released.
#include "DrawingFixture.h"

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbSortentsTable.h"
#include "host/mfc/CWaitCursor.h"
#include "services/DrawOrder.h"

namespace {

class DrawOrderTest : public DrawingFixture {
protected:
    static AcDbObjectIdArray Order(AcDbObjectId blockId)
    {
        AcDbObjectIdArray ids;
        AcDbBlockTableRecord* pBlock = nullptr;
        EXPECT_EQ(acdbOpenObject(pBlock, blockId, AcDb::kForWrite), Acad::eOk);
        AcDbSortentsTable* pSort = nullptr;
        EXPECT_EQ(pBlock->getSortentsTable(pSort, AcDb::kForRead, true), Acad::eOk);
        pSort->getFullDrawOrder(ids);
        pSort->close();
        pBlock->close();
        return ids;
    }
    static AcDbObjectId NewBlock(const wchar_t* name)
    {
        AcDbBlockTable* pTable = nullptr;
        EXPECT_EQ(Db()->getBlockTable(pTable, AcDb::kForWrite), Acad::eOk);
        auto* pBlock = new AcDbBlockTableRecord;
        pBlock->setName(name);
        AcDbObjectId id;
        EXPECT_EQ(pTable->add(id, pBlock), Acad::eOk);
        pBlock->close();
        pTable->close();
        return id;
    }
    static AcDbObjectIdArray Ids(std::initializer_list<AcDbObjectId> list)
    {
        AcDbObjectIdArray ids;
        for (AcDbObjectId id : list)
            ids.append(id);
        return ids;
    }
};

TEST_F(DrawOrderTest, AnEmptyListOpensNothing)
{
    CWaitCursor::ResetCounts();
    EXPECT_EQ(MyDraworder(AcDbObjectIdArray(), 0), 0);
    EXPECT_TRUE(lockedDocuments.IsEmpty());
    EXPECT_EQ(Doc()->lockCount(), 0);
}

TEST_F(DrawOrderTest, MovesToTopAndBottomOneByOne)
{
    const AcDbObjectId a = AddLine(0), b = AddLine(1), c = AddLine(2);
    struct Row {
        AcDbObjectIdArray move;
        int iToBottom;
        AcDbObjectIdArray expected;
    };
    const Row rows[] = {
        {Ids({a}), 0, Ids({b, c, a})},
        {Ids({c, b}), 0, Ids({a, c, b})},  // moved in array order: the last ends on top
        {Ids({b}), 1, Ids({b, a, c})},
        {Ids({a, c}), 1, Ids({c, a, b})},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(&r - rows);
        EXPECT_EQ(MyDraworder(r.move, r.iToBottom), 1);
        EXPECT_EQ(Order(Db()->modelSpaceId()), r.expected);
    }
    EXPECT_EQ(Doc()->lockCount(), 0);
}

TEST_F(DrawOrderTest, IdsOfTwoBlocksMoveInTheirOwnTables)
{
    const AcDbObjectId blockId = NewBlock(L"B");
    const AcDbObjectId inner1 = Append(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)), blockId);
    const AcDbObjectId inner2 = Append(new AcDbLine(AcGePoint3d(0, 1, 0), AcGePoint3d(1, 1, 0)), blockId);
    const AcDbObjectId outer1 = AddLine(0), outer2 = AddLine(1);
    AcDbObjectIdArray bogus;
    bogus.append(AcDbObjectId::kNull);
    EXPECT_EQ(MyDraworder(bogus, 0), 1) << "a bad id is skipped";
    EXPECT_EQ(MyDraworder(Ids({inner1, outer1}), 0), 1);
    EXPECT_EQ(Order(blockId), Ids({inner2, inner1}));
    EXPECT_EQ(Order(Db()->modelSpaceId()), Ids({outer2, outer1}));
}

} // namespace
