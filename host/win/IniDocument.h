// One profile (INI) file held as its lines, so that a change rewrites only
// the line it touches and keeps comments, blank lines and order as they were.
//
// Reading rules: blanks around a line, a name and a value are ignored;
// "[name]" opens a section; ";" starts a comment line; "key=value" is an
// entry (split at the first "="); any other line, and entries before the
// first section, are kept but never found. Names compare without regard to
// case; with a section or key written twice, the first one counts.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

class IniDocument {
public:
    // Lines may end in "\n" or "\r\n"; the style of the first line ending is
    // kept for the whole file (a file without one gets "\n").
    static IniDocument Parse(std::wstring_view text);
    std::wstring Serialize() const;

    // --- reading ---
    // Section names in file order, each once (the first spelling).
    std::vector<std::wstring> SectionNames() const;
    bool HasSection(std::wstring_view section) const;
    // The keys of the section's entries in order, each once.
    std::vector<std::wstring> KeyNames(std::wstring_view section) const;
    // "key=value" for each entry of the section, names and values trimmed.
    std::vector<std::wstring> EntryLines(std::wstring_view section) const;
    // The trimmed value, or null if the section or key is missing.
    const std::wstring* FindValue(std::wstring_view section, std::wstring_view key) const;

    // --- changing (each returns true if the document changed) ---
    // Replaces the entry's line by "key=value" (the file's spelling of the
    // key), or adds "key=value" after the last non-blank line of the
    // section, or adds the section with the entry at the end of the file.
    bool SetValue(std::wstring_view section, std::wstring_view key, std::wstring_view value);
    // Removes every entry with this key from the section.
    bool DeleteKey(std::wstring_view section, std::wstring_view key);
    // Removes every section of this name, with all its lines.
    bool DeleteSection(std::wstring_view section);
    // Replaces the section's lines (up to its last non-blank line) by the
    // given ones; a missing section is added at the end.
    bool ReplaceSection(std::wstring_view section, const std::vector<std::wstring>& lines);

private:
    enum class Kind { Blank, Comment, Section, Entry, Other };
    struct Line {
        std::wstring text;   // as in the file, without the line ending
        Kind kind = Kind::Blank;
        std::wstring name;   // section or key name, trimmed
        std::wstring value;  // entry value, trimmed
    };

    static Line Classify(std::wstring text);
    int FindSection(std::wstring_view section) const;
    int SectionEnd(int iHeader) const;
    int LastContentLine(int iHeader) const;
    void InsertLines(int iAt, std::vector<Line> lines);

    std::vector<Line> m_lines;
    std::wstring m_strEol = L"\n";
    bool m_bFinalEol = true;
};
