// Pictures of a database: layers hidden and coloured, draw order, PDF at true scale, PNG,
// and explode through drawing of each primitive kind.
#include <cstdlib>
#include <fstream>
#include <regex>

#include "DbDrawFixture.h"
#include "host/db/AcDbArc.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbExplodeDraw.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbMText.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/db/AcDbSolid.h"
#include "host/db/AcDbSortentsTable.h"
#include "host/db/AcDbText.h"
#include "host/db/AcDbXline.h"

namespace {

using namespace dbdraw;

class DbDrawRender : public Drawing {
protected:
    AcDbObjectId line(double y, AcDbObjectId layerId = AcDbObjectId::kNull)
    {
        auto* l = new AcDbLine(AcGePoint3d(10, y, 0), AcGePoint3d(90, y, 0));
        if (!layerId.isNull())
            l->setLayer(layerId);
        return add(l);
    }
};

std::string StrokeOf(const SvgPath& p)
{
    const std::size_t at = p.style.find("stroke:rgb(");
    return at == std::string::npos ? "" : p.style.substr(at + 7, p.style.find(')', at) - at - 6);
}

TEST_F(DbDrawRender, LayersOffOrFrozenAreHiddenAndByLayerTakesTheLayerColour)
{
    line(20, layer(L"Red", 1, false, false));
    line(10);  // no layer after one on "Red": layer 0, colour 7, black on white
    line(30, layer(L"Off", 2, true, false));
    line(40, layer(L"Frozen", 3, false, true));
    const Svg s = svg();
    ASSERT_EQ(s.paths.size(), 2u);
    EXPECT_EQ(StrokeOf(s.paths[0]), "rgb(100%,0%,0%)");
    EXPECT_EQ(StrokeOf(s.paths[1]), "rgb(0%,0%,0%)");
    // Frozen layers are left out of the drawing altogether, off ones only of the picture.
    EXPECT_EQ(draw().size(), 3u);
}

TEST_F(DbDrawRender, DrawOrderComesFromTheSortEntitiesTable)
{
    line(10);
    const AcDbObjectId second = line(20);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, db->modelSpaceId(), AcDb::kForWrite), Acad::eOk);
    AcDbSortentsTable* sortents = nullptr;
    ASSERT_EQ(space->getSortentsTable(sortents, AcDb::kForWrite, true), Acad::eOk);
    AcDbObjectIdArray ids;
    ids.append(second);
    ASSERT_EQ(sortents->moveToBottom(ids), Acad::eOk);
    sortents->close();
    space->close();
    const GiDisplayList list = draw();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_NEAR(list.primitives[0].points[0].y, 20, 1e-12);
    EXPECT_NEAR(list.primitives[1].points[0].y, 10, 1e-12);
}

TEST_F(DbDrawRender, PdfAtTrueScaleAndPngAreProduced)
{
    // 10 m in a drawing in millimetres at 1:50 is 200 mm of paper.
    add(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10000, 5000, 0)));
    AcDbRenderOptions pdf;
    pdf.format = GiOutputFormat::kPdf;
    pdf.scale = 50;
    pdf.unitsPerMm = 1;
    pdf.marginMm = 0;
    std::string bytes;
    ASSERT_EQ(acdbRenderDatabase(db.get(), pdf, bytes), Acad::eOk);
    ASSERT_EQ(bytes.rfind("%PDF", 0), 0u);
    std::smatch m;
    ASSERT_TRUE(std::regex_search(bytes, m, std::regex(R"(/MediaBox \[ ?0 0 ([0-9.]+) ([0-9.]+))")));
    EXPECT_NEAR(std::stod(m[1]), 200 * kPt, 0.01);
    EXPECT_NEAR(std::stod(m[2]), 100 * kPt, 0.01);

    AcDbRenderOptions png;
    png.format = GiOutputFormat::kPng;
    ASSERT_EQ(acdbRenderDatabase(db.get(), png, bytes), Acad::eOk);
    EXPECT_EQ(bytes.substr(1, 3), "PNG");
    EXPECT_GT(bytes.size(), 200u);

    std::string error;
    EXPECT_EQ(acdbRenderDatabaseToFile(db.get(), png, "/nonexistent-folder/x.png", &error), Acad::eInvalidInput);
    EXPECT_FALSE(error.empty());
    EXPECT_EQ(acdbRenderDatabase(nullptr, png, bytes), Acad::eNullObjectPointer);
}

