// The DXF file reader: sections into a database, each record through its class's filing.
#include "host/dxf/DxfFileReader.h"

#include "host/db/AcDb2dPolyline.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbDxfCode.h"
#include "host/db/AcDbDimStyleTable.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLinetypeTable.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbStub.h"
#include "host/db/AcDbRegAppTable.h"
#include "host/db/AcDbTag.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/db/AcDbViewTables.h"
#include "host/db/acutads.h"
#include "host/dxf/DxfClassTable.h"
#include "host/dxf/DxfCustomRecord.h"
#include "host/dxf/DxfFiler.h"
#include "host/dxf/DxfObjectIo.h"
#include "host/dxf/DxfRawObject.h"
#include "host/dxf/DxfTagRecord.h"
#include "host/dxf/DxfTagValue.h"
#include "host/dxf/DxfWideText.h"

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>

namespace {

// Handles below this are read as "no handle" by applications; entities never keep them.
constexpr std::uint64_t kFirstEntityHandle = 0x10;

enum TableKind { kVport, kLtype, kLayer, kStyle, kView, kUcs, kAppid, kDimstyle, kBlockRecord, kTableCount };

struct TableName {
    std::string_view name;
    AcRxClass* (*desc)();
};

const std::array<TableName, kTableCount> kTables = {{
    {"VPORT", &AcDbViewportTable::desc},
    {"LTYPE", &AcDbLinetypeTable::desc},
    {"LAYER", &AcDbLayerTable::desc},
    {"STYLE", &AcDbTextStyleTable::desc},
    {"VIEW", &AcDbViewTable::desc},
    {"UCS", &AcDbUCSTable::desc},
    {"APPID", &AcDbRegAppTable::desc},
    {"DIMSTYLE", &AcDbDimStyleTable::desc},
    {"BLOCK_RECORD", &AcDbBlockTable::desc},
}};

// Owns a new object until the database takes it.
template <typename T>
using Owned = std::unique_ptr<T>;

DxfReadOptions readOptions(const DxfFileReadOptions& options)
{
    DxfReadOptions tagOptions;
    tagOptions.warning = options.warning;
    return tagOptions;
}

class Reader {
public:
    Reader(AcDbDatabase& db, std::string data, const std::string& fileName,
           const DxfFileReadOptions& options)
        : m_db(db),
          m_tags(std::move(data), fileName, readOptions(options)),
          m_records(m_tags),
          m_file(fileName),
          m_warning(options.warning),
          m_filer(&db, [this](std::uint64_t handle) { return resolve(handle); }, fileName)
    {
    }

    void run()
    {
        m_db.disableUndoRecording(true);
        DxfSection section;
        bool any = false;
        while (m_records.nextSection(section)) {
            any = true;
            if (section.name == "HEADER")
                readHeader();
            else if (section.name == "CLASSES")
                readClasses();
            else if (section.name == "TABLES")
                readTables();
            else if (section.name == "BLOCKS")
                readBlocks();
            else if (section.name == "ENTITIES")
                readEntities();
            else if (section.name == "OBJECTS")
                readObjects();
            else
                m_records.skipSection();
        }
        if (!any)
            throw m_tags.expected(m_tags.line() ? m_tags.line() : 1, "0/SECTION of a drawing", "end of file");
        finish();
    }

private:
    // Handles ---------------------------------------------------------------------------
    AcDbObjectId resolve(std::uint64_t handle)
    {
        if (!m_remapped.empty()) {
            const auto it = m_remapped.find(handle);
            if (it != m_remapped.end())
                handle = it->second;
        }
        AcDbObjectId id;
        m_db.getAcDbObjectId(id, true, AcDbHandle(handle));
        return id;
    }

    void noteHandle(std::uint64_t handle)
    {
        if (handle > m_maxHandle)
            m_maxHandle = handle;
    }

    // The handle an object is added under.
    AcDbHandle handleFor(const DxfCommonPart& part, bool entity)
    {
        if (!part.hasHandle || part.handle == 0)
            return m_db.allocateHandle();
        if (entity && part.handle < kFirstEntityHandle) {
            const AcDbHandle fresh = m_db.allocateHandle();
            m_remapped[part.handle] = fresh.value();
            return fresh;
        }
        return AcDbHandle(part.handle);
    }

