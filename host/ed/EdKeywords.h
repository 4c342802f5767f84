// Keyword lists as acedInitGet and jigs take them, and matching typed text against them.
#pragma once

#include <string>
#include <vector>

namespace eded {

struct Keyword {
    std::wstring local;      // "Entfernen"
    std::wstring shortForm;  // "E": the capitals, or the abbreviation after a comma
    std::wstring global;     // the form after "_" in the list, or the local form
};

// Words separated by blanks; "Word,Abbr" gives an explicit short form; a lone "_" starts
// the global names, which pair with the local ones in order.
std::vector<Keyword> parseKeywords(const std::wstring& list);
// The index of the first keyword the text matches, or -1. Case is ignored. Local forms
// match by the full word, the short form, or a prefix of the word at least as long as the
// short form; "_text" matches global forms the same way.
int matchKeyword(const std::vector<Keyword>& keywords, const std::wstring& text);

} // namespace eded
