// The standard contents of a new drawing: tables, records, dictionaries, layouts, scales.
#include <cmath>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbUndoManager.h"
#include "host/db/AcDbDatabaseImpl.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbLayout.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbScale.h"
#include "host/db/dbsymtb.h"

namespace {

// The annotation scales a new drawing lists (paper : drawing units).
struct ScaleDef {
    const ACHAR* name;
    double paper;
    double drawing;
};
constexpr ScaleDef kScales[] = {
    {L"1:1", 1, 1},     {L"1:2", 1, 2},     {L"1:5", 1, 5},       {L"1:10", 1, 10},
    {L"1:20", 1, 20},   {L"1:25", 1, 25},   {L"1:50", 1, 50},     {L"1:100", 1, 100},
    {L"1:200", 1, 200}, {L"1:250", 1, 250}, {L"1:500", 1, 500},   {L"1:1000", 1, 1000},
    {L"2:1", 2, 1},     {L"5:1", 5, 1},     {L"10:1", 10, 1},     {L"100:1", 100, 1},
};

class Builder {
public:
    explicit Builder(AcDbDatabase* db) : m_db(db), m_impl(db->impl()) {}

    // Adds obj closed, owned by owner.
    AcDbObjectId add(AcDbObject* obj, AcDbObjectId owner)
    {
        const AcDbObjectId id = m_impl.add(obj, AcDbHandle());
        AcDbObjectAccess::setOwnerRaw(obj, owner);
        return id;
    }
    template <typename T>
    T* peek(AcDbObjectId id)
    {
        return T::cast(id.stub()->object);
    }
    AcDbObjectId table(AcDbSymbolTable* table, AcDbObjectId& slot)
    {
        if (slot.isNull() || !slot.isValid())
            slot = add(table, AcDbObjectId());
        else
            delete table;
        return slot;
    }
    // Adds a record unless the table has one of that name.
    template <typename R>
    AcDbObjectId record(AcDbObjectId tableId, const ACHAR* name, R* rec)
    {
        AcDbSymbolTable* t = peek<AcDbSymbolTable>(tableId);
        AcDbObjectId existing;
        if (t->getAt(name, existing) == Acad::eOk) {
            delete rec;
            return existing;
        }
        AcDbObjectAccess::pushWrite(rec);
        rec->setName(name);
        AcDbObjectAccess::popWrite(rec);
        const AcDbObjectId id = add(rec, tableId);
        t->addAsRead(id);
        ++m_added;
        return id;
    }
    AcDbObjectId dict(AcDbObjectId parent, const ACHAR* key, AcDbObject* obj)
    {
        AcDbDictionary* d = peek<AcDbDictionary>(parent);
        AcDbObjectId existing;
        if (d->getAt(key, existing) == Acad::eOk) {
            delete obj;
            return existing;
        }
        const AcDbObjectId id = add(obj, parent);
        d->setAtAsRead(key, id);
        ++m_added;
        return id;
    }
    int added() const { return m_added; }

private:
    AcDbDatabase* m_db;
    AcDbDatabase::Impl& m_impl;
    int m_added = 0;
};

}  // namespace

void AcDbDatabase::buildDefaultDrawing()
{
    repairStandardObjects();
    m_undo->clear();
    m_dbmod = 0;
}