    // Adds a filled object under its handle; the database owns it from then on.
    AcDbObjectId add(AcDbObject* object, const DxfCommonPart& part, const DxfRecord& record, bool entity)
    {
        const AcDbHandle handle = handleFor(part, entity);
        AcDbObjectId id;
        const Acad::ErrorStatus es = m_db.addAcDbObjectAsRead(id, object, handle);
        if (es != Acad::eOk) {
            delete object;
            char text[kDxfNumberBufferSize];
            const std::size_t n = dxfFormatHandle(handle.value(), text);
            throw m_tags.error(part.hasHandle ? part.handleLine : record.head.line,
                               (es == Acad::eHandleInUse ? "handle " + std::string(text, n) + " is used twice"
                                                         : "the " + std::string(record.type()) + " record could not be added (" +
                                                               dxfUtf8(acadErrorStatusText(es)) + ")"));
        }
        noteHandle(handle.value());
        m_loaded.push_back(id);
        return id;
    }

    // The parts every object has besides its own groups: reactors, extension dictionary,
    // extended data. Set before the object is resident, when it is fully enabled.
    void readCommon(AcDbObject* object, const DxfRecord& record, const DxfCommonPart& part)
    {
        for (const std::uint64_t reactor : part.reactors)
            if (reactor)
                object->addPersistentReactor(resolve(reactor));
        if (part.extensionDictionary)
            object->setExtensionDictionaryAsRead(resolve(part.extensionDictionary));
        const DxfItem* items = record.items.data();
        if (part.bodyEnd < record.items.size()) {
            resbuf* xdata = dxfReadXData(m_filer, items + part.bodyEnd, items + record.items.size());
            checkFiler(record);
            if (xdata)
                object->setXDataAsRead(xdata);
            acutRelRb(xdata);
        }
    }

    void checkFiler(const DxfRecord& record, Acad::ErrorStatus es = Acad::eOk)
    {
        if (m_filer.filerStatus() == Acad::eOk && es == Acad::eOk)
            return;
        if (!m_filer.error().empty())
            throw DxfError(m_file, m_filer.errorLine() ? m_filer.errorLine() : record.head.line,
                           m_filer.errorMessage());
        throw m_tags.error(record.head.line, "the " + std::string(record.type()) + " record could not be read (" +
                                                 dxfUtf8(acadErrorStatusText(es != Acad::eOk ? es : m_filer.filerStatus())) + ")");
    }

    // The body items [begin, end) into the object's dxfInFields.
    void readFields(AcDbObject* object, const DxfRecord& record, std::size_t begin, std::size_t end)
    {
        m_filer.resetFilerStatus();
        m_filer.setItems(record.items.data() + begin, record.items.data() + end);
        const Acad::ErrorStatus es = object->dxfInFields(&m_filer);
        checkFiler(record, es);
    }

    // Body of a record without the handle that sat inside it (old files).
    const DxfRecord& bodyOf(const DxfRecord& record, DxfCommonPart& part)
    {
        if (part.handleIndex == SIZE_MAX)
            return record;
        m_scratch.head = record.head;
        m_scratch.items.assign(record.items.begin(), record.items.end());
        m_scratch.items.erase(m_scratch.items.begin() + static_cast<std::ptrdiff_t>(part.handleIndex));
        --part.bodyEnd;
        part.handleIndex = SIZE_MAX;
        return m_scratch;
    }

    static void appendRawTags(const DxfRecord& record, std::size_t begin, std::size_t end,
                              std::vector<DxfRawTag>& tags)
    {
        char number[kDxfNumberBufferSize];
        for (std::size_t i = begin; i < end; ++i) {
            const DxfItem& item = record.items[i];
            tags.push_back({item.tag.code, std::string(item.tag.value)});
            if (!item.isPoint)
                continue;
            tags.push_back({item.tag.code + 10, std::string(number, dxfFormatDouble(item.point.y, number))});
            if (item.point.hasZ)
                tags.push_back({item.tag.code + 20, std::string(number, dxfFormatDouble(item.point.z, number))});
        }
    }

