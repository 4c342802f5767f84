// The DXF file writer: sections in order, each object through its own filing.
#include "host/dxf/DxfFileWriter.h"

#include "host/db/AcDb2dPolyline.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbDimension.h"
#include "host/db/AcDbExplodeDraw.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbStub.h"
#include "host/db/AcDbSymbolTable.h"
#include "host/db/AcDbTag.h"
#include "host/dxf/DxfClassTable.h"
#include "host/dxf/DxfCustomRecord.h"
#include "host/dxf/DxfError.h"
#include "host/dxf/DxfFiler.h"
#include "host/dxf/DxfObjectIo.h"
#include "host/dxf/DxfProxyGraphics.h"
#include "host/dxf/DxfTagValue.h"
#include "host/dxf/DxfRawObject.h"
#include "host/dxf/DxfWideText.h"

#include <cwctype>
#include <map>
#include <memory>
#include <unordered_map>
#include <ostream>

namespace {

// An object opened for reading for as long as it is written. One that someone holds open for
// write is read-enabled already and is written as it stands.
class ReadAccess {
public:
    explicit ReadAccess(AcDbObjectId id)
    {
        const Acad::ErrorStatus es = acdbOpenObject(m_object, id, AcDb::kForRead);
        if (es == Acad::eOk) {
            m_opened = true;
        } else if (id.stub() && id.stub()->object && !id.isErased() && id.stub()->object->isReadEnabled()) {
            m_object = id.stub()->object;
        } else {
            m_object = nullptr;
        }
    }
    ~ReadAccess()
    {
        if (m_opened)
            m_object->close();
    }
    ReadAccess(const ReadAccess&) = delete;
    ReadAccess& operator=(const ReadAccess&) = delete;

    AcDbObject* get() const { return m_object; }
    AcDbObject* operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

private:
    AcDbObject* m_object = nullptr;
    bool m_opened = false;
};

bool equalsNoCase(std::wstring_view a, std::wstring_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (std::towupper(a[i]) != std::towupper(b[i]))
            return false;
    return true;
}

struct ClassEntry {
    DxfClassInfo info;
    int count = 0;
};

class Writer {
public:
    Writer(AcDbDatabase& db, DxfTagWriter& out, const DxfFileWriteOptions& options)
        : m_db(db), m_out(out), m_filer(out, &db), m_name(options.name), m_graphics(db)
    {
    }

    void run()
    {
        assignBlockHandles();
        survey();
        prepareDimensionBlocks();
        writeHeader();
        writeClasses();
        writeTables();
        writeBlocks();
        writeEntities();
        writeObjects();
        m_out.writeEof();
        m_out.flush();
    }

private:
    [[noreturn]] void fail(const AcDbObject* object, const std::string& why)
    {
        char handle[kDxfNumberBufferSize];
        std::string what = "object";
        if (object) {
            const std::size_t n = dxfFormatHandle(object->objectId().handle().value(), handle);
            what = "object " + std::string(handle, n) + " (" + dxfUtf8(typeOf(object)) + ")";
        }
        throw DxfError(m_name, 0, what + " could not be written: " + why);
    }

    // What the writer needs of a class, worked out once per class.
    struct ClassFacts {
        std::wstring type;       // record type
        std::string typeUtf8;
        bool table = false;      // a symbol table or one of its records
        bool custom = false;     // carries a custom record after its groups
        bool dimension = false;  // may need a geometry block
        bool raw = false;        // kept as read: its record holds its type and groups
        bool polyline = false;   // a planar polyline, followed by its vertices
        bool entity = false;     // an entity, written in its block rather than in OBJECTS
        int instances = 0;       // objects of exactly this class, counted by survey
    };

