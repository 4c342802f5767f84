// The balanced lock idiom: TestLocked/UnlockDB pairs outside and inside commands, nested
// under an outer lock, the list of locked documents, and the releases before a switch.
#include "DrawingFixture.h"

#include "services/Documents.h"

namespace {

class DocumentsLocksTest : public DrawingFixture {};

// Pair TestLocked/UnlockDB under a number of outer explicit write locks: the pair always
// leaves the document as it found it, and only an unlocked document is locked by it.
TEST_F(DocumentsLocksTest, PairsStayBalancedOutsideACommand)
{
    struct Row {
        int iOuterLocks;
        int iExpectTest;
    };
    const Row rows[] = {{0, 0}, {1, 1}, {3, 1}};
    for (const Row& r : rows) {
        SCOPED_TRACE(r.iOuterLocks);
        for (int i = 0; i < r.iOuterLocks; ++i)
            acDocManager->lockDocument(Doc(), AcAp::kWrite);
        const int iTest = TestLocked(Db(), L"test");
        EXPECT_EQ(iTest, r.iExpectTest);
        EXPECT_EQ(Doc()->myLockMode(), AcAp::kWrite);
        EXPECT_EQ(IsLocked(Db()), 1);
        if (!iTest)
            UnlockDB(Db());
        EXPECT_EQ(Doc()->lockCount(), r.iOuterLocks);
        UnlockAll();
        EXPECT_EQ(Doc()->lockCount(), 0);
    }
}

TEST_F(DocumentsLocksTest, NestedPairsReleaseOnlyWhatTheyTook)
{
    const int iOuter = TestLocked(Db(), L"outer");
    const int iInner = TestLocked(Db(), L"inner");
    EXPECT_EQ(iOuter, 0);
    EXPECT_EQ(iInner, 1);
    EXPECT_EQ(Doc()->lockCount(), 1);
    if (!iInner)
        UnlockDB(Db());
    EXPECT_EQ(Doc()->myLockMode(), AcAp::kWrite) << "the inner pair must leave the outer lock alone";
    if (!iOuter)
        UnlockDB(Db());
    EXPECT_EQ(Doc()->lockCount(), 0);
    EXPECT_TRUE(lockedDocuments.IsEmpty());
}

// Inside a command the document holds only the command's automatic lock, which doesn't
// count as locked; the pair adds nothing and removes nothing of it.
TEST_F(DocumentsLocksTest, PairsStayBalancedInsideACommand)
{
    int iTest = -1, iLockedBefore = -1, iCountInside = -1, iCountAfter = -1;
    AcAp::DocLockMode modeAfter = AcAp::kNone;
    ASSERT_TRUE(RunCommand(L"SVT_LOCK", [&] {
        iLockedBefore = IsLocked(Db());
        iTest = TestLocked(Db(), L"command");
        iCountInside = static_cast<int>(lockedDocuments.GetCount());
        if (!iTest)
            UnlockDB(Db());
        iCountAfter = Doc()->lockCount();
        modeAfter = Doc()->myLockMode();
    }));
    EXPECT_EQ(iLockedBefore, 0);
    EXPECT_EQ(iTest, 0);
    EXPECT_EQ(iCountInside, 1);
    EXPECT_EQ(iCountAfter, 1);
    EXPECT_EQ(modeAfter, AcAp::kAutoWrite);
    EXPECT_EQ(Doc()->lockCount(), 0);
    EXPECT_TRUE(lockedDocuments.IsEmpty());
}

// A document locked three times: which release frees it.
TEST_F(DocumentsLocksTest, ThreeLocksAndTheThreeReleases)
{
    struct Row {
        const char* name;
        std::function<void()> release;
        int iCountAfter;
    };
    const Row rows[] = {
        {"UnlockDB", [] { UnlockDB(Db()); }, 0},
        {"UnlockAll", [] { UnlockAll(); }, 0},
        {"UnlockDWG", [] { UnlockDWG(Doc()->fileName()); }, 2},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        for (int i = 0; i < 3; ++i)
            acDocManager->lockDocument(Doc(), AcAp::kWrite);
        LockDb(Db());
        r.release();
        EXPECT_EQ(Doc()->lockCount(), r.iCountAfter);
        EXPECT_TRUE(lockedDocuments.IsEmpty());
        UnlockAll();
    }
}

TEST_F(DocumentsLocksTest, ASideDatabaseNeedsNoLock)
{
    AcDbDatabase side(true, true);
    EXPECT_EQ(IsLocked(&side), 1);
    EXPECT_EQ(TestLocked(&side, L"side"), 1);
    EXPECT_EQ(LockDb(&side), 0);
    EXPECT_EQ(UnlockDB(&side), 0);
    EXPECT_TRUE(lockedDocuments.IsEmpty());
    EXPECT_EQ(Doc()->lockCount(), 0);
}

TEST_F(DocumentsLocksTest, TheListHoldsEachLockedDocumentOnce)
{
    AcDbDatabase* pFirst = Db();
    LockDb(pFirst);
    LockDb(pFirst);
    EXPECT_EQ(lockedDocuments.GetCount(), 1);
    EXPECT_EQ(acDocManager->document(pFirst)->lockCount(), 1);
    AcApDocument* pSecond = NewDocument();
    TestLocked(pSecond->database(), L"second");
    EXPECT_EQ(lockedDocuments.GetCount(), 2);

    // UnlockLocked cleans exactly the noted documents.
    AcApDocument* pThird = NewDocument();
    acDocManager->lockDocument(pThird, AcAp::kWrite);
    EXPECT_EQ(UnlockLocked(), 1);
    EXPECT_EQ(acDocManager->document(pFirst)->lockCount(), 0);
    EXPECT_EQ(pSecond->lockCount(), 0);
    EXPECT_EQ(pThird->lockCount(), 1);
    EXPECT_TRUE(lockedDocuments.IsEmpty());
    EXPECT_EQ(UnlockLocked(), 0);
}

// A switch of document first releases every lock of the module; the new current document
// is left locked for the caller.
TEST_F(DocumentsLocksTest, SwitchingReleasesAllLocksFirst)
{
    AcApDocument* pFirst = Doc();
    AcApDocument* pSecond = NewDocument();
    ASSERT_EQ(TestLocked(pSecond->database(), L"before switch"), 0);
    acDocManager->lockDocument(pSecond, AcAp::kWrite);

    EXPECT_EQ(IsCurrentDB(pFirst->database()), 1);
    EXPECT_EQ(pSecond->lockCount(), 0);
    EXPECT_EQ(Doc(), pFirst);
    EXPECT_EQ(Db(), pFirst->database());
    EXPECT_EQ(pFirst->myLockMode(), AcAp::kWrite);
    EXPECT_TRUE(lockedDocuments.IsEmpty());
    UnlockDB(pFirst->database());

    AcDbDatabase side(true, true);
    EXPECT_EQ(IsCurrentDB(&side), 0);
    EXPECT_EQ(IsCurrentDB(nullptr), 0);
}

TEST_F(DocumentsLocksTest, SwitchingByFileNameLocksAndNotesOnRequest)
{
    AcApDocument* pFirst = Doc();
    AcApDocument* pSecond = NewDocument();
    CString strUpper(pFirst->fileName());
    strUpper.MakeUpper();
    EXPECT_EQ(IsCurrentDWG(strUpper, 1), 1);
    EXPECT_EQ(Doc(), pFirst);
    EXPECT_EQ(pFirst->myLockMode(), AcAp::kWrite);
    EXPECT_EQ(lockedDocuments.GetCount(), 1);
    EXPECT_EQ(IsCurrentDWG(L"", 0), 1);
    EXPECT_EQ(IsCurrentDWG(L"nowhere.dxf", 1), 0);
    EXPECT_EQ(pSecond->lockCount(), 0);
}

} // namespace
