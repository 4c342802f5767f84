// The concrete AcDbDxfFiler of DXF files: objects write their groups to a tag writer and read
// them from the items of one record.
#pragma once

#include "host/db/AcDbDxfFiler.h"
#include "host/dxf/DxfTagRecord.h"
#include "host/dxf/DxfTagWriter.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Turns a handle read from the file into the id of its object; the reader makes a placeholder
// for an object that comes later in the file. Handle 0 never reaches it (it reads as null).
using DxfHandleResolver = std::function<AcDbObjectId(std::uint64_t handle)>;

// Writing: every group goes straight to the tag writer. A value the writer refuses (a string
// with a line break, a number out of its code's range) sets eInvalidInput and keeps the first
// such message in error(); the file layer then fails the save naming the object.
//
// Reading: the filer serves the items it was given (an object's groups after its common part
// and before its extended data). Values that don't fit their code's kind set eInvalidInput
// with "file:line: message" in error(); reportError from an object adds its text the same way.
class DxfFiler : public AcDbDxfFiler {
public:
    // Writing.
    DxfFiler(DxfTagWriter& out, AcDbDatabase* db);
    // Reading.
    DxfFiler(AcDbDatabase* db, DxfHandleResolver resolver, const std::string& fileName);

    // Reading: the groups of the next object (kept by the caller while it is read).
    void setItems(const DxfItem* begin, const DxfItem* end);
    void setModifyingExistingObject(bool modifying) { m_modifying = modifying; }

    const std::string& fileName() const { return m_file; }

    // Writing: groups the file layer adds to an object's own filing. The proxy graphics go at
    // the end of the AcDbEntity subclass (92 <size>, 310 chunks: before the next subclass
    // marker, or at finishInsertions); the extra group in the named subclass, just before the
    // subclass's first string group of code beforeCode. Each is written once; the graphics
    // must live until finishInsertions.
    void setEntityGraphics(const std::vector<std::uint8_t>* graphics);
    void setGroupInSubclass(std::string marker, int beforeCode, int code, std::string value);
    void finishInsertions();

    // The first problem met, with file and line when reading; empty when none.
    const std::string& error() const { return m_error; }
    // The same problem's line (0 when writing) and text without file and line.
    std::size_t errorLine() const { return m_errorLine; }
    const std::string& errorMessage() const { return m_errorMessage; }

    Acad::ErrorStatus filerStatus() const override { return m_status; }
    void setFilerStatus(Acad::ErrorStatus status) override { m_status = status; }
    void resetFilerStatus() override;
    AcDbDatabase* database() const override { return m_db; }
    bool isModifyingExistingObject() const override { return m_modifying; }
    const ACHAR* sourceName() const override;
    long sourceLine() const override;
    void reportError(Acad::ErrorStatus status, const ACHAR* message) override;

    Acad::ErrorStatus readResBuf(resbuf* item) override;
    // True when the point just read had no z group (a 2D point such as $LIMMIN or a viewport's
    // corners), so that tags kept as read are written in the same form.
    bool lastPointWas2d() const override { return m_lastPoint2d; }
    void pushBackItem() override;
    bool atEOF() override { return m_pos >= m_end; }

    Acad::ErrorStatus writeString(AcDb::DxfCode code, const ACHAR* value) override;
    Acad::ErrorStatus writeBool(AcDb::DxfCode code, bool value) override;
    Acad::ErrorStatus writeInt8(AcDb::DxfCode code, Adesk::Int8 value) override;
    Acad::ErrorStatus writeInt16(AcDb::DxfCode code, Adesk::Int16 value) override;
    Acad::ErrorStatus writeInt32(AcDb::DxfCode code, Adesk::Int32 value) override;
    Acad::ErrorStatus writeInt64(AcDb::DxfCode code, Adesk::Int64 value) override;
    Acad::ErrorStatus writeDouble(AcDb::DxfCode code, double value, int prec = -1) override;
    Acad::ErrorStatus writePoint3d(AcDb::DxfCode code, const AcGePoint3d& value, int prec = -1) override;
    Acad::ErrorStatus writePoint2d(AcDb::DxfCode code, const AcGePoint2d& value, int prec = -1) override;
    Acad::ErrorStatus writeObjectId(AcDb::DxfCode code, const AcDbObjectId& id) override;
    Acad::ErrorStatus writeHandle(AcDb::DxfCode code, const AcDbHandle& handle) override;
    Acad::ErrorStatus writeBytes(AcDb::DxfCode code, const void* data, Adesk::UIntPtr size) override;

private:
    template <typename Fn>
    Acad::ErrorStatus guarded(int code, Fn&& write);
    Acad::ErrorStatus writeNumber(int code, std::int64_t value);
    void fail(std::size_t line, const std::string& message);

    DxfTagWriter* m_out = nullptr;
    AcDbDatabase* m_db = nullptr;
    DxfHandleResolver m_resolve;
    std::string m_file;
    std::wstring m_wideFile;
    Acad::ErrorStatus m_status = Acad::eOk;
    std::string m_error;
    std::string m_errorMessage;
    std::size_t m_errorLine = 0;
    bool m_modifying = false;
    bool m_lastPoint2d = false;

    const DxfItem* m_begin = nullptr;
    const DxfItem* m_pos = nullptr;
    const DxfItem* m_end = nullptr;
    std::wstring m_text;                  // the string value last read
    std::vector<std::uint8_t> m_bytes;    // the binary value last read
    std::string m_scratch;                // UTF-8 of the string being written

    void writeGraphics();
    void onSubclassMarker();
    const std::vector<std::uint8_t>* m_graphics = nullptr;
    bool m_inEntitySubclass = false;
    bool m_hasAfterGroup = false;
    bool m_inAfterSubclass = false;
    std::string m_afterMarker;
    int m_afterBefore = 0;
    int m_afterCode = 0;
    std::string m_afterValue;
};
