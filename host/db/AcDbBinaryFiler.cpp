// The typed binary record stream: type byte + little-endian payload per item.
#include "host/db/AcDbBinaryFiler.h"

#include <cstdio>
#include <cstring>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbIdMapping.h"
#include "host/db/acutads.h"
#include "host/rx/AcRxBoiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbBinaryFiler, AcDbDwgFiler)

namespace {

void appendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// Lenient decoding: a broken sequence becomes U+FFFD, never a failure.
std::wstring fromUtf8(const std::string& in)
{
    std::wstring out;
    for (size_t i = 0; i < in.size();) {
        const auto b = static_cast<unsigned char>(in[i]);
        int extra = b < 0x80 ? 0 : (b >> 5) == 6 ? 1 : (b >> 4) == 14 ? 2 : (b >> 3) == 30 ? 3 : -1;
        if (extra < 0 || (extra > 0 && i + static_cast<size_t>(extra) >= in.size())) {
            out += L'\uFFFD';
            ++i;
            continue;
        }
        char32_t c = extra == 0 ? b : (b & (0x3F >> extra));
        bool ok = true;
        for (int k = 1; k <= extra; ++k) {
            const auto cb = static_cast<unsigned char>(in[i + static_cast<size_t>(k)]);
            if ((cb & 0xC0) != 0x80) {
                ok = false;
                break;
            }
            c = (c << 6) | (cb & 0x3F);
        }
        if (!ok) {
            out += L'\uFFFD';
            ++i;
            continue;
        }
        out += static_cast<wchar_t>(c);
        i += static_cast<size_t>(extra) + 1;
    }
    return out;
}

}  // namespace

AcDbBinaryFiler::AcDbBinaryFiler(AcDb::FilerType type, AcDbDatabase* db) : m_type(type), m_db(db) {}

AcDbBinaryFiler::AcDbBinaryFiler(const std::vector<Adesk::UInt8>& bytes, AcDb::FilerType type,
                                 AcDbDatabase* db)
    : m_bytes(bytes), m_type(type), m_db(db)
{
}

void AcDbBinaryFiler::setBytes(const std::vector<Adesk::UInt8>& bytes)
{
    m_bytes = bytes;
    rewind();
}

void AcDbBinaryFiler::rewind()
{
    m_pos = 0;
    resetFilerStatus();
}

void AcDbBinaryFiler::resetFilerStatus()
{
    m_status = Acad::eOk;
    m_error.clear();
}

const ACHAR* AcDbBinaryFiler::tagName(Tag tag)
{
    static const ACHAR* const kNames[] = {
        L"?", L"Bool", L"Int8", L"UInt8", L"Int16", L"UInt16", L"Int32", L"UInt32", L"Int64",
        L"UInt64", L"Double", L"Point2d", L"Point3d", L"Vector2d", L"Vector3d", L"Scale3d",
        L"String", L"Bytes", L"BinaryChunk", L"Handle", L"HardOwnershipId", L"SoftOwnershipId",
        L"HardPointerId", L"SoftPointerId", L"Address"};
    const auto i = static_cast<size_t>(tag);
    return i < sizeof(kNames) / sizeof(kNames[0]) ? kNames[i] : L"?";
}

void AcDbBinaryFiler::fail(const std::wstring& what)
{
    if (m_status != Acad::eOk)
        return;
    m_status = Acad::eFilerError;
    m_error = what;
}

bool AcDbBinaryFiler::begin(Tag tag)
{
    if (m_status != Acad::eOk)
        return false;
    if (m_pos >= m_bytes.size()) {
        fail(std::wstring(L"expected ") + tagName(tag) + L" at byte " + std::to_wstring(m_pos) +
             L", found the end of the record");
        return false;
    }
    const auto found = static_cast<Tag>(m_bytes[m_pos]);
    if (found != tag) {
        fail(std::wstring(L"expected ") + tagName(tag) + L" at byte " + std::to_wstring(m_pos) +
             L", found " + tagName(found));
        return false;
    }
    ++m_pos;
    return true;
}

bool AcDbBinaryFiler::take(void* out, size_t n)
{
    if (m_status != Acad::eOk)
        return false;
    if (n > m_bytes.size() - m_pos) {
        fail(L"record ends inside an item at byte " + std::to_wstring(m_pos));
        return false;
    }
    if (n)
        std::memcpy(out, m_bytes.data() + m_pos, n);
    m_pos += n;
    return true;
}

void AcDbBinaryFiler::putRaw(const void* data, size_t n)
{
    const auto* p = static_cast<const Adesk::UInt8*>(data);
    m_bytes.insert(m_bytes.end(), p, p + n);
}

