// Tag reading: lines, group codes, value checks and the text encoding of string values.
#include "host/win/Utf8.h"
#include "host/dxf/DxfTagReader.h"

#include "host/dxf/DxfTagValue.h"

#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace {

constexpr std::string_view kBom = "\xEF\xBB\xBF";
constexpr std::string_view kBinarySentinel = "AutoCAD Binary DXF";

bool isBlank(char c) noexcept
{
    return c == ' ' || c == '\t';
}

std::string_view trimBlanks(std::string_view s) noexcept
{
    while (!s.empty() && isBlank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && isBlank(s.back()))
        s.remove_suffix(1);
    return s;
}

// A plain loop: find_first_not_of scans its set once per character.
bool allDigits(std::string_view s) noexcept
{
    for (char c : s)
        if (c < '0' || c > '9')
            return false;
    return true;
}

// True when the string needs decoding: bytes above 0x7F, or a backslash that may start \U+.
bool needsDecoding(std::string_view s, bool escapes) noexcept
{
    for (char c : s)
        if ((static_cast<unsigned char>(c) & 0x80) || (escapes && c == '\\'))
            return true;
    return false;
}

std::string readWholeFile(const std::filesystem::path& path)
{
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f)
        throw DxfError(path.string(), 0, "cannot open the file for reading");
    std::string data;
    std::error_code ec;
    const auto size = std::filesystem::file_size(path, ec);
    if (!ec)
        data.reserve(static_cast<std::size_t>(size));
    char chunk[1 << 16];
    std::size_t n;
    while ((n = std::fread(chunk, 1, sizeof chunk, f)) > 0)
        data.append(chunk, n);
    const bool failed = std::ferror(f) != 0;
    std::fclose(f);
    if (failed)
        throw DxfError(path.string(), 0, "cannot read the file");
    return data;
}

} // namespace

DxfTagReader::DxfTagReader(std::string data, std::string fileName, DxfReadOptions options)
    : m_data(std::make_unique<std::string>(std::move(data)))
    , m_file(std::make_shared<const std::string>(std::move(fileName)))
    , m_options(std::move(options))
{
    const std::string& d = *m_data;
    const void* nul = std::memchr(d.data(), 0, d.size());
    m_firstNul = nul ? static_cast<std::size_t>(static_cast<const char*>(nul) - d.data()) : d.size();
    if (std::string_view(d).substr(0, kBom.size()) == kBom)
        m_pos = kBom.size();
    if (std::string_view(d).substr(m_pos, kBinarySentinel.size()) == kBinarySentinel)
        throw error(1, "expected an ASCII DXF file, found a binary DXF file (not supported; "
                       "save the drawing as ASCII DXF)");
    if (m_options.encoding)
        m_encoding = *m_options.encoding;
}

DxfTagReader DxfTagReader::fromFile(const std::filesystem::path& path, DxfReadOptions options)
{
    return DxfTagReader(readWholeFile(path), path.string(), std::move(options));
}

DxfError DxfTagReader::error(std::size_t line, const std::string& message) const
{
    return DxfError(*m_file, line, message);
}

DxfError DxfTagReader::expected(std::size_t line, std::string_view what, std::string_view found) const
{
    return DxfError::expected(*m_file, line, what, found);
}

void DxfTagReader::warn(std::size_t line, const std::string& message) const
{
    if (m_options.warning)
        m_options.warning(DxfError(*m_file, line, message).what());
}

bool DxfTagReader::next(DxfTag& tag)
{
    if (m_replayLast) {
        m_replayLast = false;
        tag = m_last;
        return true;
    }
    for (;;) {
        if (!readTag(tag)) {
            m_haveLast = false;
            return false;
        }
        if (!(tag.code == 999 && m_options.skipComments))
            break;
    }
    m_last = tag;
    m_haveLast = true;
    return true;
}

void DxfTagReader::unget()
{
    if (!m_haveLast || m_replayLast)
        throw std::logic_error("DxfTagReader::unget: no tag to put back");
    m_replayLast = true;
}

const DxfTag* DxfTagReader::peek()
{
    DxfTag t;
    if (!next(t))
        return nullptr;
    unget();
    return &m_last;
}

