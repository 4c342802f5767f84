// Our drawings checked by an independent reader (ezdxf), and its drawings read by us.
#include "DxfFileTestSupport.h"

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbText.h"
#include "host/dxf/DxfFileReader.h"
#include "host/dxf/DxfFileWriter.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

std::string saveTo(AcDbDatabase& db, const std::string& path)
{
    std::ofstream out(path, std::ios::binary);
    dxfWriteDatabase(db, out);
    return path;
}

std::unique_ptr<AcDbDatabase> loadFrom(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return dxfTestLoad(text.str(), std::filesystem::path(path).filename().string());
}

// The dump line of the first entity of that type.
std::string dumpLine(const std::string& dump, const std::string& type)
{
    std::istringstream lines(dump);
    for (std::string line; std::getline(lines, line);)
        if (line.rfind(type + "|in=*Model_Space|", 0) == 0)
            return line;
    return {};
}

class DxfFileEzdxf : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!EzdxfAvailable())
            GTEST_SKIP() << "/usr/bin/python3 has no ezdxf";
        m_dir = dxfTestFolder("ezdxf");
    }
    std::string path(const std::string& name) const { return m_dir + "/" + name; }

private:
    std::string m_dir;
};

}  // namespace

TEST_F(DxfFileEzdxf, OurDrawingPassesTheAuditAndReadsBackWithItsData)
{
    auto db = dxfTestDrawing();
    const std::string file = saveTo(*db, path("ours.dxf"));
    const std::string audit = RunEzdxf("audit '" + file + "'");
    // No repairs: every dimension has its geometry block, so none is dropped.
    EXPECT_NE(audit.find("errors 0\nfixes 0\n"), std::string::npos) << audit;
    EXPECT_EQ(audit.find("msg "), std::string::npos) << audit;

    const std::string dump = RunEzdxf("dump '" + file + "'");
    const struct {
        const char* type;
        std::vector<const char*> fragments;
    } expected[] = {
        {"LINE", {"start=(1,2,3)", "end=(4,5,6)", "layer=Wände", "color=1"}},
        {"ARC", {"center=(10,10,0)", "radius=2.5", "start_angle=28.6478897565", "end_angle=114.591559026"}},
        {"CIRCLE", {"center=(-5,7.25,0)", "radius=3"}},
        {"LWPOLYLINE", {"flags=1", "points=[[0,0,0,0,0.5],[10,0,0,0,0],[10,5,0,0,0]]"}},
        {"TEXT", {"text=Grüße, 5 m²", "height=2.5", "rotation=42.9718346348", "style=Narrow", "insert=(1,1,0)"}},
        {"MTEXT", {"insert=(3,4,0)", "char_height=1.5", "width=20", "rawtext=first line\\Psecond ÄÖÜ {\\H2x;big}"}},
        {"DIMENSION", {"defpoint2=(0,0,0)", "defpoint3=(10,0,0)"}},
        {"ARC_DIMENSION", {"defpoint2=(12.5,10,0)"}},
        {"SV_TEST_RECORD", {"handle="}},
    };
    for (const auto& e : expected) {
        const std::string line = dumpLine(dump, e.type);
        ASSERT_FALSE(line.empty()) << e.type << " missing in\n" << dump;
        for (const char* fragment : e.fragments)
            EXPECT_NE(line.find(fragment), std::string::npos) << fragment << " not in " << line;
    }
    EXPECT_NE(dump.find("xdata:SVTEST=[SVTEST,Höhe,2.5,7,70000]"), std::string::npos) << dump;
    EXPECT_NE(dump.find("LAYERREC|name=Wände"), std::string::npos);
    EXPECT_NE(dump.find("STYLEREC|name=Narrow|height=0|font=arial.ttf"), std::string::npos);
}

TEST_F(DxfFileEzdxf, EzdxfDrawingsComeInWithTheirData)
{
    const std::string sample = path("sample.dxf");
    RunEzdxf("sample '" + sample + "'");
    auto db = loadFrom(sample);

    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(db->getLayerTable(layers, AcDb::kForRead), Acad::eOk);
    AcDbLayerTableRecord* frozen = nullptr;
    ASSERT_EQ(layers->getAt(L"Frozen", frozen, AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(frozen->isFrozen());
    frozen->close();
    layers->close();

    // Everything, written again by us, reads the same to ezdxf: entities by handle, layers,
    // styles and blocks by name.
    const std::string ours = saveTo(*db, path("sample-ours.dxf"));
    const std::string compare = RunEzdxf("compare '" + sample + "' '" + ours + "'");
    EXPECT_EQ(compare.rfind("same ", 0), 0u) << compare;
    const std::string audit = RunEzdxf("audit '" + ours + "'");
    EXPECT_NE(audit.find("errors 0\n"), std::string::npos) << audit;
}

TEST_F(DxfFileEzdxf, CustomRecordSurvivesEzdxfLoadAndSave)
{
    AcDbObjectId customId;
    auto db = dxfTestDrawing(&customId);
    const std::vector<std::uint8_t> before = dxfTestRecordOf(customId);
    const std::string ours = saveTo(*db, path("custom.dxf"));
    const std::string theirs = path("custom-ezdxf.dxf");
    RunEzdxf("resave '" + ours + "' '" + theirs + "'");
    auto loaded = loadFrom(theirs);
    const AcDbObjectId id = dxfTestIdOf(*loaded, customId.handle().value());
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(id.objectClass(), DxfTestRecordEntity::desc());
    EXPECT_EQ(dxfTestRecordOf(id), before);
}

TEST_F(DxfFileEzdxf, ProxyGraphicsOfACustomEntityDecodeToWhatItDraws)
{
    AcDbObjectId customId;
    auto db = dxfTestDrawing(&customId);
    const std::string file = saveTo(*db, path("proxy.dxf"));
    const std::string decoded = RunEzdxf("proxy '" + file + "'");
    // The save picture: the line of every display and the circle drawn for proxies only, on
    // the entity's layer.
    EXPECT_NE(decoded.find("PROXY SV_TEST_RECORD "), std::string::npos) << decoded;
    for (const char* fragment : {"POLYLINE|in=proxy|", "vertices=[(1.5,-2.25,0),(11.5,-2.25,0)]",
                                 "CIRCLE|in=proxy|", "center=(1.5,-2.25,0)", "radius=2.5"})
        EXPECT_NE(decoded.find(fragment), std::string::npos) << fragment << " not in\n" << decoded;
    std::istringstream lines(decoded);
    int primitives = 0;
    for (std::string line; std::getline(lines, line);)
        primitives += line.find("|in=proxy|") != std::string::npos;
    EXPECT_EQ(primitives, 2) << decoded;

    // ezdxf keeps them through its own load and save.
    const std::string theirs = path("proxy-ezdxf.dxf");
    RunEzdxf("resave '" + file + "' '" + theirs + "'");
    EXPECT_EQ(RunEzdxf("proxy '" + theirs + "'"), decoded);
}
