// Moving a loaded drawing into another database: ids follow their objects and answer
// for their new database, and each side keeps working on its own.
#include <gtest/gtest.h>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbOpen.h"

TEST(DbCoreSwap, IdsFollowTheirObjectsIntoTheOtherDatabase)
{
    AcDbDatabase loaded(true, true);
    AcDbDatabase target(false, true);
    AcDbObjectId lineId;
    auto* added = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    ASSERT_EQ(loaded.addAcDbObject(lineId, added), Acad::eOk);
    added->close();
    const AcDbHandle handle = lineId.handle();

    target.swapContents(loaded);

    EXPECT_EQ(lineId.database(), &target);
    AcDbObjectId found;
    EXPECT_EQ(target.getAcDbObjectId(found, false, handle), Acad::eOk);
    EXPECT_EQ(found, lineId);
    EXPECT_NE(loaded.getAcDbObjectId(found, false, handle), Acad::eOk);

    // The moved objects are edited and undone in their new home.
    target.startUndoGroup();
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, lineId, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(line->database(), &target);
    line->setEndPoint(AcGePoint3d(5, 0, 0));
    line->close();
    target.endUndoGroup();
    ASSERT_EQ(target.undo(1), Acad::eOk);
    ASSERT_EQ(acdbOpenObject(line, lineId, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(line->endPoint(), AcGePoint3d(1, 0, 0));
    line->close();
}
