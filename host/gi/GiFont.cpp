// The process's FreeType library and face cache, and the once-only font warnings.
#include "host/gi/GiFont.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H
#include FT_ADVANCES_H

#include <cstdlib>
#include <iostream>
#include <memory>
#include <set>

namespace {

// Faces are never freed: Cairo font faces made from them may outlive any owner we could
// name, and the process ends soon enough. The cache is reachable, so leak checkers stay quiet.
struct FontCache {
    std::mutex mutex;
    FT_Library library = nullptr;
    bool libraryFailed = false;
    std::unordered_map<std::string, std::unique_ptr<GiFont>> fonts;
    std::set<std::string> failed;
};

FontCache& cache()
{
    static FontCache* c = new FontCache;
    return *c;
}

struct Warnings {
    std::mutex mutex;
    GiWarningHandler handler;
    std::set<std::string> given;
};

Warnings& warnings()
{
    static Warnings* w = new Warnings;
    return *w;
}

std::string fontFolder()
{
    if (const char* dir = std::getenv("SV_FONT_DIR"); dir != nullptr && *dir != '\0')
        return dir;
    return "/usr/share/fonts/truetype/liberation2";
}

}  // namespace

GiFont::GiFont(FT_FaceRec_* face, std::string path) : m_face(face), m_path(std::move(path))
{
    if (face->units_per_EM > 0)
        m_unitsPerEm = face->units_per_EM;
    m_capHeight = 0.7 * m_unitsPerEm;
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    if (os2 != nullptr && os2->version >= 2 && os2->sCapHeight > 0) {
        m_capHeight = os2->sCapHeight;
    } else if (FT_Load_Char(face, 'H', FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING) == 0 &&
               face->glyph->metrics.horiBearingY > 0) {
        m_capHeight = static_cast<double>(face->glyph->metrics.horiBearingY);
    }
}

unsigned GiFont::glyphIndex(char32_t c) const
{
    std::lock_guard lock(m_mutex);
    auto it = m_glyphs.find(c);
    if (it != m_glyphs.end())
        return it->second;
    const unsigned g = FT_Get_Char_Index(m_face, c);
    m_glyphs.emplace(c, g);
    return g;
}

double GiFont::advance(unsigned glyph) const
{
    std::lock_guard lock(m_mutex);
    auto it = m_advances.find(glyph);
    if (it != m_advances.end())
        return it->second;
    FT_Fixed adv = 0;
    // Unscaled and unhinted: the advance straight from the font's metrics table.
    if (FT_Get_Advance(m_face, glyph, FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING, &adv) != 0)
        adv = 0;
    const double a = static_cast<double>(adv);
    m_advances.emplace(glyph, a);
    return a;
}

const GiFont* giLoadFont(const std::string& fileName, std::string* error)
{
    FontCache& c = cache();
    std::lock_guard lock(c.mutex);
    if (auto it = c.fonts.find(fileName); it != c.fonts.end())
        return it->second.get();
    const std::string path = fontFolder() + "/" + fileName;
    auto fail = [&](const std::string& why) -> const GiFont* {
        const std::string message = "font file " + path + ": " + why;
        if (error != nullptr)
            *error = message;
        if (c.failed.insert(fileName).second)
            giWarnOnce(message);
        return nullptr;
    };
    if (c.library == nullptr) {
        if (c.libraryFailed || FT_Init_FreeType(&c.library) != 0) {
            c.libraryFailed = true;
            c.library = nullptr;
            return fail("the FreeType library could not be initialised");
        }
    }
    FT_Face face = nullptr;
    if (FT_New_Face(c.library, path.c_str(), 0, &face) != 0 || face == nullptr)
        return fail("cannot be opened as a font (is fonts-liberation2 installed?)");
    if (!FT_IS_SCALABLE(face)) {
        FT_Done_Face(face);
        return fail("is not a scalable outline font");
    }
    auto font = std::make_unique<GiFont>(face, path);
    const GiFont* result = font.get();
    c.fonts.emplace(fileName, std::move(font));
    return result;
}

GiWarningHandler giSetWarningHandler(GiWarningHandler handler)
{
    Warnings& w = warnings();
    std::lock_guard lock(w.mutex);
    GiWarningHandler previous = std::move(w.handler);
    w.handler = std::move(handler);
    return previous;
}

void giWarnOnce(const std::string& message)
{
    Warnings& w = warnings();
    GiWarningHandler handler;
    {
        std::lock_guard lock(w.mutex);
        if (!w.given.insert(message).second)
            return;
        handler = w.handler;
    }
    if (handler)
        handler(message);
    else
        std::cerr << "gi: " << message << '\n';
}
