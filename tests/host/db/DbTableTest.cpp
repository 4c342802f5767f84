// Symbol tables and dictionaries: lookups without regard to case, standard contents, draw order.
#include <gtest/gtest.h>

#include "DbCoreTestEntity.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbScale.h"
#include "host/db/AcDbSortentsTable.h"

namespace {

TEST(DbTable, NewDrawingHasTheStandardRecords)
{
    AcDbDatabase db;
    struct Case {
        AcDbObjectId table;
        const wchar_t* name;
    };
    const Case cases[] = {
        {db.layerTableId(), L"0"},           {db.textStyleTableId(), L"standard"},
        {db.dimStyleTableId(), L"STANDARD"}, {db.regAppTableId(), L"acad"},
        {db.linetypeTableId(), L"CONTINUOUS"}, {db.linetypeTableId(), L"ByBlock"},
        {db.linetypeTableId(), L"bylayer"},  {db.blockTableId(), L"*MODEL_SPACE"},
        {db.blockTableId(), L"*paper_space"}, {db.viewportTableId(), L"*ACTIVE"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.name, c.name + wcslen(c.name)));
        AcDbSymbolTable* table = nullptr;
        ASSERT_EQ(acdbOpenObject(table, c.table, AcDb::kForRead), Acad::eOk);
        EXPECT_TRUE(table->has(c.name));
        table->close();
    }
    AcDbLayerTable* layers = nullptr;
    db.getLayerTable(layers);
    AcDbObjectId zero;
    layers->getAt(L"0", zero);
    layers->close();
    EXPECT_EQ(db.clayer(), zero);
    EXPECT_FALSE(db.textstyle().isNull());
    EXPECT_FALSE(db.dimstyle().isNull());
    EXPECT_EQ(db.currentSpaceId(), db.modelSpaceId());
}

TEST(DbTable, NamesAreUniqueWithoutRegardToCase)
{
    AcDbDatabase db;
    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(db.getLayerTable(layers, AcDb::kForWrite), Acad::eOk);
    struct Case {
        const wchar_t* name;
        Acad::ErrorStatus expected;
    };
    const Case cases[] = {{L"Wände", Acad::eOk}, {L"WÄNDE", Acad::eDuplicateRecordName},
                          {L"", Acad::eInvalidSymbolTableName}, {L"a<b", Acad::eInvalidSymbolTableName},
                          {L"Türen", Acad::eOk}};
    for (const Case& c : cases) {
        auto* rec = new AcDbLayerTableRecord();
        rec->setName(c.name);
        const Acad::ErrorStatus es = layers->add(rec);
        EXPECT_EQ(es, c.expected);
        if (es == Acad::eOk)
            rec->close();
        else
            delete rec;
    }
    AcDbLayerTableRecord* rec = nullptr;
    ASSERT_EQ(layers->getAt(L"wände", rec, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(rec->setName(L"TÜREN"), Acad::eDuplicateRecordName);
    EXPECT_EQ(rec->setName(L"Decken"), Acad::eOk);
    rec->close();
    EXPECT_TRUE(layers->has(L"DECKEN"));
    EXPECT_FALSE(layers->has(L"Wände"));
    AcDbLayerTableIterator* it = nullptr;
    layers->newIterator(it);
    int n = 0;
    for (; !it->done(); it->step())
        ++n;
    delete it;
    EXPECT_EQ(n, 3);
    layers->close();
}

TEST(DbTable, BlockIteratorSkipsErasedEntitiesInBlockOrder)
{
    AcDbDatabase db;
    const AcDbObjectId a = dbcoreAppend(&db, 1);
    const AcDbObjectId b = dbcoreAppend(&db, 2);
    const AcDbObjectId c = dbcoreAppend(&db, 3);
    AcDbObject* obj = nullptr;
    acdbOpenAcDbObject(obj, b, AcDb::kForWrite);
    obj->erase();
    obj->close();
    AcDbBlockTableRecord* ms = nullptr;
    acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForRead);
    AcDbBlockTableRecordIterator* it = nullptr;
    ms->newIterator(it);
    AcDbObjectIdArray seen;
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getEntityId(id);
        seen.append(id);
    }
    delete it;
    ms->close();
    EXPECT_EQ(seen, AcDbObjectIdArray({a, c}));
}

TEST(DbTable, DictionaryAndScaleList)
{
    AcDbDatabase db;
    AcDbDictionary* nod = nullptr;
    ASSERT_EQ(db.getNamedObjectsDictionary(nod, AcDb::kForWrite), Acad::eOk);
    EXPECT_TRUE(nod->has(L"acad_group"));
    EXPECT_TRUE(nod->has(L"ACAD_LAYOUT"));
    auto* x = new AcDbDictionary();
    AcDbObjectId xid;
    ASSERT_EQ(nod->setAt(L"MY_DATA", x, xid), Acad::eOk);
    x->close();
    AcDbObjectId found;
    EXPECT_EQ(nod->getAt(L"my_data", found), Acad::eOk);
    EXPECT_EQ(found, xid);
    EXPECT_EQ(nod->remove(L"MY_DATA"), Acad::eOk);
    EXPECT_FALSE(nod->has(L"MY_DATA"));
    nod->close();

    EXPECT_NE(db.cannoscale(), nullptr);
    double scale = 0;
    db.cannoscale()->getScale(scale);
    EXPECT_DOUBLE_EQ(scale, 1.0);
    AcDbAnnotationScale fifty(L"1:50", 1, 50);
    ASSERT_EQ(db.setCannoscale(&fifty), Acad::eOk);
    db.cannoscale()->getScale(scale);
    EXPECT_DOUBLE_EQ(scale, 0.02);
    AcDbAnnotationScale missing(L"1:3", 1, 3);
    EXPECT_EQ(db.setCannoscale(&missing), Acad::eKeyNotFound);
}

