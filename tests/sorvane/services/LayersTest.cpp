// Layers: made with a sane colour, found, their status bits, and the unlock/restore pair
// round a change to an entity on a closed layer.
#include "DrawingFixture.h"

#include "host/db/AcDbLayerTable.h"
#include "host/rx/acutPrintf.h"
#include "services/Layers.h"

namespace {

class LayersTest : public DrawingFixture {
protected:
    static int LayerColor(AcDbObjectId id)
    {
        AcDbLayerTableRecord* pLayer = nullptr;
        EXPECT_EQ(acdbOpenObject(pLayer, id, AcDb::kForRead), Acad::eOk);
        const int iColor = pLayer ? pLayer->color().colorIndex() : -1;
        if (pLayer)
            pLayer->close();
        return iColor;
    }
    // A line on a new layer with the status bits given.
    static AcDbObjectId LineOnLayer(const wchar_t* name, int status)
    {
        const AcDbObjectId layerId = GetLayerId(nullptr, name, 1, 1);
        AcDbLayerTableRecord* pLayer = nullptr;
        EXPECT_EQ(acdbOpenObject(pLayer, layerId, AcDb::kForWrite), Acad::eOk);
        auto* pLine = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
        pLine->setDatabaseDefaults(Db());
        pLine->setLayer(layerId);
        const AcDbObjectId id = Append(pLine);
        SetLayerFlags(pLayer, kLayerOff | kLayerFrozen | kLayerLocked, status);
        pLayer->close();
        return id;
    }
};

TEST_F(LayersTest, NewLayersTakeAColourIndexAndExistingOnesKeepTheirs)
{
    struct Row {
        const wchar_t* pszName;
        int iColor;
        int iExpected;
    };
    const Row rows[] = {
        {L"L_ZERO", 0, 7}, {L"L_300", 300, 7}, {L"L_256", 256, 7}, {L"L_NEG", -3, 7},
        {L"L_THREE", 3, 3}, {L"l_three", 5, 3},  // the same layer: its colour stays
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.pszName);
        const AcDbObjectId id = GetLayerId(Db(), r.pszName, r.iColor, 1);
        ASSERT_FALSE(id.isNull());
        EXPECT_EQ(LayerColor(id), r.iExpected);
        AcDbObjectId found;
        EXPECT_EQ(FindLayerId(r.pszName, Db(), found), 1);
        EXPECT_EQ(found, id);
    }
    AcDbObjectId missing;
    EXPECT_EQ(FindLayerId(L"NOT_THERE", Db(), missing), 0);
    EXPECT_TRUE(missing.isNull());
    EXPECT_TRUE(GetLayerName(AcDbObjectId::kNull).IsEmpty());
    EXPECT_EQ(GetLayerName(GetLayerId(nullptr, L"L_THREE", 0, 1)), CString(L"L_THREE"));
    EXPECT_EQ(Doc()->lockCount(), 0) << "making a layer leaves no lock behind";
}

