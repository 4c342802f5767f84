// Recording world and viewport draws: primitives go to a display list in world coordinates.
#include "host/gi/GiRecordingDraw.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <vector>

#include "host/gi/AcGiTextStyle.h"

namespace {

constexpr double kTwoPi = 6.283185307179586476925286766559;

class RecordingTraits : public AcGiSubEntityTraits {
public:
    GiTraits t;

    void setColor(Adesk::UInt16 color) override
    {
        AcCmEntityColor c;
        if (c.setColorIndex(static_cast<Adesk::Int16>(color)))
            t.color = c;
    }
    void setTrueColor(const AcCmEntityColor& color) override { t.color = color; }
    void setLayer(AcGiLayerKey layer) override { t.layer = layer; }
    void setLineType(AcGiLinetypeKey linetype) override { t.linetype = linetype; }
    void setSelectionMarker(Adesk::GsMarker marker) override { t.marker = marker; }
    void setFillType(AcGiFillType fillType) override { t.fill = fillType; }
    void setLineWeight(int lineWeight) override { t.lineWeight = lineWeight; }
    void setLineTypeScale(double scale) override { t.linetypeScale = scale; }
    void setThickness(double thickness) override { t.thickness = thickness; }

    Adesk::UInt16 color() const override { return static_cast<Adesk::UInt16>(t.color.colorIndex()); }
    AcCmEntityColor trueColor() const override { return t.color; }
    AcGiLayerKey layerKey() const override { return t.layer; }
    AcGiLinetypeKey lineTypeKey() const override { return t.linetype; }
    Adesk::GsMarker selectionMarker() const override { return t.marker; }
    AcGiFillType fillType() const override { return t.fill; }
    int lineWeight() const override { return t.lineWeight; }
    double lineTypeScale() const override { return t.linetypeScale; }
    double thickness() const override { return t.thickness; }
};

class RecordingContext : public AcGiContext {
public:
    AcDbDatabase* db = nullptr;
    bool plot = false;
    AcDbDatabase* database() const override { return db; }
    Adesk::Boolean isPlotGeneration() const override { return plot; }
};

// A unit vector, or the fallback when v has no length.
AcGeVector3d unitOr(const AcGeVector3d& v, const AcGeVector3d& fallback)
{
    const double len = v.length();
    return len > 1e-300 ? v / len : fallback;
}

}  // namespace

// The state both recording draws share, and the primitives' recording.
class GiRecorder {
public:
    GiRecorder(GiDisplayList& list, const GiRecordingOptions& options) : m_list(list), m_options(options)
    {
        m_context.db = options.database;
        m_context.plot = options.plotGeneration;
        m_list.regenType = options.regenType;
    }

    GiDisplayList& m_list;
    GiRecordingOptions m_options;
    mutable RecordingTraits m_traits;
    RecordingContext m_context;
    bool m_abort = false;
    std::vector<AcGeMatrix3d> m_stack;  // model-to-world of each pushed level

    bool transformed() const { return !m_stack.empty(); }
    AcGePoint3d toWorld(const AcGePoint3d& p) const
    {
        return transformed() ? AcGePoint3d(p).transformBy(m_stack.back()) : p;
    }
    AcGeVector3d toWorld(const AcGeVector3d& v) const
    {
        return transformed() ? AcGeVector3d(v).transformBy(m_stack.back()) : v;
    }

    GiPrimitive& add(GiPrimitiveKind kind)
    {
        GiPrimitive& p = m_list.primitives.emplace_back();
        p.kind = kind;
        p.traits = m_traits.t;
        return p;
    }

    void points(GiPrimitiveKind kind, Adesk::UInt32 n, const AcGePoint3d* pts,
                const AcGeVector3d* normal, Adesk::LongPtr baseMarker)
    {
        if (n == 0 || pts == nullptr)
            return;
        GiPrimitive& p = add(kind);
        p.points.reserve(n);
        for (Adesk::UInt32 i = 0; i < n; ++i)
            p.points.push_back(toWorld(pts[i]));
        if (normal != nullptr) {
            p.hasNormal = true;
            p.normal = unitOr(toWorld(*normal), AcGeVector3d::kZAxis);
        }
        p.baseMarker = baseMarker;
    }