    ClassFacts& factsOf(const AcRxClass* cls)
    {
        auto it = m_facts.find(cls);
        if (it == m_facts.end()) {
            ClassFacts facts;
            facts.type = dxfTypeOfClass(cls);
            facts.typeUtf8 = dxfUtf8(facts.type);
            facts.table = cls->isDerivedFrom(AcDbSymbolTable::desc()) ||
                          cls->isDerivedFrom(AcDbSymbolTableRecord::desc());
            // Tables have no type of their own; the holders of kept records write them as read.
            facts.custom = !facts.table && !dxfIsNativeType(facts.type) &&
                           !cls->isDerivedFrom(DxfRawEntity::desc()) && !cls->isDerivedFrom(DxfRawObject::desc());
            facts.dimension = cls->isDerivedFrom(AcDbDimension::desc());
            facts.raw = cls->isDerivedFrom(DxfRawEntity::desc()) || cls->isDerivedFrom(DxfRawObject::desc());
            facts.polyline = cls->isDerivedFrom(AcDb2dPolyline::desc());
            facts.entity = cls->isDerivedFrom(AcDbEntity::desc());
            it = m_facts.emplace(cls, std::move(facts)).first;
        }
        return it->second;
    }

    // The kept record of an object read as it came; null for every other object. The class
    // test is made once per class rather than twice per object.
    const DxfRawRecord* rawOf(const AcDbObject* object, const ClassFacts& facts)
    {
        return facts.raw ? dxfRawRecordOf(object) : nullptr;
    }

    std::wstring typeOf(const AcDbObject* object)
    {
        const ClassFacts& facts = factsOf(object->isA());
        if (const DxfRawRecord* raw = rawOf(object, facts))
            return raw->dxfName;
        return facts.type;
    }

    // BLOCK and ENDBLK are entities of their own in the file; their handles come from the seed
    // once and are kept with the block record from then on.
    void assignBlockHandles()
    {
        ReadAccess table(m_db.blockTableId());
        const AcDbBlockTable* blocks = AcDbBlockTable::cast(table.get());
        if (!blocks)
            return;
        for (const AcDbObjectId& id : blocks->recordIds()) {
            ReadAccess access(id);
            AcDbBlockTableRecord* record = AcDbBlockTableRecord::cast(access.get());
            if (!record)
                continue;
            if (record->blockBeginHandle().isNull())
                record->setBlockBeginHandle(m_db.allocateHandle());
            if (record->blockEndHandle().isNull())
                record->setBlockEndHandle(m_db.allocateHandle());
        }
    }

    // The classes CLASSES must list, with their instance counts.
    void survey()
    {
        m_ids = m_db.objectIds();
        // Runs of one class are common; the class's facts are looked up once per run.
        const AcRxClass* lastClass = nullptr;
        ClassFacts* facts = nullptr;
        for (const AcDbObjectId& id : m_ids) {
            if (!id.stub() || !id.stub()->object || id.isErased())
                continue;
            const AcDbObject* object = id.stub()->object;
            const AcRxClass* cls = object->isA();
            if (cls != lastClass) {
                facts = &factsOf(cls);
                lastClass = cls;
            }
            if (const DxfRawRecord* raw = rawOf(object, *facts)) {
                DxfClassInfo info;
                if (raw->hasClass)
                    info = raw->classInfo;
                else if (!dxfNativeClassEntry(raw->dxfName, info))
                    continue;
                count(info);
                continue;
            }
            ++facts->instances;
            if (facts->dimension)
                m_dimensionIds.push_back(id);
        }
        for (const auto& [cls, facts] : m_facts) {
            DxfClassInfo info;
            if (facts.table || facts.instances == 0)
                continue;
            if (facts.custom)
                info = dxfCustomClassEntry(cls);
            else if (!dxfNativeClassEntry(facts.type, info))
                continue;
            count(info, facts.instances);
        }
    }

    void count(const DxfClassInfo& info, int n = 1)
    {
        ClassEntry& entry = m_classes[info.dxfName];
        if (entry.count == 0)
            entry.info = info;
        entry.count += n;
    }

