// Extended data of one object: items per application, kept as tags (internal).
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/db/AcDbTag.h"
#include "host/db/adsdef.h"
#include "host/rx/AcadStrc.h"

class AcDbDwgFiler;

class AcDbXData {
public:
    using App = std::pair<std::wstring, AcDbTagList>;

    // Parses a chain into applications; eInvalidResBuf when it does not start with 1001 or
    // holds a type extended data cannot carry.
    static Acad::ErrorStatus parse(const resbuf* chain, std::vector<App>& apps);
    // The chain of one application (or all for null); null when none.
    resbuf* toChain(const ACHAR* appName) const;
    // Replaces (or removes, for an empty item list) each application given.
    void merge(const std::vector<App>& apps);
    size_t byteSize() const;
    bool empty() const { return m_apps.empty(); }
    const std::vector<App>& apps() const { return m_apps; }

    Acad::ErrorStatus dwgOut(AcDbDwgFiler* filer) const;
    Acad::ErrorStatus dwgIn(AcDbDwgFiler* filer);

private:
    std::vector<App> m_apps;
};
