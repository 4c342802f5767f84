// The three refresh strengths: which of them keep a start of an extension line
// set by hand, and the crossing rule that mirrors a text back to its side.
#include <gtest/gtest.h>

#include <memory>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "tests/sorvane/proxy/SVgeomFixture.h"

namespace {

using namespace geomtest;

class ChainRefresh : public ChainFixture {
protected:
    void SetUp() override
    {
        ChainFixture::SetUp();
        m_pOldDb = acdbHostApplicationServices()->workingDatabase();
        acdbHostApplicationServices()->setWorkingDatabase(&m_db);
        m_options.arrayOptInt[11] = 0;  // AutoPosition off: texts stay where they are put
    }
    void TearDown() override
    {
        acdbHostApplicationServices()->setWorkingDatabase(m_pOldDb);
        ChainFixture::TearDown();
    }
    // Extensions at 0, 4 and 10, measured 10 from the dimension line.
    std::unique_ptr<SVdim> Chain(const ChainCase& c, const Layout& lay)
    {
        std::unique_ptr<SVdim> chain(MakeChain(c, lay, 0, 10));
        chain->arrayInt[SVdim::kIntExtLine] = 0;
        AcGePoint3d point = lay.Input(4, 7);
        chain->AddPointInput(point);
        for (int i = 0; i < 3; ++i) {
            AcGePoint3d ptInput = lay.Input(i == 0 ? 0 : (i == 1 ? 4 : 10), 7);
            chain->SetPointInput(i, ptInput, 0);
        }
        return chain;
    }
    AcDbDatabase m_db{true, true};
    AcDbDatabase* m_pOldDb = nullptr;
};

TEST_F(ChainRefresh, StrengthsKeepOrResetAHandSetExtensionStart)
{
    const struct {
        const char* name;
        BOOL (*run)(SVdim&);
        int iExtNewPosition;
        bool bKept;
    } cases[] = {
        {"Refresh", [](SVdim& d) { return d.Refresh(); }, 0, false},
        {"DimRefresh(0)", [](SVdim& d) { return d.DimRefresh(0); }, 0, true},
        {"DimRefresh(1)", [](SVdim& d) { return d.DimRefresh(1); }, 0, true},
        {"DimRefresh(-1)", [](SVdim& d) { return d.DimRefresh(-1); }, 0, false},
        {"Regenerate(1)", [](SVdim& d) { return d.Regenerate(1); }, 0, true},
        {"Regenerate(1), new positions", [](SVdim& d) { return d.Regenerate(1); }, 1, false},
    };
    for (const ChainCase& chainCase : kChains) {
        const Layout lay{UcsAt(chainCase.dUcs), chainCase.u};
        for (const auto& c : cases) {
            SCOPED_TRACE(std::string(chainCase.name) + ", " + c.name);
            m_options.arrayOptInt[1] = c.iExtNewPosition;
            std::unique_ptr<SVdim> chain = Chain(chainCase, lay);
            const AcGeVector3d vAcross = (lay.Dim(4) - lay.Input(4, 7)).normal();
            // OffsetFromOrigin 5 mm at 1:100: the start stands 0.5 before the point.
            EXPECT_NEAR((chain->GetPointExt1(1) - chain->GetPointDim(1)).dotProduct(vAcross), -9.5, 1e-6);
            chain->m_points[5] = lay.Dim(4) - vAcross * 5.0;
            ASSERT_TRUE(c.run(*chain));
            const double dStart = (chain->GetPointExt1(1) - chain->GetPointDim(1)).dotProduct(vAcross);
            EXPECT_NEAR(dStart, c.bKept ? -5.0 : -9.5, 1e-6);
            EXPECT_TRUE(chain->GetPointDim(1).isEqualTo(lay.Dim(4), AcGeTol(1e-6, 1e-6)));
        }
    }
}

// Two texts a hair either side of the dimension line: the box of one of them
// crosses the line, and a weak refresh mirrors it to where the other stands.
TEST_F(ChainRefresh, CrossingTextsAreMirroredBack)
{
    for (const ChainCase& chainCase : kChains) {
        const Layout lay{UcsAt(chainCase.dUcs), chainCase.u};
        for (int iType : {0, -1, 1}) {
            SCOPED_TRACE(std::string(chainCase.name) + ", DimRefresh(" + std::to_string(iType) + ")");
            std::unique_ptr<SVdim> chain = Chain(chainCase, lay);
            const AcGeVector3d vAcross = (lay.Dim(4) - lay.Input(4, 7)).normal();
            chain->m_points[7] = lay.Dim(2) - vAcross * 0.05;
            chain->m_points[11] = lay.Dim(7) + vAcross * 0.05;
            ASSERT_TRUE(chain->DimRefresh(iType));
            const AcGePoint3d ptText1 = chain->m_points[7];
            const AcGePoint3d ptText2 = chain->m_points[11];
            if (iType > 0) {
                // The strong form re-centres instead.
                EXPECT_TRUE(ptText1.isEqualTo(chain->GetTextAnchor(1), AcGeTol(1e-6, 1e-6)));
                EXPECT_TRUE(ptText2.isEqualTo(chain->GetTextAnchor(2), AcGeTol(1e-6, 1e-6)));
                continue;
            }
            const double d1 = (ptText1 - lay.Dim(2)).dotProduct(vAcross);
            const double d2 = (ptText2 - lay.Dim(7)).dotProduct(vAcross);
            EXPECT_NEAR(std::fabs(d1), 0.05, 1e-6);
            EXPECT_NEAR(d1, d2, 1e-6);
            EXPECT_NEAR((ptText1 - lay.Dim(2)).dotProduct(lay.WorldDir()), 0.0, 1e-6);
            EXPECT_NEAR((ptText2 - lay.Dim(7)).dotProduct(lay.WorldDir()), 0.0, 1e-6);
        }
    }
}

TEST_F(ChainRefresh, RegenerateRestoresTexts)
{
    const Layout lay{UcsAt(30), {1, 0, 0}};
    std::unique_ptr<SVdim> chain = Chain(kChains[3], lay);
    const AcGePoint3d ptMoved = lay.Dim(2) + lay.WorldDir().crossProduct(AcGeVector3d::kZAxis) * 2.0;
    chain->m_points[7] = ptMoved;
    ASSERT_TRUE(chain->Regenerate(1));
    EXPECT_TRUE(chain->m_points[7].isEqualTo(ptMoved));
    // A plain refresh re-centres it.
    ASSERT_TRUE(chain->Refresh());
    EXPECT_TRUE(chain->m_points[7].isEqualTo(chain->GetTextAnchor(1), AcGeTol(1e-6, 1e-6)));
}

}  // namespace
