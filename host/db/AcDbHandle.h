// AcDbHandle: an object's 64-bit handle, stable across saves; written as upper-case hex.
#pragma once

#include <cstddef>
#include <functional>

#include "host/rx/AcChar.h"
#include "host/rx/Adesk.h"

class AcDbHandle {
public:
    AcDbHandle() = default;
    AcDbHandle(Adesk::UInt64 value) : m_value(value) {}  // NOLINT: implicit as on the platform
    // Parses hex text, upper or lower case; blanks around it are ignored. Text that is not
    // hex (or longer than 16 digits) gives the null handle.
    explicit AcDbHandle(const ACHAR* hexText);
    AcDbHandle(Adesk::UInt32 low, Adesk::UInt32 high)
        : m_value((static_cast<Adesk::UInt64>(high) << 32) | low) {}

    bool isNull() const { return m_value == 0; }
    void setNull() { m_value = 0; }
    Adesk::UInt32 low() const { return static_cast<Adesk::UInt32>(m_value); }
    Adesk::UInt32 high() const { return static_cast<Adesk::UInt32>(m_value >> 32); }
    Adesk::UInt64 value() const { return m_value; }
    operator Adesk::UInt64() const { return m_value; }  // NOLINT

    // Upper-case hex without leading zeros ("1F3"); "0" for the null handle. The buffer
    // must hold 17 characters.
    void getIntoAsciiBuffer(ACHAR* buffer, size_t bufferSize = 17) const;
    AcDbHandle& operator++() { ++m_value; return *this; }
    AcDbHandle operator+(const AcDbHandle& other) const { return m_value + other.m_value; }

    bool operator==(const AcDbHandle& o) const { return m_value == o.m_value; }
    bool operator!=(const AcDbHandle& o) const { return m_value != o.m_value; }
    bool operator<(const AcDbHandle& o) const { return m_value < o.m_value; }

private:
    Adesk::UInt64 m_value = 0;
};

template <>
struct std::hash<AcDbHandle> {
    size_t operator()(const AcDbHandle& h) const noexcept { return std::hash<Adesk::UInt64>()(h.value()); }
};
