// Typed views of a DXF tag's value.
#include "host/dxf/DxfTag.h"

#include "host/dxf/DxfError.h"
#include "host/dxf/DxfTagValue.h"

#include <limits>

namespace {

[[noreturn]] void fail(const DxfTag& tag, const char* what)
{
    std::string expected = what;
    expected += " for group code ";
    expected += std::to_string(tag.code);
    throw DxfError::expected(tag.file ? *tag.file : std::string(), tag.valueLine(), expected,
                             tag.value);
}

template <typename T>
T intOfRange(const DxfTag& tag, const char* what)
{
    std::int64_t v = 0;
    if (tag.parsed == DxfTag::Parsed::Integer && tag.type() != DxfValueType::Handle)
        v = tag.integer;
    else if (!dxfParseInt(tag.value, v))
        fail(tag, what);
    if (v < std::numeric_limits<T>::min() || v > std::numeric_limits<T>::max())
        fail(tag, what);
    return static_cast<T>(v);
}

} // namespace

std::int16_t DxfTag::asInt16() const
{
    return intOfRange<std::int16_t>(*this, "a 16-bit integer");
}

std::int32_t DxfTag::asInt32() const
{
    return intOfRange<std::int32_t>(*this, "a 32-bit integer");
}

std::int64_t DxfTag::asInt64() const
{
    return intOfRange<std::int64_t>(*this, "a 64-bit integer");
}

bool DxfTag::asBool() const
{
    return intOfRange<std::int16_t>(*this, "a boolean (integer)") != 0;
}

double DxfTag::asDouble() const
{
    if (parsed == Parsed::Double)
        return number;
    double v = 0;
    if (!dxfParseDouble(value, v))
        fail(*this, "a floating-point number");
    return v;
}

std::uint64_t DxfTag::asHandle() const
{
    if (parsed == Parsed::Integer && type() == DxfValueType::Handle)
        return static_cast<std::uint64_t>(integer);
    std::uint64_t h = 0;
    if (!dxfParseHandle(value, h))
        fail(*this, "a hexadecimal handle");
    return h;
}

void DxfTag::appendBinary(std::vector<std::uint8_t>& out) const
{
    if (!dxfParseBinary(value, &out))
        fail(*this, "hexadecimal binary data");
}

std::vector<std::uint8_t> DxfTag::asBinary() const
{
    std::vector<std::uint8_t> out;
    appendBinary(out);
    return out;
}

std::string DxfTag::describe() const
{
    std::string s = std::to_string(code);
    s += '/';
    s += value.substr(0, 40);
    return s;
}

DxfTag DxfOwnedTag::view() const
{
    DxfTag t;
    t.code = code;
    t.line = line;
    t.value = value;
    t.file = file.get();
    return t;
}
