// Parsing and formatting of DXF value text: integers, doubles, handles and binary chunks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Each parser accepts blanks (space, tab) around the value and returns false for anything
// else that isn't a complete value of its kind.

// Decimal integer with an optional sign.
bool dxfParseInt(std::string_view text, std::int64_t& out) noexcept;
// Finite decimal number ("1", "1.0", ".5", "-2.5E-03"); no inf, nan or hex forms.
bool dxfParseDouble(std::string_view text, double& out) noexcept;
// 1 to 16 hexadecimal digits, either case.
bool dxfParseHandle(std::string_view text, std::uint64_t& out) noexcept;
// An even number of hexadecimal digits; appends the bytes to out when it isn't null.
bool dxfParseBinary(std::string_view text, std::vector<std::uint8_t>* out);

// Enough for every formatted number below.
inline constexpr std::size_t kDxfNumberBufferSize = 40;

// The shortest text that reads back as the same double, always with a decimal point and an
// upper-case exponent: 1.0, 0.1, -0.0, 1.0E+20, 2.5E-300. Returns the length written.
std::size_t dxfFormatDouble(double value, char* buffer) noexcept;
// Upper-case hexadecimal without leading zeros ("0" for the null handle).
std::size_t dxfFormatHandle(std::uint64_t handle, char* buffer) noexcept;
// Decimal, right-aligned to width (0: no padding).
std::size_t dxfFormatInt(std::int64_t value, int width, char* buffer) noexcept;
// Upper-case hexadecimal of the bytes, appended to out.
void dxfAppendHex(const std::uint8_t* data, std::size_t size, std::string& out);