// UnlockEntityLayer clears frozen and locked, never off, and RestoreEntityLayer puts back
// exactly what was cleared.
TEST_F(LayersTest, UnlockAndRestoreAStatusTable)
{
    struct Row {
        int iStatus;
        int iCleared;
        int iDuring;
    };
    const Row rows[] = {
        {0, 0, 0},
        {kLayerOff, 0, kLayerOff},
        {kLayerFrozen, kLayerFrozen, 0},
        {kLayerLocked, kLayerLocked, 0},
        {kLayerFrozen | kLayerLocked, kLayerFrozen | kLayerLocked, 0},
        {kLayerOff | kLayerLocked, kLayerLocked, kLayerOff},
    };
    int iRow = 0;
    for (const Row& r : rows) {
        SCOPED_TRACE(r.iStatus);
        const CString strName = CString(L"S") + CString(std::to_wstring(iRow++).c_str());
        const AcDbObjectId id = LineOnLayer(strName, r.iStatus);
        AcDbEntity* pEntity = nullptr;
        ASSERT_EQ(acdbOpenAcDbEntity(pEntity, id, AcDb::kForRead), Acad::eOk);
        EXPECT_EQ(GetEntityLayerStatus(pEntity), r.iStatus);
        EXPECT_EQ(GetLayerStatus(strName), r.iStatus);
        const int iBits = UnlockEntityLayer(pEntity);
        EXPECT_EQ(iBits, r.iCleared);
        EXPECT_EQ(GetEntityLayerStatus(pEntity), r.iDuring);
        EXPECT_EQ(RestoreEntityLayer(pEntity, iBits), 1);
        EXPECT_EQ(GetEntityLayerStatus(pEntity), r.iStatus);
        EXPECT_EQ(IsOnLockedLayer(pEntity, 0), (r.iStatus & kLayerLocked) ? 1 : 0);
        pEntity->close();
    }
    EXPECT_EQ(GetEntityLayerStatus(nullptr), 0);
    EXPECT_EQ(UnlockEntityLayer(nullptr), 0);
}

TEST_F(LayersTest, ALockedLayerIsToldOnTheConsole)
{
    const AcDbObjectId id = LineOnLayer(L"LOCKED", kLayerLocked);
    AcDbEntity* pEntity = nullptr;
    ASSERT_EQ(acdbOpenAcDbEntity(pEntity, id, AcDb::kForRead), Acad::eOk);
    AcConsoleRecorder console;
    EXPECT_EQ(IsOnLockedLayer(pEntity, 1), 1);
    pEntity->close();
    EXPECT_NE(console.Text().find(L"Objekt auf gesperrtem Layer, Bearbeitung nicht möglich!"), std::wstring::npos);
}

TEST_F(LayersTest, SplitAndListLayers)
{
    LineOnLayer(L"OFF", kLayerOff);
    LineOnLayer(L"FROZEN", kLayerFrozen);
    LineOnLayer(L"OPEN", 0);
    CStringArray closed, open, names;
    SplitLayers(Db(), closed, open, kLayerOff | kLayerFrozen);
    ASSERT_EQ(closed.GetSize(), 2);
    EXPECT_EQ(closed[0], CString(L"OFF"));
    EXPECT_EQ(closed[1], CString(L"FROZEN"));
    GetLayerNames(CString(), names);
    EXPECT_EQ(names.GetSize(), closed.GetSize() + open.GetSize());
    AcDbObjectIdArray ids;
    GetLayerIds(L"", ids);
    EXPECT_EQ(ids.length(), names.GetSize());
}

TEST_F(LayersTest, EntitiesMoveToAndLeaveALayer)
{
    auto* pLine = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    pLine->setDatabaseDefaults(Db());
    SetEntityLayer(Db(), pLine, L"TARGET", 300);
    Append(pLine);
    AddLine(5.0);
    EXPECT_EQ(LayerColor(GetLayerId(nullptr, L"TARGET", 1, 1)), 7);

    EXPECT_EQ(RemoveEntsFromLayer(L"NOT_THERE"), 0);
    EXPECT_EQ(RemoveEntsFromLayer(L"TARGET"), 1);
    AcDbBlockTableRecord* pModel = nullptr;
    ASSERT_EQ(acdbOpenObject(pModel, Db()->modelSpaceId(), AcDb::kForRead), Acad::eOk);
    int iLive = 0;
    for (int i = 0; i < pModel->entityIds().length(); ++i) {
        AcDbEntity* pEntity = nullptr;
        if (acdbOpenAcDbEntity(pEntity, pModel->entityIds()[i], AcDb::kForRead) == Acad::eOk) {
            ++iLive;
            EXPECT_NE(GetLayerName(pEntity->layerId()), CString(L"TARGET"));
            pEntity->close();
        }
    }
    pModel->close();
    EXPECT_EQ(iLive, 1);
    EXPECT_EQ(Doc()->lockCount(), 0);
}

} // namespace
