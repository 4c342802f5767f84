// Native record types, CLASSES entries and the type-to-class lookup of the file layer.
#include "host/dxf/DxfClassTable.h"

#include "host/db/AcDb2LineAngularDimension.h"
#include "host/db/AcDb2dPolyline.h"
#include "host/db/AcDbBlockReference.h"
#include "host/db/AcDbPoint.h"
#include "host/db/AcDbSolid.h"
#include "host/db/AcDbViewport.h"
#include "host/db/AcDbXline.h"
#include "host/db/AcDbAlignedDimension.h"
#include "host/db/AcDbArc.h"
#include "host/db/AcDbArcDimension.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbDiametricDimension.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbLayout.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbMText.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbProxyEntity.h"
#include "host/db/AcDbRadialDimension.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/db/AcDbScale.h"
#include "host/db/AcDbSortentsTable.h"
#include "host/db/AcDbText.h"
#include "host/db/AcDbXrecord.h"
#include "host/rx/AcRxDictionary.h"

#include <algorithm>
#include <array>
#include <cwctype>
#include <memory>

namespace {

constexpr std::array<std::wstring_view, 52> kNativeTypes = {
    // entities
    L"LINE", L"ARC", L"CIRCLE", L"LWPOLYLINE", L"POLYLINE", L"VERTEX", L"SEQEND", L"XLINE",
    L"RAY", L"POINT", L"SOLID", L"TRACE", L"3DFACE", L"TEXT", L"MTEXT", L"INSERT", L"ATTRIB",
    L"ATTDEF", L"VIEWPORT", L"DIMENSION", L"ARC_DIMENSION", L"LEADER", L"HATCH", L"SPLINE",
    L"ELLIPSE", L"ACAD_PROXY_ENTITY", L"BLOCK", L"ENDBLK",
    // objects
    L"DICTIONARY", L"XRECORD", L"SCALE", L"SORTENTSTABLE", L"LAYOUT", L"ACDBDICTIONARYWDFLT",
    L"ACDBPLACEHOLDER", L"DICTIONARYVAR", L"GROUP", L"MLINESTYLE", L"PLOTSETTINGS",
    L"ACAD_PROXY_OBJECT",
    // tables and their records
    L"TABLE", L"VPORT", L"LTYPE", L"LAYER", L"STYLE", L"VIEW", L"UCS", L"APPID", L"DIMSTYLE",
    L"BLOCK_RECORD", L"MATERIAL", L"VISUALSTYLE",
};

struct NativeClass {
    std::wstring_view dxfName;
    std::wstring_view className;
    int proxyFlags;
    bool isEntity;
};

constexpr std::wstring_view kObjectDbxApp = L"ObjectDBX Classes";

constexpr std::array<NativeClass, 9> kNativeClasses = {{
    {L"ACDBDICTIONARYWDFLT", L"AcDbDictionaryWithDefault", 0, false},
    {L"ACDBPLACEHOLDER", L"AcDbPlaceHolder", 0, false},
    {L"DICTIONARYVAR", L"AcDbDictionaryVar", 0, false},
    {L"LAYOUT", L"AcDbLayout", 0, false},
    {L"SCALE", L"AcDbScale", 1153, false},
    {L"SORTENTSTABLE", L"AcDbSortentsTable", 0, false},
    {L"MATERIAL", L"AcDbMaterial", 1153, false},
    {L"VISUALSTYLE", L"AcDbVisualStyle", 4095, false},
    {L"ARC_DIMENSION", L"AcDbArcDimension", 1025, true},
}};

// DIMENSION's type number (group 70, low three bits) to the class that reads it.
constexpr std::array<std::wstring_view, 7> kDimensionClasses = {
    L"AcDbRotatedDimension",   L"AcDbAlignedDimension",  L"AcDb2LineAngularDimension",
    L"AcDbDiametricDimension", L"AcDbRadialDimension",   L"AcDb3PointAngularDimension",
    L"AcDbOrdinateDimension",
};

}  // namespace

bool dxfIsNativeType(std::wstring_view dxfName)
{
    return std::find(kNativeTypes.begin(), kNativeTypes.end(), dxfName) != kNativeTypes.end();
}

bool dxfNativeClassEntry(std::wstring_view dxfName, DxfClassInfo& info)
{
    for (const NativeClass& c : kNativeClasses) {
        if (c.dxfName == dxfName) {
            info = {std::wstring(c.dxfName), std::wstring(c.className), std::wstring(kObjectDbxApp),
                    c.proxyFlags, false, c.isEntity};
            return true;
        }
    }
    return false;
}

