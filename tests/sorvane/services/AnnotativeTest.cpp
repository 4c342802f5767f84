// Annotative scale: the scale word, the drawing's annotation scale, the flag of
// texts and chains, and chains following a change of CANNOSCALE.
#include "DrawingFixture.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/SysVarWatch.h"
#include "host/db/AcDbDatabaseReactor.h"
#include "host/db/AcDbText.h"
#include "host/db/acutads.h"
#include "host/rx/AcRxClass.h"
#include "host/ed/acedads.h"
#include "host/win/wsprintf.h"
#include "options/GlobDimOptions.h"
#include "proxy/SVbasic.h"
#include "services/Annotative.h"
#include "services/Trace.h"

namespace {

// Counts the changes the drawing reports for one object.
class ModifiedCounter : public AcDbDatabaseReactor {
public:
    explicit ModifiedCounter(AcDbObjectId id) : m_id(id) {}
    void objectModified(const AcDbDatabase*, const AcDbObject* pObject) override
    {
        if (pObject && pObject->objectId() == m_id)
            ++m_iCount;
    }
    AcDbObjectId m_id;
    int m_iCount = 0;
};

class AnnotativeTest : public DrawingFixture {
protected:
    void SetUp() override
    {
        DrawingFixture::SetUp();
        std::string pattern = (std::filesystem::temp_directory_path() / "sv_anno_XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        setenv("TMPDIR", (m_dir = pattern).c_str(), 1);
        m_options.m_bDebugMsg = TRUE;
        pGlobDimOptions = &m_options;
        if (!SVdim::desc())
            SVdim::rxInit();
        ASSERT_TRUE(AddAnnotativeExtension(SVdim::desc()));
    }
    void TearDown() override
    {
        RemoveSysVarWatch();
        RemoveAnnotativeExtension(SVdim::desc());
        ClearLog();
        pGlobDimOptions = nullptr;
        unsetenv("TMPDIR");
        std::filesystem::remove_all(m_dir);
        DrawingFixture::TearDown();
    }

    std::wstring LogText() const
    {
        std::stringstream buffer;
        buffer << std::ifstream(m_dir / "Sorvane.log", std::ios::binary).rdbuf();
        return svwin::Utf8ToWide(buffer.str());
    }
    static bool SetCannoscale(const wchar_t* pszName)
    {
        resbuf value{};
        value.restype = RTSTR;
        value.resval.rstring = const_cast<wchar_t*>(pszName);
        return acedSetVar(L"CANNOSCALE", &value) == RTNORM;
    }
    // A chain with the scale text given, 1:100 as its own number, text height 25.
    static SVdim* NewChain(const wchar_t* pszScale)
    {
        auto* pChain = new SVdim;
        pChain->arrayString.SetSize(13);
        pChain->arrayDouble.SetSize(18);
        pChain->arrayString[0] = pszScale;  // Scale
        pChain->arrayDouble[SVdim::kDblScaleVal] = 0.01;
        pChain->arrayDouble[SVdim::kDblTextHeight] = 25.0;
        pChain->arrayDouble[SVdim::kDblAcadUnits] = 0.001;
        return pChain;
    }

    CGlobDimOptions m_options;
    std::filesystem::path m_dir;
};

TEST_F(AnnotativeTest, ScaleWordIsRecognisedWithoutRegardToCase)
{
    struct SRow {
        const wchar_t* text;
        int expected;
    };
    const SRow rows[] = {
        {L"BMaß", 1},  {L"bmaß", 1},        {L"BMAß", 1}, {L"AnnoScale", 1},           {L"annoscale", 1},
        {L"", 0},      {L"1:50", 0},        {L"BMaß ", 0}, {L"Beschriftungsmaßstab", 0}, {L"BMa", 0},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(CString(row.text).ToUtf8());
        EXPECT_EQ(IsAnnoScaleText(row.text), row.expected);
    }
}

TEST_F(AnnotativeTest, CurrentAnnotationScaleOfTheDrawing)
{
    struct SRow {
        const wchar_t* cannoscale;  // null: no annotation scale at all
        double expected;
    };
    const SRow rows[] = {{L"1:1", 1.0}, {L"1:50", 0.02}, {L"1:100", 0.01}, {L"2:1", 2.0}, {nullptr, 1.0}};
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.cannoscale ? CString(row.cannoscale).ToUtf8() : std::string("none"));
        if (row.cannoscale)
            ASSERT_TRUE(SetCannoscale(row.cannoscale));
        else
            ASSERT_EQ(Db()->setHeaderVar(L"$CANNOSCALE", {AcDbTag::text(1, L"")}), Acad::eOk);
        EXPECT_DOUBLE_EQ(GetCurAnnotationScale(Db()), row.expected);
        // No database: the current drawing's, said in the trace.
        EXPECT_DOUBLE_EQ(GetCurAnnotationScale(nullptr), row.expected);
    }
    EXPECT_NE(LogText().find(L"!dwg ON GetCurAnnotationScale"), std::wstring::npos);
}