    void writeHeader()
    {
        m_out.beginSection("HEADER");
        m_out.writeString(9, "$ACADVER");
        m_out.writeString(1, "AC1032");
        m_out.writeString(9, "$ACADMAINTVER");
        m_out.writeInt(90, 4);
        m_out.writeString(9, "$DWGCODEPAGE");
        m_out.writeString(3, "ANSI_1252");
        m_out.writeString(9, "$HANDSEED");
        m_out.writeHandle(5, m_db.handseed().value());
        for (const auto& [name, tags] : m_db.headerVars().entries()) {
            if (equalsNoCase(name, L"$ACADVER") || equalsNoCase(name, L"$ACADMAINTVER") ||
                equalsNoCase(name, L"$DWGCODEPAGE") || equalsNoCase(name, L"$HANDSEED"))
                continue;
            m_out.writeString(9, dxfUtf8(name));
            acdbWriteTags(&m_filer, tags);
            if (m_filer.filerStatus() != Acad::eOk)
                throw DxfError(m_name, 0, "header variable " + dxfUtf8(name) +
                                              " could not be written: " + m_filer.error());
        }
        m_out.endSection();
    }

    void writeClasses()
    {
        m_out.beginSection("CLASSES");
        for (const auto& [name, entry] : m_classes) {
            m_out.writeString(0, "CLASS");
            m_out.writeString(1, dxfUtf8(entry.info.dxfName));
            m_out.writeString(2, dxfUtf8(entry.info.className));
            m_out.writeString(3, dxfUtf8(entry.info.appName));
            m_out.writeInt(90, entry.info.proxyFlags);
            m_out.writeInt(91, entry.count);
            m_out.writeInt(280, entry.info.wasProxy ? 1 : 0);
            m_out.writeInt(281, entry.info.isEntity ? 1 : 0);
        }
        m_out.endSection();
    }

    // The object's own groups and its extended data, after its common part.
    void writeBody(AcDbObject* object)
    {
        writeBody(object, factsOf(object->isA()));
    }

    void writeBody(AcDbObject* object, const ClassFacts& facts)
    {
        m_filer.resetFilerStatus();
        if (const DxfRawRecord* raw = rawOf(object, facts)) {
            for (const DxfRawTag& tag : raw->tags)
                m_out.writeString(tag.code, tag.value);
        } else {
            std::vector<std::uint8_t> graphics;
            if (facts.custom)
                if (AcDbEntity* entity = AcDbEntity::cast(object))
                    graphics = m_graphics.graphicsOf(entity);
            m_filer.setEntityGraphics(&graphics);
            if (!m_dimensionBlockName.empty())
                if (const auto it = m_dimensionBlockName.find(object); it != m_dimensionBlockName.end())
                    m_filer.setGroupInSubclass("AcDbDimension", 3, 2, it->second);  // before the style
            object->dxfOutFields(&m_filer);
            m_filer.finishInsertions();
            if (m_filer.filerStatus() != Acad::eOk)
                fail(object, m_filer.error().empty() ? dxfUtf8(acadErrorStatusText(m_filer.filerStatus()))
                                                     : m_filer.error());
            if (facts.custom) {
                std::string error;
                if (!dxfWriteCustomRecord(m_out, object, &m_db, error))
                    fail(object, error);
            }
        }
        dxfWriteXData(m_filer, object);
        if (m_filer.filerStatus() != Acad::eOk)
            fail(object, "extended data: " + m_filer.error());
    }

    void writeObject(AcDbObjectId id, int handleCode = 5)
    {
        ReadAccess object(id);
        if (!object)
            return;
        const ClassFacts& facts = factsOf(object->isA());
        if (const DxfRawRecord* raw = rawOf(object.get(), facts))
            dxfWriteCommonPart(m_out, dxfUtf8(raw->dxfName), object.get(), handleCode);
        else
            dxfWriteCommonPart(m_out, facts.typeUtf8, object.get(), handleCode);
        writeBody(object.get(), facts);
        if (facts.polyline)
            writeVertices(static_cast<const AcDb2dPolyline*>(object.get()));
    }

