// Reads the tags of an ASCII DXF file from memory, fast and with bounded memory.
#pragma once

#include "host/dxf/DxfCodepage.h"
#include "host/dxf/DxfError.h"
#include "host/dxf/DxfTag.h"

#include <cstddef>
#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct DxfReadOptions {
    // Unset: follow $ACADVER and $DWGCODEPAGE of the header, Detect until they are seen.
    std::optional<DxfTextEncoding> encoding;
    bool decodeUnicodeEscapes = true;  // \U+XXXX in string values become the characters
    bool skipComments = true;          // 999 tags
    std::size_t maxLineLength = std::size_t(1) << 20;
    DxfWarningHook warning;            // missing 0/EOF, unsupported code pages, bad UTF-8
};

// Lines end in LF, CRLF or a lone CR; a UTF-8 byte order mark is skipped. The group code line may carry
// blanks around the number; a value line is kept exactly as written except for its line end
// (string values may end in meaningful blanks; numbers may be padded). Reading stops at
// 0/EOF; whatever follows it is ignored. A file that ends after a complete tag without 0/EOF
// is accepted with a warning. Every malformed input throws DxfError with the file and line.
class DxfTagReader {
public:
    // Takes the file's bytes; fileName is used in messages only.
    explicit DxfTagReader(std::string data, std::string fileName = "<memory>",
                          DxfReadOptions options = {});
    // Reads the whole file; DxfError when it can't be read.
    static DxfTagReader fromFile(const std::filesystem::path& path, DxfReadOptions options = {});

    DxfTagReader(DxfTagReader&&) noexcept = default;
    DxfTagReader& operator=(DxfTagReader&&) noexcept = default;
    DxfTagReader(const DxfTagReader&) = delete;
    DxfTagReader& operator=(const DxfTagReader&) = delete;

    // The next tag; false after 0/EOF (which is returned as a tag) or at the end of the data.
    bool next(DxfTag& tag);
    // Makes the tag last returned by next() the next one again. One level only.
    void unget();
    // The next tag without consuming it; null at the end.
    const DxfTag* peek();

    bool sawEof() const noexcept { return m_sawEof; }
    // The last line read so far.
    std::size_t line() const noexcept { return m_line; }
    const std::string& fileName() const noexcept { return *m_file; }
    std::shared_ptr<const std::string> sharedFileName() const noexcept { return m_file; }
    DxfTextEncoding encoding() const noexcept { return m_encoding; }

    DxfOwnedTag own(const DxfTag& tag) const { return DxfOwnedTag(tag, m_file); }

    // Errors naming this reader's file.
    DxfError error(std::size_t line, const std::string& message) const;
    DxfError expected(std::size_t line, std::string_view what, std::string_view found) const;
    void warn(std::size_t line, const std::string& message) const;

private:
    bool readTag(DxfTag& tag);
    // The common code line, read without the general checks; false leaves the position as it was.
    bool readPlainCode(int& code, std::size_t lineNo);
    // Any code line; -1 when only blanks remain (after the warning).
    int readCode(std::size_t lineNo);
    std::string_view readLine(std::size_t lineNo);
    bool onlyBlanksRemain() const noexcept;
    void checkValue(DxfTag& tag);
    std::string_view decodeString(std::string_view raw, std::size_t lineNo);
    void watchHeader(const DxfTag& tag);

    std::unique_ptr<std::string> m_data;  // on the heap so tags survive a move of the reader
    std::shared_ptr<const std::string> m_file;
    DxfReadOptions m_options;
    std::size_t m_pos = 0;
    std::size_t m_firstNul;
    std::size_t m_line = 0;
    bool m_done = false;
    bool m_sawEof = false;
    bool m_haveLast = false;
    bool m_replayLast = false;
    DxfTag m_last;

    DxfTextEncoding m_encoding = DxfTextEncoding::Detect;
    bool m_warnedBadUtf8 = false;
    int m_headerVar = 0;  // 1 after 9/$ACADVER, 2 after 9/$DWGCODEPAGE
    std::string m_acadver;
    std::string m_codepage;
    std::deque<std::string> m_converted;  // string values that differ from the file's bytes
};