TEST_F(AnnotativeTest, FlagChangesOnlyWhenItDiffers)
{
    struct SRow {
        const char* name;
        AcDbEntity* (*make)();
    };
    const SRow rows[] = {
        {"text", [] { return static_cast<AcDbEntity*>(new AcDbText(AcGePoint3d(), L"x", AcDbObjectId::kNull, 2.5, 0)); }},
        {"chain", [] { return static_cast<AcDbEntity*>(NewChain(L"BMaß")); }},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.name);
        const AcDbObjectId id = Append(row.make());
        AcDbEntity* pEntity = nullptr;
        ASSERT_EQ(acdbOpenAcDbEntity(pEntity, id, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(IsAnnotative(pEntity), 0);
        EXPECT_EQ(SetAnnotative(pEntity, 1), 1);
        EXPECT_EQ(IsAnnotative(pEntity), 1);
        const std::wstring strLogBefore = LogText();
        EXPECT_EQ(SetAnnotative(pEntity, 5), 0);  // any non-zero is "on": nothing to do
        EXPECT_EQ(LogText(), strLogBefore);
        EXPECT_EQ(SetAnnotative(pEntity, 0), 1);
        EXPECT_EQ(IsAnnotative(pEntity), 0);
        EXPECT_EQ(SetAnnotative(pEntity, 0), 0);
        pEntity->close();

        // Open for read: refused, the flag stays.
        ASSERT_EQ(acdbOpenAcDbEntity(pEntity, id, AcDb::kForRead), Acad::eOk);
        EXPECT_EQ(SetAnnotative(pEntity, 1), 0);
        EXPECT_EQ(IsAnnotative(pEntity), 0);
        pEntity->close();
    }
    EXPECT_EQ(SetAnnotative(nullptr, 1), 0);
    EXPECT_EQ(IsAnnotative(nullptr), 0);
    // A class without the extension: never annotative, and the chain keeps its own number.
    RemoveAnnotativeExtension(SVdim::desc());
    SVdim* pChain = NewChain(L"BMaß");
    EXPECT_EQ(SetAnnotative(pChain, 1), 0);
    EXPECT_DOUBLE_EQ(pChain->GetScale(), 0.01);
    delete pChain;
    const std::wstring strLog = LogText();
    for (const std::wstring& strLine :
         {std::wstring(L"Entity status annotative=1..."), std::wstring(L"Failed to set entity annotative (1)...es="),
          std::wstring(L"ERROR on Create AcDbAnnotativeObjectPE /IsAnnotative/"),
          L"ERROR on Create AcDbAnnotativeObjectPE /SetAnnotative - " + std::wstring(SVdim::desc()->dxfName()) + L"/"})
        EXPECT_NE(strLog.find(strLine), std::wstring::npos) << CString(strLine.c_str()).ToUtf8();
}

TEST_F(AnnotativeTest, AnnotativeChainFollowsCannoscale)
{
    InstallSysVarWatch();
    ASSERT_TRUE(SetCannoscale(L"1:1"));
    SVdim* pNew = NewChain(L"BMaß");
    const AcDbObjectId id = Append(pNew);
    const AcDbObjectId plainId = Append(NewChain(L"1:100"));
    {
        AcDbEntity* pEntity = nullptr;
        ASSERT_EQ(acdbOpenAcDbEntity(pEntity, id, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(SetAnnotative(pEntity, IsAnnoScaleText(SVdim::cast(pEntity)->arrayString[0])), 1);
        pEntity->close();
    }
    ModifiedCounter counter(id);
    Db()->addReactor(&counter);

    struct SRow {
        const wchar_t* cannoscale;
        double scale;
    };
    const SRow rows[] = {{L"1:1", 1.0}, {L"1:50", 0.02}, {L"1:1", 1.0}};
    double dHeightBefore = 0.0;
    for (const SRow& row : rows) {
        SCOPED_TRACE(CString(row.cannoscale).ToUtf8());
        const int iModifiedBefore = counter.m_iCount;
        ASSERT_TRUE(SetCannoscale(row.cannoscale));
        EXPECT_GT(counter.m_iCount, iModifiedBefore);  // the watch redrew the chain
        SVdim* pChain = nullptr;
        ASSERT_EQ(acdbOpenObject(pChain, id, AcDb::kForRead), Acad::eOk);
        EXPECT_DOUBLE_EQ(pChain->GetScale(), row.scale);
        const double dHeight = pChain->ToDrawing(pChain->arrayDouble[SVdim::kDblTextHeight] / 10.0);
        EXPECT_DOUBLE_EQ(dHeight, 2.5 / row.scale * 0.001);
        if (dHeightBefore != 0.0 && row.scale != 1.0) {
            EXPECT_DOUBLE_EQ(dHeight, dHeightBefore * 50.0);
        }
        dHeightBefore = dHeight;
        pChain->close();

        // A chain with a fixed scale keeps it.
        ASSERT_EQ(acdbOpenObject(pChain, plainId, AcDb::kForRead), Acad::eOk);
        EXPECT_DOUBLE_EQ(pChain->GetScale(), 0.01);
        pChain->close();
    }
    // Other variables and failed changes leave the chains alone.
    const int iModified = counter.m_iCount;
    CSysVarWatch watch;
    watch.sysVarChanged(L"CANNOSCALE", false);
    watch.sysVarChanged(L"CANNOSCALEVALUE", true);
    watch.sysVarChanged(nullptr, true);
    EXPECT_EQ(counter.m_iCount, iModified);
    watch.sysVarChanged(L"cannoscale", true);
    EXPECT_GT(counter.m_iCount, iModified);
    Db()->removeReactor(&counter);
}

} // namespace