    DxfRawRecord rawRecord(const DxfRecord& record, const DxfCommonPart& part, const std::wstring& type)
    {
        DxfRawRecord raw;
        raw.dxfName = type;
        if (const DxfClassInfo* info = m_classes.fileClass(type)) {
            raw.hasClass = true;
            raw.classInfo = *info;
        }
        appendRawTags(record, part.bodyBegin, part.bodyEnd, raw.tags);
        return raw;
    }

    // Makes and fills the object of a record (entity or not); a raw holder when no class
    // reads it or a custom record is refused.
    // What the reader knows of a record type, looked up once per type and file.
    struct TypeInfo {
        std::wstring wide;
        const AcRxClass* cls = nullptr;
        bool native = false;
    };

    const TypeInfo& typeInfo(std::string_view type)
    {
        auto it = m_types.find(type);
        if (it == m_types.end()) {
            TypeInfo info;
            info.wide = dxfWide(type);
            info.native = dxfIsNativeType(info.wide);
            info.cls = m_classes.classFor(info.wide);
            it = m_types.emplace(std::string(type), std::move(info)).first;
        }
        return it->second;
    }

    AcDbObject* makeObject(const DxfRecord& record, const DxfCommonPart& part, bool entity)
    {
        const TypeInfo& info = typeInfo(record.type());
        const std::wstring& type = info.wide;
        const AcRxClass* cls = info.cls;
        if (type == L"DIMENSION") {
            const DxfItem* flags = record.find(70);
            cls = m_classes.classFor(type, flags ? flags->tag.asInt16() : 0);
        }
        // Only planar polylines have a class; 3D polylines and meshes are kept as they came,
        // and so are vertices and sequence ends that belong to no planar polyline.
        if (type == L"POLYLINE")
            if (const DxfItem* flags = record.find(70); flags && (flags->tag.asInt16() & (8 | 16 | 64)))
                cls = nullptr;
        if (type == L"VERTEX" && !m_polyline)
            cls = nullptr;
        AcRxObject* made = cls ? cls->create() : nullptr;
        AcDbObject* object = AcDbObject::cast(made);
        if (object && entity != (AcDbEntity::cast(object) != nullptr)) {
            delete made;
            object = nullptr;
        } else if (!object) {
            delete made;
        }
        if (!object)
            return makeRaw(record, part, type, entity);

        Owned<AcDbObject> owned(object);
        if (info.native) {
            readFields(object, record, part.bodyBegin, part.bodyEnd);
            return owned.release();
        }
        const std::size_t marker = dxfFindCustomRecord(record.items, part.bodyBegin, part.bodyEnd);
        readFields(object, record, part.bodyBegin, marker);
        if (marker == part.bodyEnd)
            return owned.release();
        const std::vector<std::uint8_t> bytes = dxfCollectCustomRecord(record.items, marker, part.bodyEnd, m_file);
        std::string error;
        const Acad::ErrorStatus es = dxfReadCustomRecord(object, bytes, &m_db, error);
        if (es == Acad::eOk)
            return owned.release();
        if (m_warning)
            m_warning(DxfError(m_file, record.head.line, "the " + std::string(record.type()) +
                                                            " record is kept as a proxy: " + error).what());
        return makeRaw(record, part, type, entity);
    }

    AcDbObject* makeRaw(const DxfRecord& record, const DxfCommonPart& part, const std::wstring& type, bool entity)
    {
        if (entity)
            return new DxfRawEntity(rawRecord(record, part, type));
        return new DxfRawObject(rawRecord(record, part, type));
    }

    // HEADER ----------------------------------------------------------------------------
    void readHeader()
    {
        DxfRecord& record = m_record;
        while (m_records.nextRecord(record)) {
            if (record.head.code != 9)
                continue;
            AcDbTagList tags;
            readTags(record, tags);
            const std::wstring name = dxfWide(record.type());
            if (name == L"$HANDSEED" && !tags.empty())
                m_fileSeed = static_cast<std::uint64_t>(AcDbHandle(tags.front().asText().c_str()).value());
            m_db.setHeaderVar(name, tags);
        }
    }