    void arc(GiPrimitiveKind kind, const AcGePoint3d& center, double radius,
             const AcGeVector3d& normal, const AcGeVector3d& startVector, double sweep,
             AcGiArcType arcType)
    {
        const AcGeVector3d n = unitOr(normal, AcGeVector3d::kZAxis);
        // The start vector is taken in the arc's plane; a vector along the normal gives
        // the plane's own x axis.
        AcGeVector3d s = startVector - n * startVector.dotProduct(n);
        s = unitOr(s, n.perpVector());
        GiPrimitive& p = add(kind);
        const AcGeVector3d sWorld = toWorld(s * std::fabs(radius));
        p.center = toWorld(center);
        p.radius = sWorld.length();
        p.normal = unitOr(toWorld(n), AcGeVector3d::kZAxis);
        p.startVector = unitOr(sWorld, p.normal.perpVector());
        p.sweep = sweep;
        p.arcType = arcType;
        if (transformed()) {
            // A mirroring transform turns the sense of the arc: keep it counter-clockwise
            // about the recorded normal.
            const AcGeVector3d v = toWorld(n.crossProduct(s));
            if (p.normal.crossProduct(p.startVector).dotProduct(v) < 0)
                p.normal = -p.normal;
        }
    }

    void arc3(GiPrimitiveKind kind, const AcGePoint3d& a, const AcGePoint3d& b,
              const AcGePoint3d& c, AcGiArcType arcType)
    {
        const AcGePoint3d wa = toWorld(a), wb = toWorld(b), wc = toWorld(c);
        GiPrimitive probe;
        if (!giArcThroughPoints(wa, wb, wc, probe)) {
            // Collinear points: what is left of the curve is a straight run.
            GiPrimitive& p = add(GiPrimitiveKind::kPolyline);
            p.points = kind == GiPrimitiveKind::kArc ? std::vector<AcGePoint3d>{wa, wc}
                                                     : std::vector<AcGePoint3d>{wa, wb, wc};
            return;
        }
        GiPrimitive& p = add(kind);
        p.threePoint = true;
        p.points = {wa, wb, wc};
        p.center = probe.center;
        p.radius = probe.radius;
        p.normal = probe.normal;
        p.startVector = probe.startVector;
        p.sweep = kind == GiPrimitiveKind::kCircle ? kTwoPi : probe.sweep;
        p.arcType = arcType;
    }

    void text(const AcGePoint3d& position, const AcGeVector3d& normal,
              const AcGeVector3d& direction, const ACHAR* msg, Adesk::Int32 length, bool raw,
              const AcGiTextStyle& style, bool styled)
    {
        if (msg == nullptr)
            return;
        auto data = std::make_shared<GiTextData>();
        data->string = msg;
        if (length >= 0 && static_cast<std::size_t>(length) < data->string.size())
            data->string.resize(static_cast<std::size_t>(length));
        data->raw = raw;
        data->styled = styled;
        data->style = style;
        const AcGeVector3d n = unitOr(normal, AcGeVector3d::kZAxis);
        AcGeVector3d d = direction - n * direction.dotProduct(n);
        d = unitOr(d, n.perpVector());
        const AcGeVector3d up = n.crossProduct(d);
        data->position = toWorld(position);
        if (transformed()) {
            const AcGeVector3d dw = toWorld(d);
            const AcGeVector3d uw = toWorld(up);
            const double ky = uw.length();
            const double kx = dw.length();
            data->style.setTextSize(style.textSize() * ky);
            if (ky > 0)
                data->style.setXScale(style.xScale() * kx / ky);
            data->direction = unitOr(dw, AcGeVector3d::kXAxis);
            data->normal = unitOr(dw.crossProduct(uw), AcGeVector3d::kZAxis);
        } else {
            data->direction = d;
            data->normal = n;
        }
        data->style.extentsBox(data->string.c_str(), Adesk::kTrue, -1, raw, data->boxMin,
                               data->boxMax);
        GiPrimitive& p = add(GiPrimitiveKind::kText);
        p.text = std::move(data);
    }

