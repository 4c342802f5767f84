// Colour methods, index <-> RGB through the standard 256-colour palette.
#include "host/gi/AcCmColor.h"

#include <cmath>

namespace {

// The standard palette: 1-9 fixed, 10-249 hue rows of 10 shades, 250-255 greys.
Adesk::UInt32 paletteRgb(int index)
{
    static const Adesk::UInt32 kFixed[10] = {0x000000, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                             0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
    if (index >= 0 && index <= 9)
        return kFixed[index];
    if (index >= 250) {
        static const int kGrey[6] = {51, 91, 132, 173, 214, 255};
        const auto g = static_cast<Adesk::UInt32>(kGrey[index - 250]);
        return (g << 16) | (g << 8) | g;
    }
    // Hue in 15 degree steps; shades alternate full and half saturation at falling value.
    const double hue = ((index - 10) / 10) * 15.0;
    const int shade = index % 10;
    static const double kValue[5] = {1.0, 0.65, 0.5, 0.3, 0.15};
    const double v = kValue[shade / 2];
    const double s = (shade % 2 == 0) ? 1.0 : 0.5;
    const double c = v * s;
    const double hp = hue / 60.0;
    const double x = c * (1.0 - std::fabs(std::fmod(hp, 2.0) - 1.0));
    double r = 0, g = 0, b = 0;
    if (hp < 1) { r = c; g = x; }
    else if (hp < 2) { r = x; g = c; }
    else if (hp < 3) { g = c; b = x; }
    else if (hp < 4) { g = x; b = c; }
    else if (hp < 5) { r = x; b = c; }
    else { r = c; b = x; }
    const double m = v - c;
    auto to8 = [m](double f) { return static_cast<Adesk::UInt32>(std::lround((f + m) * 255.0)); };
    return (to8(r) << 16) | (to8(g) << 8) | to8(b);
}

}  // namespace

Adesk::Int16 AcCmEntityColor::colorIndex() const
{
    switch (m_method) {
    case AcCm::kByLayer: return 256;
    case AcCm::kByBlock: return 0;
    case AcCm::kByACI: return m_index;
    case AcCm::kByColor: {
        int best = 7;
        long bestDist = -1;
        for (int i = 1; i <= 255; ++i) {
            const Adesk::UInt32 p = paletteRgb(i);
            const long dr = static_cast<long>((p >> 16) & 0xFF) - red();
            const long dg = static_cast<long>((p >> 8) & 0xFF) - green();
            const long db = static_cast<long>(p & 0xFF) - blue();
            const long d = dr * dr + dg * dg + db * db;
            if (bestDist < 0 || d < bestDist) {
                bestDist = d;
                best = i;
            }
        }
        return static_cast<Adesk::Int16>(best);
    }
    default: return 7;
    }
}

bool AcCmEntityColor::setColorIndex(Adesk::Int16 index)
{
    if (index < 0 || index > 256)
        return false;
    m_index = index;
    m_method = index == 0 ? AcCm::kByBlock : index == 256 ? AcCm::kByLayer : AcCm::kByACI;
    return true;
}

void AcCmEntityColor::setRGB(Adesk::UInt8 r, Adesk::UInt8 g, Adesk::UInt8 b)
{
    m_method = AcCm::kByColor;
    m_rgb = (static_cast<Adesk::UInt32>(r) << 16) | (static_cast<Adesk::UInt32>(g) << 8) | b;
}

Adesk::UInt32 AcCmEntityColor::lookUpRGB(Adesk::UInt8 colorIndex)
{
    return paletteRgb(colorIndex);
}

bool AcCmEntityColor::operator==(const AcCmEntityColor& o) const
{
    if (m_method != o.m_method)
        return false;
    if (m_method == AcCm::kByACI)
        return m_index == o.m_index;
    if (m_method == AcCm::kByColor)
        return m_rgb == o.m_rgb;
    return true;
}