    // The variable's values as tags. Read here rather than through the filer, which can't tell
    // a 2D point from a 3D one with z 0, so that a variable keeps its form.
    void readTags(const DxfRecord& record, AcDbTagList& tags)
    {
        m_filer.resetFilerStatus();
        for (const DxfItem& item : record.items) {
            const short code = static_cast<short>(item.tag.code);
            if (item.isPoint) {
                tags.push_back(item.point.hasZ ? AcDbTag::point(code, AcGePoint3d(item.point.x, item.point.y, item.point.z))
                                               : AcDbTag::point2d(code, item.point.x, item.point.y));
                continue;
            }
            if (acdbIsPointXCode(code)) {
                // An x without its y: kept as the single number it is.
                tags.push_back(AcDbTag::real(code, item.tag.asDouble()));
                continue;
            }
            m_filer.setItems(&item, &item + 1);
            AcDbTagList one;
            acdbReadTags(&m_filer, one);
            checkFiler(record);
            for (AcDbTag& tag : one)
                tags.push_back(std::move(tag));
        }
    }

    // CLASSES ---------------------------------------------------------------------------
    void readClasses()
    {
        DxfRecord& record = m_record;
        while (m_records.nextRecord(record)) {
            if (record.type() != "CLASS")
                continue;
            DxfClassInfo info;
            for (const DxfItem& item : record.items) {
                const DxfTag& tag = item.tag;
                switch (tag.code) {
                case 1: info.dxfName = dxfWide(tag.value); break;
                case 2: info.className = dxfWide(tag.value); break;
                case 3: info.appName = dxfWide(tag.value); break;
                case 90: info.proxyFlags = tag.asInt32(); break;
                case 280: info.wasProxy = tag.asInt16() != 0; break;
                case 281: info.isEntity = tag.asInt16() != 0; break;
                default: break;
                }
            }
            if (info.dxfName.empty())
                throw m_tags.expected(record.head.line, "group 1 with the record type of the CLASS", "nothing");
            m_classes.addFileClass(info);
        }
    }

    // TABLES ----------------------------------------------------------------------------
    void readTables()
    {
        DxfRecord& record = m_record;
        AcDbSymbolTable* table = nullptr;
        AcDbObjectId tableId;
        int kind = -1;
        while (m_records.nextRecord(record)) {
            if (record.type() == "TABLE") {
                const DxfItem* name = record.find(2);
                if (!name)
                    throw m_tags.expected(record.head.line, "group 2 with the table name", "nothing");
                kind = -1;
                for (int k = 0; k < kTableCount; ++k)
                    if (kTables[k].name == name->tag.value)
                        kind = k;
                table = nullptr;
                if (kind < 0) {
                    if (m_warning)
                        m_warning(m_tags.error(record.head.line, "unknown table " + std::string(name->tag.value) +
                                                                     " skipped").what());
                    continue;
                }
                if (!m_tableIds[kind].isNull())
                    throw m_tags.error(record.head.line, "table " + std::string(name->tag.value) + " appears twice");
                std::tie(tableId, table) = readTableHead(record, kind);
                m_tableIds[kind] = tableId;
                continue;
            }
            if (record.type() == "ENDTAB") {
                table = nullptr;
                continue;
            }
            if (!table)
                continue;  // records of a skipped table
            readTableRecord(record, table, tableId, kind);
        }
        publishTables();
    }

    std::pair<AcDbObjectId, AcDbSymbolTable*> readTableHead(DxfRecord& record, int kind)
    {
        DxfCommonPart part;
        dxfSplitRecord(record, part, m_file);
        // "2 <name>" sits before the handle in a table head.
        if (!part.hasHandle || part.bodyBegin == 0) {
            DxfRecord& body = m_scratch;
            body.head = record.head;
            body.items.clear();
            for (const DxfItem& item : record.items)
                if (!(item.tag.code == 2 && body.items.empty()))
                    body.items.push_back(item);
            dxfSplitRecord(body, part, m_file);
            return addTable(body, part, kind);
        }
        return addTable(record, part, kind);
    }

