// Extended data: resbuf chain <-> per-application tags, size counting and filing.
#include "host/win/CaseFold.h"
#include "host/db/AcDbXData.h"

#include <cstring>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/acutads.h"

namespace {

bool sameName(const std::wstring& a, const ACHAR* b)
{
    if (!b)
        return false;
    size_t i = 0;
    for (; i < a.size() && b[i]; ++i)
        if (svwin::ToUpperChar(a[i]) != svwin::ToUpperChar(b[i]))
            return false;
    return i == a.size() && b[i] == 0;
}

size_t utf8Length(const std::wstring& s)
{
    size_t n = 0;
    for (wchar_t c : s)
        n += c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
    return n;
}

}  // namespace

Acad::ErrorStatus AcDbXData::parse(const resbuf* rb, std::vector<App>& apps)
{
    apps.clear();
    for (; rb; rb = rb->rbnext) {
        const int c = rb->restype;
        if (c == 1001) {
            if (!rb->resval.rstring || !*rb->resval.rstring)
                return Acad::eInvalidResBuf;
            apps.emplace_back(rb->resval.rstring, AcDbTagList());
            continue;
        }
        if (apps.empty())
            return Acad::eInvalidResBuf;
        AcDbTag t;
        t.code = static_cast<short>(c);
        if (c == 1000 || c == 1002 || c == 1003 || c == 1005)
            t.value = std::wstring(rb->resval.rstring ? rb->resval.rstring : L"");
        else if (c == 1004) {
            const auto n = static_cast<size_t>(rb->resval.rbinary.clen > 0 ? rb->resval.rbinary.clen : 0);
            std::vector<Adesk::UInt8> bytes(n);
            if (n)
                std::memcpy(bytes.data(), rb->resval.rbinary.buf, n);
            t.value = std::move(bytes);
        } else if (c >= 1010 && c <= 1013)
            t.value = AcGePoint3d(rb->resval.rpoint[0], rb->resval.rpoint[1], rb->resval.rpoint[2]);
        else if (c >= 1040 && c <= 1042)
            t.value = rb->resval.rreal;
        else if (c == 1070)
            t.value = static_cast<Adesk::Int64>(static_cast<Adesk::Int16>(rb->resval.rint));
        else if (c == 1071)
            t.value = static_cast<Adesk::Int64>(rb->resval.rlong);
        else
            return Acad::eInvalidResBuf;
        apps.back().second.push_back(std::move(t));
    }
    return Acad::eOk;
}

resbuf* AcDbXData::toChain(const ACHAR* appName) const
{
    resbuf* head = nullptr;
    resbuf** tail = &head;
    auto add = [&tail](resbuf* rb) {
        *tail = rb;
        tail = &rb->rbnext;
    };
    for (const App& app : m_apps) {
        if (appName && !sameName(app.first, appName))
            continue;
        resbuf* name = acutNewRb(1001);
        name->resval.rstring = acutNewString(app.first.c_str());
        add(name);
        for (const AcDbTag& t : app.second) {
            resbuf* rb = acutNewRb(t.code);
            const int c = t.code;
            if (c == 1004) {
                const auto* bytes = std::get_if<std::vector<Adesk::UInt8>>(&t.value);
                const size_t n = bytes ? bytes->size() : 0;
                rb->resval.rbinary.clen = static_cast<short>(n);
                rb->resval.rbinary.buf = new char[n ? n : 1];
                if (n)
                    std::memcpy(rb->resval.rbinary.buf, bytes->data(), n);
            } else if (c >= 1010 && c <= 1013) {
                const AcGePoint3d p = t.asPoint();
                rb->resval.rpoint[0] = p.x;
                rb->resval.rpoint[1] = p.y;
                rb->resval.rpoint[2] = p.z;
            } else if (c >= 1040 && c <= 1042) {
                rb->resval.rreal = t.asReal();
            } else if (c == 1070) {
                rb->resval.rint = static_cast<short>(t.asInt());
            } else if (c == 1071) {
                rb->resval.rlong = static_cast<Adesk::Int32>(t.asInt());
            } else {
                rb->resval.rstring = acutNewString(t.asText().c_str());
            }
            add(rb);
        }
    }
    return head;
}

