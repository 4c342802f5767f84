// AcDbSortentsTable: the draw order of one block's entities, kept as sort handles.
#pragma once

#include <map>

#include "host/db/AcDbObject.h"

// Each entity draws at its sort handle (its own handle unless the table maps it to
// another); lower sort handles draw first. Moving entities permutes the sort handles of the
// block's entities, so the table stays a mapping of the block's own handles.
class AcDbSortentsTable : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSortentsTable);
    AcDbSortentsTable();

    // The ids go after (on top of) all others, keeping their order among themselves. Ids
    // that are not in the block give eInvalidInput and change nothing. Needs write access.
    Acad::ErrorStatus moveToTop(const AcDbObjectIdArray& ids);
    Acad::ErrorStatus moveToBottom(const AcDbObjectIdArray& ids);
    // ids go just below / above target.
    Acad::ErrorStatus moveBelow(const AcDbObjectIdArray& ids, AcDbObjectId target);
    Acad::ErrorStatus moveAbove(const AcDbObjectIdArray& ids, AcDbObjectId target);
    // Swaps the draw positions of two entities.
    Acad::ErrorStatus swapOrder(AcDbObjectId id1, AcDbObjectId id2);
    // The block's live entities in draw order (first drawn first).
    Acad::ErrorStatus getFullDrawOrder(AcDbObjectIdArray& ids, Adesk::UInt8 honorSortentsMask = 0) const;
    // Sorts ids (all of this block) into draw order.
    Acad::ErrorStatus getRelativeDrawOrder(AcDbObjectIdArray& ids, Adesk::UInt8 honorSortentsMask = 0) const;
    Acad::ErrorStatus getSortHandle(AcDbObjectId id, AcDbHandle& h) const;
    AcDbObjectId blockId() const;
    Acad::ErrorStatus setBlockId(AcDbObjectId blockId);

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbSortentsTable", 330 block, then 331 entity / 5 sort handle pairs.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    Acad::ErrorStatus reorder(const AcDbObjectIdArray& newOrder);
    AcDbHandle sortHandleOf(AcDbObjectId id) const;
    AcDbObjectId m_block;
    std::map<AcDbObjectId, AcDbHandle> m_sortHandles;  // only entries that differ
};