    // The chord error allowed: the one given, else a thousandth of the distance from the
    // origin of the point asked about (at least 1e-6), so that curves look smooth at any size.
    double deviation(AcGiDeviationType, const AcGePoint3d& p) const
    {
        if (m_options.deviation > 0)
            return m_options.deviation;
        return std::max(1e-6, 1e-3 * p.asVector().length());
    }

    std::unique_ptr<AcGiWorldGeometry> m_world;
    std::unique_ptr<AcGiViewportGeometry> m_viewportGeometry;
    mutable GiPlanViewport m_viewport;
};

namespace {

// One geometry for both draws; Base is AcGiWorldGeometry or AcGiViewportGeometry.
template <class Base>
class RecordingGeometry : public Base {
public:
    explicit RecordingGeometry(GiRecorder& rec) : m_rec(rec) {}

    Adesk::Boolean circle(const AcGePoint3d& center, double radius,
                          const AcGeVector3d& normal) const override
    {
        const AcGeVector3d n = unitOr(normal, AcGeVector3d::kZAxis);
        m_rec.arc(GiPrimitiveKind::kCircle, center, radius, n, n.perpVector(), kTwoPi, kAcGiArcSimple);
        return aborted();
    }
    Adesk::Boolean circle(const AcGePoint3d& p1, const AcGePoint3d& p2,
                          const AcGePoint3d& p3) const override
    {
        m_rec.arc3(GiPrimitiveKind::kCircle, p1, p2, p3, kAcGiArcSimple);
        return aborted();
    }
    Adesk::Boolean circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                               const AcGeVector3d& startVector, double sweepAngle,
                               AcGiArcType arcType) const override
    {
        m_rec.arc(GiPrimitiveKind::kArc, center, radius, normal, startVector, sweepAngle, arcType);
        return aborted();
    }
    Adesk::Boolean circularArc(const AcGePoint3d& start, const AcGePoint3d& point,
                               const AcGePoint3d& end, AcGiArcType arcType) const override
    {
        m_rec.arc3(GiPrimitiveKind::kArc, start, point, end, arcType);
        return aborted();
    }
    Adesk::Boolean polyline(Adesk::UInt32 n, const AcGePoint3d* pts, const AcGeVector3d* normal,
                            Adesk::LongPtr baseMarker) const override
    {
        m_rec.points(GiPrimitiveKind::kPolyline, n, pts, normal, baseMarker);
        return aborted();
    }
    Adesk::Boolean polygon(Adesk::UInt32 n, const AcGePoint3d* pts) const override
    {
        m_rec.points(GiPrimitiveKind::kPolygon, n, pts, nullptr, -1);
        return aborted();
    }
    Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                        const AcGeVector3d& direction, double height, double width, double oblique,
                        const ACHAR* msg) const override
    {
        AcGiTextStyle style;
        style.setTextSize(height);
        style.setXScale(width);
        style.setObliquingAngle(oblique);
        m_rec.text(position, normal, direction, msg, -1, false, style, false);
        return aborted();
    }
    Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                        const AcGeVector3d& direction, const ACHAR* msg, Adesk::Int32 length,
                        Adesk::Boolean raw, const AcGiTextStyle& style) const override
    {
        m_rec.text(position, normal, direction, msg, length, raw, style, true);
        return aborted();
    }
    Adesk::Boolean xline(const AcGePoint3d& one, const AcGePoint3d& two) const override
    {
        const AcGePoint3d pts[2] = {one, two};
        m_rec.points(GiPrimitiveKind::kXline, 2, pts, nullptr, -1);
        return aborted();
    }
    Adesk::Boolean ray(const AcGePoint3d& start, const AcGePoint3d& through) const override
    {
        const AcGePoint3d pts[2] = {start, through};
        m_rec.points(GiPrimitiveKind::kRay, 2, pts, nullptr, -1);
        return aborted();
    }
    Adesk::Boolean pushModelTransform(const AcGeMatrix3d& xMat) override
    {
        m_rec.m_stack.push_back(m_rec.m_stack.empty() ? xMat : m_rec.m_stack.back() * xMat);
        return Adesk::kFalse;
    }
    Adesk::Boolean popModelTransform() override
    {
        if (m_rec.m_stack.empty())
            return Adesk::kTrue;
        m_rec.m_stack.pop_back();
        return Adesk::kFalse;
    }
    AcGeMatrix3d getModelToWorldTransform() const override
    {
        return m_rec.m_stack.empty() ? AcGeMatrix3d::kIdentity : m_rec.m_stack.back();
    }