void AcDbBinaryFiler::put(Tag tag, const void* data, size_t n)
{
    if (m_status != Acad::eOk)
        return;
    m_bytes.push_back(static_cast<Adesk::UInt8>(tag));
    putRaw(data, n);
}

// Host byte order is little-endian on every platform we build for; the static_assert
// keeps that assumption visible.
static_assert(sizeof(double) == 8);

template <typename T>
Acad::ErrorStatus AcDbBinaryFiler::readPlain(Tag tag, T* value)
{
    T v{};
    if (begin(tag))
        take(&v, sizeof(T));
    if (value)
        *value = m_status == Acad::eOk ? v : T{};
    return m_status;
}

template <typename T>
Acad::ErrorStatus AcDbBinaryFiler::writePlain(Tag tag, const T& value)
{
    put(tag, &value, sizeof(T));
    return m_status;
}

Acad::ErrorStatus AcDbBinaryFiler::readBool(bool* v)
{
    Adesk::UInt8 b = 0;
    readPlain(Tag::kBool, &b);
    if (v)
        *v = b != 0;
    return m_status;
}
Acad::ErrorStatus AcDbBinaryFiler::writeBool(bool v)
{
    const Adesk::UInt8 b = v ? 1 : 0;
    return writePlain(Tag::kBool, b);
}
Acad::ErrorStatus AcDbBinaryFiler::readInt8(Adesk::Int8* v) { return readPlain(Tag::kInt8, v); }
Acad::ErrorStatus AcDbBinaryFiler::writeInt8(Adesk::Int8 v) { return writePlain(Tag::kInt8, v); }
Acad::ErrorStatus AcDbBinaryFiler::readUInt8(Adesk::UInt8* v) { return readPlain(Tag::kUInt8, v); }
Acad::ErrorStatus AcDbBinaryFiler::writeUInt8(Adesk::UInt8 v) { return writePlain(Tag::kUInt8, v); }
Acad::ErrorStatus AcDbBinaryFiler::readInt16(Adesk::Int16* v) { return readPlain(Tag::kInt16, v); }
Acad::ErrorStatus AcDbBinaryFiler::writeInt16(Adesk::Int16 v) { return writePlain(Tag::kInt16, v); }
Acad::ErrorStatus AcDbBinaryFiler::readUInt16(Adesk::UInt16* v) { return readPlain(Tag::kUInt16, v); }
Acad::ErrorStatus AcDbBinaryFiler::writeUInt16(Adesk::UInt16 v) { return writePlain(Tag::kUInt16, v); }
Acad::ErrorStatus AcDbBinaryFiler::readInt32(Adesk::Int32* v) { return readPlain(Tag::kInt32, v); }
Acad::ErrorStatus AcDbBinaryFiler::writeInt32(Adesk::Int32 v) { return writePlain(Tag::kInt32, v); }
Acad::ErrorStatus AcDbBinaryFiler::readUInt32(Adesk::UInt32* v) { return readPlain(Tag::kUInt32, v); }
Acad::ErrorStatus AcDbBinaryFiler::writeUInt32(Adesk::UInt32 v) { return writePlain(Tag::kUInt32, v); }
Acad::ErrorStatus AcDbBinaryFiler::readInt64(Adesk::Int64* v) { return readPlain(Tag::kInt64, v); }
Acad::ErrorStatus AcDbBinaryFiler::writeInt64(Adesk::Int64 v) { return writePlain(Tag::kInt64, v); }
Acad::ErrorStatus AcDbBinaryFiler::readUInt64(Adesk::UInt64* v) { return readPlain(Tag::kUInt64, v); }
Acad::ErrorStatus AcDbBinaryFiler::writeUInt64(Adesk::UInt64 v) { return writePlain(Tag::kUInt64, v); }
Acad::ErrorStatus AcDbBinaryFiler::readDouble(double* v) { return readPlain(Tag::kDouble, v); }
Acad::ErrorStatus AcDbBinaryFiler::writeDouble(double v) { return writePlain(Tag::kDouble, v); }

Acad::ErrorStatus AcDbBinaryFiler::readAcDbHandle(AcDbHandle* v)
{
    Adesk::UInt64 h = 0;
    readPlain(Tag::kHandle, &h);
    if (v)
        *v = AcDbHandle(h);
    return m_status;
}
Acad::ErrorStatus AcDbBinaryFiler::writeAcDbHandle(const AcDbHandle& v)
{
    return writePlain(Tag::kHandle, v.value());
}