std::string_view DxfTagReader::readLine(std::size_t lineNo)
{
    const std::string& d = *m_data;
    const std::size_t rest = d.size() - m_pos;
    const std::size_t max = m_options.maxLineLength;
    // Look no further than a line may reach (content, CR, LF), so a file without line
    // breaks costs one bounded scan.
    const std::size_t window = rest < max + 2 ? rest : max + 2;
    const char* begin = d.data() + m_pos;
    // One pass finds the LF and the first CR before it: lines are short, and two library
    // scans per line cost more than the bytes themselves.
    const char* lf = nullptr;
    const char* cr = nullptr;
    for (const char* p = begin; p != begin + window; ++p) {
        if (*p == '\n') {
            lf = p;
            break;
        }
        if (*p == '\r' && !cr)
            cr = p;
    }
    std::size_t len;
    if (lf) {
        len = static_cast<std::size_t>(lf - begin);
    } else if (rest <= window) {
        len = rest;  // last line without a line end
    } else {
        throw error(lineNo, "expected a line of at most " + std::to_string(max)
                                + " bytes, found a longer one");
    }
    std::size_t consumed = len + (lf ? 1 : 0);
    // CRLF, or a lone CR as files from old systems end their lines.
    if (cr) {
        const auto at = static_cast<std::size_t>(cr - begin);
        if (at + 1 == len && lf) {
            len = at;
        } else {
            len = at;
            consumed = at + 1;
        }
    }
    if (m_firstNul < m_pos + consumed)
        throw error(lineNo, "expected text, found a NUL byte");
    m_pos += consumed;
    if (len > max)
        throw error(lineNo, "expected a line of at most " + std::to_string(max)
                                + " bytes, found a longer one");
    m_line = lineNo;
    return std::string_view(begin, len);
}

bool DxfTagReader::onlyBlanksRemain() const noexcept
{
    const std::string& d = *m_data;
    for (std::size_t i = m_pos; i < d.size(); ++i) {
        const char c = d[i];
        if (!(isBlank(c) || c == '\r' || c == '\n'))
            return false;
    }
    return true;
}

bool DxfTagReader::readTag(DxfTag& tag)
{
    if (m_done)
        return false;
    const std::size_t codeLine = m_line + 1;
    if (m_pos >= m_data->size()) {
        m_done = true;
        warn(m_line, "the file ends without 0/EOF");
        return false;
    }
    int code = 0;
    if (!readPlainCode(code, codeLine)) {
        code = readCode(codeLine);
        if (code < 0)
            return false;  // only blanks were left
    }
    if (m_pos >= m_data->size())
        throw error(codeLine + 1, "expected the value of group code " + std::to_string(code)
                                      + ", found the end of the file");

    tag.code = code;
    tag.line = codeLine;
    tag.value = readLine(codeLine + 1);
    tag.file = m_file.get();
    tag.parsed = DxfTag::Parsed::None;
    checkValue(tag);

    if (code == 0 && trimBlanks(tag.value) == "EOF") {
        m_done = true;
        m_sawEof = true;
    }
    if (!m_options.encoding && (code == 9 || m_headerVar != 0))
        watchHeader(tag);
    return true;
}

bool DxfTagReader::readPlainCode(int& code, std::size_t lineNo)
{
    // Nearly every code line is blanks, one to four digits and the line end; anything else
    // (and every error) goes the general way from the same place.
    const std::string& d = *m_data;
    const char* const begin = d.data() + m_pos;
    const char* const end = d.data() + d.size();
    const char* p = begin;
    while (p != end && *p == ' ')
        ++p;
    int value = 0;
    int digits = 0;
    for (; p != end && *p >= '0' && *p <= '9' && digits < 4; ++p, ++digits)
        value = value * 10 + (*p - '0');
    if (digits == 0 || p == end || value > kDxfMaxGroupCode)
        return false;
    const auto len = static_cast<std::size_t>(p - begin);
    if (*p == '\r')
        ++p;
    if (p == end || *p != '\n')
        return false;
    ++p;
    const auto consumed = static_cast<std::size_t>(p - begin);
    if (len > m_options.maxLineLength || m_firstNul < m_pos + consumed)
        return false;
    m_pos += consumed;
    m_line = lineNo;
    code = value;
    return true;
}

