// Message formatting of DxfError.
#include "host/dxf/DxfError.h"

namespace {

std::string composeWhat(const std::string& file, std::size_t line, const std::string& message)
{
    std::string s = file.empty() ? std::string("<dxf>") : file;
    if (line > 0) {
        s += ':';
        s += std::to_string(line);
    }
    s += ": ";
    s += message;
    return s;
}

} // namespace

DxfError::DxfError(std::string file, std::size_t line, const std::string& message)
    : std::runtime_error(composeWhat(file, line, message))
    , m_file(std::move(file))
    , m_line(line)
    , m_message(message)
{
}

DxfError DxfError::expected(std::string file, std::size_t line, std::string_view expected,
                            std::string_view found)
{
    std::string msg = "expected ";
    msg += expected;
    msg += ", found ";
    msg += quote(found);
    return DxfError(std::move(file), line, msg);
}

std::string DxfError::quote(std::string_view found)
{
    constexpr std::size_t kMaxShown = 40;
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string s = "\"";
    std::size_t n = found.size() < kMaxShown ? found.size() : kMaxShown;
    // Don't cut a UTF-8 sequence in two.
    while (n < found.size() && n > 0 && (static_cast<unsigned char>(found[n]) & 0xC0) == 0x80)
        --n;
    for (std::size_t i = 0; i < n; ++i) {
        const auto c = static_cast<unsigned char>(found[i]);
        if (c < 0x20 || c == 0x7F || c == '"') {
            s += "\\x";
            s += kHex[c >> 4];
            s += kHex[c & 0xF];
        } else {
            s += static_cast<char>(c);
        }
    }
    s += '"';
    if (found.size() > kMaxShown)
        s += "...";
    return s;
}
