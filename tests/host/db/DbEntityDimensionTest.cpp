// Dimensions: measurements with the length factor, and overrides kept apart from the style.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>

#include "host/db/AcDb2LineAngularDimension.h"
#include "host/db/AcDbAlignedDimension.h"
#include "host/db/AcDbArcDimension.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDiametricDimension.h"
#include "host/db/AcDbDimStyleTable.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbRadialDimension.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/db/acutads.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

TEST(DbEntityDimension, MeasurementIncludesTheLengthFactor)
{
    const AcGePoint3d o(0, 0, 0), p(3, 4, 0);
    struct Case {
        const char* name;
        std::function<AcDbDimension*()> make;
        double raw;
        bool scaled;
    } cases[] = {
        {"rotated 0", [&] { return new AcDbRotatedDimension(0.0, o, p, AcGePoint3d(0, 6, 0)); }, 3.0, true},
        {"rotated 90", [&] { return new AcDbRotatedDimension(kPi / 2, o, p, AcGePoint3d(6, 0, 0)); }, 4.0, true},
        {"rotated 180", [&] { return new AcDbRotatedDimension(kPi, o, p, AcGePoint3d(0, 6, 0)); }, 3.0, true},
        {"aligned", [&] { return new AcDbAlignedDimension(o, p, AcGePoint3d(-4, 3, 0)); }, 5.0, true},
        {"radial", [&] { return new AcDbRadialDimension(o, p, 1.0); }, 5.0, true},
        {"diametric", [&] { return new AcDbDiametricDimension(AcGePoint3d(-3, -4, 0), p, 1.0); }, 10.0, true},
        {"arc, quarter", [&] { return new AcDbArcDimension(o, AcGePoint3d(2, 0, 0), AcGePoint3d(0, 2, 0), AcGePoint3d(1.5, 1.5, 0)); },
         kPi, true},
        {"arc, the other three quarters",
         [&] { return new AcDbArcDimension(o, AcGePoint3d(2, 0, 0), AcGePoint3d(0, 2, 0), AcGePoint3d(-2, 0, 0)); },
         3.0 * kPi, true},
        {"angular", [&] {
             return new AcDb2LineAngularDimension(o, AcGePoint3d(1, 0, 0), o, AcGePoint3d(1, 1, 0), AcGePoint3d(2, 0.5, 0));
         }, kPi / 4, false},
        {"angular, obtuse side", [&] {
             return new AcDb2LineAngularDimension(o, AcGePoint3d(1, 0, 0), o, AcGePoint3d(1, 1, 0), AcGePoint3d(0, 2, 0));
         }, 3 * kPi / 4, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::unique_ptr<AcDbDimension> dim(c.make());
        double m = 0;
        ASSERT_EQ(dim->measurement(m), Acad::eOk);
        EXPECT_NEAR(m, c.raw, 1e-9);
        dim->setDimlfac(2.5);
        dim->measurement(m);
        EXPECT_NEAR(m, c.scaled ? 2.5 * c.raw : c.raw, 1e-9);
    }
}

class DbEntityDimensionStyles : public ::testing::Test {
protected:
    void SetUp() override
    {
        db = std::make_unique<AcDbDatabase>(true, true);
        AcDbDimStyleTable* table = nullptr;
        ASSERT_EQ(db->getDimStyleTable(table, AcDb::kForWrite), Acad::eOk);
        ASSERT_EQ(table->getAt(L"Standard", standard), Acad::eOk);
        AcDbDimStyleTableRecord* std = nullptr;
        ASSERT_EQ(acdbOpenObject(std, standard, AcDb::kForRead), Acad::eOk);
        auto* rec = new AcDbDimStyleTableRecord();
        rec->setVars(std->vars());
        std->close();
        rec->setName(L"Second");
        rec->setDimlfac(3.0);
        rec->setDimasz(7.0);
        ASSERT_EQ(table->add(rec), Acad::eOk);
        second = rec->objectId();
        rec->close();
        table->close();
    }

    std::unique_ptr<AcDbDatabase> db;
    AcDbObjectId standard, second;
};

TEST_F(DbEntityDimensionStyles, OverridesSurviveAStyleChange)
{
    AcDbRotatedDimension dim(0.0, AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0), AcGePoint3d(0, 1, 0));
    dim.setDatabaseDefaults(db.get());
    dim.setDimensionStyle(standard);
    dim.setDimlfac(2.0);
    dim.setDimse1(true);
    dim.setDimensionStyle(second);
    EXPECT_EQ(dim.dimensionStyle(), second);
    EXPECT_DOUBLE_EQ(dim.dimlfac(), 2.0);  // the override, not the style's 3
    EXPECT_TRUE(dim.dimse1());
    double m = 0;
    dim.measurement(m);
    EXPECT_DOUBLE_EQ(m, 4.0);
    // The style shows through where nothing is overridden, and once an override goes.
    EXPECT_TRUE(dim.isOverridden(144));
    EXPECT_EQ(dim.removeOverride(144), Acad::eOk);
    EXPECT_DOUBLE_EQ(dim.dimlfac(), 3.0);
}

TEST_F(DbEntityDimensionStyles, DimstyleDataBecomesOverridesWhereItDiffers)
{
    AcDbRotatedDimension dim(0.0, AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0), AcGePoint3d(0, 1, 0));
    dim.setDimensionStyle(standard);
    AcDbDimStyleTableRecord* rec = nullptr;
    ASSERT_EQ(acdbOpenObject(rec, second, AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(dim.setDimstyleData(rec), Acad::eOk);
    rec->close();
    EXPECT_DOUBLE_EQ(dim.dimasz(), 7.0);
    EXPECT_DOUBLE_EQ(dim.dimlfac(), 3.0);
    EXPECT_TRUE(dim.isOverridden(41));
    EXPECT_FALSE(dim.isOverridden(140));  // same text height in both styles

    AcDbDimStyleTableRecord* effective = nullptr;
    ASSERT_EQ(dim.getDimstyleData(effective), Acad::eOk);
    EXPECT_DOUBLE_EQ(effective->dimasz(), 7.0);
    delete effective;
}

TEST_F(DbEntityDimensionStyles, OverridesTravelAsAcadDstyleData)
{
    AcDbAlignedDimension dim(AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0), AcGePoint3d(0, 1, 0));
    dim.setDimlfac(0.5);
    dim.setDimtad(3);
    dim.setDimpost(L"<> mm");
    resbuf* xd = dim.xData(L"ACAD");
    ASSERT_NE(xd, nullptr);
    std::vector<int> codes;
    for (resbuf* p = xd; p; p = p->rbnext)
        codes.push_back(p->restype);
    EXPECT_EQ(codes, (std::vector<int>{1001, 1000, 1002, 1070, 1000, 1070, 1070, 1070, 1040, 1002}));

    AcDbAlignedDimension other(AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0), AcGePoint3d(0, 1, 0));
    ASSERT_EQ(other.setXData(xd), Acad::eOk);
    acutRelRb(xd);
    EXPECT_DOUBLE_EQ(other.dimlfac(), 0.5);
    EXPECT_EQ(other.dimtad(), 3);
    EXPECT_STREQ(other.dimpost(), L"<> mm");
    EXPECT_EQ(other.overriddenCodes(), dim.overriddenCodes());
}

}  // namespace