    std::pair<AcDbObjectId, AcDbSymbolTable*> addTable(const DxfRecord& record, const DxfCommonPart& part, int kind)
    {
        AcDbSymbolTable* table = AcDbSymbolTable::cast(kTables[kind].desc()->create());
        Owned<AcDbObject> owned(table);
        readFields(table, record, part.bodyBegin, part.bodyEnd);
        readCommon(table, record, part);
        owned.release();
        const AcDbObjectId id = add(table, part, record, false);
        return {id, table};
    }

    void readTableRecord(DxfRecord& record, AcDbSymbolTable* table, AcDbObjectId tableId, int kind)
    {
        DxfCommonPart part;
        dxfSplitRecord(record, part, m_file, kind == kDimstyle ? 105 : 5);
        if (kind == kDimstyle && !part.hasHandle)
            dxfSplitRecord(record, part, m_file, 5);
        const DxfRecord& body = bodyOf(record, part);
        AcDbObject* made = AcDbObject::cast(table->recordClass()->create());
        Owned<AcDbObject> owned(made);
        readFields(made, body, part.bodyBegin, part.bodyEnd);
        readCommon(made, body, part);
        made->setOwnerId(tableId);
        owned.release();
        const AcDbObjectId id = add(made, part, body, false);
        const Acad::ErrorStatus es = table->addAsRead(id);
        if (es != Acad::eOk)
            throw m_tags.error(record.head.line, "the " + std::string(record.type()) + " record could not be added to its table (" +
                                                     dxfUtf8(acadErrorStatusText(es)) + ")");
        if (kind == kBlockRecord)
            m_blocks[id.handle().value()] = AcDbBlockTableRecord::cast(made);
    }

    void publishTables()
    {
        m_db.setTableIdsAsRead(m_tableIds[kBlockRecord], m_tableIds[kLayer], m_tableIds[kStyle],
                               m_tableIds[kLtype], m_tableIds[kView], m_tableIds[kUcs], m_tableIds[kVport],
                               m_tableIds[kAppid], m_tableIds[kDimstyle], m_rootDictionary);
    }

    // BLOCKS and ENTITIES ---------------------------------------------------------------
    AcDbBlockTable* blockTable()
    {
        if (m_tableIds[kBlockRecord].isNull()) {
            // R12 files have no block records: the table is made here and filled from BLOCKS.
            auto* table = new AcDbBlockTable();
            AcDbObjectId id;
            if (m_db.addAcDbObjectAsRead(id, table, m_db.allocateHandle()) != Acad::eOk) {
                delete table;
                throw m_tags.error(m_tags.line(), "the block table could not be made");
            }
            m_tableIds[kBlockRecord] = id;
            m_loaded.push_back(id);
            publishTables();
        }
        return AcDbBlockTable::cast(m_tableIds[kBlockRecord].stub()->object);
    }

    AcDbBlockTableRecord* blockNamed(const std::wstring& name, bool create)
    {
        AcDbBlockTable* table = blockTable();
        AcDbObjectId id;
        if (table->getAt(name.c_str(), id) == Acad::eOk && id.stub() && id.stub()->object)
            return AcDbBlockTableRecord::cast(id.stub()->object);
        if (!create)
            return nullptr;
        auto* record = new AcDbBlockTableRecord();
        if (record->setName(name.c_str()) != Acad::eOk) {
            delete record;
            return nullptr;
        }
        record->setOwnerId(table->objectId());
        if (m_db.addAcDbObjectAsRead(id, record, m_db.allocateHandle()) != Acad::eOk) {
            delete record;
            return nullptr;
        }
        m_loaded.push_back(id);
        table->addAsRead(id);
        m_blocks[id.handle().value()] = record;
        return record;
    }

    AcDbBlockTableRecord* blockOfHandle(std::uint64_t handle)
    {
        const auto it = m_blocks.find(handle);
        return it == m_blocks.end() ? nullptr : it->second;
    }

