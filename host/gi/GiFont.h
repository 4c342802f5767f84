// Loaded font faces: glyph indices and unhinted design-unit advances, one FreeType library
// and one face per file for the whole process. FreeType's own types stay in GiFont.cpp.
#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <unordered_map>

struct FT_FaceRec_;

class GiFont {
public:
    GiFont(FT_FaceRec_* face, std::string path);
    GiFont(const GiFont&) = delete;
    GiFont& operator=(const GiFont&) = delete;

    const std::string& path() const { return m_path; }
    int unitsPerEm() const { return m_unitsPerEm; }
    // Height of the capital letters in design units: a text's height is its cap height.
    double capHeight() const { return m_capHeight; }
    // 0 (the missing-glyph box) for a character the font lacks.
    unsigned glyphIndex(char32_t c) const;
    // The advance width in design units, read unscaled and unhinted from the font.
    double advance(unsigned glyph) const;
    // For the renderer, which hands the same face to Cairo.
    FT_FaceRec_* ftFace() const { return m_face; }

private:
    FT_FaceRec_* m_face;
    std::string m_path;
    int m_unitsPerEm = 1000;
    double m_capHeight = 700.0;
    mutable std::mutex m_mutex;
    mutable std::unordered_map<char32_t, unsigned> m_glyphs;
    mutable std::unordered_map<unsigned, double> m_advances;
};

// The face of a font file in the font folder ("LiberationSans-Regular.ttf"), loaded on first
// use and kept until the process ends; null with *error set when it cannot be loaded.
// The folder is $SV_FONT_DIR when set, else Debian's fonts-liberation2 folder.
const GiFont* giLoadFont(const std::string& fileName, std::string* error = nullptr);

// Where font warnings go (an unknown font name, a missing file); each distinct warning is
// given once per process. The default writes to stderr. Returns the previous handler.
using GiWarningHandler = std::function<void(const std::string&)>;
GiWarningHandler giSetWarningHandler(GiWarningHandler handler);
void giWarnOnce(const std::string& message);