TEST(DbDrawExplode, EachPrimitiveBecomesItsEntity)
{
    AcDbExplodeDraw draw;
    AcGiWorldGeometry& g = draw.geometry();
    AcGiSubEntityTraits& t = draw.subEntityTraits();
    EXPECT_EQ(draw.regenType(), kAcGiForExplode);
    const AcGePoint3d two[2] = {{0, 0, 0}, {1, 0, 0}};
    const AcGePoint3d three[3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}};
    const AcGePoint3d four[4] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    t.setColor(1);
    g.polyline(2, two);
    g.polyline(3, three);
    t.setFillType(kAcGiFillAlways);
    g.polygon(4, four);
    t.setFillType(kAcGiFillNever);
    g.polygon(3, three);
    g.circle(AcGePoint3d(0, 0, 0), 2, AcGeVector3d::kZAxis);
    g.circularArc(AcGePoint3d(0, 0, 0), 2, AcGeVector3d::kZAxis, AcGeVector3d(0, 1, 0), -kPi / 2);
    g.xline(AcGePoint3d(0, 0, 0), AcGePoint3d(0, 2, 0));
    g.text(AcGePoint3d(5, 5, 0), AcGeVector3d::kZAxis, AcGeVector3d(0, 1, 0), 2.0, 0.8, 0.1, L"T");

    AcDbVoidPtrArray set;
    draw.takeEntities(set);
    ASSERT_EQ(set.length(), 8);
    auto at = [&](int i) { return static_cast<AcDbEntity*>(set[i]); };
    const AcRxClass* classes[] = {AcDbLine::desc(), AcDbPolyline::desc(), AcDbSolid::desc(), AcDbPolyline::desc(),
                                  AcDbCircle::desc(), AcDbArc::desc(), AcDbXline::desc(), AcDbText::desc()};
    for (int i = 0; i < 8; ++i)
        ASSERT_EQ(at(i)->isA(), classes[i]) << i;
    EXPECT_FALSE(AcDbPolyline::cast(at(1))->isClosed());
    AcGePoint3d p;
    AcDbSolid::cast(at(2))->getPointAt(2, p);
    EXPECT_TRUE(p.isEqualTo(AcGePoint3d(0, 1, 0)));  // the solid's own order: 0 1 3 2
    EXPECT_TRUE(AcDbPolyline::cast(at(3))->isClosed());
    auto* arc = AcDbArc::cast(at(5));
    EXPECT_NEAR(arc->startAngle(), 0, 1e-9);  // clockwise from 90 degrees: 0 to 90
    EXPECT_NEAR(arc->endAngle(), kPi / 2, 1e-9);
    auto* text = AcDbText::cast(at(7));
    EXPECT_NEAR(text->rotation(), kPi / 2, 1e-9);
    EXPECT_NEAR(text->height(), 2.0, 1e-9);
    EXPECT_NEAR(text->widthFactor(), 0.8, 1e-9);
    EXPECT_NEAR(text->oblique(), 0.1, 1e-9);
    EXPECT_EQ(at(0)->colorIndex(), 1);
    for (void* e : set)
        delete static_cast<AcDbEntity*>(e);
    AcDbVoidPtrArray empty;
    EXPECT_EQ(acdbExplodeByDraw(nullptr, empty), Acad::eNullEntityPointer);
}

// A small drawing with a bit of everything. With SV_SAMPLE_PNG set it is also written there
// (that is how the picture in the docs is made).
TEST_F(DbDrawRender, SampleDrawingRendersToPng)
{
    const AcDbObjectId walls = layer(L"Walls", 5, false, false);
    auto* outline = new AcDbPolyline();
    const double xs[] = {0, 6000, 6000, 0}, ys[] = {0, 0, 4000, 4000};
    for (int i = 0; i < 4; ++i)
        outline->addVertexAt(i, AcGePoint2d(xs[i], ys[i]), 0.0, 240, 240);
    outline->setClosed(true);
    outline->setLayer(walls);
    add(outline);
    auto* door = new AcDbArc(AcGePoint3d(6000, 1000, 0), 900, kPi / 2, kPi);
    add(door);
    add(new AcDbLine(AcGePoint3d(6000, 1000, 0), AcGePoint3d(6000, 1900, 0)));
    add(new AcDbCircle(AcGePoint3d(3000, 2000, 0), AcGeVector3d::kZAxis, 500));
    auto* dim = new AcDbRotatedDimension(0.0, AcGePoint3d(0, 4000, 0), AcGePoint3d(6000, 4000, 0),
                                         AcGePoint3d(0, 4800, 0));
    dim->setDimscale(50);
    dim->setDimtsz(0.0);
    dim->setDimasz(2.5);
    dim->setDimtxt(2.5);
    dim->setDimexo(0.625);
    dim->setDimexe(1.25);
    dim->setDimgap(0.625);
    dim->setDimtad(1);
    dim->setDimdec(0);
    add(dim);
    auto* ticks = new AcDbRotatedDimension(kPi / 2, AcGePoint3d(0, 0, 0), AcGePoint3d(0, 4000, 0),
                                           AcGePoint3d(-800, 0, 0));
    ticks->setDimscale(50);
    ticks->setDimtsz(2.0);
    ticks->setDimdle(1.5);
    ticks->setDimtxt(2.5);
    ticks->setDimexe(1.25);
    ticks->setDimgap(0.625);
    ticks->setDimtad(1);
    ticks->setDimtih(false);
    ticks->setDimdec(2);
    ticks->setDimlfac(0.001);
    ticks->setDimdsep(L',');
    ticks->setDimensionText(L"\\A1;<>{\\H0.7x;\\S5^;}");
    add(ticks);
    auto* note = new AcDbMText();
    note->setLocation(AcGePoint3d(3000, 2000, 0));
    note->setAttachment(AcDbMText::kMiddleCenter);
    note->setTextHeight(200);
    note->setContents(L"Raum 1\\P{\\C1;24,00 m²}");
    add(note);

    AcDbRenderOptions png;
    png.format = GiOutputFormat::kPng;
    png.fitMm = 160;
    png.dpi = 150;
    std::string bytes;
    ASSERT_EQ(acdbRenderDatabase(db.get(), png, bytes), Acad::eOk);
    EXPECT_GT(bytes.size(), 1000u);
    if (const char* path = std::getenv("SV_SAMPLE_PNG"))
        std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace
