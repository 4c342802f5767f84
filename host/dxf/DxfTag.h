// One DXF tag (group code and value), its typed views, and its owning form.
#pragma once

#include "host/dxf/DxfGroupCode.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// A point gathered from x/y/z tags; hasZ is false for the 2D points of older files.
struct DxfPoint {
    double x = 0;
    double y = 0;
    double z = 0;
    bool hasZ = false;
};

// A tag as the reader yields it. The value views the reader's memory and stays valid as long
// as that reader lives (moving the reader keeps it valid). String values are UTF-8; numbers,
// handles and binary chunks were checked against their code's type by the reader, which
// keeps the parsed number so that the typed views don't parse again.
// The typed views throw DxfError naming the value's line when the text doesn't fit.
struct DxfTag {
    enum class Parsed : unsigned char { None, Integer, Double };

    int code = 0;
    std::size_t line = 0;              // line of the group code; the value is on line + 1
    std::string_view value;
    const std::string* file = nullptr; // for messages; null reads as "<dxf>"
    Parsed parsed = Parsed::None;
    std::int64_t integer = 0;          // valid when parsed is Integer (handles too)
    double number = 0;                 // valid when parsed is Double

    DxfValueType type() const noexcept { return dxfValueType(code); }
    std::size_t valueLine() const noexcept { return line + 1; }

    std::string_view asString() const noexcept { return value; }
    std::int16_t asInt16() const;
    std::int32_t asInt32() const;
    std::int64_t asInt64() const;
    double asDouble() const;
    // Any 16-bit integer; non-zero is true.
    bool asBool() const;
    std::uint64_t asHandle() const;
    std::vector<std::uint8_t> asBinary() const;
    // Appends this chunk's bytes, for data spread over several 310 tags.
    void appendBinary(std::vector<std::uint8_t>& out) const;

    // "10/1.5" for messages.
    std::string describe() const;
};

// A tag that owns its value, for keeping tags beyond the reader's life (e.g. records of
// unknown kinds that are written back unchanged).
struct DxfOwnedTag {
    int code = 0;
    std::size_t line = 0;
    std::string value;
    std::shared_ptr<const std::string> file;

    DxfOwnedTag() = default;
    DxfOwnedTag(int code, std::string value) : code(code), value(std::move(value)) {}
    DxfOwnedTag(const DxfTag& tag, std::shared_ptr<const std::string> file)
        : code(tag.code), line(tag.line), value(tag.value), file(std::move(file)) {}

    // A view for the typed accessors; valid while this object is unchanged.
    DxfTag view() const;
};
