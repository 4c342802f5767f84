// CString: comparison and case folding, search and extraction edge cases,
// tokenizing, trimming, modification, buffers, UTF-8 and the string table.
#include <gtest/gtest.h>

#include <map>

#include "host/mfc/CString.h"

namespace {

int Sign(int v) { return (v > 0) - (v < 0); }

// True if fn throws CInvalidArgException*; the exception is freed.
template <class Fn>
bool ThrowsInvalidArg(Fn fn)
{
    try {
        fn();
    } catch (CInvalidArgException* e) {
        e->Delete();
        return true;
    }
    return false;
}

TEST(CStringCompare, NoCaseFoldsGermanAndLatin)
{
    const struct {
        const wchar_t* a;
        const wchar_t* b;
        int want;
    } cases[] = {
        {L"Maß", L"MASS", 0},
        {L"Maß", L"mass", 0},
        {L"MASS", L"Maß", 0},
        {L"Höhe", L"HÖHE", 0},
        {L"äöü", L"ÄÖÜ", 0},
        {L"Straße", L"STRASSE", 0},
        {L"STRAẞE", L"straße", 0},
        {L"Łódź", L"ŁÓDŹ", 0},
        {L"Čeština", L"ČEŠTINA", 0},
        {L"Œuvre", L"œUVRE", 0},
        {L"ÿ", L"Ÿ", 0},
        {L"Ελλάδα", L"ΕΛΛΆΔΑ", 0},
        {L"Привет", L"ПРИВЕТ", 0},
        {L"abc", L"abd", -1},
        {L"Maß", L"Mast", -1},  // "mass" < "mast"
        {L"abc", L"ab", 1},
        {L"", L"", 0},
        {L"", L"a", -1},
        {L"Höhe", L"Hohe", 1},  // a diacritic is not case
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Sign(CString(c.a).CompareNoCase(c.b)), c.want) << CString(c.a) << " vs " << CString(c.b);
        EXPECT_EQ(Sign(CString(c.b).CompareNoCase(c.a)), -c.want) << "reversed";
    }
}

TEST(CStringCompare, CompareIsOrdinalAndOperatorsAgree)
{
    EXPECT_LT(CString(L"B").Compare(L"a"), 0);  // upper case sorts first by code point
    EXPECT_GT(CString(L"ä").Compare(L"z"), 0);
    EXPECT_EQ(CString(L"x").Compare(nullptr), 1);
    EXPECT_TRUE(CString(L"abc") == L"abc");
    EXPECT_TRUE(L"abc" == CString(L"abc"));
    EXPECT_TRUE(CString(L"abc") != CString(L"ABC"));
    EXPECT_TRUE(CString(L"a") < CString(L"b"));
    EXPECT_TRUE(CString(L"a") == L'a');

    std::map<CString, int> m{{L"b", 2}, {L"a", 1}, {L"A", 0}};
    EXPECT_EQ(m.begin()->first, L"A");
}

TEST(CStringCompare, CollateOrdersLikeADictionary)
{
    // Each entry sorts before the next one.
    const wchar_t* const ordered[] = {L"apfel", L"Apfel", L"äpfel", L"Äpfel", L"Bär", L"bärig", L"Mass", L"Maß", L"Masse", L"Zoo"};
    for (std::size_t i = 0; i + 1 < std::size(ordered); ++i) {
        EXPECT_EQ(CString(ordered[i]).Collate(ordered[i + 1]), -1) << CString(ordered[i]);
        EXPECT_EQ(CString(ordered[i + 1]).Collate(ordered[i]), 1) << CString(ordered[i + 1]);
    }
    EXPECT_EQ(CString(L"Äpfel").CollateNoCase(L"äPFEL"), 0);
    EXPECT_EQ(CString(L"Äpfel").CollateNoCase(L"Apfel"), 1);
    EXPECT_EQ(CString(L"Äpfel").CollateNoCase(L"Apfelz"), -1);
}

