// The one error type of DXF reading and writing: where it happened and what was expected.
#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

// what() reads "drawing.dxf:123: expected an integer group code, found "abc"".
// A line of 0 means the error concerns the whole file ("drawing.dxf: cannot open ...").
class DxfError : public std::runtime_error {
public:
    DxfError(std::string file, std::size_t line, const std::string& message);

    // "expected <expected>, found "<found>"", with the found text shortened and made printable.
    static DxfError expected(std::string file, std::size_t line, std::string_view expected,
                             std::string_view found);

    const std::string& file() const noexcept { return m_file; }
    std::size_t line() const noexcept { return m_line; }
    const std::string& message() const noexcept { return m_message; }

    // The found text as a message shows it: quoted, at most 40 bytes, controls and quotes as \xNN.
    static std::string quote(std::string_view found);

private:
    std::string m_file;
    std::size_t m_line;
    std::string m_message;
};


// Receives warnings such as "drawing.dxf:12: code page ANSI_1251 is not supported ...".
using DxfWarningHook = std::function<void(const std::string&)>;
