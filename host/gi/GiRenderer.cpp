// The Cairo renderer: one drawing routine, three surfaces (SVG, PDF, PNG).
#include "host/gi/GiRenderer.h"

#include <cairo-ft.h>
#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>

#include "host/gi/GiFont.h"
#include "host/gi/GiTextLayout.h"

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kPointsPerMm = 72.0 / 25.4;

cairo_status_t appendBytes(void* closure, const unsigned char* data, unsigned int length)
{
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

// World x/y to device units: device = (ox + x * s, oy - y * s).
struct Mapping {
    double s = 1.0;
    double ox = 0.0;
    double oy = 0.0;
    cairo_matrix_t matrix() const
    {
        cairo_matrix_t m;
        cairo_matrix_init(&m, s, 0.0, 0.0, -s, ox, oy);
        return m;
    }
};

class Painter {
public:
    Painter(cairo_t* cr, const GiRenderOptions& options, const Mapping& map, double devPerMm,
            double minLineWidth, double reach)
        : m_cr(cr), m_options(options), m_map(map), m_devPerMm(devPerMm),
          m_minLineWidth(minLineWidth), m_reach(reach)
    {
        m_fontOptions = cairo_font_options_create();
        // Glyphs are placed from the unhinted metrics; hinting would move them.
        cairo_font_options_set_hint_style(m_fontOptions, CAIRO_HINT_STYLE_NONE);
        cairo_font_options_set_hint_metrics(m_fontOptions, CAIRO_HINT_METRICS_OFF);
        cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    }
    ~Painter()
    {
        for (auto& [font, face] : m_faces)
            cairo_font_face_destroy(face);
        cairo_font_options_destroy(m_fontOptions);
    }
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    void draw(const GiPrimitive& p)
    {
        if (m_options.layerVisible && !m_options.layerVisible(p.traits.layer))
            return;
        const Adesk::UInt32 rgb = giResolveColor(p.traits, m_options);
        cairo_set_source_rgb(m_cr, ((rgb >> 16) & 0xFF) / 255.0, ((rgb >> 8) & 0xFF) / 255.0,
                             (rgb & 0xFF) / 255.0);
        const double mm = p.traits.lineWeight >= 0 ? p.traits.lineWeight / 100.0
                                                   : m_options.defaultLineWeightMm;
        cairo_set_line_width(m_cr, std::max(mm * m_devPerMm, m_minLineWidth));
        switch (p.kind) {
        case GiPrimitiveKind::kPolyline:
        case GiPrimitiveKind::kPolygon:
            drawPoints(p);
            break;
        case GiPrimitiveKind::kCircle:
        case GiPrimitiveKind::kArc:
            drawArc(p);
            break;
        case GiPrimitiveKind::kXline:
        case GiPrimitiveKind::kRay:
            drawInfinite(p);
            break;
        case GiPrimitiveKind::kText:
            if (p.text)
                drawText(*p.text);
            break;
        }
    }

private:
    void moveTo(const AcGePoint3d& q) { cairo_move_to(m_cr, q.x, q.y); }
    void lineTo(const AcGePoint3d& q) { cairo_line_to(m_cr, q.x, q.y); }

    // Paths are built in world coordinates and stroked in device space, so that line widths
    // do not scale with the drawing.
    void beginWorld()
    {
        cairo_save(m_cr);
        const cairo_matrix_t m = m_map.matrix();
        cairo_transform(m_cr, &m);
    }
    void finish(bool fill)
    {
        cairo_restore(m_cr);
        if (fill)
            cairo_fill_preserve(m_cr);
        cairo_stroke(m_cr);
    }

    void drawPoints(const GiPrimitive& p)
    {
        if (p.points.empty())
            return;
        beginWorld();
        moveTo(p.points.front());
        if (p.points.size() == 1)
            lineTo(p.points.front());  // a dot
        for (std::size_t i = 1; i < p.points.size(); ++i)
            lineTo(p.points[i]);
        const bool polygon = p.kind == GiPrimitiveKind::kPolygon;
        if (polygon)
            cairo_close_path(m_cr);
        finish(polygon && p.isFilled());
    }

    void drawArc(const GiPrimitive& p)
    {
        beginWorld();
        const bool sector = p.kind == GiPrimitiveKind::kArc && p.arcType == kAcGiArcSector;
        const bool chord = p.kind == GiPrimitiveKind::kArc && p.arcType == kAcGiArcChord;
        const AcGePoint3d start = p.arcStart();
        if (sector) {
            moveTo(p.center);
            lineTo(start);
        } else {
            moveTo(start);
        }
        if (std::fabs(p.normal.z) > 1.0 - 1e-12) {
            const double a0 = std::atan2(p.startVector.y, p.startVector.x);
            if (p.normal.z > 0)
                cairo_arc(m_cr, p.center.x, p.center.y, p.radius, a0, a0 + p.sweep);
            else
                cairo_arc_negative(m_cr, p.center.x, p.center.y, p.radius, a0, a0 - p.sweep);
        } else {  // seen at a slant: an ellipse, traced finely
            const int n = std::max(8, static_cast<int>(std::ceil(std::fabs(p.sweep) / (2 * kPi) * 128)));
            for (int i = 1; i <= n; ++i)
                lineTo(p.arcPoint(p.sweep * i / n));
        }
        const bool closed = sector || chord || p.kind == GiPrimitiveKind::kCircle;
        if (closed)
            cairo_close_path(m_cr);
        finish(closed && p.isFilled());
    }

    void drawInfinite(const GiPrimitive& p)
    {
        if (p.points.size() < 2)
            return;
        AcGeVector3d d = p.points[1] - p.points[0];
        d.z = 0;
        const double len = d.length();
        if (len <= 0)
            return;
        d /= len;
        const AcGePoint3d& base = p.points[0];
        const double reach = m_reach + std::hypot(base.x, base.y);
        beginWorld();
        moveTo(p.kind == GiPrimitiveKind::kXline ? base - d * reach : base);
        lineTo(base + d * reach);
        finish(false);
    }

    cairo_font_face_t* faceFor(const GiFont* font)
    {
        auto it = m_faces.find(font);
        if (it != m_faces.end())
            return it->second;
        cairo_font_face_t* face = cairo_ft_font_face_create_for_ft_face(
            reinterpret_cast<FT_Face>(font->ftFace()), FT_LOAD_NO_HINTING);
        m_faces.emplace(font, face);
        return face;
    }

    void drawText(const GiTextData& t)
    {
        const GiTextLayout layout =
            giLayoutText(t.style, t.string.c_str(), -1, t.raw);
        if (layout.font == nullptr || layout.height <= 0)
            return;
        const AcGeVector3d x = t.direction;
        const AcGeVector3d y = t.upDirection();
        const double sx = t.style.isBackward() ? -1.0 : 1.0;
        const double sy = t.style.isUpsideDown() ? -1.0 : 1.0;
        // Text axes to world x/y (the plan view of the text's plane).
        cairo_matrix_t local;
        cairo_matrix_init(&local, x.x * sx, x.y * sx, y.x * sy, y.y * sy, t.position.x, t.position.y);
        beginWorld();
        cairo_transform(m_cr, &local);
        if (!layout.glyphs.empty()) {
            cairo_set_font_face(m_cr, faceFor(layout.font));
            cairo_set_font_options(m_cr, m_fontOptions);
            cairo_matrix_t fm;
            const double em = layout.emSize;
            cairo_matrix_init(&fm, em * layout.xScale, 0.0, -em * std::tan(t.style.obliquingAngle()), -em,
                              0.0, 0.0);
            cairo_set_font_matrix(m_cr, &fm);
            std::vector<cairo_glyph_t> glyphs(layout.glyphs.size());
            for (std::size_t i = 0; i < glyphs.size(); ++i)
                glyphs[i] = {layout.glyphs[i], layout.x[i], 0.0};
            cairo_show_glyphs(m_cr, glyphs.data(), static_cast<int>(glyphs.size()));
        }
        const bool under = t.style.isUnderlined(), over = t.style.isOverlined();
        if ((under || over) && layout.width > 0) {
            cairo_new_path(m_cr);
            if (under) {
                cairo_move_to(m_cr, 0, -0.2 * layout.height);
                cairo_line_to(m_cr, layout.width, -0.2 * layout.height);
            }
            if (over) {
                cairo_move_to(m_cr, 0, 1.2 * layout.height);
                cairo_line_to(m_cr, layout.width, 1.2 * layout.height);
            }
            finish(false);
            return;
        }
        cairo_restore(m_cr);
    }

    cairo_t* m_cr;
    const GiRenderOptions& m_options;
    Mapping m_map;
    double m_devPerMm;
    double m_minLineWidth;
    double m_reach;  // world length that reaches past the page from any point on it
    cairo_font_options_t* m_fontOptions = nullptr;
    std::map<const GiFont*, cairo_font_face_t*> m_faces;
};

bool failWith(std::string* error, const std::string& message)
{
    if (error != nullptr)
        *error = message;
    return false;
}

}  // namespace