int DxfTagReader::readCode(std::size_t codeLine)
{
    const std::string_view codeText = trimBlanks(readLine(codeLine));
    if (codeText.empty() && onlyBlanksRemain()) {
        m_done = true;
        warn(m_line, "the file ends without 0/EOF");
        return -1;
    }
    const bool negative = codeText.size() > 1 && codeText[0] == '-';
    std::string_view digits = codeText.substr(negative ? 1 : 0);
    if (digits.empty() || !allDigits(digits))
        throw expected(codeLine, "an integer group code", codeText);
    while (digits.size() > 1 && digits.front() == '0')
        digits.remove_prefix(1);
    int code = 0;
    if (negative || digits.size() > 4)
        throw expected(codeLine, "a group code from 0 to 1071", codeText);
    for (char c : digits)
        code = code * 10 + (c - '0');
    if (!dxfIsValidGroupCode(code))
        throw expected(codeLine, "a group code from 0 to 1071", codeText);
    return code;
}

void DxfTagReader::checkValue(DxfTag& tag)
{
    const DxfValueType type = tag.type();
    const auto fail = [&] {
        throw expected(tag.valueLine(),
                       std::string(type == DxfValueType::Binary ? "" : "a ") + dxfValueTypeName(type)
                           + " for group code " + std::to_string(tag.code),
                       tag.value);
    };
    std::int64_t v = 0;
    switch (type) {
    case DxfValueType::String:
        tag.value = decodeString(tag.value, tag.valueLine());
        return;
    case DxfValueType::Double:
        if (!dxfParseDouble(tag.value, tag.number))
            fail();
        tag.parsed = DxfTag::Parsed::Double;
        return;
    case DxfValueType::Int16:
    case DxfValueType::Bool:
        if (!dxfParseInt(tag.value, v) || v < -32768 || v > 32767)
            fail();
        break;
    case DxfValueType::Int32:
        if (!dxfParseInt(tag.value, v) || v < INT32_MIN || v > INT32_MAX)
            fail();
        break;
    case DxfValueType::Int64:
        if (!dxfParseInt(tag.value, v))
            fail();
        break;
    case DxfValueType::Handle: {
        std::uint64_t h = 0;
        if (!dxfParseHandle(tag.value, h))
            fail();
        v = static_cast<std::int64_t>(h);
        break;
    }
    case DxfValueType::Binary:
        if (!dxfParseBinary(tag.value, nullptr))
            fail();
        return;
    }
    tag.integer = v;
    tag.parsed = DxfTag::Parsed::Integer;
}

std::string_view DxfTagReader::decodeString(std::string_view raw, std::size_t lineNo)
{
    const bool escapes = m_options.decodeUnicodeEscapes;
    if (!needsDecoding(raw, escapes))
        return raw;
    bool as1252 = m_encoding == DxfTextEncoding::Windows1252;
    bool highBytes = false;
    for (char c : raw)
        highBytes = highBytes || (static_cast<unsigned char>(c) & 0x80);
    if (highBytes && !as1252 && !svwin::IsValidUtf8(raw)) {
        // Mislabelled files are common; 1252 is what their text most likely is.
        if (m_encoding == DxfTextEncoding::Utf8 && !m_warnedBadUtf8) {
            m_warnedBadUtf8 = true;
            warn(lineNo, "text that isn't valid UTF-8 is read as Windows-1252");
        }
        as1252 = true;
    }
    const bool hasEscapes = escapes && dxfHasUnicodeEscapes(raw);
    if (!hasEscapes && !(highBytes && as1252))
        return raw;
    std::string text;
    if (highBytes && as1252)
        dxfAppendCp1252AsUtf8(raw, text);
    else
        text.assign(raw);
    if (hasEscapes)
        text = dxfDecodeUnicodeEscapes(text);
    m_converted.push_back(std::move(text));
    return m_converted.back();
}

void DxfTagReader::watchHeader(const DxfTag& tag)
{
    if (tag.code == 9) {
        const std::string_view name = trimBlanks(tag.value);
        m_headerVar = name == "$ACADVER" ? 1 : name == "$DWGCODEPAGE" ? 2 : 0;
        return;
    }
    if (m_headerVar == 0)
        return;
    const int var = m_headerVar;
    m_headerVar = 0;
    if (var == 1 && tag.code == 1)
        m_acadver.assign(tag.value.substr(0, 16));
    else if (var == 2 && tag.code == 3)
        m_codepage.assign(tag.value.substr(0, 32));
    else
        return;
    m_encoding = dxfTextEncodingFor(m_acadver, m_codepage, [&](const std::string& msg) {
        warn(tag.valueLine(), msg);
    });
}
