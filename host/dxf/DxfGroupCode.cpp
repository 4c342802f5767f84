// Value types of DXF group codes, from the ranges of the DXF reference.
#include "host/dxf/DxfGroupCode.h"

#include <array>

namespace {

using T = DxfValueType;

struct Range {
    int first;
    int last;
    T type;
};

// Codes not listed here (80-89, 180-209, 482-998, ...) are undocumented and read as strings.
constexpr Range kRanges[] = {
    {0, 4, T::String},     {5, 5, T::Handle},     {6, 9, T::String},
    {10, 59, T::Double},   {60, 79, T::Int16},    {90, 99, T::Int32},
    {100, 102, T::String}, {105, 105, T::Handle}, {110, 149, T::Double},
    {160, 169, T::Int64},  {170, 179, T::Int16},  {210, 239, T::Double},
    {270, 289, T::Int16},  {290, 299, T::Bool},   {300, 309, T::String},
    {310, 319, T::Binary}, {320, 369, T::Handle}, {370, 389, T::Int16},
    {390, 399, T::Handle}, {400, 409, T::Int16},  {410, 419, T::String},
    {420, 429, T::Int32},  {430, 439, T::String}, {440, 459, T::Int32},
    {460, 469, T::Double}, {470, 479, T::String}, {480, 481, T::Handle},
    {999, 999, T::String}, {1000, 1003, T::String}, {1004, 1004, T::Binary},
    {1005, 1005, T::Handle}, {1006, 1009, T::String}, {1010, 1059, T::Double},
    {1060, 1070, T::Int16}, {1071, 1071, T::Int32},
};

constexpr std::array<T, kDxfMaxGroupCode + 1> makeTable()
{
    std::array<T, kDxfMaxGroupCode + 1> table{};
    for (auto& t : table)
        t = T::String;
    for (const Range& r : kRanges)
        for (int c = r.first; c <= r.last; ++c)
            table[static_cast<std::size_t>(c)] = r.type;
    return table;
}

} // namespace

// Filled at compile time from the ranges above.
constinit const std::array<DxfValueType, kDxfMaxGroupCode + 1> kDxfValueTypes = makeTable();

const char* dxfValueTypeName(DxfValueType type) noexcept
{
    switch (type) {
    case T::String: return "string";
    case T::Int16: return "16-bit integer";
    case T::Int32: return "32-bit integer";
    case T::Int64: return "64-bit integer";
    case T::Double: return "floating-point number";
    case T::Bool: return "boolean (integer)";
    case T::Handle: return "hexadecimal handle";
    case T::Binary: return "hexadecimal binary data";
    }
    return "value";
}