Adesk::UInt32 giResolveColor(const GiTraits& traits, const GiRenderOptions& options)
{
    const auto bg = options.background;
    const int luminance = static_cast<int>(((bg >> 16) & 0xFF) * 3 + ((bg >> 8) & 0xFF) * 6 + (bg & 0xFF));
    const Adesk::UInt32 foreground = luminance >= 5 * 255 ? 0x000000 : 0xFFFFFF;
    AcCmEntityColor c = traits.color;
    if (c.isByLayer() && options.layerColor)
        c = options.layerColor(traits.layer);
    if (c.isByColor())
        return c.rgb();
    if (c.isByACI()) {
        const int index = c.colorIndex();
        if (index == 7)
            return foreground;
        return AcCmEntityColor::lookUpRGB(static_cast<Adesk::UInt8>(index));
    }
    return foreground;
}

bool giRenderToBytes(const std::vector<const GiDisplayList*>& lists, const GiRenderOptions& options,
                     std::string& bytes, std::string* error)
{
    bytes.clear();
    double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
    if (options.hasWindow) {
        x0 = std::min(options.windowMin.x, options.windowMax.x);
        x1 = std::max(options.windowMin.x, options.windowMax.x);
        y0 = std::min(options.windowMin.y, options.windowMax.y);
        y1 = std::max(options.windowMin.y, options.windowMax.y);
    } else {
        GiExtents all;
        for (const GiDisplayList* list : lists)
            if (list != nullptr)
                all.add(list->extents());
        if (all.isValid()) {
            x0 = all.min.x, y0 = all.min.y, x1 = all.max.x, y1 = all.max.y;
        }
    }
    if (!(std::isfinite(x0) && std::isfinite(x1) && std::isfinite(y0) && std::isfinite(y1)))
        return failWith(error, "render: the window is not finite");
    // A point or a line still gets a page around it.
    const double pad = std::max({x1 - x0, y1 - y0, 1.0}) * 1e-3;
    if (x1 - x0 < pad) { x0 -= pad; x1 += pad; }
    if (y1 - y0 < pad) { y0 -= pad; y1 += pad; }
    double mmPerUnit;
    if (options.scale > 0) {
        if (!(options.unitsPerMm > 0))
            return failWith(error, "render: unitsPerMm must be above 0");
        mmPerUnit = 1.0 / (options.unitsPerMm * options.scale);
    } else {
        if (!(options.fitMm > 0))
            return failWith(error, "render: fitMm must be above 0");
        mmPerUnit = options.fitMm / std::max(x1 - x0, y1 - y0);
    }
    const double margin = std::max(0.0, options.marginMm);
    const double pageWmm = (x1 - x0) * mmPerUnit + 2 * margin;
    const double pageHmm = (y1 - y0) * mmPerUnit + 2 * margin;
    const bool png = options.format == GiOutputFormat::kPng;
    if (png && !(options.dpi > 0))
        return failWith(error, "render: dpi must be above 0");
    const double devPerMm = png ? options.dpi / 25.4 : kPointsPerMm;
    double pageW = pageWmm * devPerMm, pageH = pageHmm * devPerMm;
    if (png) {
        pageW = std::ceil(pageW);
        pageH = std::ceil(pageH);
        if (pageW * pageH > 1.0e8)
            return failWith(error, "render: the PNG would be " + std::to_string(static_cast<long long>(pageW)) +
                                       " x " + std::to_string(static_cast<long long>(pageH)) +
                                       " pixels; lower the dpi or the scale");
    } else if (pageW > 1.0e7 || pageH > 1.0e7) {
        return failWith(error, "render: the page would be larger than 3.5 km; check the scale");
    }

    cairo_surface_t* surface = nullptr;
    switch (options.format) {
    case GiOutputFormat::kSvg:
        surface = cairo_svg_surface_create_for_stream(appendBytes, &bytes, pageW, pageH);
        break;
    case GiOutputFormat::kPdf:
        surface = cairo_pdf_surface_create_for_stream(appendBytes, &bytes, pageW, pageH);
        break;
    case GiOutputFormat::kPng:
        surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(pageW),
                                             static_cast<int>(pageH));
        break;
    }
    if (surface == nullptr || cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
        const std::string why = surface ? cairo_status_to_string(cairo_surface_status(surface)) : "no surface";
        if (surface)
            cairo_surface_destroy(surface);
        return failWith(error, "render: cannot make the surface: " + why);
    }
    cairo_t* cr = cairo_create(surface);
    const auto bg = options.background;
    cairo_set_source_rgb(cr, ((bg >> 16) & 0xFF) / 255.0, ((bg >> 8) & 0xFF) / 255.0, (bg & 0xFF) / 255.0);
    cairo_paint(cr);

    Mapping map;
    map.s = mmPerUnit * devPerMm;
    map.ox = margin * devPerMm - x0 * map.s;
    map.oy = margin * devPerMm + y1 * map.s;
    const double reach = 2.0 * (std::hypot(x1 - x0, y1 - y0) + std::hypot(x0, y0) + std::hypot(x1, y1));
    {
        Painter painter(cr, options, map, devPerMm, png ? 1.0 : 0.1, reach);
        for (const GiDisplayList* list : lists)
            if (list != nullptr)
                for (const GiPrimitive& p : list->primitives)
                    painter.draw(p);
    }
    cairo_status_t status = cairo_status(cr);
    cairo_destroy(cr);
    if (png && status == CAIRO_STATUS_SUCCESS)
        status = cairo_surface_write_to_png_stream(surface, appendBytes, &bytes);
    cairo_surface_finish(surface);
    if (status == CAIRO_STATUS_SUCCESS)
        status = cairo_surface_status(surface);
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS)
        return failWith(error, std::string("render: ") + cairo_status_to_string(status));
    return true;
}

bool giRenderToFile(const std::vector<const GiDisplayList*>& lists, const GiRenderOptions& options,
                    const std::string& path, std::string* error)
{
    std::string bytes;
    if (!giRenderToBytes(lists, options, bytes, error))
        return false;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out)
        return failWith(error, path + ": cannot be opened for writing");
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out)
        return failWith(error, path + ": writing failed");
    return true;
}
