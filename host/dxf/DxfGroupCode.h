// DXF group codes: the value type each code carries and how point coordinates pair up.
#pragma once

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

// True for 0..1071. Codes in that range without a documented type read as strings.
bool dxfIsValidGroupCode(int code) noexcept;

// The value type of a valid code; String for undocumented codes in the range.
DxfValueType dxfValueType(int code) noexcept;

// True when the code is the x of a point: 10-18, 110-112, 210, 1010-1013.
bool dxfIsPointCode(int code) noexcept;
// The y code partnering an x code (x + 10).
int dxfPointYCode(int xCode) noexcept;
// The z code partnering an x code (x + 20), or -1 when the point is planar (code 18).
int dxfPointZCode(int xCode) noexcept;

// "string", "16-bit integer", ... for messages.
const char* dxfValueTypeName(DxfValueType type) noexcept;