#define SV_FILER_TRIPLE(NAME, TYPE, TAG, N, A, B, C)                                            \
    Acad::ErrorStatus AcDbBinaryFiler::read##NAME(TYPE* v)                                      \
    {                                                                                           \
        double d[3] = {0, 0, 0};                                                                \
        if (begin(Tag::TAG))                                                                    \
            take(d, sizeof(double) * N);                                                        \
        if (v) {                                                                                \
            v->A = d[0];                                                                        \
            v->B = d[1];                                                                        \
            C;                                                                                  \
        }                                                                                       \
        return m_status;                                                                        \
    }                                                                                           \
    Acad::ErrorStatus AcDbBinaryFiler::write##NAME(const TYPE& v)                               \
    {                                                                                           \
        double d[3] = {v.A, v.B, 0};                                                            \
        if (N == 3)                                                                             \
            d[2] = third(v);                                                                    \
        put(Tag::TAG, d, sizeof(double) * N);                                                   \
        return m_status;                                                                        \
    }

namespace {
double third(const AcGePoint2d&) { return 0; }
double third(const AcGeVector2d&) { return 0; }
double third(const AcGePoint3d& p) { return p.z; }
double third(const AcGeVector3d& p) { return p.z; }
}  // namespace

SV_FILER_TRIPLE(Point2d, AcGePoint2d, kPoint2d, 2, x, y, (void)0)
SV_FILER_TRIPLE(Vector2d, AcGeVector2d, kVector2d, 2, x, y, (void)0)
SV_FILER_TRIPLE(Point3d, AcGePoint3d, kPoint3d, 3, x, y, v->z = d[2])
SV_FILER_TRIPLE(Vector3d, AcGeVector3d, kVector3d, 3, x, y, v->z = d[2])
#undef SV_FILER_TRIPLE

Acad::ErrorStatus AcDbBinaryFiler::readScale3d(AcGeScale3d* v)
{
    double d[3] = {1, 1, 1};
    if (begin(Tag::kScale3d))
        take(d, sizeof(d));
    if (v)
        *v = m_status == Acad::eOk ? AcGeScale3d(d[0], d[1], d[2]) : AcGeScale3d();
    return m_status;
}
Acad::ErrorStatus AcDbBinaryFiler::writeScale3d(const AcGeScale3d& v)
{
    const double d[3] = {v.sx, v.sy, v.sz};
    put(Tag::kScale3d, d, sizeof(d));
    return m_status;
}

Acad::ErrorStatus AcDbBinaryFiler::readString(ACHAR** value)
{
    std::wstring text;
    Adesk::UInt32 n = 0;
    if (begin(Tag::kString) && take(&n, sizeof(n))) {
        if (n > m_bytes.size() - m_pos) {
            fail(L"string length " + std::to_wstring(n) + L" runs past the record at byte " +
                 std::to_wstring(m_pos));
        } else {
            text = fromUtf8(std::string(reinterpret_cast<const char*>(m_bytes.data() + m_pos), n));
            m_pos += n;
        }
    }
    if (value)
        *value = acutNewString(text.c_str());
    return m_status;
}
Acad::ErrorStatus AcDbBinaryFiler::writeString(const ACHAR* value)
{
    std::string utf8;
    for (const ACHAR* p = value ? value : L""; *p; ++p)
        appendUtf8(utf8, static_cast<char32_t>(*p));
    const auto n = static_cast<Adesk::UInt32>(utf8.size());
    if (m_status != Acad::eOk)
        return m_status;
    m_bytes.push_back(static_cast<Adesk::UInt8>(Tag::kString));
    putRaw(&n, sizeof(n));
    putRaw(utf8.data(), utf8.size());
    return m_status;
}

Acad::ErrorStatus AcDbBinaryFiler::readBytes(void* buffer, Adesk::UIntPtr size)
{
    Adesk::UInt64 n = 0;
    if (begin(Tag::kBytes) && take(&n, sizeof(n))) {
        if (n != size)
            fail(L"expected " + std::to_wstring(size) + L" bytes at byte " + std::to_wstring(m_pos) +
                 L", found " + std::to_wstring(n));
        else
            take(buffer, size);
    }
    if (m_status != Acad::eOk && buffer && size)
        std::memset(buffer, 0, size);
    return m_status;
}
Acad::ErrorStatus AcDbBinaryFiler::writeBytes(const void* buffer, Adesk::UIntPtr size)
{
    if (m_status != Acad::eOk)
        return m_status;
    const Adesk::UInt64 n = size;
    m_bytes.push_back(static_cast<Adesk::UInt8>(Tag::kBytes));
    putRaw(&n, sizeof(n));
    putRaw(buffer, size);
    return m_status;
}

