// CToken: fields come out in order, empty ones included, and joining them
// again gives the record back.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "services/Token.h"

TEST(CToken, KeepsEmptyFieldsAndRoundTrips)
{
    struct Case {
        const wchar_t *text, *separator;
        std::vector<std::wstring> fields;
    };
    const std::vector<Case> cases = {
        {L"12#8@@Vortext", L"@", {L"12#8", L"", L"Vortext"}}, {L"12#-3", L"#", {L"12", L"-3"}},
        {L"a@", L"@", {L"a", L""}},      {L"@@", L"@", {L"", L"", L""}}, {L"", L"@", {L""}},
        {L"a::b", L"::", {L"a", L"b"}}, {L"a@b", L"", {L"a@b"}},
    };
    for (const Case& c : cases) {
        std::vector<std::wstring> fields;
        std::wstring joined;
        for (CToken token(c.text, c.separator); token.MoreTokens() && fields.size() < 10;) {
            fields.push_back(std::wstring(token.GetNextToken()));
            joined += (fields.size() > 1 ? c.separator : L"") + fields.back();
        }
        EXPECT_EQ(fields, c.fields) << c.text;
        EXPECT_EQ(joined, c.text);
    }
    CToken token(CString(L"x"), L'#');
    EXPECT_EQ(std::wstring(token.GetNextToken()), L"x");
    EXPECT_EQ(std::wstring(token.GetNextToken()), L""); // past the end
}
