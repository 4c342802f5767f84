// Shared by the drawing tests: a drawing to put entities in, its display list, and an SVG
// reader that keeps what the checks need (drawn paths with their numbers, glyph uses).
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbRender.h"

namespace dbdraw {

constexpr double kPi = 3.14159265358979323846;
constexpr double kPt = 72.0 / 25.4;  // SVG points per millimetre

struct SvgPath {
    std::string style;
    std::string commands;
    std::vector<double> numbers;
    bool filled() const { return style.find("fill:none") == std::string::npos; }
};

struct Svg {
    std::vector<SvgPath> paths;  // drawn paths; glyph outlines in <defs> are left out
    std::vector<std::pair<double, double>> glyphs;
};

inline Svg parseSvg(const std::string& text)
{
    Svg svg;
    const std::size_t surface = text.find("<g id=\"surface");
    const std::string body = surface == std::string::npos ? text : text.substr(surface);
    const std::regex pathRe(R"re(<path style="([^"]*)" d="([^"]*)")re");
    for (auto it = std::sregex_iterator(body.begin(), body.end(), pathRe); it != std::sregex_iterator(); ++it) {
        SvgPath p;
        p.style = (*it)[1];
        const std::string d = (*it)[2];
        const std::regex tok(R"re([MLCZ]|-?[0-9.]+(?:e-?[0-9]+)?)re");
        for (auto t = std::sregex_iterator(d.begin(), d.end(), tok); t != std::sregex_iterator(); ++t) {
            const std::string s = t->str();
            if (std::isalpha(static_cast<unsigned char>(s[0])))
                p.commands.push_back(s[0]);
            else
                p.numbers.push_back(std::stod(s));
        }
        svg.paths.push_back(p);
    }
    const std::regex useRe(R"re(<use xlink:href="#glyph[^"]*" x="([-0-9.e]+)" y="([-0-9.e]+)")re");
    for (auto it = std::sregex_iterator(body.begin(), body.end(), useRe); it != std::sregex_iterator(); ++it)
        svg.glyphs.emplace_back(std::stod((*it)[1]), std::stod((*it)[2]));
    return svg;
}

// The window (0,0)-(100,100) at 1:1 in millimetres, no margin: world (x, y) is paper
// (x, 100 - y) millimetres.
inline AcDbRenderOptions unitWindow(GiOutputFormat format = GiOutputFormat::kSvg)
{
    AcDbRenderOptions o;
    o.format = format;
    o.hasWindow = true;
    o.windowMin = {0, 0};
    o.windowMax = {100, 100};
    o.scale = 1;
    o.unitsPerMm = 1;
    o.marginMm = 0;
    return o;
}

class Drawing : public ::testing::Test {
protected:
    void SetUp() override { db = std::make_unique<AcDbDatabase>(true, true); }

    // Appends to a block (model space by default) and closes the entity.
    AcDbObjectId add(AcDbEntity* entity, AcDbObjectId blockId = AcDbObjectId::kNull)
    {
        AcDbBlockTableRecord* block = nullptr;
        EXPECT_EQ(acdbOpenObject(block, blockId.isNull() ? db->modelSpaceId() : blockId, AcDb::kForWrite),
                  Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(block->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        block->close();
        return id;
    }

    AcDbObjectId layer(const wchar_t* name, int color, bool off, bool frozen)
    {
        AcDbLayerTable* table = nullptr;
        EXPECT_EQ(db->getLayerTable(table, AcDb::kForWrite), Acad::eOk);
        auto* rec = new AcDbLayerTableRecord();
        rec->setName(name);
        AcCmColor c;
        c.setColorIndex(static_cast<Adesk::Int16>(color));
        rec->setColor(c);
        rec->setIsOff(off);
        rec->setIsFrozen(frozen);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, rec), Acad::eOk);
        rec->close();
        table->close();
        return id;
    }

    GiDisplayList draw()
    {
        GiDisplayList list;
        EXPECT_EQ(acdbDrawSpace(db.get(), list), Acad::eOk);
        return list;
    }

    Svg svg(const AcDbRenderOptions& options = unitWindow())
    {
        std::string bytes, error;
        EXPECT_EQ(acdbRenderDatabase(db.get(), options, bytes, &error), Acad::eOk) << error;
        return parseSvg(bytes);
    }

    std::unique_ptr<AcDbDatabase> db;
};

}  // namespace dbdraw
