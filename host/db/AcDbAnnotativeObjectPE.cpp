// AcDbAnnotativeObjectPE: the annotative flag and scale list kept in an object's extended data.
#include "host/db/AcDbAnnotativeObjectPE.h"

#include <cwchar>
#include <cwctype>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbDimension.h"
#include "host/db/AcDbMText.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbRegAppTable.h"
#include "host/db/AcDbScale.h"
#include "host/db/AcDbText.h"
#include "host/db/acutads.h"
#include "host/rx/AcRxBoiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbAnnotativeObjectPE, AcRxObject)

namespace {

resbuf* link(resbuf* tail, int type)
{
    tail->rbnext = acutNewRb(type);
    return tail->rbnext;
}

resbuf* appHead(const ACHAR* app)
{
    resbuf* head = acutNewRb(1001);
    head->resval.rstring = acutNewString(app);
    return head;
}

Acad::ErrorStatus store(AcDbObject* object, resbuf* chain, const ACHAR* app)
{
    Acad::ErrorStatus es = Acad::eOk;
    if (AcDbDatabase* db = object->database())
        es = acdbRegApp(db, app);
    if (es == Acad::eOk)
        es = object->setXData(chain);
    acutRelRb(chain);
    return es;
}

bool sameName(const std::wstring& a, const ACHAR* b)
{
    if (!b || a.size() != std::wcslen(b))
        return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (std::towupper(a[i]) != std::towupper(b[i]))
            return false;
    return true;
}

// The scale of that name in the database's scale list.
bool databaseHasScale(AcDbDatabase* db, const ACHAR* name)
{
    AcDbDictionary* dict = nullptr;
    if (!db || acdbOpenObject(dict, db->scaleListDictionaryId(), AcDb::kForRead) != Acad::eOk)
        return false;
    bool found = false;
    AcDbDictionaryIterator* it = dict->newIterator();
    for (; it && !it->done() && !found; it->next()) {
        AcDbScale* scale = nullptr;
        if (acdbOpenObject(scale, it->objectId(), AcDb::kForRead) == Acad::eOk) {
            found = sameName(scale->scaleName(), name);
            scale->close();
        }
    }
    delete it;
    dict->close();
    return found;
}

Acad::ErrorStatus storeContexts(AcDbObject* object, const std::vector<std::wstring>& names)
{
    resbuf* head = appHead(kAcDbAnnoScalesApp);
    resbuf* tail = head;
    for (const std::wstring& n : names) {
        tail = link(tail, 1000);
        tail->resval.rstring = acutNewString(n.c_str());
    }
    return store(object, head, kAcDbAnnoScalesApp);
}

}  // namespace

bool AcDbAnnotativeObjectPE::annotative(AcDbObject* object) const
{
    if (!object)
        return false;
    resbuf* data = object->xData(kAcDbAnnotativeApp);
    bool on = false;
    bool inData = false;
    int ints = 0;
    for (resbuf* p = data; p; p = p->rbnext) {
        if (p->restype == 1000)
            inData = p->resval.rstring && std::wcscmp(p->resval.rstring, L"AnnotativeData") == 0;
        else if (inData && p->restype == 1070 && ++ints == 2)
            on = p->resval.rint != 0;
    }
    acutRelRb(data);
    return on;
}

Acad::ErrorStatus AcDbAnnotativeObjectPE::setAnnotative(AcDbObject* object, bool annotative)
{
    if (!object)
        return Acad::eNullObjectPointer;
    if (object->isDatabaseResident() && !object->isWriteEnabled())
        return Acad::eNotOpenForWrite;
    resbuf* head = appHead(kAcDbAnnotativeApp);
    resbuf* tail = link(head, 1000);
    tail->resval.rstring = acutNewString(L"AnnotativeData");
    tail = link(tail, 1002);
    tail->resval.rstring = acutNewString(L"{");
    tail = link(tail, 1070);
    tail->resval.rint = 1;
    tail = link(tail, 1070);
    tail->resval.rint = annotative ? 1 : 0;
    tail = link(tail, 1002);
    tail->resval.rstring = acutNewString(L"}");
    Acad::ErrorStatus es = store(object, head, kAcDbAnnotativeApp);
    if (es != Acad::eOk || !annotative || !contexts(object).empty())
        return es;
    if (AcDbDatabase* db = object->database())
        if (AcDbAnnotationScale* current = db->cannoscale())
            addContext(object, current->name());
    return Acad::eOk;
}

std::vector<std::wstring> AcDbAnnotativeObjectPE::contexts(const AcDbObject* object) const
{
    std::vector<std::wstring> names;
    if (!object)
        return names;
    resbuf* data = object->xData(kAcDbAnnoScalesApp);
    for (resbuf* p = data; p; p = p->rbnext)
        if (p->restype == 1000 && p->resval.rstring)
            names.emplace_back(p->resval.rstring);
    acutRelRb(data);
    return names;
}

bool AcDbAnnotativeObjectPE::hasContext(const AcDbObject* object, const ACHAR* scaleName) const
{
    for (const std::wstring& n : contexts(object))
        if (sameName(n, scaleName))
            return true;
    return false;
}

Acad::ErrorStatus AcDbAnnotativeObjectPE::addContext(AcDbObject* object, const ACHAR* scaleName)
{
    if (!object || !scaleName)
        return Acad::eNullObjectPointer;
    if (object->database() && !databaseHasScale(object->database(), scaleName))
        return Acad::eKeyNotFound;
    if (hasContext(object, scaleName))
        return Acad::eOk;
    std::vector<std::wstring> names = contexts(object);
    names.emplace_back(scaleName);
    return storeContexts(object, names);
}

Acad::ErrorStatus AcDbAnnotativeObjectPE::removeContext(AcDbObject* object, const ACHAR* scaleName)
{
    if (!object || !scaleName)
        return Acad::eNullObjectPointer;
    std::vector<std::wstring> names = contexts(object), kept;
    for (const std::wstring& n : names)
        if (!sameName(n, scaleName))
            kept.push_back(n);
    if (kept.size() == names.size())
        return Acad::eKeyNotFound;
    return storeContexts(object, kept);
}

void acdbInitAnnotativeObjectPE()
{
    // One extension object serves every class; it lives as long as the process.
    static AcDbAnnotativeObjectPE* const pe = [] {
        auto* ext = new AcDbAnnotativeObjectPE();
        AcDbText::desc()->addX(AcDbAnnotativeObjectPE::desc(), ext);
        AcDbMText::desc()->addX(AcDbAnnotativeObjectPE::desc(), ext);
        AcDbDimension::desc()->addX(AcDbAnnotativeObjectPE::desc(), ext);
        return ext;
    }();
    (void)pe;
}
