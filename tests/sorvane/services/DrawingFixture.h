// Test scaffolding for the drawing services: the host started with one new drawing, no
// module locks left over, a fake main panel that counts what it is asked, and small
// helpers to make layers, entities and commands.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "host/ap/AcApDocManager.h"
#include "host/ap/ApHost.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/AcEd.h"
#include "host/ed/AcEdSession.h"
#include "services/Locks.h"
#include "services/PanelLink.h"

struct FakePanel {
    static inline bool bExists = false;
    static inline bool bVisible = false;
    static inline int iHides = 0;
    static inline int iShows = 0;
    static inline int iEndApps = 0;

    static void Install()
    {
        bExists = bVisible = false;
        iHides = iShows = iEndApps = 0;
        CPanelLink link;
        link.pfnExists = [] { return bExists; };
        link.pfnIsVisible = [] { return bVisible; };
        link.pfnHide = [] { ++iHides; bVisible = false; };
        link.pfnShow = [] { ++iShows; bVisible = true; };
        link.pfnEndApp = [](int, int) { ++iEndApps; bExists = bVisible = false; };
        SetPanelLink(&link);
    }
};

class DrawingFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        apHostStartup();
        ResetHost();
        ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
        FakePanel::Install();
    }
    void TearDown() override
    {
        SetPanelLink(nullptr);
        ResetHost();
    }
    static void ResetHost()
    {
        UnlockAll();
        acDocManager->closeAll();
        acDocManager->flushClosed();
        lockedDocuments.RemoveAll();
    }

    static AcDbDatabase* Db() { return acdbHostApplicationServices()->workingDatabase(); }
    static AcApDocument* Doc() { return acDocManager->curDocument(); }

    // A second new drawing, made current; the first one stays open.
    static AcApDocument* NewDocument()
    {
        EXPECT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
        return acDocManager->curDocument();
    }

    // Appends the entity to the block (model space by default) and closes it.
    static AcDbObjectId Append(AcDbEntity* pEntity, AcDbObjectId blockId = AcDbObjectId::kNull)
    {
        if (blockId.isNull())
            blockId = Db()->modelSpaceId();
        AcDbBlockTableRecord* pBlock = nullptr;
        EXPECT_EQ(acdbOpenObject(pBlock, blockId, AcDb::kForWrite), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(pBlock->appendAcDbEntity(id, pEntity), Acad::eOk);
        pBlock->close();
        pEntity->close();
        return id;
    }
    static AcDbObjectId AddLine(double y = 0.0)
    {
        return Append(new AcDbLine(AcGePoint3d(0, y, 0), AcGePoint3d(10, y, 0)));
    }

    // Runs body as the command name inside a scripted session; the script follows it. The
    // session's transcript goes to *pTranscript when given.
    static bool RunCommand(const wchar_t* name, std::function<void()> body, const std::wstring& script = L"",
                           std::wstring* pTranscript = nullptr)
    {
        static std::function<void()> s_body;
        s_body = std::move(body);
        acedRegCmds->addCommand(L"SV_SERVICES_TEST", name, name, ACRX_CMD_MODAL, [] { s_body(); });
        AcEdSession session;
        const bool bOk = session.runScriptText(std::wstring(name) + L"\n" + script, L"t");
        acedRegCmds->removeGroup(L"SV_SERVICES_TEST");
        s_body = nullptr;
        if (pTranscript)
            *pTranscript = session.transcript().text();
        return bOk;
    }
};