int AcDbDatabase::repairStandardObjects()
{
    Impl& d = *m_impl;
    Builder b(this);
    if (d.nod.isNull() || !d.nod.isValid())
        d.nod = b.add(new AcDbDictionary(), AcDbObjectId());
    b.table(new AcDbViewportTable(), d.viewportTable);
    b.table(new AcDbLinetypeTable(), d.linetypeTable);
    b.table(new AcDbLayerTable(), d.layerTable);
    b.table(new AcDbTextStyleTable(), d.textStyleTable);
    b.table(new AcDbViewTable(), d.viewTable);
    b.table(new AcDbUCSTable(), d.ucsTable);
    b.table(new AcDbRegAppTable(), d.regAppTable);
    b.table(new AcDbDimStyleTable(), d.dimStyleTable);
    b.table(new AcDbBlockTable(), d.blockTable);

    auto* active = new AcDbViewportTableRecord();
    active->setTags(acdbDefaultActiveViewportTags());
    b.record(d.viewportTable, L"*Active", active);

    b.record(d.linetypeTable, L"ByBlock", new AcDbLinetypeTableRecord());
    b.record(d.linetypeTable, L"ByLayer", new AcDbLinetypeTableRecord());
    auto* continuous = new AcDbLinetypeTableRecord();
    continuous->setComments(L"Solid line");
    const AcDbObjectId continuousId = b.record(d.linetypeTable, L"Continuous", continuous);

    auto* layer0 = new AcDbLayerTableRecord();
    AcCmColor white;
    white.setColorIndex(7);
    layer0->setColor(white);
    layer0->setLinetypeObjectId(continuousId);
    b.record(d.layerTable, L"0", layer0);

    const AcDbObjectId standardStyle = b.record(d.textStyleTable, L"Standard", new AcDbTextStyleTableRecord());
    b.record(d.regAppTable, L"ACAD", new AcDbRegAppTableRecord());

    auto* dimStandard = new AcDbDimStyleTableRecord();
    AcDbObjectAccess::pushWrite(dimStandard);
    dimStandard->setDimtxsty(standardStyle);
    AcDbObjectAccess::popWrite(dimStandard);
    b.record(d.dimStyleTable, L"Standard", dimStandard);

    auto makeSpace = [&](const ACHAR* name) {
        auto* btr = new AcDbBlockTableRecord();
        const AcDbObjectId id = b.record(d.blockTable, name, btr);
        AcDbBlockTableRecord* rec = b.peek<AcDbBlockTableRecord>(id);
        if (rec->blockBeginHandle().isNull()) {
            rec->setBlockBeginHandle(allocateHandle());
            rec->setBlockEndHandle(allocateHandle());
        }
        return id;
    };
    const AcDbObjectId model = makeSpace(ACDB_MODEL_SPACE);
    const AcDbObjectId paper = makeSpace(ACDB_PAPER_SPACE);

    b.dict(d.nod, L"ACAD_GROUP", new AcDbDictionary());
    const AcDbObjectId layouts = b.dict(d.nod, L"ACAD_LAYOUT", new AcDbDictionary());
    auto makeLayout = [&](const ACHAR* name, int tab, AcDbObjectId block) {
        AcDbDictionary* dict = b.peek<AcDbDictionary>(layouts);
        for (const auto& e : dict->entries()) {
            AcDbPeek existing(e.id);
            const AcDbLayout* layout = existing.as<AcDbLayout>();
            if (layout && layout->getBlockTableRecordId() == block)
                return;
        }
        auto* layout = new AcDbLayout();
        AcDbObjectAccess::pushWrite(layout);
        layout->setLayoutName(name);
        layout->setTabOrder(tab);
        layout->setBlockTableRecordId(block);
        layout->setPlotSettingsTags(AcDbLayout::defaultPlotSettingsTags(tab == 0 ? L"" : L""));
        layout->setLayoutTags(AcDbLayout::defaultLayoutTags());
        AcDbObjectAccess::popWrite(layout);
        const AcDbObjectId id = b.dict(layouts, name, layout);
        AcDbBlockTableRecord* rec = b.peek<AcDbBlockTableRecord>(block);
        AcDbObjectAccess::pushWrite(rec);
        rec->setLayoutId(id);
        AcDbObjectAccess::popWrite(rec);
    };
    makeLayout(L"Model", 0, model);
    makeLayout(L"Layout1", 1, paper);

    const AcDbObjectId scales = b.dict(d.nod, L"ACAD_SCALELIST", new AcDbDictionary());
    if (b.peek<AcDbDictionary>(scales)->numEntries() == 0) {
        int i = 0;
        for (const ScaleDef& s : kScales) {
            auto* scale = new AcDbScale();
            AcDbObjectAccess::pushWrite(scale);
            scale->setScaleName(s.name);
            scale->setPaperUnits(s.paper);
            scale->setDrawingUnits(s.drawing);
            scale->setIsUnitScale(s.paper == 1 && s.drawing == 1);
            AcDbObjectAccess::popWrite(scale);
            const std::wstring key = L"A" + std::to_wstring(i++);
            b.dict(scales, key.c_str(), scale);
        }
    }
    return b.added() + setDefaultHeader();
}
