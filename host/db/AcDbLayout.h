// AcDbLayout: a model or paper space layout tab; plot settings are kept as read.
#pragma once

#include <string>

#include "host/db/AcDbObject.h"
#include "host/db/AcDbTag.h"

class AcDbLayout : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayout);
    AcDbLayout();

    Acad::ErrorStatus getLayoutName(const ACHAR*& name) const;
    const ACHAR* layoutName() const;
    Acad::ErrorStatus setLayoutName(const ACHAR* name);
    int getTabOrder() const;
    void setTabOrder(int order);
    AcDbObjectId getBlockTableRecordId() const;
    Acad::ErrorStatus setBlockTableRecordId(AcDbObjectId id);
    bool modelType() const;

    // The AcDbPlotSettings groups and the AcDbLayout groups other than 1, 71 and 330.
    const AcDbTagList& plotSettingsTags() const { return m_plotTags; }
    const AcDbTagList& layoutTags() const { return m_layoutTags; }
    void setPlotSettingsTags(AcDbTagList tags);
    void setLayoutTags(AcDbTagList tags);

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbPlotSettings" + kept groups, "100 AcDbLayout", 1, 70..., 71, 330 block.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

    // The groups a new drawing's layouts get (model: true for "Model").
    static AcDbTagList defaultPlotSettingsTags(const ACHAR* pageName);
    static AcDbTagList defaultLayoutTags();

private:
    std::wstring m_name;
    int m_tabOrder = 0;
    AcDbObjectId m_block;
    AcDbTagList m_plotTags;
    AcDbTagList m_layoutTags;
};
