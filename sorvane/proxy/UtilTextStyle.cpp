// The text-style helpers of Util: a style record's fixed size, and a
// drawing text style made from a record.
#include "proxy/Util.h"

#include "host/db/AcDbOpen.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/gi/AcGiTextStyle.h"

double GetTextStyleSize(AcDbObjectId styleId)
{
    AcDbTextStyleTableRecord* pRecord = nullptr;
    if (acdbOpenObject(pRecord, styleId, AcDb::kForRead) != Acad::eOk)
        return 0.0;
    const double dSize = pRecord->textSize();
    pRecord->close();
    return dSize;
}

int SetTextStyleSize(AcDbObjectId styleId, double dSize)
{
    AcDbTextStyleTableRecord* pRecord = nullptr;
    if (acdbOpenObject(pRecord, styleId, AcDb::kForWrite) != Acad::eOk)
        return 0;
    if (pRecord->textSize() != dSize)
        pRecord->setTextSize(dSize);
    pRecord->close();
    return 1;
}

void TextStyleToGi(AcGiTextStyle& textStyle, AcDbObjectId styleId)
{
    AcDbTextStyleTableRecord* pRecord = nullptr;
    if (acdbOpenObject(pRecord, styleId, AcDb::kForRead) != Acad::eOk)
        return;
    const ACHAR* pName = nullptr;
    if (pRecord->getName(pName) == Acad::eOk)
        textStyle.setStyleName(pName);
    textStyle.setFileName(pRecord->fileName());
    textStyle.setBigFontFileName(pRecord->bigFontFileName());
    ACHAR* pTypeface = nullptr;
    bool bBold = false, bItalic = false;
    int iCharset = 0, iPitchAndFamily = 0;
    if (pRecord->font(pTypeface, bBold, bItalic, iCharset, iPitchAndFamily) == Acad::eOk && pTypeface) {
        if (*pTypeface)
            textStyle.setFont(pTypeface, bBold, bItalic, iCharset, iPitchAndFamily);
        delete[] pTypeface;
    }
    textStyle.setTextSize(pRecord->textSize());
    textStyle.setXScale(pRecord->xScale());
    textStyle.setObliquingAngle(pRecord->obliquingAngle());
    pRecord->close();
}
