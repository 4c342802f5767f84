// Name patterns: negation, any-of, all-of, blanks round parts, and the wildcards beneath.
#include <gtest/gtest.h>

#include "services/MatchString.h"

namespace {

TEST(MatchStringTest, Table)
{
    struct Row {
        const wchar_t* pszValue;
        const wchar_t* pszPattern;
        int iExpected;
    };
    const Row rows[] = {
        {L"B1", L"!A*", 1},
        {L"A1", L"!A*", 0},
        {L"A1", L"A*", 1},
        {L"a1", L"A*", 1},  // case is ignored
        {L"WAND", L"DECKE|WAND", 1},
        {L"TUER", L"DECKE|WAND", 0},
        {L"WAND_NEU", L"W* & *NEU", 1},
        {L"WAND_ALT", L"W* & *NEU", 0},
        {L"WAND_ALT", L"W*&!*NEU", 1},
        {L"DECKE", L"W*&!*NEU | DECKE", 1},  // "&" binds closer than "|"
        {L"WAND_NEU", L"W*&!*NEU | DECKE", 0},
        {L"X", L"  X  ", 1},
        {L"X", L"! X", 0},
        {L"ANY", L"", 1},
        {L"ANY", L"   ", 1},
        {L"ANY", L"|", 0},
        {L"D12", L"D##", 1},
        {L"D1A", L"D##", 0},
        {L"BX", L"A,B*", 1},  // the wildcard's own alternatives
    };
    for (const Row& r : rows)
        EXPECT_EQ(MatchString(r.pszValue, r.pszPattern), r.iExpected)
            << "row " << (&r - rows);
    EXPECT_EQ(MatchString(nullptr, L"*"), 1);
    EXPECT_EQ(MatchString(L"X", nullptr), 1);
}

} // namespace
