// Writing a display list in the proxy-graphics format.
#include <cstring>

#include "host/gi/GiProxyGraphics.h"
#include "host/gi/GiProxyTypes.h"

namespace {

class Writer {
public:
    std::vector<std::uint8_t> bytes;
    std::uint32_t count = 0;

    void begin(std::uint32_t type)
    {
        m_start = bytes.size();
        rl(0);
        rl(type);
    }
    void end()
    {
        const auto size = static_cast<std::uint32_t>(bytes.size() - m_start);
        put(m_start, size);
        ++count;
    }
    void rl(std::uint32_t v)
    {
        for (int i = 0; i < 4; ++i)
            bytes.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
    }
    void rls(std::int64_t v) { rl(static_cast<std::uint32_t>(static_cast<std::int32_t>(v))); }
    void rd(double d)
    {
        std::uint64_t u;
        std::memcpy(&u, &d, sizeof u);
        for (int i = 0; i < 8; ++i)
            bytes.push_back(static_cast<std::uint8_t>(u >> (8 * i)));
    }
    void pt(const AcGePoint3d& p) { rd(p.x), rd(p.y), rd(p.z); }
    void vec(const AcGeVector3d& v) { rd(v.x), rd(v.y), rd(v.z); }
    // UTF-16LE, two zero bytes, zeros to the next multiple of 4 from the record's start.
    void pus(const std::wstring& s)
    {
        auto unit = [this](std::uint32_t u) {
            bytes.push_back(static_cast<std::uint8_t>(u));
            bytes.push_back(static_cast<std::uint8_t>(u >> 8));
        };
        for (wchar_t wc : s) {
            auto c = static_cast<std::uint32_t>(wc);
            if (c >= 0x10000 && c <= 0x10FFFF) {
                c -= 0x10000;
                unit(0xD800 + (c >> 10));
                unit(0xDC00 + (c & 0x3FF));
            } else {
                unit(c > 0x10FFFF ? 0xFFFD : c);
            }
        }
        unit(0);
        while ((bytes.size() - m_start) % 4 != 0)
            bytes.push_back(0);
    }
    void put(std::size_t at, std::uint32_t v)
    {
        for (int i = 0; i < 4; ++i)
            bytes[at + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(v >> (8 * i));
    }

private:
    std::size_t m_start = 0;
};

std::uint32_t rawColor(const AcCmEntityColor& c)
{
    if (c.isByColor())
        return 0xC2000000u | c.rgb();
    return static_cast<std::uint32_t>(static_cast<std::uint16_t>(c.colorIndex()));
}

}  // namespace

std::vector<std::uint8_t> giEncodeProxyGraphics(const GiDisplayList& list, const GiProxyEncodeOptions& options)
{
    Writer w;
    w.rl(0);  // total size, filled in at the end
    w.rl(0);  // record count, likewise
    const GiExtents e = list.extents();
    w.begin(GiProxy::kExtents);
    w.pt(e.isValid() ? e.min : AcGePoint3d::kOrigin);
    w.pt(e.isValid() ? e.max : AcGePoint3d::kOrigin);
    w.end();

    auto layerIndex = [&](AcGiLayerKey k) {
        return options.layerIndex ? options.layerIndex(k) : static_cast<std::uint32_t>(k);
    };
    auto linetypeIndex = [&](AcGiLinetypeKey k) {
        return options.linetypeIndex ? options.linetypeIndex(k) : static_cast<std::uint32_t>(k);
    };

    GiTraits state;
    bool first = true;
    for (const GiPrimitive& p : list.primitives) {
        const GiTraits& t = p.traits;
        // Readers start from different defaults: the first primitive states everything.
        if (first || !(t.color == state.color)) {
            w.begin(t.color.isByColor() ? GiProxy::kTrueColor : GiProxy::kColor);
            w.rl(rawColor(t.color));
            w.end();
        }
        if (first || t.layer != state.layer) {
            w.begin(GiProxy::kLayer);
            w.rl(layerIndex(t.layer));
            w.end();
        }
        if (first || t.linetype != state.linetype) {
            w.begin(GiProxy::kLinetype);
            w.rl(linetypeIndex(t.linetype));
            w.end();
        }
        if (first || t.marker != state.marker) {
            w.begin(GiProxy::kMarker);
            w.rls(t.marker);
            w.end();
        }
        if (first || t.lineWeight != state.lineWeight) {
            w.begin(GiProxy::kLineweight);
            w.rls(t.lineWeight);
            w.end();
        }
        if (t.linetypeScale != state.linetypeScale) {
            w.begin(GiProxy::kLinetypeScale);
            w.rd(t.linetypeScale);
            w.end();
        }
        if (t.thickness != state.thickness) {
            w.begin(GiProxy::kThickness);
            w.rd(t.thickness);
            w.end();
        }
        if (t.fill != state.fill || t.fill == kAcGiFillAlways) {
            w.begin(GiProxy::kFill);
            w.rl(t.fill == kAcGiFillAlways ? 1 : 0);
            w.end();
        }
        state = t;
        first = false;

        switch (p.kind) {
        case GiPrimitiveKind::kPolyline:
        case GiPrimitiveKind::kPolygon: {
            const bool withNormal = p.kind == GiPrimitiveKind::kPolyline && p.hasNormal;
            w.begin(withNormal ? GiProxy::kPolylineWithNormal
                               : (p.kind == GiPrimitiveKind::kPolygon ? GiProxy::kPolygon : GiProxy::kPolyline));
            w.rl(static_cast<std::uint32_t>(p.points.size()));
            for (const AcGePoint3d& q : p.points)
                w.pt(q);
            if (withNormal)
                w.vec(p.normal);
            w.end();
            break;
        }
        case GiPrimitiveKind::kCircle:
            if (p.threePoint && p.points.size() == 3) {
                w.begin(GiProxy::kCircle3P);
                for (const AcGePoint3d& q : p.points)
                    w.pt(q);
            } else {
                w.begin(GiProxy::kCircle);
                w.pt(p.center);
                w.rd(p.radius);
                w.vec(p.normal);
            }
            w.end();
            break;
        case GiPrimitiveKind::kArc:
            if (p.threePoint && p.points.size() == 3) {
                w.begin(GiProxy::kCircularArc3P);
                for (const AcGePoint3d& q : p.points)
                    w.pt(q);
            } else {
                w.begin(GiProxy::kCircularArc);
                w.pt(p.center);
                w.rd(p.radius);
                w.vec(p.normal);
                w.vec(p.startVector);
                w.rd(p.sweep);
            }
            w.rl(static_cast<std::uint32_t>(p.arcType));
            w.end();
            break;
        case GiPrimitiveKind::kXline:
        case GiPrimitiveKind::kRay:
            if (p.points.size() < 2)
                break;
            w.begin(p.kind == GiPrimitiveKind::kXline ? GiProxy::kXline : GiProxy::kRay);
            w.pt(p.points[0]);
            w.pt(p.points[1]);
            w.end();
            break;
        case GiPrimitiveKind::kText: {
            if (!p.text)
                break;
            const GiTextData& d = *p.text;
            const AcGiTextStyle& s = d.style;
            w.begin(d.styled ? GiProxy::kUnicodeText2 : GiProxy::kUnicodeText);
            w.pt(d.position);
            w.vec(d.normal);
            w.vec(d.direction);
            if (!d.styled) {
                w.rd(s.textSize());
                w.rd(s.xScale());
                w.rd(s.obliquingAngle());
                w.pus(d.string);
                w.end();
                break;
            }
            w.pus(d.string);
            w.rl(static_cast<std::uint32_t>(d.string.size()));
            w.rl(d.raw ? 1 : 0);
            w.rd(s.textSize());
            w.rd(s.xScale());
            w.rd(s.obliquingAngle());
            w.rd(s.trackingPercent());
            for (bool b : {s.isBackward(), s.isUpsideDown(), s.isVertical(), s.isUnderlined(), s.isOverlined()})
                w.rl(b ? 1 : 0);
            std::wstring typeface;
            bool bold = false, italic = false;
            int charset = 0, pitch = 0;
            s.font(typeface, bold, italic, charset, pitch);
            w.rl(bold ? 1 : 0);
            w.rl(italic ? 1 : 0);
            w.rls(charset);
            w.rls(pitch);
            w.pus(typeface);
            w.pus(s.fileName());
            w.pus(s.bigFontFileName());
            w.end();
            break;
        }
        }
    }
    w.put(0, static_cast<std::uint32_t>(w.bytes.size()));
    w.put(4, w.count);
    return w.bytes;
}
