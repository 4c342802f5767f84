// Entity colours: an index colour (0 ByBlock, 256 ByLayer, 1-255 ACI) or a true RGB colour.
#pragma once

#include "host/rx/Adesk.h"

namespace AcCm {
enum ColorMethod {
    kByLayer = 0xC0,
    kByBlock = 0xC1,
    kByColor = 0xC2,  // true colour: red, green, blue
    kByACI = 0xC3,    // colour index 1..255
    kByPen = 0xC4,
    kForeground = 0xC5,
    kLayerOff = 0xC6,
    kLayerFrozen = 0xC7,
    kNone = 0xC8,
};
}  // namespace AcCm

// The compact colour an entity stores: method plus index or RGB.
class AcCmEntityColor {
public:
    AcCmEntityColor() = default;
    explicit AcCmEntityColor(AcCm::ColorMethod method) : m_method(method) {}
    AcCmEntityColor(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue)
    {
        setRGB(red, green, blue);
    }

    AcCm::ColorMethod colorMethod() const { return m_method; }
    void setColorMethod(AcCm::ColorMethod method) { m_method = method; }

    // 0 ByBlock, 256 ByLayer, 1..255 ACI; for a true colour the nearest palette index.
    Adesk::Int16 colorIndex() const;
    // Sets the method from the index: 0 ByBlock, 256 ByLayer, 1..255 ACI. Other values are
    // refused (false) and change nothing.
    bool setColorIndex(Adesk::Int16 index);
    void setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue);
    Adesk::UInt8 red() const { return static_cast<Adesk::UInt8>(m_rgb >> 16); }
    Adesk::UInt8 green() const { return static_cast<Adesk::UInt8>(m_rgb >> 8); }
    Adesk::UInt8 blue() const { return static_cast<Adesk::UInt8>(m_rgb); }
    // 0x00RRGGBB, as DXF group 420 carries it. Only meaningful for kByColor.
    Adesk::UInt32 rgb() const { return m_rgb; }

    bool isByLayer() const { return m_method == AcCm::kByLayer; }
    bool isByBlock() const { return m_method == AcCm::kByBlock; }
    bool isByColor() const { return m_method == AcCm::kByColor; }
    bool isByACI() const { return m_method == AcCm::kByACI; }

    // The RGB of an ACI index under the standard palette (index 7 is white).
    static Adesk::UInt32 lookUpRGB(Adesk::UInt8 colorIndex);

    bool operator==(const AcCmEntityColor& o) const;
    bool operator!=(const AcCmEntityColor& o) const { return !(*this == o); }

private:
    AcCm::ColorMethod m_method = AcCm::kByLayer;
    Adesk::Int16 m_index = 256;
    Adesk::UInt32 m_rgb = 0;
};

// The full colour object of the API: the same data, with the platform's method names.
class AcCmColor : public AcCmEntityColor {
public:
    AcCmColor() = default;
    AcCmColor(const AcCmEntityColor& c) : AcCmEntityColor(c) {}  // NOLINT
    AcCmEntityColor entityColor() const { return *this; }
};
