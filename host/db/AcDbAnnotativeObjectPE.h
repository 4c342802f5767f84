// AcDbAnnotativeObjectPE: the protocol extension that makes texts and dimensions annotative,
// and their list of annotation scales (by scale name from the drawing's scale list).
#pragma once

#include <string>
#include <vector>

#include "host/db/AcDbObject.h"

// The flag travels as the extended data the file format knows:
//   1001 "AcadAnnotative", 1000 "AnnotativeData", 1002 "{", 1070 1, 1070 flag, 1002 "}".
// The scale names of an object travel as 1001 "SvAnnoScales" with one 1000 per name.
// Both applications are registered in the object's database when first written.
class AcDbAnnotativeObjectPE : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbAnnotativeObjectPE);

    virtual bool annotative(AcDbObject* object) const;
    // Needs write access to a resident object. Turning it on adds the database's current
    // annotation scale to the object's scales if it has none.
    virtual Acad::ErrorStatus setAnnotative(AcDbObject* object, bool annotative);

    // The object's annotation scales: names from the database's scale list.
    std::vector<std::wstring> contexts(const AcDbObject* object) const;
    bool hasContext(const AcDbObject* object, const ACHAR* scaleName) const;
    // eKeyNotFound for a name the object's database has no scale of.
    Acad::ErrorStatus addContext(AcDbObject* object, const ACHAR* scaleName);
    Acad::ErrorStatus removeContext(AcDbObject* object, const ACHAR* scaleName);
};

// Attaches the extension to AcDbText, AcDbMText and AcDbDimension once; later calls do
// nothing. The classes' constructors call it, so any text or dimension has it.
void acdbInitAnnotativeObjectPE();

constexpr const ACHAR* kAcDbAnnotativeApp = L"AcadAnnotative";
constexpr const ACHAR* kAcDbAnnoScalesApp = L"SvAnnoScales";