    // A planar polyline's vertices and its SEQEND follow it as records of their own. They are
    // not database objects here, so they are written without handles (readers give them
    // theirs) and the file stays the same from save to save.
    void writeVertices(const AcDb2dPolyline* polyline)
    {
        const std::uint64_t owner = polyline->objectId().handle().value();
        const std::string layer = dxfUtf8(polyline->layerName());
        for (int i = 0; i < polyline->numVertices(); ++i) {
            const AcDb2dVertex* vertex = polyline->vertexAt(i);
            m_out.writeString(0, "VERTEX");
            m_out.writeHandle(330, owner);
            m_filer.resetFilerStatus();
            vertex->dxfOutFields(&m_filer);
            if (m_filer.filerStatus() != Acad::eOk)
                fail(polyline, "vertex " + std::to_string(i) + ": " + m_filer.error());
        }
        m_out.writeString(0, "SEQEND");
        m_out.writeHandle(330, owner);
        m_out.writeString(100, "AcDbEntity");
        m_out.writeString(8, layer);
    }

    void writeTable(AcDbObjectId tableId, std::string_view name)
    {
        ReadAccess access(tableId);
        AcDbSymbolTable* table = AcDbSymbolTable::cast(access.get());
        if (!table)
            return;
        const bool blocks = name == "BLOCK_RECORD";
        dxfWriteCommonPart(m_out, "TABLE", table, 5, name);
        if (blocks && !m_dimensionBlocks.empty()) {
            // The count includes the geometry blocks made for this file.
            m_out.writeString(100, "AcDbSymbolTable");
            m_out.writeInt(70, table->numRecords() + static_cast<int>(m_dimensionBlocks.size()));
            dxfWriteXData(m_filer, table);
        } else {
            writeBody(table);
        }
        const int handleCode = name == "DIMSTYLE" ? 105 : 5;
        for (const AcDbObjectId& id : table->recordIds()) {
            if (!id.isErased())
                writeObject(id, handleCode);
        }
        if (blocks)
            for (const DimensionBlock& block : m_dimensionBlocks)
                writeDimensionBlockRecord(block, table->objectId().handle().value());
        m_out.writeString(0, "ENDTAB");
    }

    void writeTables()
    {
        m_out.beginSection("TABLES");
        writeTable(m_db.viewportTableId(), "VPORT");
        writeTable(m_db.linetypeTableId(), "LTYPE");
        writeTable(m_db.layerTableId(), "LAYER");
        writeTable(m_db.textStyleTableId(), "STYLE");
        writeTable(m_db.viewTableId(), "VIEW");
        writeTable(m_db.UCSTableId(), "UCS");
        writeTable(m_db.regAppTableId(), "APPID");
        writeTable(m_db.dimStyleTableId(), "DIMSTYLE");
        writeTable(m_db.blockTableId(), "BLOCK_RECORD");
        m_out.endSection();
    }

    void writeEntitiesOf(const AcDbBlockTableRecord* block)
    {
        for (const AcDbObjectId& id : block->entityIds()) {
            if (!id.isErased())
                writeObject(id);
        }
    }

    void writeBlockEntity(const AcDbBlockTableRecord* block, bool begin)
    {
        writeBlockEntity(block, block->objectId().handle().value(), begin);
    }

    void writeBlockEntity(const AcDbBlockTableRecord* block, std::uint64_t blockHandle, bool begin)
    {
        m_out.writeString(0, begin ? "BLOCK" : "ENDBLK");
        m_out.writeHandle(5, (begin ? block->blockBeginHandle() : block->blockEndHandle()).value());
        m_out.writeHandle(330, blockHandle);
        m_out.writeString(100, "AcDbEntity");
        m_out.writeString(8, dxfUtf8(block->blockBeginLayer()));
        if (!begin) {
            m_out.writeString(100, "AcDbBlockEnd");
            return;
        }
        const std::string name = dxfUtf8(block->name());
        m_out.writeString(100, "AcDbBlockBegin");
        m_out.writeString(2, name);
        m_out.writeInt(70, block->blockFlags());
        const AcGePoint3d origin = block->origin();
        m_out.writePoint(10, origin.x, origin.y, origin.z);
        m_out.writeString(3, name);
        const ACHAR* path = nullptr;
        block->pathName(path);
        m_out.writeString(1, dxfUtf8(path ? path : L""));
    }

