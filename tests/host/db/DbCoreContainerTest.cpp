// Containers of the database: dictionary entries, symbol table names and erased records,
// block and table iterators, and the dimension style's variables through the binary filer.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "DbCoreTestEntity.h"
#include "host/db/AcDbDictionary.h"

namespace {

AcDbObjectId addEntry(AcDbDictionary* dict, const wchar_t* key)
{
    auto* value = new AcDbDictionary();
    AcDbObjectId id;
    EXPECT_EQ(dict->setAt(key, value, id), Acad::eOk);
    value->close();
    return id;
}

void setErased(AcDbObjectId id, bool erasing)
{
    AcDbObject* obj = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(obj, id, AcDb::kForWrite, true), Acad::eOk);
    EXPECT_EQ(obj->erase(erasing), Acad::eOk);
    obj->close();
}

std::vector<std::wstring> iteratedKeys(const AcDbDictionary* dict)
{
    std::vector<std::wstring> keys;
    AcDbDictionaryIterator* it = dict->newIterator();
    for (; !it->done(); it->next())
        keys.emplace_back(it->name());
    delete it;
    return keys;
}

// A fresh dictionary in the named object dictionary, open for write, with keys A, b, C.
struct DictFixture {
    AcDbDatabase db;
    AcDbDictionary* dict = nullptr;
    AcDbObjectId a, b, c;
    DictFixture()
    {
        AcDbDictionary* nod = nullptr;
        db.getNamedObjectsDictionary(nod, AcDb::kForWrite);
        dict = new AcDbDictionary();
        AcDbObjectId id;
        nod->setAt(L"TEST", dict, id);
        nod->close();
        a = addEntry(dict, L"A");
        b = addEntry(dict, L"b");
        c = addEntry(dict, L"C");
    }
    ~DictFixture() { dict->close(); }
};

