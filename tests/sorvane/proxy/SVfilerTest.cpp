// The chain's record: round trips of full chains, older and newer record
// versions, the repairs made on reading, and the refusal without options.
#include <functional>
#include <vector>

#include "app/App.h"
#include "host/db/AcDbBinaryFiler.h"
#include "tests/sorvane/proxy/SVbasicFixture.h"

namespace {

using Bytes = std::vector<Adesk::UInt8>;

Bytes Save(const SVdim& chain, Acad::ErrorStatus* pStatus = nullptr)
{
    AcDbBinaryFiler filer;
    const Acad::ErrorStatus es = chain.dwgOutFields(&filer);
    if (pStatus)
        *pStatus = es;
    return filer.bytes();
}

Acad::ErrorStatus Load(SVdim& chain, const Bytes& bytes)
{
    AcDbBinaryFiler filer(bytes, AcDb::kCopyFiler);
    return chain.dwgInFields(&filer);
}

// What a hand-made record of an older or newer layout holds.
struct Record {
    int iVersion = 4;
    int iType = SVdim::kHorizontal;
    AcGeVector3d zAxis{0, 0, 1};
    double dRotation = 0.25;
    AcGeVector3d vectorDim{0, 1, 0};
    int nExt = 2;
    int nFlags = 2;
    int nAppendSameExt = 1;  // appended texts, all on segment 1
    int nArcCount = 0;       // field 23
    int nAppVersion = 2018;
};

Bytes Build(const Record& r)
{
    SVdim base;
    AcDbBinaryFiler f;
    base.AcDbEntity::dwgOutFields(&f);
    f.writeInt16(static_cast<Adesk::Int16>(r.iVersion));
    f.writeInt16(static_cast<Adesk::Int16>(r.iType));
    if (r.iVersion >= 3) {
        f.writePoint3d(AcGePoint3d(5, 6, 7));
        f.writeVector3d(AcGeVector3d(0, 1, 0));
        f.writeVector3d(AcGeVector3d(-1, 0, 0));
        f.writeVector3d(r.zAxis);
    }
    f.writeDouble(r.dRotation);
    if (r.iVersion >= 2)
        f.writeVector3d(r.vectorDim);
    f.writeInt16(static_cast<Adesk::Int16>(4 * r.nExt));
    for (int i = 0; i < 4 * r.nExt; ++i)
        f.writePoint3d(AcGePoint3d(i, 2 * i, 0));
    f.writeInt16(1);
    f.writeString(L"1.00#8");
    f.writeInt16(1);  // one double: the rest stay the options' own
    f.writeDouble(50.0);
    f.writeInt16(0);
    f.writeInt16(14);
    for (int i = 0; i < 14; ++i)
        f.writeUInt16(static_cast<Adesk::UInt16>(i == SVdim::kIntAppVersion ? r.nAppVersion : 0));
    f.writeVector3d(AcGeVector3d(0, 0, 1));
    f.writeHardPointerId(AcDbObjectId::kNull);
    f.writeInt16(static_cast<Adesk::Int16>(r.nAppendSameExt));
    for (int i = 0; i < r.nAppendSameExt; ++i) {
        f.writeInt16(1);
        f.writePoint3d(AcGePoint3d(i, 0, 0));
        f.writeInt16(0);
        f.writeString(i == 0 ? L"first" : L"second");
        f.writeDouble(0.0);
        f.writeInt16(0);
        f.writeString(L"");
    }
    f.writeInt16(static_cast<Adesk::Int16>(r.nArcCount));
    if (r.nArcCount) {
        f.writeHardPointerId(AcDbObjectId::kNull);
        f.writeUInt16(0);
        for (int i = 0; i < r.nArcCount - 1; ++i)
            f.writePoint3d(AcGePoint3d(i, i, 0));
    }
    f.writeInt16(0);
    f.writeInt16(static_cast<Adesk::Int16>(r.nFlags));
    for (int i = 0; i < r.nFlags; ++i)
        f.writeInt16(static_cast<Adesk::Int16>(SVdim::kExtHidden));
    if (r.nFlags)
        f.writeInt16(0);
    return f.bytes();
}

}  // namespace

