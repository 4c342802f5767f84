// Reading the proxy-graphics format: records played into a world draw.
#include <cstring>
#include <string>

#include "host/gi/AcGiTextStyle.h"
#include "host/gi/GiProxyGraphics.h"
#include "host/gi/GiProxyTypes.h"
#include "host/gi/GiRecordingDraw.h"

namespace {

struct ShortRecord {};  // the record's data ended before its fields did

class Cursor {
public:
    Cursor(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    std::uint32_t rl()
    {
        need(4);
        std::uint32_t v = 0;
        for (int i = 0; i < 4; ++i)
            v |= static_cast<std::uint32_t>(m_data[m_pos + static_cast<std::size_t>(i)]) << (8 * i);
        m_pos += 4;
        return v;
    }
    std::int32_t rls() { return static_cast<std::int32_t>(rl()); }
    double rd()
    {
        need(8);
        std::uint64_t u = 0;
        for (int i = 0; i < 8; ++i)
            u |= static_cast<std::uint64_t>(m_data[m_pos + static_cast<std::size_t>(i)]) << (8 * i);
        m_pos += 8;
        double d;
        std::memcpy(&d, &u, sizeof d);
        return d;
    }
    AcGePoint3d pt()
    {
        const double x = rd(), y = rd(), z = rd();
        return {x, y, z};
    }
    AcGeVector3d vec()
    {
        const double x = rd(), y = rd(), z = rd();
        return {x, y, z};
    }
    std::wstring pus()
    {
        std::u16string units;
        for (;;) {
            need(2);
            const auto u = static_cast<char16_t>(m_data[m_pos] | (m_data[m_pos + 1] << 8));
            m_pos += 2;
            if (u == 0)
                break;
            units += u;
        }
        align();
        std::wstring out;
        for (std::size_t i = 0; i < units.size(); ++i) {
            const char32_t u = units[i];
            if (u >= 0xD800 && u < 0xDC00 && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000) {
                out += static_cast<wchar_t>(0x10000 + ((u - 0xD800) << 10) + (units[i + 1] - 0xDC00));
                ++i;
            } else {
                out += static_cast<wchar_t>(u);
            }
        }
        return out;
    }
    // An 8-bit string (UTF-8), zero-terminated and padded like the wide one.
    std::wstring ps()
    {
        std::string bytes;
        for (;;) {
            need(1);
            const char c = static_cast<char>(m_data[m_pos++]);
            if (c == 0)
                break;
            bytes += c;
        }
        align();
        std::wstring out;
        for (std::size_t i = 0; i < bytes.size();) {
            const auto b = static_cast<unsigned char>(bytes[i]);
            int extra = b < 0x80 ? 0 : b >= 0xF0 ? 3 : b >= 0xE0 ? 2 : b >= 0xC0 ? 1 : -1;
            if (extra < 0 || i + static_cast<std::size_t>(extra) >= bytes.size()) {
                out += L'\uFFFD';
                ++i;
                continue;
            }
            char32_t c = extra == 0 ? b : (b & (0x3F >> extra));
            for (int k = 1; k <= extra; ++k)
                c = (c << 6) | (static_cast<unsigned char>(bytes[i + static_cast<std::size_t>(k)]) & 0x3F);
            out += static_cast<wchar_t>(c);
            i += static_cast<std::size_t>(extra) + 1;
        }
        return out;
    }

private:
    void need(std::size_t n)
    {
        if (m_pos + n > m_size)
            throw ShortRecord{};
    }
    void align()
    {
        while (m_pos % 4 != 0 && m_pos < m_size)
            ++m_pos;
    }

    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_pos = 0;
};

bool fail(std::string* error, const std::string& message)
{
    if (error != nullptr)
        *error = "proxy graphics: " + message;
    return false;
}

void drawText(Cursor& c, AcGiWorldDraw& draw, bool styled, bool wide)
{
    const AcGePoint3d position = c.pt();
    const AcGeVector3d normal = c.vec();
    const AcGeVector3d direction = c.vec();
    if (!styled) {
        const double height = c.rd(), width = c.rd(), oblique = c.rd();
        const std::wstring text = wide ? c.pus() : c.ps();
        draw.geometry().text(position, normal, direction, height, width, oblique, text.c_str());
        return;
    }
    const std::wstring text = wide ? c.pus() : c.ps();
    const std::int32_t length = c.rls();
    const bool raw = c.rl() != 0;
    AcGiTextStyle style;
    style.setTextSize(c.rd());
    style.setXScale(c.rd());
    style.setObliquingAngle(c.rd());
    style.setTrackingPercent(c.rd());
    style.setBackward(c.rl() != 0);
    style.setUpsideDown(c.rl() != 0);
    style.setVertical(c.rl() != 0);
    style.setUnderlined(c.rl() != 0);
    style.setOverlined(c.rl() != 0);
    if (wide) {
        const bool bold = c.rl() != 0, italic = c.rl() != 0;
        const int charset = c.rls(), pitch = c.rls();
        const std::wstring typeface = c.pus();
        style.setFont(typeface.c_str(), bold, italic, charset, pitch);
        style.setFileName(c.pus().c_str());
        style.setBigFontFileName(c.pus().c_str());
    } else {
        style.setFileName(c.ps().c_str());
        style.setBigFontFileName(c.ps().c_str());
    }
    draw.geometry().text(position, normal, direction, text.c_str(), length, raw, style);
}

}  // namespace

bool giDrawProxyGraphics(const std::uint8_t* data, std::size_t size, AcGiWorldDraw& draw,
                         std::string* error, const GiProxyDecodeOptions& options)
{
    if (data == nullptr || size < 8)
        return fail(error, "the data is shorter than its 8-byte header (" + std::to_string(size) + " bytes)");
    Cursor head(data, size);
    const std::uint32_t total = head.rl();
    const std::uint32_t count = head.rl();
    if (total < 8 || total > size)
        return fail(error, "the header gives a total size of " + std::to_string(total) + " bytes, the data has " +
                               std::to_string(size));
    AcGiSubEntityTraits& traits = draw.subEntityTraits();
    AcGiWorldGeometry& geometry = draw.geometry();
    // Transforms the data pushed are popped again however it ends.
    struct Pops {
        AcGiWorldGeometry& g;
        int pushed = 0;
        ~Pops()
        {
            while (pushed-- > 0)
                g.popModelTransform();
        }
    } pops{geometry};
    int& pushed = pops.pushed;
    std::size_t offset = 8;
    for (std::uint32_t index = 0; index < count; ++index) {
        const std::string where = "record " + std::to_string(index + 1) + " at byte " + std::to_string(offset);
        if (offset + 8 > total)
            return fail(error, where + ": the data ends before the record's header (" +
                                   std::to_string(count) + " records announced)");
        Cursor rh(data + offset, total - offset);
        const std::uint32_t recordSize = rh.rl();
        const std::uint32_t type = rh.rl();
        if (recordSize < 8 || recordSize > total - offset)
            return fail(error, where + " (type " + std::to_string(type) + "): size " + std::to_string(recordSize) +
                                   " does not fit the " + std::to_string(total - offset) + " bytes left");
        Cursor c(data + offset + 8, recordSize - 8);
        try {
            switch (type) {
            case GiProxy::kCircle: {
                const AcGePoint3d center = c.pt();
                const double radius = c.rd();
                geometry.circle(center, radius, c.vec());
                break;
            }
            case GiProxy::kCircle3P: {
                const AcGePoint3d a = c.pt(), b = c.pt(), d = c.pt();
                geometry.circle(a, b, d);
                break;
            }
            case GiProxy::kCircularArc: {
                const AcGePoint3d center = c.pt();
                const double radius = c.rd();
                const AcGeVector3d normal = c.vec(), start = c.vec();
                const double sweep = c.rd();
                const auto arcType = static_cast<AcGiArcType>(c.rl() % 3);
                geometry.circularArc(center, radius, normal, start, sweep, arcType);
                break;
            }
            case GiProxy::kCircularArc3P: {
                const AcGePoint3d a = c.pt(), b = c.pt(), d = c.pt();
                geometry.circularArc(a, b, d, static_cast<AcGiArcType>(c.rl() % 3));
                break;
            }
            case GiProxy::kPolyline:
            case GiProxy::kPolygon:
            case GiProxy::kPolylineWithNormal: {
                const std::uint32_t n = c.rl();
                if (n > (recordSize - 12) / 24)
                    return fail(error, where + ": " + std::to_string(n) + " vertices do not fit the record");
                std::vector<AcGePoint3d> pts(n);
                for (auto& q : pts)
                    q = c.pt();
                if (type == GiProxy::kPolygon) {
                    geometry.polygon(n, pts.data());
                } else if (type == GiProxy::kPolylineWithNormal) {
                    const AcGeVector3d normal = c.vec();
                    geometry.polyline(n, pts.data(), &normal);
                } else {
                    geometry.polyline(n, pts.data());
                }
                break;
            }
            case GiProxy::kXline:
            case GiProxy::kRay: {
                const AcGePoint3d a = c.pt(), b = c.pt();
                if (type == GiProxy::kXline)
                    geometry.xline(a, b);
                else
                    geometry.ray(a, b);
                break;
            }
            case GiProxy::kText: drawText(c, draw, false, false); break;
            case GiProxy::kText2: drawText(c, draw, true, false); break;
            case GiProxy::kUnicodeText: drawText(c, draw, false, true); break;
            case GiProxy::kUnicodeText2: drawText(c, draw, true, true); break;
            case GiProxy::kColor: {
                const std::uint32_t index = c.rl();
                traits.setColor(static_cast<Adesk::UInt16>(index <= 256 ? index : 256));
                break;
            }
            case GiProxy::kTrueColor: {
                const std::uint32_t raw = c.rl();
                const std::uint32_t method = raw >> 24;
                if (method == 0xC2)
                    traits.setTrueColor(AcCmEntityColor(static_cast<Adesk::UInt8>(raw >> 16),
                                                        static_cast<Adesk::UInt8>(raw >> 8),
                                                        static_cast<Adesk::UInt8>(raw)));
                else if (method == 0xC3)
                    traits.setColor(static_cast<Adesk::UInt16>(raw & 0xFF));
                else if (method == 0xC1)
                    traits.setColor(0);
                else
                    traits.setColor(256);
                break;
            }
            case GiProxy::kLayer: {
                const std::uint32_t i = c.rl();
                traits.setLayer(options.layerKey ? options.layerKey(i) : static_cast<AcGiLayerKey>(i));
                break;
            }
            case GiProxy::kLinetype: {
                const std::uint32_t i = c.rl();
                traits.setLineType(options.linetypeKey ? options.linetypeKey(i) : static_cast<AcGiLinetypeKey>(i));
                break;
            }
            case GiProxy::kMarker: traits.setSelectionMarker(c.rls()); break;
            case GiProxy::kFill: traits.setFillType(c.rl() != 0 ? kAcGiFillAlways : kAcGiFillNever); break;
            case GiProxy::kLineweight: traits.setLineWeight(c.rls()); break;
            case GiProxy::kLinetypeScale: traits.setLineTypeScale(c.rd()); break;
            case GiProxy::kThickness: traits.setThickness(c.rd()); break;
            case GiProxy::kPushMatrix:
            case GiProxy::kPushMatrix2: {
                AcGeMatrix3d m;
                for (int r = 0; r < 4; ++r)
                    for (int k = 0; k < 4; ++k)
                        m.entry[r][k] = c.rd();
                geometry.pushModelTransform(m);
                ++pushed;
                break;
            }
            case GiProxy::kPopMatrix:
                if (pushed > 0) {
                    geometry.popModelTransform();
                    --pushed;
                }
                break;
            default:
                break;  // extents, and kinds this reader does not draw
            }
        } catch (const ShortRecord&) {
            return fail(error, where + " (type " + std::to_string(type) + "): its " + std::to_string(recordSize) +
                                   " bytes end before its fields do");
        }
        offset += recordSize;
    }
    return true;
}

bool giDecodeProxyGraphics(const std::vector<std::uint8_t>& bytes, GiDisplayList& out, std::string* error,
                           const GiProxyDecodeOptions& options)
{
    out.clear();
    GiRecordingWorldDraw draw(out);
    return giDrawProxyGraphics(bytes.data(), bytes.size(), draw, error, options);
}