private:
    Adesk::Boolean aborted() const { return m_rec.m_abort; }
    GiRecorder& m_rec;
};

using WorldGeometry = RecordingGeometry<AcGiWorldGeometry>;
using ViewportGeometry = RecordingGeometry<AcGiViewportGeometry>;

}  // namespace

template <class Base>
GiRecordingDrawBase<Base>::GiRecordingDrawBase(GiDisplayList& target, const GiRecordingOptions& options)
    : m_rec(std::make_unique<GiRecorder>(target, options))
{
    m_rec->m_world = std::make_unique<WorldGeometry>(*m_rec);
    m_rec->m_viewportGeometry = std::make_unique<ViewportGeometry>(*m_rec);
}

template <class Base>
GiRecordingDrawBase<Base>::~GiRecordingDrawBase() = default;

template <class Base>
void GiRecordingDrawBase<Base>::setTraits(const GiTraits& traits)
{
    m_rec->m_traits.t = traits;
}

template <class Base>
void GiRecordingDrawBase<Base>::setRegenType(AcGiRegenType type)
{
    m_rec->m_options.regenType = type;
    m_rec->m_list.regenType = type;
}

template <class Base>
void GiRecordingDrawBase<Base>::setRegenAbort(bool abort)
{
    m_rec->m_abort = abort;
}

template <class Base>
GiDisplayList& GiRecordingDrawBase<Base>::displayList()
{
    return m_rec->m_list;
}

template <class Base>
AcGiRegenType GiRecordingDrawBase<Base>::regenType() const
{
    return m_rec->m_options.regenType;
}

template <class Base>
Adesk::Boolean GiRecordingDrawBase<Base>::regenAbort() const
{
    return m_rec->m_abort;
}

template <class Base>
AcGiSubEntityTraits& GiRecordingDrawBase<Base>::subEntityTraits() const
{
    return m_rec->m_traits;
}

template <class Base>
AcGiGeometry* GiRecordingDrawBase<Base>::rawGeometry() const
{
    return m_rec->m_world.get();
}

template <class Base>
AcGiContext* GiRecordingDrawBase<Base>::context()
{
    return &m_rec->m_context;
}

template <class Base>
Adesk::UInt32 GiRecordingDrawBase<Base>::numberOfIsolines() const
{
    return m_rec->m_options.isolines;
}

template <class Base>
double GiRecordingDrawBase<Base>::deviation(AcGiDeviationType type, const AcGePoint3d& point) const
{
    return m_rec->deviation(type, point);
}

template class GiRecordingDrawBase<AcGiWorldDraw>;
template class GiRecordingDrawBase<AcGiViewportDraw>;

GiRecordingWorldDraw::GiRecordingWorldDraw(GiDisplayList& target, GiRecordingOptions options)
    : GiRecordingDrawBase(target, options)
{
}

AcGiWorldGeometry& GiRecordingWorldDraw::geometry() const
{
    return *m_rec->m_world;
}

GiRecordingViewportDraw::GiRecordingViewportDraw(GiDisplayList& target, GiRecordingOptions options)
    : GiRecordingDrawBase(target, options)
{
}

AcGiViewportGeometry& GiRecordingViewportDraw::geometry() const
{
    return *m_rec->m_viewportGeometry;
}

AcGiViewport& GiRecordingViewportDraw::viewport() const
{
    return m_rec->m_viewport;
}
