// AcDbDwgFiler: the binary record stream an object files itself through (save, undo, copy).
#pragma once

#include <cstddef>

#include "host/db/AcDb.h"
#include "host/db/AcDbObjectId.h"
#include "host/ge/AcGePoint2d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeScale3d.h"
#include "host/ge/AcGeVector2d.h"
#include "host/ge/AcGeVector3d.h"
#include "host/rx/AcRxObject.h"
#include "host/rx/AcadStrc.h"

class AcDbAuditInfo;
class AcDbIdMapping;

// Reads return the filer's status: after the first failure every later read fails too and
// leaves its output at a zero value, so a record read against the wrong layout ends with an
// error instead of garbage. Writes to a failed filer are ignored.
class AcDbDwgFiler : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDwgFiler);
    ~AcDbDwgFiler() override = default;

    virtual Acad::ErrorStatus filerStatus() const = 0;
    virtual AcDb::FilerType filerType() const = 0;
    virtual void setFilerStatus(Acad::ErrorStatus status) = 0;
    virtual void resetFilerStatus() = 0;
    // The database the ids read are resolved in (and written from); may be null.
    virtual AcDbDatabase* database() const = 0;
    // The version the record is written for; a filer for another version answers its own.
    virtual Acad::ErrorStatus dwgVersion(AcDb::AcDbDwgVersion& version,
                                         AcDb::MaintenanceReleaseVersion& maintRelease) const;
    // Deep clone: the id map the filer translates references through; null otherwise.
    virtual AcDbIdMapping* idMapping() const { return nullptr; }

    virtual Acad::ErrorStatus readHardOwnershipId(AcDbHardOwnershipId* id) = 0;
    virtual Acad::ErrorStatus writeHardOwnershipId(const AcDbHardOwnershipId& id) = 0;
    virtual Acad::ErrorStatus readSoftOwnershipId(AcDbSoftOwnershipId* id) = 0;
    virtual Acad::ErrorStatus writeSoftOwnershipId(const AcDbSoftOwnershipId& id) = 0;
    virtual Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* id) = 0;
    virtual Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) = 0;
    virtual Acad::ErrorStatus readSoftPointerId(AcDbSoftPointerId* id) = 0;
    virtual Acad::ErrorStatus writeSoftPointerId(const AcDbSoftPointerId& id) = 0;

    // Text of any characters. readString(ACHAR**) allocates with new[]; the caller deletes.
    virtual Acad::ErrorStatus readString(ACHAR** value) = 0;
    virtual Acad::ErrorStatus writeString(const ACHAR* value) = 0;
    // Into a CString-like holder: anything with operator=(const ACHAR*).
    template <typename StringT>
    Acad::ErrorStatus readString(StringT& value)
    {
        ACHAR* text = nullptr;
        const Acad::ErrorStatus es = readString(&text);
        value = text ? text : ACRX_T("");
        delete[] text;
        return es;
    }

    // A binary chunk of known size. readBytes fills exactly size bytes.
    virtual Acad::ErrorStatus readBytes(void* buffer, Adesk::UIntPtr size) = 0;
    virtual Acad::ErrorStatus writeBytes(const void* buffer, Adesk::UIntPtr size) = 0;
    // A binary chunk that carries its own length; readBinaryChunk allocates with new[].
    virtual Acad::ErrorStatus readBinaryChunk(char** buffer, Adesk::UInt32& size) = 0;
    virtual Acad::ErrorStatus writeBinaryChunk(const char* buffer, Adesk::UInt32 size) = 0;

    virtual Acad::ErrorStatus readBool(bool* value) = 0;
    virtual Acad::ErrorStatus writeBool(bool value) = 0;
    Acad::ErrorStatus readBoolean(Adesk::Boolean* value) { return readBool(value); }
    Acad::ErrorStatus writeBoolean(Adesk::Boolean value) { return writeBool(value); }

    virtual Acad::ErrorStatus readInt8(Adesk::Int8* value) = 0;
    virtual Acad::ErrorStatus writeInt8(Adesk::Int8 value) = 0;
    virtual Acad::ErrorStatus readUInt8(Adesk::UInt8* value) = 0;
    virtual Acad::ErrorStatus writeUInt8(Adesk::UInt8 value) = 0;
    virtual Acad::ErrorStatus readInt16(Adesk::Int16* value) = 0;
    virtual Acad::ErrorStatus writeInt16(Adesk::Int16 value) = 0;
    virtual Acad::ErrorStatus readUInt16(Adesk::UInt16* value) = 0;
    virtual Acad::ErrorStatus writeUInt16(Adesk::UInt16 value) = 0;
    virtual Acad::ErrorStatus readInt32(Adesk::Int32* value) = 0;
    virtual Acad::ErrorStatus writeInt32(Adesk::Int32 value) = 0;
    virtual Acad::ErrorStatus readUInt32(Adesk::UInt32* value) = 0;
    virtual Acad::ErrorStatus writeUInt32(Adesk::UInt32 value) = 0;
    virtual Acad::ErrorStatus readInt64(Adesk::Int64* value) = 0;
    virtual Acad::ErrorStatus writeInt64(Adesk::Int64 value) = 0;
    virtual Acad::ErrorStatus readUInt64(Adesk::UInt64* value) = 0;
    virtual Acad::ErrorStatus writeUInt64(Adesk::UInt64 value) = 0;

    virtual Acad::ErrorStatus readAcDbHandle(AcDbHandle* value) = 0;
    virtual Acad::ErrorStatus writeAcDbHandle(const AcDbHandle& value) = 0;

    virtual Acad::ErrorStatus readDouble(double* value) = 0;
    virtual Acad::ErrorStatus writeDouble(double value) = 0;
    virtual Acad::ErrorStatus readPoint2d(AcGePoint2d* value) = 0;
    virtual Acad::ErrorStatus writePoint2d(const AcGePoint2d& value) = 0;
    virtual Acad::ErrorStatus readPoint3d(AcGePoint3d* value) = 0;
    virtual Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) = 0;
    virtual Acad::ErrorStatus readVector2d(AcGeVector2d* value) = 0;
    virtual Acad::ErrorStatus writeVector2d(const AcGeVector2d& value) = 0;
    virtual Acad::ErrorStatus readVector3d(AcGeVector3d* value) = 0;
    virtual Acad::ErrorStatus writeVector3d(const AcGeVector3d& value) = 0;
    virtual Acad::ErrorStatus readScale3d(AcGeScale3d* value) = 0;
    virtual Acad::ErrorStatus writeScale3d(const AcGeScale3d& value) = 0;

    // A pointer-sized value; meaningful only within one session (undo, copy).
    virtual Acad::ErrorStatus readAddress(void** value) = 0;
    virtual Acad::ErrorStatus writeAddress(const void* value) = 0;

    // Position in the stream, for filers that can seek (the memory filer can).
    virtual Adesk::Int64 tell() const { return -1; }
    virtual Acad::ErrorStatus seek(Adesk::Int64 offset, int whence);

    // Readers with the platform's other pointer-taking shapes.
    Acad::ErrorStatus readItem(Adesk::Int16* v) { return readInt16(v); }
    Acad::ErrorStatus readItem(Adesk::UInt16* v) { return readUInt16(v); }
    Acad::ErrorStatus readItem(Adesk::Int32* v) { return readInt32(v); }
    Acad::ErrorStatus readItem(Adesk::UInt32* v) { return readUInt32(v); }
    Acad::ErrorStatus readItem(double* v) { return readDouble(v); }
    Acad::ErrorStatus readItem(bool* v) { return readBool(v); }
    Acad::ErrorStatus readItem(AcGePoint3d* v) { return readPoint3d(v); }
    Acad::ErrorStatus readItem(AcGeVector3d* v) { return readVector3d(v); }
    Acad::ErrorStatus writeItem(Adesk::Int16 v) { return writeInt16(v); }
    Acad::ErrorStatus writeItem(Adesk::UInt16 v) { return writeUInt16(v); }
    Acad::ErrorStatus writeItem(Adesk::Int32 v) { return writeInt32(v); }
    Acad::ErrorStatus writeItem(Adesk::UInt32 v) { return writeUInt32(v); }
    Acad::ErrorStatus writeItem(double v) { return writeDouble(v); }
    Acad::ErrorStatus writeItem(bool v) { return writeBool(v); }
    Acad::ErrorStatus writeItem(const ACHAR* v) { return writeString(v); }
    Acad::ErrorStatus writeItem(const AcGePoint3d& v) { return writePoint3d(v); }
    Acad::ErrorStatus writeItem(const AcGeVector3d& v) { return writeVector3d(v); }
};