class ChainFilerTest : public ChainFixture {
protected:
    void TearDown() override
    {
        bUnloaded = 0;
        ChainFixture::TearDown();
    }
};

TEST_F(ChainFilerTest, LinearChainsSurviveARoundTrip)
{
    for (int iType : {SVdim::kHorizontal, SVdim::kVertical, SVdim::kAligned}) {
        SCOPED_TRACE(iType);
        SVdim source;
        FillEveryKind(source, iType);
        Acad::ErrorStatus es = Acad::eNotImplementedYet;
        const Bytes first = Save(source, &es);
        ASSERT_EQ(es, Acad::eOk);

        SVdim copy;
        ASSERT_EQ(Load(copy, first), Acad::eOk);
        EXPECT_EQ(Save(copy), first);
        EXPECT_EQ(copy.m_dimType, iType);
        EXPECT_EQ(copy.AppendTextList.GetSize(), 2);
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(copy.GetTickType(i), i);
            EXPECT_EQ(copy.GetExtLineVisible(i), i % 2 == 0);
        }
        EXPECT_EQ(copy.m_dimTexts[1], source.m_dimTexts[1]);
        EXPECT_EQ(copy.m_dimTexts[2], source.m_dimTexts[2]);
    }
}

TEST_F(ChainFilerTest, SavingStampsTheRunningVersionAndFixesStrayFlags)
{
    SVdim source;
    FillEveryKind(source, SVdim::kHorizontal);
    source.arrayInt[SVdim::kIntAppVersion] = 1999;
    source.m_extFlags.SetSize(3);  // does not fit six extensions
    SVdim copy;
    ASSERT_EQ(Load(copy, Save(source)), Acad::eOk);
    EXPECT_EQ(copy.arrayInt[SVdim::kIntAppVersion], 2020u);
    ASSERT_EQ(copy.m_extFlags.GetSize(), 6);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(copy.m_extFlags[i], 0u);
}

