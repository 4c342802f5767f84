// Which DXF record types the host implements natively, their CLASSES entries, and the lookup
// from a record type to the runtime class that reads it.
#pragma once

#include "host/dxf/DxfRawObject.h"
#include "host/rx/AcRxClass.h"

#include <map>
#include <string>
#include <string_view>

// True for the record types written in their standard group-code form only (LINE, DICTIONARY,
// ...). Every other class of a resident object is a custom class: its objects carry their
// binary record after their groups (see DxfCustomRecord.h).
bool dxfIsNativeType(std::wstring_view dxfName);

// The CLASSES entry a native type needs in R2018 files (SCALE, LAYOUT, ...); false for types
// that need none (LINE, DICTIONARY, ...).
bool dxfNativeClassEntry(std::wstring_view dxfName, DxfClassInfo& info);

// The CLASSES entry of a custom runtime class, from its registration.
DxfClassInfo dxfCustomClassEntry(const AcRxClass* cls);

// The record type an object of this class is written as: the class's DXF name, or the nearest
// ancestor's; for a custom class without DXF name its class name in upper case.
std::wstring dxfTypeOfClass(const AcRxClass* cls);

// Maps record types of a file to runtime classes: native types through the class dictionary
// (DXF name of the registered classes; DIMENSION by its type number), custom types through the
// file's CLASSES entry and the class of that C++ name, or else the registered class of that
// DXF name (files whose CLASSES another program rewrote). Making one registers the host's
// native classes first.
class DxfClassResolver {
public:
    DxfClassResolver();

    // Records a CLASSES entry of the file.
    void addFileClass(const DxfClassInfo& info);
    // The file's entry for a record type; null when the file had none.
    const DxfClassInfo* fileClass(const std::wstring& dxfName) const;

    // The class to read a record of this type with; null when no class is registered for it.
    // dimensionType is group 70 of a DIMENSION (only its low bits matter).
    const AcRxClass* classFor(const std::wstring& dxfName, int dimensionType = 0) const;

private:
    std::map<std::wstring, const AcRxClass*> m_byDxfName;
    std::map<std::wstring, DxfClassInfo> m_fileClasses;
};
