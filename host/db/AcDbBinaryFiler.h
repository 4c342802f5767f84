// AcDbBinaryFiler: the typed in-memory record stream behind undo, copy, deep clone and saving.
#pragma once

#include <string>
#include <vector>

#include "host/db/AcDbDwgFiler.h"

// Every item is one type byte followed by its payload (little-endian; strings as a 32-bit
// byte count and UTF-8), so reading an item of another type stops with eFilerError and a
// message instead of misreading the bytes. Ids are written as handles and resolved on
// reading in the filer's database:
//   kFileFiler       an unknown handle makes a placeholder stub that the object of that
//                    handle fills when it is read later (forward references in a file);
//   kDeepCloneFiler,
//   kWblockCloneFiler the id map translates source ids; an unmapped id stays as it is when
//                    the source is this database, else becomes null;
//   others           an unknown handle gives the null id.
class AcDbBinaryFiler : public AcDbDwgFiler {
public:
    ACRX_DECLARE_MEMBERS(AcDbBinaryFiler);

    // Writing: starts empty.
    explicit AcDbBinaryFiler(AcDb::FilerType type = AcDb::kCopyFiler, AcDbDatabase* db = nullptr);
    // Reading: over a copy of bytes.
    AcDbBinaryFiler(const std::vector<Adesk::UInt8>& bytes, AcDb::FilerType type,
                    AcDbDatabase* db = nullptr);

    // The bytes written so far (reading: the whole stream).
    const std::vector<Adesk::UInt8>& bytes() const { return m_bytes; }
    void setBytes(const std::vector<Adesk::UInt8>& bytes);
    // Back to the start for reading what was written; clears the status.
    void rewind();
    // True once every byte has been read.
    bool atEnd() const { return m_pos >= m_bytes.size(); }
    // Where and why the first failure happened ("expected Int16 at byte 12, found Double").
    const std::wstring& errorText() const { return m_error; }

    void setFilerType(AcDb::FilerType type) { m_type = type; }
    void setDatabase(AcDbDatabase* db) { m_db = db; }
    void setIdMapping(AcDbIdMapping* map) { m_idMap = map; }

    Acad::ErrorStatus filerStatus() const override { return m_status; }
    AcDb::FilerType filerType() const override { return m_type; }
    void setFilerStatus(Acad::ErrorStatus status) override { m_status = status; }
    void resetFilerStatus() override;
    AcDbDatabase* database() const override { return m_db; }
    AcDbIdMapping* idMapping() const override { return m_idMap; }

