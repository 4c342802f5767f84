// Shared fixture for the editor tests: a drawing with a few entities, a fake picker that
// knows where they are, a session, and one test command whose body each test sets.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/AcEd.h"
#include "host/ed/EdCore.h"

namespace edtest {

// Entities sit at points; a pick finds those within the aperture, in the order added.
class FakePicker : public AcEdPicker {
public:
    struct Entry {
        AcDbObjectId id;
        AcGePoint3d at;
        Adesk::GsMarker marker;
    };
    std::vector<Entry> entries;

    std::vector<AcEdPickHit> pickAt(const AcGePoint3d& p, double aperture) override
    {
        std::vector<AcEdPickHit> out;
        for (const Entry& e : entries)
            if (e.at.distanceTo(p) <= aperture)
                out.push_back({e.id, e.marker, e.at});
        return out;
    }
    std::vector<AcEdPickHit> window(const AcGePoint3d& a, const AcGePoint3d& b, bool) override
    {
        std::vector<AcEdPickHit> out;
        for (const Entry& e : entries)
            if (e.at.x >= std::min(a.x, b.x) && e.at.x <= std::max(a.x, b.x) && e.at.y >= std::min(a.y, b.y) &&
                e.at.y <= std::max(a.y, b.y))
                out.push_back({e.id, e.marker, e.at});
        return out;
    }
    std::vector<AcEdPickHit> fence(const std::vector<AcGePoint3d>& pts) override
    {
        return window(pts.front(), pts.back(), true);
    }
    std::vector<AcDbObjectId> all() override
    {
        std::vector<AcDbObjectId> out;
        for (const Entry& e : entries)
            out.push_back(e.id);
        return out;
    }
    bool pickEntity(AcDbObjectId id, Adesk::GsMarker marker, AcEdPickHit& hit) override
    {
        for (const Entry& e : entries)
            if (e.id == id) {
                hit = {id, marker ? marker : e.marker, e.at};
                return true;
            }
        return false;
    }
};

// The body of the command "EDT" (and of its nested partner "EDT2").
inline std::function<void()>& Body()
{
    static std::function<void()> body;
    return body;
}
inline std::function<void()>& Body2()
{
    static std::function<void()> body;
    return body;
}

class EdFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        eded::resetState();
        db = new AcDbDatabase(true);
        acdbHostApplicationServices()->setWorkingDatabase(db);
        acedSetPicker(&picker);
        acedRegCmds->addCommand(L"EDTEST", L"EDT", L"EdtLocal", ACRX_CMD_MODAL, [] { Body()(); });
        acedRegCmds->addCommand(L"EDTEST", L"EDT2", L"EDT2", ACRX_CMD_MODAL, [] { Body2()(); });
        acedRegCmds->addCommand(L"EDTEST", L"EDTPICK", L"EDTPICK", ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW,
                                [] { Body()(); });
        session = std::make_unique<AcEdSession>();
    }
    void TearDown() override
    {
        session.reset();
        acedRegCmds->removeGroup(L"EDTEST");
        acedSetPicker(nullptr);
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        delete db;
        Body() = nullptr;
        Body2() = nullptr;
    }

    // A line on the layer (made when missing) with its colour, known to the picker at a point.
    AcDbObjectId AddLine(const AcGePoint3d& at, const wchar_t* layer = L"0", int color = 256, Adesk::GsMarker marker = 1)
    {
        AcDbLayerTable* layers = nullptr;
        db->getLayerTable(layers, AcDb::kForWrite);
        if (!layers->has(layer)) {
            auto* rec = new AcDbLayerTableRecord;
            rec->setName(layer);
            layers->add(rec);
            rec->close();
        }
        layers->close();
        AcDbBlockTableRecord* ms = nullptr;
        acdbOpenObject(ms, db->modelSpaceId(), AcDb::kForWrite);
        auto* line = new AcDbLine(at, AcGePoint3d(at.x + 1, at.y, 0));
        AcDbObjectId id;
        ms->appendAcDbEntity(id, line);
        line->setLayer(layer);
        line->setColorIndex(static_cast<Adesk::UInt16>(color));
        line->close();
        ms->close();
        picker.entries.push_back({id, at, marker});
        return id;
    }

    static std::wstring Hex(AcDbObjectId id)
    {
        ACHAR buf[17] = {};
        id.handle().getIntoAsciiBuffer(buf, 17);
        return buf;
    }

    bool Run(const std::wstring& script) { return session->runScriptText(script, L"t.scr"); }
    std::wstring Text() const { return session->transcript().text(); }

    AcDbDatabase* db = nullptr;
    FakePicker picker;
    std::unique_ptr<AcEdSession> session;
};

} // namespace edtest