    void writeBlocks()
    {
        m_out.beginSection("BLOCKS");
        ReadAccess table(m_db.blockTableId());
        if (const AcDbBlockTable* blocks = AcDbBlockTable::cast(table.get())) {
            for (const AcDbObjectId& id : blocks->recordIds()) {
                if (id.isErased())
                    continue;
                ReadAccess access(id);
                const AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(access.get());
                if (!block)
                    continue;
                writeBlockEntity(block, true);
                if (!block->isModelSpace())
                    writeEntitiesOf(block);
                writeBlockEntity(block, false);
            }
        }
        for (const DimensionBlock& block : m_dimensionBlocks)
            writeDimensionBlock(block);
        m_out.endSection();
    }

    void writeEntities()
    {
        m_out.beginSection("ENTITIES");
        ReadAccess access(m_db.modelSpaceId());
        if (const AcDbBlockTableRecord* model = AcDbBlockTableRecord::cast(access.get()))
            writeEntitiesOf(model);
        m_out.endSection();
    }

    void writeObjects()
    {
        m_out.beginSection("OBJECTS");
        const AcDbObjectId root = m_db.namedObjectsDictionaryId();
        writeObject(root);
        const AcRxClass* lastClass = nullptr;
        const ClassFacts* facts = nullptr;
        for (const AcDbObjectId& id : m_ids) {
            if (id == root || !id.stub() || !id.stub()->object || id.isErased())
                continue;
            // Runs of one class are common, as in survey().
            const AcRxClass* cls = id.stub()->object->isA();
            if (cls != lastClass) {
                facts = &factsOf(cls);
                lastClass = cls;
            }
            if (facts->entity || facts->table)
                continue;
            writeObject(id);
        }
        m_out.endSection();
    }

    // Dimension geometry blocks ------------------------------------------------------------
    // Other readers drop a dimension whose group 2 names no block. A dimension without a block
    // of its own in the database gets one in the file: "*D<n>" (its kept name when it has
    // one), numbered after the drawing's own *D blocks in handle order, holding its exploded
    // picture. Read back, it is an ordinary block the dimension refers to.
    struct DimensionBlock {
        std::unique_ptr<AcDbBlockTableRecord> record;
        std::uint64_t handle = 0;
        std::vector<std::pair<std::uint64_t, std::unique_ptr<AcDbEntity>>> entities;
    };

    static long dimensionBlockNumber(std::wstring_view name)
    {
        if (name.size() < 3 || name[0] != L'*' || (name[1] != L'D' && name[1] != L'd') || name.size() > 12)
            return -1;
        long n = 0;
        for (const wchar_t c : name.substr(2)) {
            if (c < L'0' || c > L'9')
                return -1;
            n = n * 10 + (c - L'0');
        }
        return n;
    }

    void prepareDimensionBlocks()
    {
        ReadAccess tableAccess(m_db.blockTableId());
        const AcDbBlockTable* table = AcDbBlockTable::cast(tableAccess.get());
        if (!table)
            return;
        long last = 0;
        for (const AcDbObjectId& id : table->recordIds()) {
            ReadAccess access(id);
            if (const auto* record = AcDbBlockTableRecord::cast(access.get()))
                last = std::max(last, dimensionBlockNumber(record->name()));
        }
        std::vector<std::pair<AcDbObjectId, std::wstring>> wanted;
        for (const AcDbObjectId& id : m_dimensionIds) {
            ReadAccess access(id);
            const AcDbDimension* dimension = AcDbDimension::cast(access.get());
            if (!dimension)
                continue;
            // A block id, even a stale one, is what the dimension writes; only those without
            // one get a block here.
            if (!dimension->dimBlockId().isNull())
                continue;
            std::wstring name = dimension->dimBlockName();
            AcDbObjectId existing;
            if (!name.empty() && table->getAt(name.c_str(), existing) == Acad::eOk && !existing.isErased())
                continue;
            last = std::max(last, dimensionBlockNumber(name));
            wanted.emplace_back(id, std::move(name));
        }
        for (auto& [id, name] : wanted) {
            ReadAccess access(id);
            const AcDbDimension* dimension = AcDbDimension::cast(access.get());
            if (name.empty()) {
                name = L"*D" + std::to_wstring(++last);
                m_dimensionBlockName[dimension] = dxfUtf8(name);
            }
            makeDimensionBlock(dimension, name);
        }
    }