TEST(DbTable, DrawOrderMovesKeepRelativeOrder)
{
    AcDbDatabase db;
    AcDbObjectIdArray ids;
    for (int i = 0; i < 4; ++i)
        ids.append(dbcoreAppend(&db, i));
    AcDbBlockTableRecord* ms = nullptr;
    acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForRead);
    AcDbSortentsTable* sort = nullptr;
    ASSERT_EQ(ms->getSortentsTable(sort, AcDb::kForWrite, true), Acad::eOk);
    ms->close();
    AcDbObjectIdArray order;
    sort->getFullDrawOrder(order);
    EXPECT_EQ(order, ids);
    ASSERT_EQ(sort->moveToTop(AcDbObjectIdArray({ids[0], ids[2]})), Acad::eOk);
    sort->getFullDrawOrder(order);
    EXPECT_EQ(order, AcDbObjectIdArray({ids[1], ids[3], ids[0], ids[2]}));
    ASSERT_EQ(sort->moveToBottom(AcDbObjectIdArray({ids[2]})), Acad::eOk);
    sort->getFullDrawOrder(order);
    EXPECT_EQ(order, AcDbObjectIdArray({ids[2], ids[1], ids[3], ids[0]}));
    EXPECT_EQ(sort->moveToTop(AcDbObjectIdArray({db.modelSpaceId()})), Acad::eInvalidInput);
    sort->close();
}

TEST(DbTable, DimStyleDataGoesThroughTheHeader)
{
    AcDbDatabase db;
    AcDbDimStyleTableRecord* rec = nullptr;
    AcDbDimStyleTable* table = nullptr;
    db.getDimStyleTable(table, AcDb::kForWrite);
    ASSERT_EQ(table->getAt(L"Standard", rec, AcDb::kForWrite), Acad::eOk);
    table->close();
    EXPECT_DOUBLE_EQ(rec->dimasz(), 0.18);
    rec->setDimasz(2.5);
    rec->setDimdsep(L',');
    rec->setDimblk(L"_NONE");
    rec->setDimtad(1);
    ASSERT_EQ(db.setDimstyleData(rec), Acad::eOk);
    rec->close();
    EXPECT_DOUBLE_EQ(db.headerVars().getReal(L"$DIMASZ", 0), 2.5);
    EXPECT_EQ(db.headerVars().getText(L"$DIMBLK", L""), L"_NONE");
    AcDbDimStyleTableRecord* data = nullptr;
    ASSERT_EQ(db.getDimstyleData(data), Acad::eOk);
    EXPECT_DOUBLE_EQ(data->dimasz(), 2.5);
    EXPECT_EQ(data->dimdsep(), L',');
    EXPECT_EQ(data->dimtad(), 1);
    EXPECT_EQ(data->dimtxsty(), db.textstyle());
    delete data;
}

}  // namespace

namespace {

// Thousands of anonymous blocks (one per dimension) are usual: membership and lookups must
// hold for every one of them, for long names and for names that differ only in case.
TEST(DbTable, ManyRecordsAddedAsRead)
{
    AcDbDatabase db;
    AcDbBlockTable* table = nullptr;
    ASSERT_EQ(db.getBlockTable(table, AcDb::kForWrite), Acad::eOk);
    const struct {
        std::wstring name;
        const wchar_t* lookup;
    } cases[] = {
        {L"*D1", L"*d1"},
        {L"Fenster-" + std::wstring(80, L'a'), nullptr},  // longer than a short name
        {L"Tür", L"TÜR"},
    };
    std::vector<AcDbObjectId> ids;
    for (int i = 0; i < 3000; ++i) {
        auto* record = new AcDbBlockTableRecord();
        const std::wstring name = i < 3 ? cases[i].name : L"*D" + std::to_wstring(i + 2);
        ASSERT_EQ(record->setName(name.c_str()), Acad::eOk);
        AcDbObjectId id;
        ASSERT_EQ(db.addAcDbObjectAsRead(id, record, db.allocateHandle()), Acad::eOk);
        ASSERT_EQ(table->addAsRead(id), Acad::eOk);
        ASSERT_EQ(table->addAsRead(id), Acad::eOk);  // a second time changes nothing
        ids.push_back(id);
    }
    const int before = table->numRecords();
    EXPECT_EQ(table->recordIds().length(), before);
    for (int i = 0; i < 3; ++i) {
        const std::wstring lookup = cases[i].lookup ? cases[i].lookup : cases[i].name;
        AcDbObjectId found;
        EXPECT_EQ(table->getAt(lookup.c_str(), found), Acad::eOk);
        EXPECT_EQ(found, ids[i]);
    }
    EXPECT_TRUE(table->has(ids.back()));
    EXPECT_FALSE(table->has(db.layerTableId()));
    table->close();
}

}  // namespace