    Acad::ErrorStatus readHardOwnershipId(AcDbHardOwnershipId* id) override;
    Acad::ErrorStatus writeHardOwnershipId(const AcDbHardOwnershipId& id) override;
    Acad::ErrorStatus readSoftOwnershipId(AcDbSoftOwnershipId* id) override;
    Acad::ErrorStatus writeSoftOwnershipId(const AcDbSoftOwnershipId& id) override;
    Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* id) override;
    Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) override;
    Acad::ErrorStatus readSoftPointerId(AcDbSoftPointerId* id) override;
    Acad::ErrorStatus writeSoftPointerId(const AcDbSoftPointerId& id) override;
    using AcDbDwgFiler::readString;
    Acad::ErrorStatus readString(ACHAR** value) override;
    Acad::ErrorStatus writeString(const ACHAR* value) override;
    Acad::ErrorStatus readBytes(void* buffer, Adesk::UIntPtr size) override;
    Acad::ErrorStatus writeBytes(const void* buffer, Adesk::UIntPtr size) override;
    Acad::ErrorStatus readBinaryChunk(char** buffer, Adesk::UInt32& size) override;
    Acad::ErrorStatus writeBinaryChunk(const char* buffer, Adesk::UInt32 size) override;
    Acad::ErrorStatus readBool(bool* value) override;
    Acad::ErrorStatus writeBool(bool value) override;
    Acad::ErrorStatus readInt8(Adesk::Int8* value) override;
    Acad::ErrorStatus writeInt8(Adesk::Int8 value) override;
    Acad::ErrorStatus readUInt8(Adesk::UInt8* value) override;
    Acad::ErrorStatus writeUInt8(Adesk::UInt8 value) override;
    Acad::ErrorStatus readInt16(Adesk::Int16* value) override;
    Acad::ErrorStatus writeInt16(Adesk::Int16 value) override;
    Acad::ErrorStatus readUInt16(Adesk::UInt16* value) override;
    Acad::ErrorStatus writeUInt16(Adesk::UInt16 value) override;
    Acad::ErrorStatus readInt32(Adesk::Int32* value) override;
    Acad::ErrorStatus writeInt32(Adesk::Int32 value) override;
    Acad::ErrorStatus readUInt32(Adesk::UInt32* value) override;
    Acad::ErrorStatus writeUInt32(Adesk::UInt32 value) override;
    Acad::ErrorStatus readInt64(Adesk::Int64* value) override;
    Acad::ErrorStatus writeInt64(Adesk::Int64 value) override;
    Acad::ErrorStatus readUInt64(Adesk::UInt64* value) override;
    Acad::ErrorStatus writeUInt64(Adesk::UInt64 value) override;
    Acad::ErrorStatus readAcDbHandle(AcDbHandle* value) override;
    Acad::ErrorStatus writeAcDbHandle(const AcDbHandle& value) override;
    Acad::ErrorStatus readDouble(double* value) override;
    Acad::ErrorStatus writeDouble(double value) override;
    Acad::ErrorStatus readPoint2d(AcGePoint2d* value) override;
    Acad::ErrorStatus writePoint2d(const AcGePoint2d& value) override;
    Acad::ErrorStatus readPoint3d(AcGePoint3d* value) override;
    Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) override;
    Acad::ErrorStatus readVector2d(AcGeVector2d* value) override;
    Acad::ErrorStatus writeVector2d(const AcGeVector2d& value) override;
    Acad::ErrorStatus readVector3d(AcGeVector3d* value) override;
    Acad::ErrorStatus writeVector3d(const AcGeVector3d& value) override;
    Acad::ErrorStatus readScale3d(AcGeScale3d* value) override;
    Acad::ErrorStatus writeScale3d(const AcGeScale3d& value) override;
    Acad::ErrorStatus readAddress(void** value) override;
    Acad::ErrorStatus writeAddress(const void* value) override;
    Adesk::Int64 tell() const override { return static_cast<Adesk::Int64>(m_pos); }
    Acad::ErrorStatus seek(Adesk::Int64 offset, int whence) override;

    // The type bytes; public so that a record dump can name them.
    enum class Tag : Adesk::UInt8 {
        kBool = 1, kInt8, kUInt8, kInt16, kUInt16, kInt32, kUInt32, kInt64, kUInt64,
        kDouble, kPoint2d, kPoint3d, kVector2d, kVector3d, kScale3d, kString, kBytes,
        kChunk, kHandle, kHardOwnership, kSoftOwnership, kHardPointer, kSoftPointer,
        kAddress,
    };
    static const ACHAR* tagName(Tag tag);

private:
    bool begin(Tag tag);  // reading: checks and consumes the type byte
    bool take(void* out, size_t n);
    void put(Tag tag, const void* data, size_t n);
    void putRaw(const void* data, size_t n);
    void fail(const std::wstring& what);
    Acad::ErrorStatus readId(Tag tag, AcDbObjectId* id);
    Acad::ErrorStatus writeId(Tag tag, const AcDbObjectId& id);
    template <typename T>
    Acad::ErrorStatus readPlain(Tag tag, T* value);
    template <typename T>
    Acad::ErrorStatus writePlain(Tag tag, const T& value);

    std::vector<Adesk::UInt8> m_bytes;
    size_t m_pos = 0;
    AcDb::FilerType m_type;
    AcDbDatabase* m_db = nullptr;
    AcDbIdMapping* m_idMap = nullptr;
    Acad::ErrorStatus m_status = Acad::eOk;
    std::wstring m_error;
};