Acad::ErrorStatus AcDbBinaryFiler::readBinaryChunk(char** buffer, Adesk::UInt32& size)
{
    Adesk::UInt32 n = 0;
    size = 0;
    if (buffer)
        *buffer = nullptr;
    if (begin(Tag::kChunk) && take(&n, sizeof(n))) {
        if (n > m_bytes.size() - m_pos) {
            fail(L"chunk length " + std::to_wstring(n) + L" runs past the record");
        } else {
            if (buffer) {
                *buffer = new char[n ? n : 1];
                std::memcpy(*buffer, m_bytes.data() + m_pos, n);
            }
            size = n;
            m_pos += n;
        }
    }
    return m_status;
}
Acad::ErrorStatus AcDbBinaryFiler::writeBinaryChunk(const char* buffer, Adesk::UInt32 size)
{
    if (m_status != Acad::eOk)
        return m_status;
    m_bytes.push_back(static_cast<Adesk::UInt8>(Tag::kChunk));
    putRaw(&size, sizeof(size));
    putRaw(buffer, size);
    return m_status;
}

Acad::ErrorStatus AcDbBinaryFiler::readAddress(void** value)
{
    Adesk::UInt64 a = 0;
    readPlain(Tag::kAddress, &a);
    if (value)
        *value = reinterpret_cast<void*>(static_cast<Adesk::UIntPtr>(a));
    return m_status;
}
Acad::ErrorStatus AcDbBinaryFiler::writeAddress(const void* value)
{
    return writePlain(Tag::kAddress, static_cast<Adesk::UInt64>(reinterpret_cast<Adesk::UIntPtr>(value)));
}

Acad::ErrorStatus AcDbBinaryFiler::seek(Adesk::Int64 offset, int whence)
{
    Adesk::Int64 base = whence == SEEK_CUR ? static_cast<Adesk::Int64>(m_pos)
                        : whence == SEEK_END ? static_cast<Adesk::Int64>(m_bytes.size()) : 0;
    const Adesk::Int64 target = base + offset;
    if (target < 0 || target > static_cast<Adesk::Int64>(m_bytes.size()))
        return Acad::eInvalidInput;
    m_pos = static_cast<size_t>(target);
    return Acad::eOk;
}

// Ids travel as handles; the null id is handle 0.
Acad::ErrorStatus AcDbBinaryFiler::writeId(Tag tag, const AcDbObjectId& id)
{
    return writePlain(tag, id.handle().value());
}

Acad::ErrorStatus AcDbBinaryFiler::readId(Tag tag, AcDbObjectId* id)
{
    Adesk::UInt64 h = 0;
    readPlain(tag, &h);
    AcDbObjectId result;
    if (m_status == Acad::eOk && h != 0) {
        AcDbDatabase* src = m_db;
        if (m_idMap) {
            AcDbDatabase* orig = nullptr;
            m_idMap->origDb(orig);
            if (orig)
                src = orig;
        }
        AcDbObjectId srcId;
        const bool file = m_type == AcDb::kFileFiler;
        if (src)
            src->getAcDbObjectId(srcId, file, AcDbHandle(h));
        if (m_idMap && !srcId.isNull()) {
            const AcDbObjectId mapped = m_idMap->lookup(srcId);
            if (!mapped.isNull())
                result = mapped;
            else if (src == m_db)
                result = srcId;
        } else {
            result = srcId;
        }
    }
    if (id)
        *id = result;
    return m_status;
}

Acad::ErrorStatus AcDbBinaryFiler::readHardOwnershipId(AcDbHardOwnershipId* id) { return readId(Tag::kHardOwnership, id); }
Acad::ErrorStatus AcDbBinaryFiler::writeHardOwnershipId(const AcDbHardOwnershipId& id) { return writeId(Tag::kHardOwnership, id); }
Acad::ErrorStatus AcDbBinaryFiler::readSoftOwnershipId(AcDbSoftOwnershipId* id) { return readId(Tag::kSoftOwnership, id); }
Acad::ErrorStatus AcDbBinaryFiler::writeSoftOwnershipId(const AcDbSoftOwnershipId& id) { return writeId(Tag::kSoftOwnership, id); }
Acad::ErrorStatus AcDbBinaryFiler::readHardPointerId(AcDbHardPointerId* id) { return readId(Tag::kHardPointer, id); }
Acad::ErrorStatus AcDbBinaryFiler::writeHardPointerId(const AcDbHardPointerId& id) { return writeId(Tag::kHardPointer, id); }
Acad::ErrorStatus AcDbBinaryFiler::readSoftPointerId(AcDbSoftPointerId* id) { return readId(Tag::kSoftPointer, id); }
Acad::ErrorStatus AcDbBinaryFiler::writeSoftPointerId(const AcDbSoftPointerId& id) { return writeId(Tag::kSoftPointer, id); }
