// AcDbXrecord: a dictionary entry holding an arbitrary resbuf chain.
#pragma once

#include "host/db/AcDbObject.h"
#include "host/db/AcDbTag.h"

class AcDbXrecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbXrecord);
    AcDbXrecord();
    ~AcDbXrecord() override;

    // A copy the caller frees with acutRelRb; null for an empty record.
    Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* auxDb = nullptr) const;
    // Group codes of the chain are DXF codes (not RT codes); 5000-range types are refused
    // with eInvalidResBuf.
    Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* auxDb = nullptr);
    AcDb::DuplicateRecordCloning mergeStyle() const;
    void setMergeStyle(AcDb::DuplicateRecordCloning style);

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbXrecord", 280, then the data.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    AcDbTagList m_data;
    AcDb::DuplicateRecordCloning m_mergeStyle = AcDb::kDrcIgnore;
};