    void readBlocks()
    {
        DxfRecord& record = m_record;
        AcDbBlockTableRecord* block = nullptr;
        while (m_records.nextRecord(record)) {
            if (record.type() == "BLOCK") {
                if (block)
                    throw m_tags.expected(record.head.line, "0/ENDBLK before the next BLOCK", "0/BLOCK");
                block = beginBlock(record);
            } else if (record.type() == "ENDBLK") {
                if (!block)
                    throw m_tags.expected(record.head.line, "0/BLOCK before 0/ENDBLK", "0/ENDBLK");
                DxfCommonPart part;
                dxfSplitRecord(record, part, m_file);
                if (part.hasHandle && part.handle) {
                    block->setBlockEndHandle(AcDbHandle(part.handle));
                    noteHandle(part.handle);
                }
                finishPolyline();
                block = nullptr;
            } else {
                if (!block)
                    throw m_tags.expected(record.head.line, "0/BLOCK before the block's entities",
                                          "0/" + std::string(record.type()));
                readEntity(record, block);
            }
        }
        if (block)
            throw m_tags.expected(m_tags.line(), "0/ENDBLK", "0/ENDSEC");
    }

    AcDbBlockTableRecord* beginBlock(const DxfRecord& record)
    {
        DxfCommonPart part;
        dxfSplitRecord(record, part, m_file);
        const DxfItem* name = record.find(2);
        if (!name)
            name = record.find(3);
        if (!name || name->tag.value.empty())
            throw m_tags.expected(record.head.line, "group 2 with the block name", "nothing");
        const std::wstring blockName = dxfWide(name->tag.value);
        AcDbBlockTableRecord* block = part.hasOwner ? blockOfHandle(part.owner) : nullptr;
        if (!block)
            block = blockNamed(blockName, true);
        if (!block)
            throw m_tags.error(name->tag.line, "invalid block name " + DxfError::quote(name->tag.value));
        if (part.hasHandle && part.handle) {
            block->setBlockBeginHandle(AcDbHandle(part.handle));
            noteHandle(part.handle);
        }
        if (const DxfItem* layer = record.find(8))
            block->setBlockBeginLayer(dxfWide(layer->tag.value));
        // The definition's own data lives on the BLOCK entity; the record is open for it.
        AcDbBlockTableRecord* open = nullptr;
        if (acdbOpenObject(open, block->objectId(), AcDb::kForWrite) == Acad::eOk) {
            if (const DxfItem* origin = record.find(10))
                open->setOrigin(AcGePoint3d(origin->point.x, origin->point.y, origin->point.z));
            if (const DxfItem* flags = record.find(70))
                open->setBlockFlags(flags->tag.asInt16());
            if (const DxfItem* path = record.find(1); path && !path->tag.value.empty())
                open->setPathName(dxfWide(path->tag.value).c_str());
            open->close();
        }
        return block;
    }

    void readEntities()
    {
        DxfRecord& record = m_record;
        while (m_records.nextRecord(record)) {
            AcDbBlockTableRecord* block = nullptr;
            if (const DxfItem* owner = ownerItem(record))
                block = blockOfHandle(owner->tag.asHandle());
            if (!block) {
                const DxfItem* space = record.find(67);
                const bool paper = space && space->tag.asInt16() == 1;
                block = blockNamed(paper ? L"*Paper_Space" : L"*Model_Space", true);
            }
            readEntity(record, block);
        }
        finishPolyline();
    }

    // The owner group of the common part (the first 330 before the first subclass marker).
    static const DxfItem* ownerItem(const DxfRecord& record)
    {
        int depth = 0;
        for (const DxfItem& item : record.items) {
            if (item.tag.code == 102)
                depth = item.tag.value.starts_with("{") ? 1 : 0;
            else if (item.tag.code == 330 && depth == 0)
                return &item;
            else if (item.tag.code == 100)
                return nullptr;
        }
        return nullptr;
    }

    void readEntity(DxfRecord& record, AcDbBlockTableRecord* block)
    {
        const std::string_view type = record.type();
        if (m_polyline) {
            if (type == "VERTEX") {
                readVertex(record);
                return;
            }
            finishPolyline();
            if (type == "SEQEND")
                return;  // the polyline's end is written again after its vertices
        }
        DxfCommonPart part;
        dxfSplitRecord(record, part, m_file);
        const DxfRecord& body = bodyOf(record, part);
        AcDbObject* object = makeObject(body, part, true);
        Owned<AcDbObject> owned(object);
        readCommon(object, body, part);
        object->setOwnerId(block->objectId());
        owned.release();
        if (AcDb2dPolyline* polyline = AcDb2dPolyline::cast(object)) {
            // Its vertices follow as records of their own; it joins the database with them.
            m_polyline = PendingPolyline{std::unique_ptr<AcDb2dPolyline>(polyline), part, record.head.line, block};
            return;
        }
        const AcDbObjectId id = add(object, part, body, true);
        block->appendAsRead(id);
    }

