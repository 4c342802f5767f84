// Shared pieces of the DXF file tests: a custom entity filing every primitive, a drawing with
// every native kind, save/load helpers and the ezdxf runner.
#pragma once

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbEntity.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/EzdxfRunner.h"

// A custom entity whose record uses every filer primitive; its dxfOutFields is the bare base
// form, as the module's entities are. It draws a line from p2 to p2 + (10, 0) and, for the
// proxy graphics of a save, a circle of radius 2.5 around p2 as well.
class DxfTestRecordEntity : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(DxfTestRecordEntity);

    struct Data {
        bool flag = true;
        Adesk::Int8 i8 = -8;
        Adesk::UInt8 u8 = 200;
        Adesk::Int16 i16 = -1600;
        Adesk::UInt16 u16 = 60000;
        Adesk::Int32 i32 = -320000;
        Adesk::UInt32 u32 = 4000000000u;
        Adesk::Int64 i64 = -6400000000000LL;
        Adesk::UInt64 u64 = 18000000000000000000ULL;
        double real = 0.1 + 0.2;
        AcGePoint2d p2 = {1.5, -2.25};
        AcGePoint3d p3 = {1e-300, 3.0, -1e300};
        AcGeVector2d v2 = {0.0, -1.0};
        AcGeVector3d v3 = {0.6, 0.8, 0.0};
        AcGeScale3d scale = {2.0, 3.0, 4.0};
        std::wstring text = L"Maßkette \u00e4\u00f6\u00fc \U0001F4D0 | \\P";
        std::vector<char> bytes = {0, 1, 2, 127, -128, -1};
        std::vector<char> chunk = {'c', 'h', 'u', 'n', 'k', 0};
        AcDbHandle handle = AcDbHandle(0x1234ABCDull);
        AcDbObjectId hardOwner, softOwner, hardPointer, softPointer;
        bool operator==(const Data&) const = default;
    };

    Data data;

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
};

// Every native kind the host has, on two layers with a style, extended data, a reactor, an
// extension dictionary and one custom entity. Returns the database and the custom entity's id.
std::unique_ptr<AcDbDatabase> dxfTestDrawing(AcDbObjectId* customId = nullptr);

std::string dxfTestSave(AcDbDatabase& db);
// Throws DxfError like the reader.
std::unique_ptr<AcDbDatabase> dxfTestLoad(const std::string& text, const std::string& name = "test.dxf");

// The record bytes the entity files for a save.
std::vector<std::uint8_t> dxfTestRecordOf(AcDbObjectId id);

// The id of the object with this handle, null if none.
AcDbObjectId dxfTestIdOf(AcDbDatabase& db, std::uint64_t handle);

// A fresh scratch folder for files of one test.
std::string dxfTestFolder(const std::string& name);