TEST(CStringCase, MakeUpperAndLower)
{
    const struct {
        const wchar_t* text;
        const wchar_t* upper;
        const wchar_t* lower;
    } cases[] = {
        {L"Maßkette", L"MAßKETTE", L"maßkette"},
        {L"Höhenkote äöü", L"HÖHENKOTE ÄÖÜ", L"höhenkote äöü"},
        {L"žluťoučký kůň", L"ŽLUŤOUČKÝ KŮŇ", L"žluťoučký kůň"},
        {L"ÿ×÷", L"Ÿ×÷", L"ÿ×÷"},
        {L"a1-B2", L"A1-B2", L"a1-b2"},
    };
    for (const auto& c : cases) {
        CString up(c.text), low(c.text);
        EXPECT_EQ(up.MakeUpper(), c.upper);
        EXPECT_EQ(low.MakeLower(), c.lower);
        EXPECT_EQ(CString(c.upper).MakeLower(), c.lower);
    }
    CString r(L"abc\U0001F600");
    EXPECT_EQ(r.MakeReverse(), L"\U0001F600cba");
}

TEST(CStringSearch, FindAndReverseFind)
{
    const CString s(L"a,b,,c");
    const struct {
        int got;
        int want;
    } cases[] = {
        {s.Find(L','), 1},
        {s.Find(L',', 2), 3},
        {s.Find(L',', 5), -1},
        {s.Find(L',', 6), -1},
        {s.Find(L',', -1), -1},
        {s.Find(L",,"), 3},
        {s.Find(L",c", 4), 4},
        {s.Find(L"x"), -1},
        {s.Find(L""), 0},
        {s.Find(L"", 6), 6},
        {s.Find(L"", 7), -1},
        {s.Find(nullptr), -1},
        {s.ReverseFind(L','), 4},
        {s.ReverseFind(L'x'), -1},
        {s.FindOneOf(L"cb"), 2},
        {s.FindOneOf(L"xyz"), -1},
        {s.FindOneOf(L""), -1},
        {CString().Find(L'a'), -1},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(cases[i].got, cases[i].want) << "case " << i;
}

TEST(CStringExtract, CountsClampAsMfcDoes)
{
    const CString s(L"Höhe1");
    const struct {
        CString got;
        const wchar_t* want;
    } cases[] = {
        {s.Left(2), L"Hö"},     {s.Left(0), L""},       {s.Left(-3), L""},     {s.Left(99), L"Höhe1"},
        {s.Right(2), L"e1"},    {s.Right(-1), L""},     {s.Right(99), L"Höhe1"},
        {s.Mid(1), L"öhe1"},    {s.Mid(1, 2), L"öh"},   {s.Mid(-2, 2), L"Hö"}, {s.Mid(3, 99), L"e1"},
        {s.Mid(5), L""},        {s.Mid(9), L""},        {s.Mid(2, -1), L""},   {s.Mid(9, 2), L""},
        {s.Mid(1, INT_MAX), L"öhe1"},
        {s.SpanIncluding(L"Hö"), L"Hö"},                {s.SpanIncluding(L"x"), L""},
        {s.SpanExcluding(L"e"), L"Höh"},                {s.SpanExcluding(L""), L"Höhe1"},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(cases[i].got, cases[i].want) << "case " << i;
}

TEST(CStringExtract, GetAtAndSetAtCheckTheIndex)
{
    CString s(L"ab");
    EXPECT_EQ(s[1], L'b');
    EXPECT_EQ(s.GetAt(2), L'\0');  // the terminator may be read
    EXPECT_TRUE(ThrowsInvalidArg([&] { s.GetAt(3); }));
    EXPECT_TRUE(ThrowsInvalidArg([&] { s.GetAt(-1); }));
    EXPECT_TRUE(ThrowsInvalidArg([&] { s.SetAt(2, L'x'); }));
    try {
        s.SetAt(-1, L'x');
    } catch (CException* e) {
        wchar_t msg[8];
        EXPECT_TRUE(e->GetErrorMessage(msg, 8));
        EXPECT_STREQ(msg, L"Invalid");
        e->Delete();
    }
    s.SetAt(0, L'ä');
    EXPECT_EQ(s, L"äb");
}

std::vector<CString> TokensOf(const CString& s, const wchar_t* delims, int start = 0)
{
    std::vector<CString> out;
    int pos = start;
    for (CString tok = s.Tokenize(delims, pos); pos != -1; tok = s.Tokenize(delims, pos))
        out.push_back(tok);
    EXPECT_EQ(pos, -1);
    return out;
}

TEST(CStringTokenize, SkipsEmptyFieldsAndEnds)
{
    using V = std::vector<CString>;
    EXPECT_EQ(TokensOf(L"a,b,c", L","), (V{L"a", L"b", L"c"}));
    EXPECT_EQ(TokensOf(L",,a,,b,,", L","), (V{L"a", L"b"}));
    EXPECT_EQ(TokensOf(L"a; b;;c", L"; "), (V{L"a", L"b", L"c"}));
    EXPECT_EQ(TokensOf(L",,,", L","), V{});
    EXPECT_EQ(TokensOf(L"", L","), V{});
    EXPECT_EQ(TokensOf(L"whole", L""), V{L"whole"});
    EXPECT_EQ(TokensOf(L"a,b,c", L",", 2), (V{L"b", L"c"}));
    EXPECT_EQ(TokensOf(L"a,b", L",", 9), V{});

    const CString s(L"x,y");
    int pos = 0;
    EXPECT_EQ(s.Tokenize(L",", pos), L"x");
    EXPECT_EQ(pos, 2);
    EXPECT_EQ(s.Tokenize(L",", pos), L"y");
    EXPECT_EQ(pos, 4);
    EXPECT_EQ(s.Tokenize(L",", pos), L"");
    EXPECT_EQ(pos, -1);
    EXPECT_EQ(s.Tokenize(L",", pos), L"");  // stays at the end, no exception
    EXPECT_EQ(pos, -1);
}

TEST(CStringTrim, WhitespaceSetsAndSingleChars)
{
    const struct {
        CString got;
        const wchar_t* want;
    } cases[] = {
        {CString(L" \t a b \r\n").Trim(), L"a b"},
        {CString(L"  a ").TrimLeft(), L"a "},
        {CString(L"  a ").TrimRight(), L"  a"},
        {CString(L"xxaxx").Trim(L'x'), L"a"},
        {CString(L"-+a+-b-+").Trim(L"+-"), L"a+-b"},
        {CString(L"00120").TrimLeft(L'0'), L"120"},
        {CString(L"1.500").TrimRight(L"0"), L"1.5"},
        {CString(L"1.000").TrimRight(L"0").TrimRight(L"."), L"1"},
        {CString(L"aaa").Trim(L'a'), L""},
        {CString(L"\u00A0a").Trim(), L"\u00A0a"},  // only ASCII blanks
        {CString(L"ab").Trim(L""), L"ab"},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(cases[i].got, cases[i].want) << "case " << i;
}

TEST(CStringModify, ReplaceRemoveInsertDelete)
{
    CString s(L"a--b--c");
    EXPECT_EQ(s.Replace(L"--", L"+"), 2);
    EXPECT_EQ(s, L"a+b+c");
    EXPECT_EQ(s.Replace(L"", L"x"), 0);
    EXPECT_EQ(s.Replace(L"+", nullptr), 2);
    EXPECT_EQ(s, L"abc");
    EXPECT_EQ(s.Replace(L'b', L'ß'), 1);
    EXPECT_EQ(s, L"aßc");

    CString t(L"aaaa");
    EXPECT_EQ(t.Replace(L"aa", L"a"), 2);  // non-overlapping, no rescan
    EXPECT_EQ(t, L"aa");
    EXPECT_EQ(t.Remove(L'a'), 2);
    EXPECT_TRUE(t.IsEmpty());

    CString u(L"ac");
    EXPECT_EQ(u.Insert(1, L'b'), 3);
    EXPECT_EQ(u.Insert(-5, L"<"), 4);
    EXPECT_EQ(u.Insert(99, L">"), 5);
    EXPECT_EQ(u, L"<abc>");
    EXPECT_EQ(u.Delete(0), 4);
    EXPECT_EQ(u.Delete(2, 99), 2);
    EXPECT_EQ(u.Delete(7, 1), 2);
    EXPECT_EQ(u.Delete(0, -1), 2);
    EXPECT_EQ(u, L"ab");
}

TEST(CStringBuild, ConstructConcatenateFormat)
{
    EXPECT_EQ(CString(L'-', 3), L"---");
    EXPECT_EQ(CString(L'-', -1), L"");
    EXPECT_EQ(CString(L"abcdef", 3), L"abc");
    EXPECT_EQ(CString(static_cast<const wchar_t*>(nullptr)), L"");
    EXPECT_EQ(CString("Ma\xC3\x9F"), L"Maß");
    EXPECT_EQ(CString(L"a") + L"b" + L'c' + CString(L"d"), L"abcd");
    EXPECT_EQ(L"x" + CString(L"y"), L"xy");
    EXPECT_EQ(L'x' + CString(L"y"), L"xy");

    CString s;
    s.Format(L"%s=%.2f [%S] %d%%", L"Höhe", 1.005e1, "ok", 5);
    EXPECT_EQ(s, L"Höhe=10.05 [ok] 5%");
    s.AppendFormat(L"|%-3d|", 7);
    EXPECT_EQ(s, L"Höhe=10.05 [ok] 5%|7  |");
    s.Format(L"%s", static_cast<const wchar_t*>(s));  // formatting from itself
    EXPECT_EQ(s, L"Höhe=10.05 [ok] 5%|7  |");
    s.Format(L"[%s|%s|%S]", CString(L"ä"), std::wstring(L"b"), std::string("c"));  // objects pass as text
    EXPECT_EQ(s, L"[ä|b|c]");
}

TEST(CStringBuild, BufferAccess)
{
    CString s(L"abc");
    wchar_t* p = s.GetBuffer(10);
    wcscpy(p, L"hello");
    s.ReleaseBuffer();
    EXPECT_EQ(s, L"hello");
    EXPECT_EQ(s.GetLength(), 5);

    p = s.GetBuffer(3);
    p[1] = L'a';
    s.ReleaseBuffer(2);
    EXPECT_EQ(s, L"ha");

    p = s.GetBufferSetLength(4);
    p[2] = L'x';
    p[3] = L'y';
    s.ReleaseBuffer();
    EXPECT_EQ(s, L"haxy");
}

TEST(CStringUtf8, RoundTrips)
{
    const wchar_t* const samples[] = {L"", L"ascii", L"Maßkette Höhenkote ÄÖÜäöüß", L"€ ½ °", L"😀 \U00010348 𝄞"};
    for (const wchar_t* w : samples) {
        const CString s(w);
        EXPECT_EQ(CString::FromUtf8(s.ToUtf8()), s);
        EXPECT_STREQ(CA2W(CW2A(w)), w);
    }
    EXPECT_EQ(CString(L"ö").ToUtf8(), "\xC3\xB6");
    EXPECT_EQ(CString(L"😀").ToUtf8(), "\xF0\x9F\x98\x80");
    EXPECT_EQ(CString::FromUtf8("a\xC3"), L"a\xFFFD");
}

TEST(CStringTable, LoadStringUsesTheHook)
{
    auto previous = CString::SetStringTableHook(nullptr);
    CString s(L"keep");
    EXPECT_FALSE(s.LoadString(7102));
    EXPECT_EQ(s, L"keep");

    CString::SetStringTableHook([](UINT id, CString& out) {
        if (id != 32792)
            return false;
        out = L"%d Punkte";
        return true;
    });
    EXPECT_TRUE(s.LoadString(32792));
    EXPECT_EQ(s, L"%d Punkte");
    EXPECT_FALSE(s.LoadString(1));
    s.Format(32792u, 4);
    EXPECT_EQ(s, L"4 Punkte");
    CString::SetStringTableHook(previous);
}

} // namespace
