// The token level of resource scripts: lexing, the preprocessor (#define,
// #include, #if...), comments and string escapes. The parser sees a flat list of
// tokens with every defined symbol already replaced.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace svres {

enum class TokKind { Name, Number, String, Punct, End };

struct Token {
    TokKind kind = TokKind::End;
    std::wstring text;     // the name, the punctuation, or the decoded string
    long long value = 0;   // of a number
    int line = 0;
    int file = 0;          // index into TokenList::files
    bool bLineStart = false;  // first token of its line
};

struct TokenList {
    std::vector<Token> tokens;      // ends with one End token
    std::vector<std::wstring> files;
    std::map<std::wstring, long long> numericDefines;
};

// Finds the text of an #include "name" written in fromFile. Returns false when
// there is no such file; resolvedName names the file in later messages.
using IncludeResolver = std::function<bool(const std::wstring& name, const std::wstring& fromFile,
                                           std::wstring& text, std::wstring& resolvedName)>;

// Throws ResError on bad input.
TokenList Tokenize(std::wstring_view text, const std::wstring& fileName, const IncludeResolver& resolver);

// A token as an error message shows it: the name, "\"text\"", or "the end of the file".
std::wstring Describe(const Token& tok);

// Evaluates an integer expression (numbers, + - * / % | & ^ ~ ! << >> comparisons,
// && || and parentheses) starting at pos; stops at the first token that cannot
// continue it. Names count as 0 when bNamesAreZero (as in #if), else as an error.
long long EvalExpression(const std::vector<Token>& tokens, size_t& pos, const std::wstring& file, bool bNamesAreZero);

} // namespace svres
