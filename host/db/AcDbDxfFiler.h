// AcDbDxfFiler: the group-code stream an object's DXF fields are written to and read from.
#pragma once

#include "host/db/AcDb.h"
#include "host/db/AcDbObjectId.h"
#include "host/db/adsdef.h"
#include "host/ge/AcGePoint2d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeScale3d.h"
#include "host/ge/AcGeVector2d.h"
#include "host/ge/AcGeVector3d.h"
#include "host/rx/AcRxObject.h"
#include "host/rx/AcadStrc.h"

// The concrete filer belongs to the file layer. The filer hands an object only its own
// groups: the object's common part (0, 5, 102 groups, 330 owner) is read and written by
// the file layer around dxfInFields/dxfOutFields, extended data (1001 on) after it.
//
// Reading: readItem/readResBuf give the next group with restype = group code and the value
// by the code's kind (acdbGroupCodeKind): strings in rstring, points joined from their x/y/z
// codes into rpoint, 16-bit and 8-bit ints and bools in rint, 32-bit in rlong, 64-bit in
// mnInt64, object references (330-369, 390-399, 480-481) resolved to an ads_name in rlname
// (acdbGetObjectId turns it into the id), plain handles (5, 105, 320, 1005) as hex text in
// rstring, binary (310-319, 1004) in rbinary. Strings and chunks stay owned by the filer
// and are valid until the next read. At the end of the object's groups the read answers
// eEndOfObject and atEOF() is true.
class AcDbDxfFiler : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDxfFiler);
    ~AcDbDxfFiler() override = default;

    virtual Acad::ErrorStatus filerStatus() const = 0;
    virtual AcDb::FilerType filerType() const { return AcDb::kFileFiler; }
    virtual void setFilerStatus(Acad::ErrorStatus status) = 0;
    virtual void resetFilerStatus() = 0;
    virtual AcDbDatabase* database() const = 0;
    // The version being read or written (AcDb::kDHL_1032 for R2018).
    virtual Acad::ErrorStatus dwgVersion(AcDb::AcDbDwgVersion& version,
                                         AcDb::MaintenanceReleaseVersion& maintRelease) const;
    virtual int precision() const { return 16; }
    virtual void setPrecision(int) {}
    // True while reading into an object that already holds data (the object keeps what the
    // groups do not mention); false while reading a new object.
    virtual bool isModifyingExistingObject() const { return false; }
    // Whether optional groups with default values are written too.
    virtual bool includesDefaultValues() const { return false; }
    // File name and line for error texts; null/0 when the filer has no file.
    virtual const ACHAR* sourceName() const { return nullptr; }
    virtual long sourceLine() const { return 0; }
    // Adds a reading problem to the filer's log (the file layer reports them with the
    // file name and line) and sets the status.
    virtual void reportError(Acad::ErrorStatus status, const ACHAR* message);

    // Reading -----------------------------------------------------------------
    virtual Acad::ErrorStatus readResBuf(resbuf* item) = 0;
    // Whether the point readResBuf gave last came without its z group, so that
    // tags kept as read are written back in the same form.
    virtual bool lastPointWas2d() const { return false; }
    Acad::ErrorStatus readItem(resbuf* item) { return readResBuf(item); }
    // The group just read is read again by the next readItem.
    virtual void pushBackItem() = 0;
    virtual bool atEOF() = 0;
    bool atEndOfObject() { return atEOF(); }
    // True when the next group is "100 subClassName": consumes it. Otherwise false and
    // nothing is consumed.
    virtual bool atSubclassData(const ACHAR* subClassName);
    // Skips groups up to (not including) the next 100 marker or the end of the object.
    virtual Acad::ErrorStatus skipToNextSubclass();

    // Writing -----------------------------------------------------------------
    virtual Acad::ErrorStatus writeString(AcDb::DxfCode code, const ACHAR* value) = 0;
    virtual Acad::ErrorStatus writeBool(AcDb::DxfCode code, bool value) = 0;
    virtual Acad::ErrorStatus writeInt8(AcDb::DxfCode code, Adesk::Int8 value) = 0;
    virtual Acad::ErrorStatus writeInt16(AcDb::DxfCode code, Adesk::Int16 value) = 0;
    virtual Acad::ErrorStatus writeInt32(AcDb::DxfCode code, Adesk::Int32 value) = 0;
    virtual Acad::ErrorStatus writeInt64(AcDb::DxfCode code, Adesk::Int64 value) = 0;
    virtual Acad::ErrorStatus writeUInt16(AcDb::DxfCode code, Adesk::UInt16 value);
    virtual Acad::ErrorStatus writeUInt32(AcDb::DxfCode code, Adesk::UInt32 value);
    // Written with the filer's precision, or with prec digits when prec >= 0.
    virtual Acad::ErrorStatus writeDouble(AcDb::DxfCode code, double value, int prec = -1) = 0;
    // code, code+10 and code+20.
    virtual Acad::ErrorStatus writePoint3d(AcDb::DxfCode code, const AcGePoint3d& value, int prec = -1) = 0;
    // code and code+10.
    virtual Acad::ErrorStatus writePoint2d(AcDb::DxfCode code, const AcGePoint2d& value, int prec = -1) = 0;
    virtual Acad::ErrorStatus writeVector3d(AcDb::DxfCode code, const AcGeVector3d& value, int prec = -1);
    virtual Acad::ErrorStatus writeVector2d(AcDb::DxfCode code, const AcGeVector2d& value, int prec = -1);
    virtual Acad::ErrorStatus writeScale3d(AcDb::DxfCode code, const AcGeScale3d& value, int prec = -1);
    virtual Acad::ErrorStatus writeAngle(AcDb::DxfCode code, double radians, int prec = -1);
    // The referenced object's handle in hex; a null id writes handle 0.
    virtual Acad::ErrorStatus writeObjectId(AcDb::DxfCode code, const AcDbObjectId& id) = 0;
    virtual Acad::ErrorStatus writeHandle(AcDb::DxfCode code, const AcDbHandle& handle) = 0;
    // Hex text in lines of at most 127 bytes, each line under the same code.
    virtual Acad::ErrorStatus writeBytes(AcDb::DxfCode code, const void* data, Adesk::UIntPtr size) = 0;
    // The item as its restype group code says.
    virtual Acad::ErrorStatus writeResBuf(const resbuf& item);
    Acad::ErrorStatus writeSubclassMarker(const ACHAR* className)
    {
        return writeString(AcDb::kDxfSubclass, className);
    }
    Acad::ErrorStatus writeEmbeddedObjectStart() { return writeString(AcDb::kDxfEmbeddedObjectStart, ACRX_T("Embedded Object")); }

    // The platform's overloaded names.
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, const ACHAR* v) { return writeString(c, v); }
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, bool v) { return writeBool(c, v); }
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, Adesk::Int8 v) { return writeInt8(c, v); }
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, Adesk::Int16 v) { return writeInt16(c, v); }
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, Adesk::Int32 v) { return writeInt32(c, v); }
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, Adesk::Int64 v) { return writeInt64(c, v); }
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, double v, int prec = -1) { return writeDouble(c, v, prec); }
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, const AcGePoint3d& v, int prec = -1) { return writePoint3d(c, v, prec); }
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, const AcGePoint2d& v, int prec = -1) { return writePoint2d(c, v, prec); }
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, const AcGeVector3d& v, int prec = -1) { return writeVector3d(c, v, prec); }
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, const AcDbObjectId& v) { return writeObjectId(c, v); }
    Acad::ErrorStatus writeItem(AcDb::DxfCode c, const AcDbHandle& v) { return writeHandle(c, v); }
    Acad::ErrorStatus writeItem(const resbuf& v) { return writeResBuf(v); }
};

// The DXF group codes are ints in files; this keeps call sites free of casts.
inline AcDb::DxfCode acdbDxfCode(int code) { return static_cast<AcDb::DxfCode>(code); }
