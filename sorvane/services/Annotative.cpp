// Annotative scale: the scale word, the current annotation scale and the flag,
// all through the host's annotative extension; every failure is a trace line.
#include "services/Annotative.h"

#include <exception>

#include "host/db/AcDbAnnotativeObjectPE.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbScale.h"
#include "host/db/AcDbText.h"
#include "host/res/ResModule.h"
#include "host/rx/AcRxClass.h"
#include "resources/Resources.h"
#include "resources/resource.h"
#include "services/Documents.h"
#include "services/Trace.h"

namespace {

// The neutral name older or language-free option files keep.
const wchar_t kNeutralAnnoWord[] = L"AnnoScale";

// The word as the module's own string table has it; read once, it never changes.
const CString& ModuleAnnoWord()
{
    static const CString strWord = [] {
        CString strText;
        if (HINSTANCE hInst = LoadModuleResources()) {
            wchar_t szBuffer[64] = {};
            if (LoadStringW(hInst, IDS_ANNO_SCALE, szBuffer, 64) > 0)
                strText = szBuffer;
            svres::FreeResourceModule(hInst);
        }
        return strText;
    }();
    return strWord;
}

AcDbAnnotativeObjectPE* ExtensionOf(const AcDbObject* pObject)
{
    return AcDbAnnotativeObjectPE::cast(pObject->queryX(AcDbAnnotativeObjectPE::desc()));
}

// The shared extension object the host attaches to its texts and dimensions.
AcRxObject* HostExtension()
{
    acdbInitAnnotativeObjectPE();
    return AcDbText::desc()->getX(AcDbAnnotativeObjectPE::desc());
}

} // namespace

int IsAnnoScaleText(const CString& strScale)
{
    if (strScale.IsEmpty())
        return 0;
    if (strScale.CompareNoCase(kNeutralAnnoWord) == 0)
        return 1;
    // The loaded language may translate the word; the module's own form counts too.
    CString strWord;
    if (strWord.LoadString(IDS_ANNO_SCALE) && !strWord.IsEmpty() && strScale.CompareNoCase(strWord) == 0)
        return 1;
    const CString& strOwn = ModuleAnnoWord();
    return !strOwn.IsEmpty() && strScale.CompareNoCase(strOwn) == 0 ? 1 : 0;
}

double GetCurAnnotationScale(AcDbDatabase* pDb)
{
    try {
        if (!pDb) {
            Trace(L"\n !dwg ON GetCurAnnotationScale ");
            pDb = acdbCurDwg();
        }
        const AcDbAnnotationScale* pScale = pDb ? pDb->cannoscale() : nullptr;
        double dScale = 1.0;
        if (!pScale || pScale->getScale(dScale) != Acad::eOk || !(dScale > 0.0))
            return 1.0;
        return dScale;
    } catch (const std::exception&) {
        Trace(L"\n ERROR ON GetCurAnnotationScale ");
        return 1.0;
    }
}

int IsAnnotative(AcDbObject* pObject)
{
    if (!pObject)
        return 0;
    const AcDbAnnotativeObjectPE* pPE = ExtensionOf(pObject);
    if (!pPE) {
        Trace(L"\nERROR on Create AcDbAnnotativeObjectPE /IsAnnotative/");
        return 0;
    }
    return pPE->annotative(pObject) ? 1 : 0;
}

int SetAnnotative(AcDbEntity* pEntity, int iOn)
{
    if (!pEntity)
        return 0;
    AcDbAnnotativeObjectPE* pPE = ExtensionOf(pEntity);
    if (!pPE) {
        TraceF(L"\nERROR on Create AcDbAnnotativeObjectPE /SetAnnotative - %s/", pEntity->isA()->dxfName());
        return 0;
    }
    const bool bOn = iOn != 0;
    if (pPE->annotative(pEntity) == bOn)
        return 0;
    const Acad::ErrorStatus es = pPE->setAnnotative(pEntity, bOn);
    if (es != Acad::eOk) {
        TraceF(L"\nFailed to set entity annotative (%d)...es=%d ", iOn, static_cast<int>(es));
        return 0;
    }
    TraceF(L"\nEntity status annotative=%d...", bOn ? 1 : 0);
    return 1;
}

BOOL AddAnnotativeExtension(AcRxClass* pClass)
{
    AcRxObject* pExtension = HostExtension();
    if (!pClass || !pExtension)
        return FALSE;
    if (pClass->queryX(AcDbAnnotativeObjectPE::desc()) != pExtension)
        pClass->addX(AcDbAnnotativeObjectPE::desc(), pExtension);
    return TRUE;
}

void RemoveAnnotativeExtension(AcRxClass* pClass)
{
    // Only the class's own attachment goes; its bases keep theirs.
    if (pClass && pClass->getX(AcDbAnnotativeObjectPE::desc()) == HostExtension())
        pClass->delX(AcDbAnnotativeObjectPE::desc());
}
