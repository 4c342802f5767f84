// LAYER (and -LAYER, the same command-line form): make, set, new, on, off, lock, unlock,
// freeze, thaw and colour, each option repeated until Enter. Name lists are separated by
// commas and may hold wildcards.
#include "host/ap/ApCmdSupport.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/acedads.h"

namespace {

bool askText(const std::wstring& prompt, std::wstring& text)
{
    ACHAR buffer[1024] = {};
    const int rc = acedGetString(1, prompt.c_str(), buffer, 1024);
    if (rc != RTNORM || !buffer[0])
        return false;
    text = buffer;
    return true;
}

// The layer's id, made when missing and make is set; null when it cannot be.
AcDbObjectId layerId(AcDbDatabase* db, const std::wstring& name, bool make)
{
    AcDbLayerTable* table = nullptr;
    if (db->getLayerTable(table, AcDb::kForRead) != Acad::eOk)
        return AcDbObjectId::kNull;
    AcDbObjectId id;
    if (table->getAt(name.c_str(), id) != Acad::eOk && make) {
        auto* record = new AcDbLayerTableRecord();
        if (record->setName(name.c_str()) != Acad::eOk || table->upgradeOpen() != Acad::eOk ||
            table->add(id, record) != Acad::eOk) {
            delete record;
            id = AcDbObjectId::kNull;
            apcmd::say(L"\"" + name + L"\" is no valid layer name.");
        } else {
            record->close();
        }
    }
    table->close();
    return id;
}

// Calls f on each layer whose name matches the comma-separated list (with wildcards).
int forLayers(AcDbDatabase* db, const std::wstring& list, const std::function<void(AcDbLayerTableRecord*)>& f)
{
    AcDbLayerTable* table = nullptr;
    if (db->getLayerTable(table, AcDb::kForRead) != Acad::eOk)
        return 0;
    std::vector<AcDbObjectId> ids;
    const AcDbObjectIdArray& records = table->recordIds();
    for (int i = 0; i < records.length(); ++i)
        ids.push_back(records[i]);
    table->close();
    int n = 0;
    for (AcDbObjectId id : ids) {
        AcDbLayerTableRecord* layer = nullptr;
        if (acdbOpenObject(layer, id, AcDb::kForRead) != Acad::eOk)
            continue;
        if (acutWcMatch(layer->name().c_str(), list.c_str()) == RTNORM && layer->upgradeOpen() == Acad::eOk) {
            f(layer);
            ++n;
        }
        layer->close();
    }
    if (n == 0)
        apcmd::say(L"No matching layer: " + list + L".");
    return n;
}

void setCurrent(AcDbDatabase* db, AcDbObjectId id)
{
    if (!id.isNull())
        db->setClayer(id);
}

void cmdLayer()
{
    AcDbDatabase* db = apcmd::database();
    if (!db)
        return;
    for (;;) {
        std::wstring option;
        acedInitGet(0, L"Make Set New ON OFF LOck Unlock Freeze Thaw Color");
        ACHAR buffer[64] = {};
        const int rc = acedGetKword(L"\nEnter an option [Make/Set/New/ON/OFF/LOck/Unlock/Freeze/Thaw/Color]: ",
                                    buffer, 64);
        if (rc != RTNORM)
            return;
        option = buffer;
        std::wstring names;
        if (option == L"Make") {
            if (askText(L"\nEnter name for new layer (becomes the current layer): ", names))
                setCurrent(db, layerId(db, names, true));
        } else if (option == L"Set") {
            if (askText(L"\nEnter layer name to make current: ", names)) {
                const AcDbObjectId id = layerId(db, names, false);
                if (id.isNull())
                    apcmd::say(L"Cannot find layer \"" + names + L"\".");
                else
                    setCurrent(db, id);
            }
        } else if (option == L"New") {
            if (askText(L"\nEnter name list for new layer(s): ", names)) {
                size_t start = 0;
                while (start <= names.size()) {
                    const size_t comma = names.find(L',', start);
                    const std::wstring one = names.substr(start, comma == std::wstring::npos ? comma : comma - start);
                    if (!one.empty())
                        layerId(db, one, true);
                    if (comma == std::wstring::npos)
                        break;
                    start = comma + 1;
                }
            }
        } else if (option == L"Color") {
            int color = 0;
            acedInitGet(RSG_NONULL | RSG_NOZERO | RSG_NONEG, nullptr);
            if (acedGetInt(L"\nEnter color index (1-255): ", &color) != RTNORM)
                return;
            if (color > 255) {
                apcmd::say(L"A colour index runs from 1 to 255.");
                continue;
            }
            if (askText(L"\nEnter name list of layer(s) for color " + std::to_wstring(color) + L": ", names)) {
                AcCmColor c;
                c.setColorIndex(static_cast<Adesk::UInt16>(color));
                forLayers(db, names, [&](AcDbLayerTableRecord* l) { l->setColor(c); });
            }
        } else {
            const std::wstring verb = option == L"ON"       ? L"turn on"
                                      : option == L"OFF"    ? L"turn off"
                                      : option == L"LOck"   ? L"lock"
                                      : option == L"Unlock" ? L"unlock"
                                      : option == L"Freeze" ? L"freeze"
                                                            : L"thaw";
            if (!askText(L"\nEnter name list of layer(s) to " + verb + L": ", names))
                continue;
            const AcDbObjectId current = db->clayer();
            forLayers(db, names, [&](AcDbLayerTableRecord* l) {
                if (option == L"ON")
                    l->setIsOff(false);
                else if (option == L"OFF")
                    l->setIsOff(true);
                else if (option == L"LOck")
                    l->setIsLocked(true);
                else if (option == L"Unlock")
                    l->setIsLocked(false);
                else if (option == L"Thaw")
                    l->setIsFrozen(false);
                else if (l->objectId() == current)
                    apcmd::say(L"Cannot freeze the current layer.");
                else
                    l->setIsFrozen(true);
            });
        }
    }
}

} // namespace

void apRegisterLayerCommands()
{
    apcmd::add(L"LAYER", cmdLayer);
    apcmd::add(L"-LAYER", cmdLayer);
}
