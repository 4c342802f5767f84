// One field list for both directions of binary filing: a class names its fields once, in
// order, and the same list writes them out and reads them back.
#pragma once

#include "host/db/AcDbDwgFiler.h"

namespace AcDbFilerFields {

inline void put(AcDbDwgFiler* f, const AcGePoint3d& v) { f->writePoint3d(v); }
inline void put(AcDbDwgFiler* f, const AcGeVector3d& v) { f->writeVector3d(v); }
inline void put(AcDbDwgFiler* f, double v) { f->writeDouble(v); }
inline void put(AcDbDwgFiler* f, bool v) { f->writeBool(v); }
inline void get(AcDbDwgFiler* f, AcGePoint3d& v) { f->readPoint3d(&v); }
inline void get(AcDbDwgFiler* f, AcGeVector3d& v) { f->readVector3d(&v); }
inline void get(AcDbDwgFiler* f, double& v) { f->readDouble(&v); }
inline void get(AcDbDwgFiler* f, bool& v) { f->readBool(&v); }

template <class... T>
Acad::ErrorStatus write(AcDbDwgFiler* f, const T&... fields)
{
    (put(f, fields), ...);
    return f->filerStatus();
}

template <class... T>
Acad::ErrorStatus read(AcDbDwgFiler* f, T&... fields)
{
    (get(f, fields), ...);
    return f->filerStatus();
}

}  // namespace AcDbFilerFields