TEST_F(ChainFilerTest, OlderAndNewerRecordsReadAsTheirVersionAllows)
{
    const AcGeVector3d xDefault(1, 0, 0);
    struct Case {
        const char* pszName;
        Record record;
        Acad::ErrorStatus esExpected;
        std::function<void(const SVdim&)> check;
    };
    const std::vector<Case> cases = {
        {"version 1: default axes and direction", Record{.iVersion = 1}, Acad::eOk,
         [&](const SVdim& c) {
             EXPECT_EQ(c.m_xyzOrigin, AcGePoint3d(0, 0, 0));
             EXPECT_EQ(c.m_xAxis, xDefault);
             EXPECT_EQ(c.m_vectorDim, xDefault);
             EXPECT_DOUBLE_EQ(c.m_dRotation, 0.25);
             EXPECT_EQ(c.arrayInt[SVdim::kIntAppVersion], 2018u);  // the writer's
         }},
        {"version 2: direction read, axes default", Record{.iVersion = 2}, Acad::eOk,
         [&](const SVdim& c) {
             EXPECT_EQ(c.m_vectorDim, AcGeVector3d(0, 1, 0));
             EXPECT_EQ(c.m_yAxis, AcGeVector3d(0, 1, 0));
         }},
        {"version 3: axes read", Record{.iVersion = 3}, Acad::eOk,
         [&](const SVdim& c) {
             EXPECT_EQ(c.m_xyzOrigin, AcGePoint3d(5, 6, 7));
             EXPECT_EQ(c.m_xAxis, AcGeVector3d(0, 1, 0));
         }},
        {"zero z axis resets all axes", Record{.zAxis = AcGeVector3d(0, 0, 0)}, Acad::eOk,
         [&](const SVdim& c) {
             EXPECT_EQ(c.m_xAxis, xDefault);
             EXPECT_EQ(c.m_xyzOrigin, AcGePoint3d(5, 6, 7));
         }},
        {"zero direction becomes x, rotation stays", Record{.vectorDim = AcGeVector3d(0, 0, 0)}, Acad::eOk,
         [&](const SVdim& c) {
             EXPECT_EQ(c.m_vectorDim, xDefault);
             EXPECT_DOUBLE_EQ(c.m_dRotation, 0.25);
         }},
        {"missing parameters keep the options' values", Record{}, Acad::eOk,
         [&](const SVdim& c) {
             const CParamSet& set = pGlobDimOptions->GetSet(kModeLinear);
             EXPECT_DOUBLE_EQ(c.arrayDouble[0], 50.0);
             ASSERT_EQ(c.arrayDouble.GetSize(), set.arrayDouble.GetSize());
             EXPECT_DOUBLE_EQ(c.arrayDouble[1], set.arrayDouble[1]);
             EXPECT_EQ(c.arrayString.GetSize(), set.arrayString.GetSize());
         }},
        {"appended texts on one segment merge", Record{.nAppendSameExt = 2}, Acad::eOk,
         [&](const SVdim& c) {
             ASSERT_EQ(c.AppendTextList.GetSize(), 1);
             EXPECT_EQ(static_cast<CAppendTextObject*>(c.AppendTextList[0])->strText, CString(L"second"));
         }},
        {"flags that do not fit are dropped", Record{.nFlags = 3}, Acad::eOk,
         [&](const SVdim& c) {
             ASSERT_EQ(c.m_extFlags.GetSize(), 2);
             EXPECT_EQ(c.m_extFlags[0] | c.m_extFlags[1], 0u);
         }},
        {"fitting flags are kept", Record{}, Acad::eOk,
         [&](const SVdim& c) { EXPECT_FALSE(c.GetExtLineVisible(1)); }},
        {"version 5 becomes a proxy", Record{.iVersion = 5}, Acad::eMakeMeProxy, nullptr},
        {"no extensions becomes a proxy", Record{.nExt = 0, .nFlags = 0}, Acad::eMakeMeProxy, nullptr},
        {"version 3 arc without source: proxy, rest read",
         Record{.iVersion = 3, .iType = SVdim::kArc, .nArcCount = 4}, Acad::eMakeMeProxy,
         [&](const SVdim& c) {
             EXPECT_EQ(c.GetExtensions(), 2);
             EXPECT_EQ(c.m_arcPoints.length(), 7);
             EXPECT_TRUE(c.m_arcObjectId.isNull());
             EXPECT_EQ(c.m_extFlags.GetSize(), 2);
         }},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.pszName);
        SVdim chain;
        EXPECT_EQ(Load(chain, Build(test.record)), test.esExpected);
        if (test.check)
            test.check(chain);
    }
}

TEST_F(ChainFilerTest, ACutRecordReportsTheFilerError)
{
    Bytes bytes = Build(Record{});
    bytes.resize(bytes.size() - 5);
    SVdim chain;
    EXPECT_NE(Load(chain, bytes), Acad::eOk);
}

TEST_F(ChainFilerTest, WithoutOptionsOnlyTheBaseRecordIsFiled)
{
    SVdim source;
    FillEveryKind(source, SVdim::kAligned);
    SVdim empty;
    AcDbBinaryFiler baseOnly;
    empty.AcDbEntity::dwgOutFields(&baseOnly);
    const Bytes full = Save(source);

    struct Case {
        const char* pszName;
        std::function<void()> arrange;
    };
    const std::vector<Case> cases = {
        {"no option store", [&] { pGlobDimOptions = nullptr; }},
        {"module unloading", [&] { bUnloaded = 1; }},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.pszName);
        test.arrange();
        Acad::ErrorStatus es = Acad::eOk;
        EXPECT_EQ(Save(source, &es), baseOnly.bytes());
        EXPECT_EQ(es, Acad::eInvalidInput);
        SVdim reader;
        EXPECT_EQ(Load(reader, full), Acad::eInvalidInput);
        EXPECT_EQ(reader.GetExtensions(), 0);
        pGlobDimOptions = &m_options;
        bUnloaded = 0;
    }

    source.arrayString.RemoveAll();
    Acad::ErrorStatus es = Acad::eOk;
    EXPECT_EQ(Save(source, &es), baseOnly.bytes());
    EXPECT_EQ(es, Acad::eInvalidInput);
}