    void makeDimensionBlock(const AcDbDimension* dimension, const std::wstring& name)
    {
        DimensionBlock block;
        block.record = std::make_unique<AcDbBlockTableRecord>();
        block.record->setName(name.c_str());
        block.record->setBlockFlags(1);  // anonymous
        block.record->setBlockBeginLayer(L"0");
        block.handle = m_db.allocateHandle().value();
        block.record->setBlockBeginHandle(m_db.allocateHandle());
        block.record->setBlockEndHandle(m_db.allocateHandle());
        AcDbVoidPtrArray set;
        acdbExplodeByDraw(dimension, set);
        for (void* item : set) {
            std::unique_ptr<AcDbObject> made(static_cast<AcDbObject*>(item));
            if (AcDbEntity::cast(made.get()))
                block.entities.emplace_back(m_db.allocateHandle().value(),
                                            std::unique_ptr<AcDbEntity>(AcDbEntity::cast(made.release())));
        }
        m_dimensionBlocks.push_back(std::move(block));
    }

    void writeDimensionBlockRecord(const DimensionBlock& block, std::uint64_t tableHandle)
    {
        m_out.writeString(0, "BLOCK_RECORD");
        m_out.writeHandle(5, block.handle);
        m_out.writeHandle(330, tableHandle);
        m_filer.resetFilerStatus();
        block.record->dxfOutFields(&m_filer);
        if (m_filer.filerStatus() != Acad::eOk)
            throw DxfError(m_name, 0, "the block record of a dimension could not be written: " + m_filer.error());
    }

    void writeDimensionBlock(const DimensionBlock& block)
    {
        writeBlockEntity(block.record.get(), block.handle, true);
        for (const auto& [handle, entity] : block.entities) {
            m_out.writeString(0, factsOf(entity->isA()).typeUtf8);
            m_out.writeHandle(5, handle);
            m_out.writeHandle(330, block.handle);
            m_filer.resetFilerStatus();
            entity->dxfOutFields(&m_filer);
            if (m_filer.filerStatus() != Acad::eOk)
                throw DxfError(m_name, 0, "the geometry of a dimension could not be written: " + m_filer.error());
        }
        writeBlockEntity(block.record.get(), block.handle, false);
    }

    AcDbDatabase& m_db;
    DxfTagWriter& m_out;
    DxfFiler m_filer;
    std::string m_name;
    DxfProxyGraphicsWriter m_graphics;
    std::vector<DimensionBlock> m_dimensionBlocks;
    std::vector<AcDbObjectId> m_dimensionIds;
    std::unordered_map<const AcDbObject*, std::string> m_dimensionBlockName;
    std::map<std::wstring, ClassEntry> m_classes;
    std::unordered_map<const AcRxClass*, ClassFacts> m_facts;
    AcDbObjectIdArray m_ids;
};

}  // namespace

void dxfWriteDatabase(AcDbDatabase& db, std::ostream& out, const DxfFileWriteOptions& options)
{
    DxfTagWriter writer(out, DxfWriteOptions{options.lineEnd, options.name});
    Writer(db, writer, options).run();
}

void dxfWriteDatabase(AcDbDatabase& db, std::string& out, const DxfFileWriteOptions& options)
{
    DxfTagWriter writer(out, DxfWriteOptions{options.lineEnd, options.name});
    Writer(db, writer, options).run();
}
