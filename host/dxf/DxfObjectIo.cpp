// Common part and extended data of objects in DXF files.
#include "host/dxf/DxfObjectIo.h"

#include "host/db/AcDbDxfCode.h"
#include "host/db/acutads.h"
#include "host/dxf/DxfError.h"

#include <cstring>
#include <memory>

void dxfWriteCommonPart(DxfTagWriter& out, std::string_view type, const AcDbObject* object,
                        int handleCode, std::string_view tableName)
{
    out.writeString(0, type);
    if (!tableName.empty())
        out.writeString(2, tableName);
    out.writeHandle(handleCode, object->objectId().handle().value());
    const AcDbObjectIdArray& reactors = object->persistentReactorIds();
    if (!reactors.isEmpty()) {
        out.writeString(102, "{ACAD_REACTORS");
        for (const AcDbObjectId& id : reactors)
            out.writeHandle(330, id.handle().value());
        out.writeString(102, "}");
    }
    const AcDbObjectId xdict = object->extensionDictionary();
    if (!xdict.isNull() && !xdict.isErased()) {
        out.writeString(102, "{ACAD_XDICTIONARY");
        out.writeHandle(360, xdict.handle().value());
        out.writeString(102, "}");
    }
    const AcDbObjectId owner = object->ownerId();
    out.writeHandle(330, owner.isNull() ? 0 : owner.handle().value());
}

void dxfWriteXData(DxfFiler& filer, const AcDbObject* object)
{
    resbuf* xdata = object->xData(nullptr);
    for (const resbuf* rb = xdata; rb; rb = rb->rbnext)
        filer.writeResBuf(*rb);
    acutRelRb(xdata);
}

void dxfSplitRecord(const DxfRecord& record, DxfCommonPart& part, const std::string& fileName,
                    int handleCode)
{
    part = DxfCommonPart();
    const std::vector<DxfItem>& items = record.items;
    const std::size_t n = items.size();
    std::size_t i = 0;
    while (i < n) {
        const DxfTag& tag = items[i].tag;
        if (tag.code == handleCode && !part.hasHandle) {
            part.hasHandle = true;
            part.handle = tag.asHandle();
            part.handleLine = tag.line;
            ++i;
        } else if (tag.code == 102 && (tag.value == "{ACAD_REACTORS" || tag.value == "{ACAD_XDICTIONARY")) {
            const bool reactors = tag.value == "{ACAD_REACTORS";
            const std::size_t open = tag.line;
            for (++i; i < n && items[i].tag.code != 102; ++i) {
                const DxfTag& ref = items[i].tag;
                if (reactors && ref.code == 330)
                    part.reactors.push_back(ref.asHandle());
                else if (!reactors && ref.code == 360)
                    part.extensionDictionary = ref.asHandle();
                else
                    throw DxfError::expected(fileName, ref.line,
                                             reactors ? "group 330 in {ACAD_REACTORS" : "group 360 in {ACAD_XDICTIONARY",
                                             ref.describe());
            }
            if (i == n || items[i].tag.value != "}")
                throw DxfError(fileName, open, "group 102 " + std::string(tag.value) +
                                                   " is not closed by 102 }");
            ++i;
        } else if (tag.code == 330 && !part.hasOwner) {
            part.hasOwner = true;
            part.owner = tag.asHandle();
            ++i;
        } else {
            break;
        }
    }
    part.bodyBegin = i;
    part.bodyEnd = n;
    for (std::size_t j = i; j < n; ++j) {
        const int code = items[j].tag.code;
        if (code == 1001) {
            part.bodyEnd = j;
            break;
        }
        if (code == handleCode && !part.hasHandle && handleCode == 5) {
            part.hasHandle = true;
            part.handle = items[j].tag.asHandle();
            part.handleLine = items[j].tag.line;
            part.handleIndex = j;
        }
    }
}

namespace {

// Whether the value the filer read for a group fits the resbuf kind of its code (what
// acutRelRb frees follows the latter).
bool fits(AcutRbKind rb, AcDb::DxfValueKind read)
{
    switch (rb) {
    case AcutRbKind::kString:
        return read == AcDb::kDxfKindString || read == AcDb::kDxfKindHandle || read == AcDb::kDxfKindUnknown;
    case AcutRbKind::kReal: return read == AcDb::kDxfKindDouble;
    case AcutRbKind::kPoint: return read == AcDb::kDxfKindPoint;
    case AcutRbKind::kShort:
        return read == AcDb::kDxfKindInt8 || read == AcDb::kDxfKindInt16 || read == AcDb::kDxfKindBool;
    case AcutRbKind::kLong: return read == AcDb::kDxfKindInt32;
    case AcutRbKind::kInt64: return read == AcDb::kDxfKindInt64;
    case AcutRbKind::kName: return read == AcDb::kDxfKindObjectId;
    case AcutRbKind::kBinary: return read == AcDb::kDxfKindBinary;
    case AcutRbKind::kNone: return false;
    }
    return false;
}

struct ChainDeleter {
    void operator()(resbuf* rb) const { acutRelRb(rb); }
};

}  // namespace

resbuf* dxfReadXData(DxfFiler& filer, const DxfItem* begin, const DxfItem* end)
{
    if (begin == end)
        return nullptr;
    std::unique_ptr<resbuf, ChainDeleter> head;
    resbuf* tail = nullptr;
    for (const DxfItem* at = begin; at != end; ++at) {
        const int code = at->tag.code;
        const AcDb::DxfValueKind kind = acdbGroupCodeKind(code);
        const AcutRbKind rbKind = acutRbKind(code);
        if (code < 1000 || code > 1071 || !fits(rbKind, kind))
            throw DxfError::expected(filer.fileName(), at->tag.line, "an extended data group (1000-1071)",
                                     at->tag.describe());
        filer.setItems(at, at + 1);
        resbuf item{};
        if (filer.readResBuf(&item) != Acad::eOk)
            throw DxfError(filer.fileName(), filer.errorLine() ? filer.errorLine() : at->tag.line,
                           filer.errorMessage());
        resbuf* rb = acutNewRb(item.restype);
        if (!rb)
            continue;
        if (tail)
            tail->rbnext = rb;
        else
            head.reset(rb);
        tail = rb;
        switch (rbKind) {
        case AcutRbKind::kString:
            rb->resval.rstring = acutNewString(item.resval.rstring);
            break;
        case AcutRbKind::kBinary: {
            const short size = item.resval.rbinary.clen;
            rb->resval.rbinary.clen = size;
            rb->resval.rbinary.buf = new char[size > 0 ? size : 1];
            if (size > 0)
                std::memcpy(rb->resval.rbinary.buf, item.resval.rbinary.buf, static_cast<std::size_t>(size));
            break;
        }
        default:
            rb->resval = item.resval;
        }
    }
    return head.release();
}
