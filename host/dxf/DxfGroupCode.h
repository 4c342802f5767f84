// DXF group codes: the value type each code carries and how point coordinates pair up.
#pragma once

#include <array>

// What the value line of a group code holds.
enum class DxfValueType : unsigned char {
    String,  // text, UTF-8 once read
    Int16,
    Int32,
    Int64,
    Double,
    Bool,    // written as an integer, 0 or 1
    Handle,  // hexadecimal object handle, up to 16 digits
    Binary,  // hexadecimal bytes (chunks of 310-319 and 1004)
};

// Codes a file may contain. Negative codes exist only in the programming interface.
inline constexpr int kDxfMinGroupCode = 0;
inline constexpr int kDxfMaxGroupCode = 1071;

// The value type of each code 0..1071, looked up for every tag read or written.
extern const std::array<DxfValueType, kDxfMaxGroupCode + 1> kDxfValueTypes;

// True for 0..1071. Codes in that range without a documented type read as strings.
inline bool dxfIsValidGroupCode(int code) noexcept
{
    return code >= kDxfMinGroupCode && code <= kDxfMaxGroupCode;
}

// The value type of a valid code; String for undocumented codes in the range.
inline DxfValueType dxfValueType(int code) noexcept
{
    return dxfIsValidGroupCode(code) ? kDxfValueTypes[static_cast<std::size_t>(code)] : DxfValueType::String;
}

// True when the code is the x of a point: 10-18, 110-112, 210, 1010-1013.
inline bool dxfIsPointCode(int code) noexcept
{
    return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || code == 210
        || (code >= 1010 && code <= 1013);
}
// The y code partnering an x code (x + 10).
inline int dxfPointYCode(int xCode) noexcept
{
    return xCode + 10;
}
// The z code partnering an x code (x + 20), or -1 when the point is planar (code 18).
// (38 is the elevation, not the z of code 18.)
inline int dxfPointZCode(int xCode) noexcept
{
    return xCode == 18 ? -1 : xCode + 20;
}

// "string", "16-bit integer", ... for messages.
const char* dxfValueTypeName(DxfValueType type) noexcept;
