// Draw order: sort handles permuted among a block's entities.
#include "host/db/AcDbSortentsTable.h"

#include <algorithm>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbOpen.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbSortentsTable, AcDbObject, 0, 0, 0, SORTENTSTABLE, ACAD)

AcDbSortentsTable::AcDbSortentsTable() = default;

AcDbObjectId AcDbSortentsTable::blockId() const { assertReadEnabled(); return m_block; }

Acad::ErrorStatus AcDbSortentsTable::setBlockId(AcDbObjectId blockId)
{
    assertWriteEnabled();
    m_block = blockId;
    return Acad::eOk;
}

AcDbHandle AcDbSortentsTable::sortHandleOf(AcDbObjectId id) const
{
    const auto it = m_sortHandles.find(id);
    return it != m_sortHandles.end() ? it->second : id.handle();
}

Acad::ErrorStatus AcDbSortentsTable::getSortHandle(AcDbObjectId id, AcDbHandle& h) const
{
    assertReadEnabled();
    h = sortHandleOf(id);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSortentsTable::getFullDrawOrder(AcDbObjectIdArray& ids, Adesk::UInt8) const
{
    assertReadEnabled();
    ids.removeAll();
    AcDbPeek peek(m_block);
    const AcDbBlockTableRecord* btr = peek.as<AcDbBlockTableRecord>();
    if (!btr)
        return Acad::eNotInBlock;
    std::vector<AcDbObjectId> live;
    for (const AcDbObjectId& id : btr->entityIds())
        if (!id.isErased())
            live.push_back(id);
    std::stable_sort(live.begin(), live.end(),
                     [this](const AcDbObjectId& a, const AcDbObjectId& b) { return sortHandleOf(a) < sortHandleOf(b); });
    for (const AcDbObjectId& id : live)
        ids.append(id);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSortentsTable::getRelativeDrawOrder(AcDbObjectIdArray& ids, Adesk::UInt8) const
{
    assertReadEnabled();
    std::vector<AcDbObjectId> v(ids.begin(), ids.end());
    std::stable_sort(v.begin(), v.end(),
                     [this](const AcDbObjectId& a, const AcDbObjectId& b) { return sortHandleOf(a) < sortHandleOf(b); });
    ids.removeAll();
    for (const AcDbObjectId& id : v)
        ids.append(id);
    return Acad::eOk;
}

// Gives the entities of newOrder the block's sort handles in ascending order.
Acad::ErrorStatus AcDbSortentsTable::reorder(const AcDbObjectIdArray& newOrder)
{
    std::vector<AcDbHandle> handles;
    for (const AcDbObjectId& id : newOrder)
        handles.push_back(sortHandleOf(id));
    std::sort(handles.begin(), handles.end());
    assertWriteEnabled();
    for (int i = 0; i < newOrder.length(); ++i) {
        const AcDbObjectId& id = newOrder[i];
        const AcDbHandle h = handles[static_cast<size_t>(i)];
        if (h == id.handle())
            m_sortHandles.erase(id);
        else
            m_sortHandles[id] = h;
    }
    return Acad::eOk;
}

namespace {

// The full order with ids taken out, or false when an id is not in it.
bool takeOut(const AcDbObjectIdArray& order, const AcDbObjectIdArray& ids, AcDbObjectIdArray& rest)
{
    for (const AcDbObjectId& id : ids)
        if (!order.contains(id))
            return false;
    for (const AcDbObjectId& id : order)
        if (!ids.contains(id))
            rest.append(id);
    return true;
}

}  // namespace

Acad::ErrorStatus AcDbSortentsTable::moveToTop(const AcDbObjectIdArray& ids)
{
    AcDbObjectIdArray order, rest;
    getFullDrawOrder(order);
    if (!takeOut(order, ids, rest))
        return Acad::eInvalidInput;
    AcDbObjectIdArray moved;
    for (const AcDbObjectId& id : order)
        if (ids.contains(id))
            moved.append(id);
    rest.append(moved);
    return reorder(rest);
}

Acad::ErrorStatus AcDbSortentsTable::moveToBottom(const AcDbObjectIdArray& ids)
{
    AcDbObjectIdArray order, rest;
    getFullDrawOrder(order);
    if (!takeOut(order, ids, rest))
        return Acad::eInvalidInput;
    AcDbObjectIdArray result;
    for (const AcDbObjectId& id : order)
        if (ids.contains(id))
            result.append(id);
    result.append(rest);
    return reorder(result);
}

Acad::ErrorStatus AcDbSortentsTable::moveBelow(const AcDbObjectIdArray& ids, AcDbObjectId target)
{
    AcDbObjectIdArray order, rest;
    getFullDrawOrder(order);
    if (!takeOut(order, ids, rest) || !rest.contains(target))
        return Acad::eInvalidInput;
    AcDbObjectIdArray moved, result;
    for (const AcDbObjectId& id : order)
        if (ids.contains(id))
            moved.append(id);
    for (const AcDbObjectId& id : rest) {
        if (id == target)
            result.append(moved);
        result.append(id);
    }
    return reorder(result);
}

Acad::ErrorStatus AcDbSortentsTable::moveAbove(const AcDbObjectIdArray& ids, AcDbObjectId target)
{
    AcDbObjectIdArray order, rest;
    getFullDrawOrder(order);
    if (!takeOut(order, ids, rest) || !rest.contains(target))
        return Acad::eInvalidInput;
    AcDbObjectIdArray moved, result;
    for (const AcDbObjectId& id : order)
        if (ids.contains(id))
            moved.append(id);
    for (const AcDbObjectId& id : rest) {
        result.append(id);
        if (id == target)
            result.append(moved);
    }
    return reorder(result);
}

Acad::ErrorStatus AcDbSortentsTable::swapOrder(AcDbObjectId id1, AcDbObjectId id2)
{
    AcDbObjectIdArray order;
    getFullDrawOrder(order);
    const int a = order.find(id1);
    const int b = order.find(id2);
    if (a < 0 || b < 0)
        return Acad::eInvalidInput;
    order.swap(a, b);
    return reorder(order);
}

Acad::ErrorStatus AcDbSortentsTable::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSoftPointerId(m_block);
    f->writeInt32(static_cast<Adesk::Int32>(m_sortHandles.size()));
    for (const auto& [id, h] : m_sortHandles) {
        f->writeSoftPointerId(id);
        f->writeAcDbHandle(h);
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbSortentsTable::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    AcDbSoftPointerId block;
    Adesk::Int32 n = 0;
    f->readSoftPointerId(&block);
    f->readInt32(&n);
    std::map<AcDbObjectId, AcDbHandle> handles;
    for (Adesk::Int32 i = 0; i < n && f->filerStatus() == Acad::eOk; ++i) {
        AcDbSoftPointerId id;
        AcDbHandle h;
        f->readSoftPointerId(&id);
        f->readAcDbHandle(&h);
        if (!id.isNull())
            handles[id] = h;
    }
    if (f->filerStatus() == Acad::eOk) {
        m_block = block;
        m_sortHandles = std::move(handles);
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbSortentsTable::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbObject::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbSortentsTable"));
    f->writeObjectId(AcDb::kDxfSoftPointerId, m_block);
    // In the block's order, as files usually list them.
    std::vector<std::pair<AcDbObjectId, AcDbHandle>> entries(m_sortHandles.begin(), m_sortHandles.end());
    for (const auto& [id, h] : entries) {
        if (!id.isValid() || id.isErased())
            continue;
        f->writeObjectId(acdbDxfCode(331), id);
        f->writeHandle(AcDb::kDxfHandle, h);
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbSortentsTable::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbObject::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbSortentsTable"));
    resbuf rb;
    AcDbObjectId pending;
    m_sortHandles.clear();
    while (!f->atEOF() && f->readResBuf(&rb) == Acad::eOk) {
        if (rb.restype == 330) {
            acdbGetObjectId(m_block, rb.resval.rlname);
        } else if (rb.restype == 331) {
            acdbGetObjectId(pending, rb.resval.rlname);
        } else if (rb.restype == 5 && !pending.isNull()) {
            m_sortHandles[pending] = AcDbHandle(rb.resval.rstring);
            pending.setNull();
        } else if (rb.restype == 100) {
            f->pushBackItem();
            break;
        }
    }
    return f->filerStatus();
}