    void readVertex(DxfRecord& record)
    {
        DxfCommonPart part;
        dxfSplitRecord(record, part, m_file);
        const DxfRecord& body = bodyOf(record, part);
        Owned<AcDbObject> vertex(makeObject(body, part, true));
        readCommon(vertex.get(), body, part);
        if (AcDb2dVertex* v = AcDb2dVertex::cast(vertex.get())) {
            vertex.release();
            m_polyline->polyline->appendVertex(v);
        }
    }

    void finishPolyline()
    {
        if (!m_polyline)
            return;
        PendingPolyline pending = std::move(*m_polyline);
        m_polyline.reset();
        DxfRecord head;
        head.head.line = pending.line;
        head.head.value = "POLYLINE";
        const AcDbObjectId id = add(pending.polyline.release(), pending.part, head, true);
        pending.block->appendAsRead(id);
    }

    // OBJECTS ---------------------------------------------------------------------------
    void readObjects()
    {
        DxfRecord& record = m_record;
        while (m_records.nextRecord(record)) {
            DxfCommonPart part;
            dxfSplitRecord(record, part, m_file);
            const DxfRecord& body = bodyOf(record, part);
            AcDbObject* object = makeObject(body, part, false);
            Owned<AcDbObject> owned(object);
            readCommon(object, body, part);
            if (part.hasOwner && part.owner)
                object->setOwnerId(resolve(part.owner));
            owned.release();
            const AcDbObjectId id = add(object, part, body, false);
            if (m_rootDictionary.isNull() && AcDbDictionary::cast(object)) {
                m_rootDictionary = id;
                publishTables();
            }
        }
    }

    // After the last section ------------------------------------------------------------
    void finish()
    {
        publishTables();
        m_db.repairStandardObjects();
        for (const AcDbObjectId& id : m_loaded) {
            AcDbObject* object = nullptr;
            if (acdbOpenObject(object, id, AcDb::kForWrite) == Acad::eOk) {
                object->composeForLoad();
                object->close();
            }
        }
        // The seed stays above every handle read, BLOCK and ENDBLK ones included.
        const std::uint64_t seed = std::max(m_fileSeed, m_maxHandle + 1);
        if (seed > m_db.handseed().value())
            m_db.setHandseed(AcDbHandle(seed));
        m_db.clearUndo();
        m_db.disableUndoRecording(false);
        m_db.setDbmod(0);
    }

    AcDbDatabase& m_db;
    DxfTagReader m_tags;
    DxfTagRecordReader m_records;
    std::string m_file;
    DxfWarningHook m_warning;
    DxfClassResolver m_classes;
    DxfFiler m_filer;
    DxfRecord m_record;
    DxfRecord m_scratch;

    struct PendingPolyline {
        std::unique_ptr<AcDb2dPolyline> polyline;
        DxfCommonPart part;
        std::size_t line;
        AcDbBlockTableRecord* block;
    };
    std::optional<PendingPolyline> m_polyline;
    std::map<std::string, TypeInfo, std::less<>> m_types;
    std::array<AcDbObjectId, kTableCount> m_tableIds{};
    AcDbObjectId m_rootDictionary;
    std::unordered_map<std::uint64_t, AcDbBlockTableRecord*> m_blocks;
    std::unordered_map<std::uint64_t, std::uint64_t> m_remapped;
    std::vector<AcDbObjectId> m_loaded;
    std::uint64_t m_maxHandle = 0;
    std::uint64_t m_fileSeed = 0;
};

}  // namespace

void dxfReadDatabase(AcDbDatabase& db, std::string data, const std::string& fileName,
                     const DxfFileReadOptions& options)
{
    Reader(db, std::move(data), fileName, options).run();
}