TEST(DbCoreDictionary, EntryOperations)
{
    struct Case {
        const char* what;
        void (*change)(DictFixture&);
        std::vector<std::wstring> keys;  // live keys afterwards, in order
    };
    const Case cases[] = {
        {"nothing", [](DictFixture&) {}, {L"A", L"b", L"C"}},
        {"replace under another case keeps spelling and place",
         [](DictFixture& f) {
             const AcDbObjectId old = f.b;
             f.b = addEntry(f.dict, L"B");
             EXPECT_TRUE(old.isErased()) << "the replaced object goes";
             EXPECT_FALSE(f.b.isErased());
         },
         {L"A", L"b", L"C"}},
        {"remove by key leaves the object alive and ownerless to the dictionary",
         [](DictFixture& f) {
             AcDbObjectId removed;
             EXPECT_EQ(f.dict->remove(L"a", removed), Acad::eOk);
             EXPECT_EQ(removed, f.a);
             EXPECT_FALSE(f.a.isErased());
             EXPECT_FALSE(f.dict->has(f.a));
             EXPECT_EQ(f.dict->remove(L"a"), Acad::eKeyNotFound);
         },
         {L"b", L"C"}},
        {"remove by id", [](DictFixture& f) { EXPECT_EQ(f.dict->remove(f.c), Acad::eOk); }, {L"A", L"b"}},
        {"an erased entry is skipped and its key can be set again",
         [](DictFixture& f) {
             setErased(f.a, true);
             EXPECT_FALSE(f.dict->has(L"A"));
             EXPECT_EQ(f.dict->numEntries(), 2u);
             addEntry(f.dict, L"a");
         },
         {L"b", L"C", L"a"}},
        {"unerased entry comes back in place",
         [](DictFixture& f) {
             setErased(f.b, true);
             setErased(f.b, false);
         },
         {L"A", L"b", L"C"}},
        {"rename, and refuse a name in use",
         [](DictFixture& f) {
             EXPECT_FALSE(f.dict->setName(L"A", L"c"));
             EXPECT_FALSE(f.dict->setName(L"missing", L"D"));
             EXPECT_FALSE(f.dict->setName(L"A", L""));
             EXPECT_TRUE(f.dict->setName(L"A", L"a"));  // its own name in another case
             EXPECT_TRUE(f.dict->setName(L"b", L"Z"));
             EXPECT_EQ(f.dict->getAt(L"z", f.b), Acad::eOk);
         },
         {L"a", L"Z", L"C"}},
        {"refusals change nothing",
         [](DictFixture& f) {
             AcDbObjectId id;
             // A refused object stays the caller's.
             const auto refused = std::make_unique<AcDbDictionary>();
             EXPECT_EQ(f.dict->setAt(L"", refused.get(), id), Acad::eInvalidInput);
             EXPECT_EQ(f.dict->setAt(nullptr, nullptr, id), Acad::eInvalidInput);
             EXPECT_EQ(f.dict->getAt(L"none", id), Acad::eKeyNotFound);
             EXPECT_TRUE(id.isNull());
         },
         {L"A", L"b", L"C"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        DictFixture f;
        c.change(f);
        EXPECT_EQ(iteratedKeys(f.dict), c.keys);
        EXPECT_EQ(f.dict->numEntries(), c.keys.size());
        for (const std::wstring& key : c.keys) {
            AcDbObjectId id;
            ASSERT_EQ(f.dict->getAt(key.c_str(), id), Acad::eOk);
            std::wstring name;
            EXPECT_EQ(f.dict->nameAt(id, name), Acad::eOk);
            EXPECT_EQ(name, key);
            AcDbObject* obj = nullptr;
            ASSERT_EQ(acdbOpenAcDbObject(obj, id, AcDb::kForRead), Acad::eOk);
            EXPECT_EQ(obj->ownerId(), f.dict->objectId());
            obj->close();
        }
    }
}

TEST(DbCoreDictionary, ErasingTheDictionaryTakesItsEntriesAlong)
{
    DictFixture f;
    ASSERT_EQ(f.dict->erase(), Acad::eOk);
    for (const AcDbObjectId& id : {f.a, f.b, f.c})
        EXPECT_TRUE(id.isErased());
    ASSERT_EQ(f.dict->erase(false), Acad::eOk);
    EXPECT_EQ(iteratedKeys(f.dict), (std::vector<std::wstring>{L"A", L"b", L"C"}));
}

TEST(DbCoreDictionary, NeedsWriteAccessAndADatabase)
{
    DictFixture f;
    f.dict->downgradeOpen();
    AcDbObjectId id;
    auto* value = new AcDbDictionary();
    EXPECT_EQ(f.dict->setAt(L"X", value, id), Acad::eNotOpenForWrite);
    EXPECT_EQ(f.dict->remove(L"A"), Acad::eNotOpenForWrite);
    EXPECT_FALSE(value->isDatabaseResident());
    AcDbDictionary loose;
    EXPECT_EQ(loose.setAt(L"X", value, id), Acad::eNoDatabase);
    delete value;
    EXPECT_EQ(iteratedKeys(f.dict), (std::vector<std::wstring>{L"A", L"b", L"C"}));
    f.dict->upgradeOpen();
}

// Symbol tables ---------------------------------------------------------------------------

AcDbObjectId addLayer(AcDbDatabase& db, const wchar_t* name, Acad::ErrorStatus expected = Acad::eOk)
{
    AcDbLayerTable* layers = nullptr;
    db.getLayerTable(layers, AcDb::kForWrite);
    auto* rec = new AcDbLayerTableRecord();
    rec->setName(name);
    AcDbObjectId id;
    EXPECT_EQ(layers->add(id, rec), expected) << name;
    if (expected == Acad::eOk)
        rec->close();
    else
        delete rec;
    layers->close();
    return id;
}

TEST(DbCoreSymbolTable, NamesRefusedOnAdd)
{
    AcDbDatabase db;
    addLayer(db, L"Wände");
    const struct {
        const wchar_t* name;
        Acad::ErrorStatus es;
    } cases[] = {
        {L"WÄNDE", Acad::eDuplicateRecordName},  // case folding beyond ASCII
        {L"wände", Acad::eDuplicateRecordName},
        {L"", Acad::eInvalidSymbolTableName},
        {L"a<b", Acad::eInvalidSymbolTableName},
        {L"a*b", Acad::eInvalidSymbolTableName},
        {L"a=b", Acad::eInvalidSymbolTableName},
        {L"a`b", Acad::eInvalidSymbolTableName},
        {L"*Anon", Acad::eOk},  // a leading star is an anonymous name
        {L"Wand 2", Acad::eOk},
    };
    for (const auto& c : cases)
        addLayer(db, c.name, c.es);

    AcDbLayerTable* layers = nullptr;
    db.getLayerTable(layers, AcDb::kForWrite);
    auto* unnamed = new AcDbLayerTableRecord();
    EXPECT_EQ(layers->add(unnamed), Acad::eInvalidSymbolTableName);
    delete unnamed;
    auto* wrong = new AcDbTextStyleTableRecord();
    wrong->setName(L"Wrong");
    EXPECT_EQ(layers->add(wrong), Acad::eWrongObjectType);
    delete wrong;
    layers->close();
}

TEST(DbCoreSymbolTable, ErasedRecordsAndRenames)
{
    AcDbDatabase db;
    const AcDbObjectId old = addLayer(db, L"Alt");
    setErased(old, true);
    AcDbLayerTable* layers = nullptr;
    db.getLayerTable(layers, AcDb::kForRead);
    AcDbObjectId id;
    EXPECT_EQ(layers->getAt(L"ALT", id), Acad::eKeyNotFound);
    EXPECT_EQ(layers->getAt(L"alt", id, true), Acad::eOk);
    EXPECT_EQ(id, old);
    EXPECT_FALSE(layers->has(L"Alt"));
    EXPECT_FALSE(layers->has(old));
    const int live = layers->numRecords();
    EXPECT_EQ(layers->numRecords(true), live + 1);
    layers->close();

    // The name of an erased record is free again; lookups then find the live one.
    const AcDbObjectId fresh = addLayer(db, L"ALT");
    db.getLayerTable(layers, AcDb::kForRead);
    EXPECT_EQ(layers->getAt(L"alt", id), Acad::eOk);
    EXPECT_EQ(id, fresh);
    layers->close();

    // Renames reindex: the old name is gone, the new one found in any case, and a name in
    // use by another record is refused.
    const AcDbObjectId other = addLayer(db, L"Other");
    AcDbLayerTableRecord* rec = nullptr;
    ASSERT_EQ(acdbOpenObject(rec, fresh, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(rec->setName(L"oTHER"), Acad::eDuplicateRecordName);
    EXPECT_EQ(rec->setName(L"Neu"), Acad::eOk);
    EXPECT_EQ(rec->setName(L"NEU"), Acad::eOk);  // itself in another case
    rec->close();
    db.getLayerTable(layers, AcDb::kForRead);
    EXPECT_EQ(layers->getAt(L"neu", id), Acad::eOk);
    EXPECT_EQ(id, fresh);
    EXPECT_EQ(layers->getAt(L"Other", id), Acad::eOk);
    EXPECT_EQ(id, other);
    EXPECT_FALSE(layers->has(L"ALT"));
    layers->close();
}

// Iterators over ids: the table's and the block's walk the same way.
TEST(DbCoreIterators, BothDirectionsErasedAndSeek)
{
    AcDbDatabase db;
    AcDbObjectIdArray entities;
    for (int i = 0; i < 5; ++i)
        entities.append(dbcoreAppend(&db, i));
    setErased(entities[0], true);
    setErased(entities[2], true);
    setErased(entities[4], true);

    AcDbBlockTableRecord* ms = nullptr;
    acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForRead);
    struct Walk {
        bool forward;
        bool skipDeleted;
        std::vector<int> order;
    };
    const Walk walks[] = {
        {true, true, {1, 3}},
        {false, true, {3, 1}},
        {true, false, {0, 1, 2, 3, 4}},
        {false, false, {4, 3, 2, 1, 0}},
    };
    for (const Walk& w : walks) {
        SCOPED_TRACE(w.forward ? "forward" : "backward");
        AcDbBlockTableRecordIterator* it = nullptr;
        ms->newIterator(it, w.forward, w.skipDeleted);
        std::vector<int> order;
        for (; !it->done(); it->step(w.forward, w.skipDeleted)) {
            AcDbObjectId id;
            ASSERT_EQ(it->getEntityId(id), Acad::eOk);
            order.push_back(entities.find(id));
        }
        AcDbObjectId none;
        EXPECT_EQ(it->getEntityId(none), Acad::eIteratorDone);
        delete it;
        EXPECT_EQ(order, w.order);
    }
    AcDbBlockTableRecordIterator* it = nullptr;
    ms->newIterator(it);
    EXPECT_EQ(it->seek(entities[2]), Acad::eOk);  // seek reaches an erased entity
    AcDbEntity* ent = nullptr;
    EXPECT_EQ(it->getEntity(ent, AcDb::kForRead), Acad::eWasErased);
    ASSERT_EQ(it->getEntity(ent, AcDb::kForRead, true), Acad::eOk);
    ent->close();
    EXPECT_EQ(it->seek(db.modelSpaceId()), Acad::eKeyNotFound);
    delete it;
    ms->close();

    // A table iterator over layers with one erased record, backwards.
    const AcDbObjectId x = addLayer(db, L"X");
    const AcDbObjectId y = addLayer(db, L"Y");
    setErased(x, true);
    AcDbLayerTable* layers = nullptr;
    db.getLayerTable(layers, AcDb::kForRead);
    AcDbLayerTableIterator* lit = nullptr;
    layers->newIterator(lit, false);
    AcDbObjectId last;
    ASSERT_EQ(lit->getRecordId(last), Acad::eOk);
    EXPECT_EQ(last, y);
    lit->step(false);
    AcDbObjectId before;
    lit->getRecordId(before);
    EXPECT_NE(before, x);
    EXPECT_EQ(lit->seek(x), Acad::eOk);
    AcDbLayerTableRecord* rec = nullptr;
    EXPECT_EQ(lit->getRecord(rec, AcDb::kForRead), Acad::eWasErased);
    delete lit;
    layers->close();
}

// Dimension styles --------------------------------------------------------------------------

// Every variable set away from its default: reals, integers, flags, texts, characters,
// weights, arrow names, ids, and true colours where the kind is a colour.
AcDbDimVars everyVariableChanged(AcDbDatabase& db)
{
    AcDbDimVars vars;
    vars.setToDefaults(AcDb::kEnglish);
    int count = 0;
    const AcDbDimVarInfo* infos = AcDbDimVars::infos(count);
    for (int i = 0; i < count; ++i) {
        const std::wstring kind = infos[i].kind;
        AcDbDimVarValue v;
        vars.getValue(infos[i].dxfCode, v);
        if (kind == L"Real")
            v.real += 1.25 + i;
        else if (kind == L"Bool")
            v.integer = !v.integer;
        else if (kind == L"Int" || kind == L"Char")
            v.integer += 3;
        else if (kind == L"Weight")
            v.integer = AcDb::kLnWt035;
        else if (kind == L"Str" || kind == L"Block")
            v.text = L"_DOT" + std::to_wstring(i);
        else if (kind == L"Style" || kind == L"Ltype")
            v.id = db.textstyle();
        if (kind != L"Color") {
            EXPECT_EQ(vars.setValue(infos[i].dxfCode, v), Acad::eOk) << infos[i].dxfCode;
        }
    }
    vars.dimclrd.setRGB(10, 20, 30);
    vars.dimclre.setColorIndex(3);
    vars.dimclrt.setRGB(200, 100, 0);
    vars.dimtfillclr.setRGB(1, 2, 3);
    return vars;
}

TEST(DbCoreDimStyle, EveryVariableRoundTripsThroughTheBinaryFiler)
{
    AcDbDatabase db;
    const AcDbDimVars wanted = everyVariableChanged(db);
    AcDbDimVars defaults;
    defaults.setToDefaults(AcDb::kEnglish);
    int count = 0;
    const AcDbDimVarInfo* infos = AcDbDimVars::infos(count);
    for (int i = 0; i < count; ++i)
        EXPECT_FALSE(wanted.sameValue(infos[i].dxfCode, defaults)) << "unchanged: " << infos[i].dxfCode;

    AcDbDimStyleTableRecord rec;
    rec.setName(L"Alle");
    ASSERT_EQ(rec.setVars(wanted), Acad::eOk);
    for (const AcDb::FilerType type : {AcDb::kCopyFiler, AcDb::kUndoFiler}) {
        AcDbBinaryFiler out(type, &db);
        ASSERT_EQ(rec.dwgOutFields(&out), Acad::eOk);
        AcDbBinaryFiler in(out.bytes(), type, &db);
        AcDbDimStyleTableRecord back;
        ASSERT_EQ(back.dwgInFields(&in), Acad::eOk);
        EXPECT_EQ(back.name(), L"Alle");
        for (int i = 0; i < count; ++i)
            EXPECT_TRUE(back.vars().sameValue(infos[i].dxfCode, wanted)) << "lost: " << infos[i].dxfCode;
        EXPECT_EQ(back.dimclrd().colorMethod(), AcCm::kByColor);
        EXPECT_EQ(back.dimclrd().red(), 10);
    }
}

TEST(DbCoreDimStyle, CopyAndCompareKeepTrueColours)
{
    AcDbDimVars a, b;
    a.setToDefaults(AcDb::kMetric);
    b.setToDefaults(AcDb::kMetric);
    a.dimclrt.setRGB(255, 0, 0);  // the same nearest index as red, but not red
    b.dimclrt.setColorIndex(1);
    EXPECT_FALSE(a.sameValue(178, b));
    ASSERT_EQ(b.copyValue(178, a), Acad::eOk);
    EXPECT_TRUE(b.sameValue(178, a));
    EXPECT_EQ(b.dimclrt.colorMethod(), AcCm::kByColor);
    EXPECT_EQ(b.copyValue(12345, a), Acad::eKeyNotFound);
    EXPECT_FALSE(b.sameValue(12345, a));
}

}  // namespace