DxfClassInfo dxfCustomClassEntry(const AcRxClass* cls)
{
    DxfClassInfo info;
    info.dxfName = dxfTypeOfClass(cls);
    info.className = cls->name();
    info.appName = cls->appName();
    if (info.appName.empty())
        info.appName = cls->name();
    info.proxyFlags = cls->proxyFlags();
    info.isEntity = cls->isDerivedFrom(AcDbEntity::desc());
    return info;
}

std::wstring dxfTypeOfClass(const AcRxClass* cls)
{
    if (cls && *cls->dxfName())
        return cls->dxfName();
    // A custom class without DXF name: its own name, so that the file's CLASSES entry leads
    // back to it. A class derived from a native one without a name of its own files as that.
    for (const AcRxClass* up = cls ? cls->myParent() : nullptr; up; up = up->myParent()) {
        if (*up->dxfName() && dxfIsNativeType(up->dxfName()))
            break;
        if (*up->dxfName())
            return up->dxfName();
    }
    std::wstring name = cls ? cls->name() : L"";
    std::transform(name.begin(), name.end(), name.begin(),
                   [](wchar_t c) { return static_cast<wchar_t>(std::towupper(c)); });
    return name;
}

namespace {

// Classes register on first use; a program that only reads files may not have used them.
void registerNativeClasses()
{
    for (AcRxClass* (*desc)() : {
             &AcDbLine::desc, &AcDbArc::desc, &AcDbCircle::desc, &AcDbPolyline::desc, &AcDbText::desc,
             &AcDbMText::desc, &AcDbRotatedDimension::desc, &AcDbAlignedDimension::desc,
             &AcDbRadialDimension::desc, &AcDbDiametricDimension::desc, &AcDb2LineAngularDimension::desc,
             &AcDbArcDimension::desc, &AcDbProxyEntity::desc, &AcDbDictionary::desc, &AcDbXrecord::desc,
             &AcDbScale::desc, &AcDbSortentsTable::desc, &AcDbLayout::desc, &AcDb2dPolyline::desc,
             &AcDb2dVertex::desc, &AcDbSequenceEnd::desc, &AcDbBlockReference::desc, &AcDbPoint::desc,
             &AcDbSolid::desc, &AcDbViewport::desc, &AcDbXline::desc, &DxfRawEntity::desc,
             &DxfRawObject::desc})
        desc();
}

}  // namespace

DxfClassResolver::DxfClassResolver()
{
    registerNativeClasses();
    std::unique_ptr<AcRxDictionaryIterator> it(acrxClassDictionary->newIterator());
    for (; !it->done(); it->next()) {
        const AcRxClass* cls = AcRxClass::cast(it->object());
        if (!cls || !*cls->dxfName() || !cls->constructor())
            continue;
        // The holders of unknown records are made by the reader itself, never by type.
        if (cls == DxfRawEntity::desc() || cls == DxfRawObject::desc())
            continue;
        // Several classes may share a type (the dimensions); the type number picks among them.
        m_byDxfName.emplace(cls->dxfName(), cls);
    }
}

void DxfClassResolver::addFileClass(const DxfClassInfo& info)
{
    m_fileClasses[info.dxfName] = info;
}

const DxfClassInfo* DxfClassResolver::fileClass(const std::wstring& dxfName) const
{
    const auto it = m_fileClasses.find(dxfName);
    return it == m_fileClasses.end() ? nullptr : &it->second;
}

const AcRxClass* DxfClassResolver::classFor(const std::wstring& dxfName, int dimensionType) const
{
    if (dxfName == L"DIMENSION") {
        const int type = dimensionType & 7;
        if (type >= static_cast<int>(kDimensionClasses.size()))
            return nullptr;
        return acrxFindAcRxClass(std::wstring(kDimensionClasses[type]).c_str());
    }
    if (!dxfIsNativeType(dxfName)) {
        if (const DxfClassInfo* info = fileClass(dxfName)) {
            const AcRxClass* cls = acrxFindAcRxClass(info->className.c_str());
            if (cls && cls->constructor() && cls != DxfRawEntity::desc() && cls != DxfRawObject::desc())
                return cls;
        }
    }
    const auto it = m_byDxfName.find(dxfName);
    return it == m_byDxfName.end() ? nullptr : it->second;
}