void AcDbXData::merge(const std::vector<App>& apps)
{
    for (const App& app : apps) {
        bool found = false;
        for (size_t i = 0; i < m_apps.size(); ++i) {
            if (!sameName(m_apps[i].first, app.first.c_str()))
                continue;
            found = true;
            if (app.second.empty())
                m_apps.erase(m_apps.begin() + static_cast<std::ptrdiff_t>(i));
            else
                m_apps[i].second = app.second;
            break;
        }
        if (!found && !app.second.empty())
            m_apps.push_back(app);
    }
}

size_t AcDbXData::byteSize() const
{
    size_t n = 0;
    for (const App& app : m_apps) {
        n += 2 + utf8Length(app.first) + 2;
        for (const AcDbTag& t : app.second) {
            n += 2;
            const int c = t.code;
            if (c == 1004) {
                const auto* bytes = std::get_if<std::vector<Adesk::UInt8>>(&t.value);
                n += (bytes ? bytes->size() : 0) + 1;
            } else if (c >= 1010 && c <= 1013)
                n += 24;
            else if (c >= 1040 && c <= 1042)
                n += 8;
            else if (c == 1070)
                n += 2;
            else if (c == 1071)
                n += 4;
            else
                n += utf8Length(t.asText()) + 2;
        }
    }
    return n;
}

Acad::ErrorStatus AcDbXData::dwgOut(AcDbDwgFiler* f) const
{
    f->writeUInt32(static_cast<Adesk::UInt32>(m_apps.size()));
    for (const App& app : m_apps) {
        f->writeString(app.first.c_str());
        f->writeUInt32(static_cast<Adesk::UInt32>(app.second.size()));
        for (const AcDbTag& t : app.second) {
            f->writeInt16(t.code);
            const int c = t.code;
            if (c == 1004) {
                const auto* bytes = std::get_if<std::vector<Adesk::UInt8>>(&t.value);
                f->writeBinaryChunk(bytes ? reinterpret_cast<const char*>(bytes->data()) : "",
                                    bytes ? static_cast<Adesk::UInt32>(bytes->size()) : 0);
            } else if (c >= 1010 && c <= 1013)
                f->writePoint3d(t.asPoint());
            else if (c >= 1040 && c <= 1042)
                f->writeDouble(t.asReal());
            else if (c == 1070 || c == 1071)
                f->writeInt32(static_cast<Adesk::Int32>(t.asInt()));
            else
                f->writeString(t.asText().c_str());
        }
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbXData::dwgIn(AcDbDwgFiler* f)
{
    m_apps.clear();
    Adesk::UInt32 count = 0;
    f->readUInt32(&count);
    for (Adesk::UInt32 a = 0; a < count && f->filerStatus() == Acad::eOk; ++a) {
        App app;
        f->readString(app.first);
        Adesk::UInt32 items = 0;
        f->readUInt32(&items);
        for (Adesk::UInt32 i = 0; i < items && f->filerStatus() == Acad::eOk; ++i) {
            AcDbTag t;
            f->readInt16(&t.code);
            const int c = t.code;
            if (c == 1004) {
                char* buf = nullptr;
                Adesk::UInt32 n = 0;
                f->readBinaryChunk(&buf, n);
                t.value = std::vector<Adesk::UInt8>(buf, buf + n);
                delete[] buf;
            } else if (c >= 1010 && c <= 1013) {
                AcGePoint3d p;
                f->readPoint3d(&p);
                t.value = p;
            } else if (c >= 1040 && c <= 1042) {
                double d = 0;
                f->readDouble(&d);
                t.value = d;
            } else if (c == 1070 || c == 1071) {
                Adesk::Int32 v = 0;
                f->readInt32(&v);
                t.value = static_cast<Adesk::Int64>(v);
            } else {
                std::wstring s;
                f->readString(s);
                t.value = s;
            }
            app.second.push_back(std::move(t));
        }
        m_apps.push_back(std::move(app));
    }
    return f->filerStatus();
}
