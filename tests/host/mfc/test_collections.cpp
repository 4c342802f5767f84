// The collection classes: arrays, lists and maps, and the wait cursor.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "host/mfc/CWaitCursor.h"
#include "host/mfc/afxcoll.h"

namespace {

bool ThrowsInvalidArg(const std::function<void()>& fn)
{
    try {
        fn();
    } catch (CInvalidArgException* e) {
        e->Delete();
        return true;
    }
    return false;
}

std::vector<UINT> Items(const CUIntArray& a)
{
    return std::vector<UINT>(a.begin(), a.end());
}

using U = std::vector<UINT>;

TEST(CArray, OutOfRangeAccessThrows)
{
    CUIntArray a;
    a.Add(1);
    a.Add(2);
    const CUIntArray& ca = a;
    const std::pair<const char*, std::function<void()>> bad[] = {
        {"GetAt(size)", [&] { a.GetAt(2); }},
        {"GetAt(-1)", [&] { a.GetAt(-1); }},
        {"const []", [&] { (void)ca[5]; }},
        {"[]", [&] { a[2] = 0; }},
        {"SetAt", [&] { a.SetAt(2, 9); }},
        {"ElementAt", [&] { a.ElementAt(-1); }},
        {"SetAtGrow(-1)", [&] { a.SetAtGrow(-1, 0); }},
        {"InsertAt(-1)", [&] { a.InsertAt(-1, 0); }},
        {"InsertAt count 0", [&] { a.InsertAt(0, 7, 0); }},
        {"RemoveAt past end", [&] { a.RemoveAt(1, 2); }},
        {"RemoveAt(-1)", [&] { a.RemoveAt(-1); }},
        {"SetSize(-1)", [&] { a.SetSize(-1); }},
        {"empty GetAt(0)", [&] { CStringArray().GetAt(0); }},
    };
    for (const auto& [name, fn] : bad)
        EXPECT_TRUE(ThrowsInvalidArg(fn)) << name;
    EXPECT_EQ(Items(a), (U{1, 2}));  // failed calls changed nothing
}

TEST(CArray, InsertRemoveAndGrow)
{
    CUIntArray a;
    EXPECT_EQ(a.Add(10), 0);
    EXPECT_EQ(a.Add(20), 1);
    a.InsertAt(1, 15);
    EXPECT_EQ(Items(a), (U{10, 15, 20}));
    a.InsertAt(0, 5, 2);
    EXPECT_EQ(Items(a), (U{5, 5, 10, 15, 20}));
    a.InsertAt(7, 99);  // past the end: the gap is zero-filled
    EXPECT_EQ(Items(a), (U{5, 5, 10, 15, 20, 0, 0, 99}));
    a.RemoveAt(5, 3);
    a.RemoveAt(0);
    EXPECT_EQ(Items(a), (U{5, 10, 15, 20}));
    a.RemoveAt(4, 0);  // an empty range at the end is allowed
    a.SetAtGrow(6, 7);
    EXPECT_EQ(Items(a), (U{5, 10, 15, 20, 0, 0, 7}));
    a.SetAtGrow(0, a[6]);
    EXPECT_EQ(a.GetAt(0), 7u);
    EXPECT_EQ(a.GetUpperBound(), 6);

    CUIntArray b;
    b.Add(1);
    b.Add(2);
    a.InsertAt(1, &b);
    EXPECT_EQ(Items(a), (U{7, 1, 2, 10, 15, 20, 0, 0, 7}));
    a.SetSize(2);
    EXPECT_EQ(a.Append(a), 2);  // appending itself doubles it
    EXPECT_EQ(Items(a), (U{7, 1, 7, 1}));
    b.Copy(a);
    EXPECT_EQ(Items(b), Items(a));
    a.RemoveAll();
    EXPECT_TRUE(a.IsEmpty());
    EXPECT_EQ(a.GetData(), nullptr);
    EXPECT_EQ(a.GetUpperBound(), -1);
}

TEST(CArray, StringAndPointerArrays)
{
    CStringArray s;
    s.SetAtGrow(8, L"");  // the height mark's nine texts
    EXPECT_EQ(s.GetSize(), 9);
    s.SetAt(0, L"Höhe");
    s[1] = "narrow";
    s.Add(s[0]);  // an element of the array itself
    EXPECT_EQ(s.GetCount(), 10);
    EXPECT_EQ(s[9], L"Höhe");
    EXPECT_EQ(s[1], L"narrow");
    EXPECT_TRUE(s[5].IsEmpty());

    struct Rec : CObject {
        explicit Rec(int v) : v(v) {}
        int v;
    };
    Rec r1(1), r2(2);
    CObArray o;
    o.Add(&r1);
    o.InsertAt(0, &r2);
    EXPECT_EQ(static_cast<Rec*>(o[1])->v, 1);
    o.RemoveAll();  // the owner frees records; the array only forgets them
    EXPECT_EQ(r1.v, 1);

    CByteArray bytes;
    bytes.SetSize(3);
    EXPECT_EQ(bytes.GetData()[2], 0);
}

std::vector<CString> Walk(const CStringList& l, bool backwards = false)
{
    std::vector<CString> out;
    POSITION pos = backwards ? l.GetTailPosition() : l.GetHeadPosition();
    while (pos)
        out.push_back(backwards ? l.GetPrev(pos) : l.GetNext(pos));
    return out;
}

using V = std::vector<CString>;

TEST(CList, AddFindRemoveWalk)
{
    CStringList l;
    EXPECT_EQ(l.GetHeadPosition(), nullptr);
    l.AddTail(L"b");
    l.AddTail(L"c");
    POSITION a = l.AddHead(L"a");
    EXPECT_EQ(Walk(l), (V{L"a", L"b", L"c"}));
    EXPECT_EQ(Walk(l, true), (V{L"c", L"b", L"a"}));
    EXPECT_EQ(l.GetAt(a), L"a");
    EXPECT_EQ(l.GetHead(), L"a");
    EXPECT_EQ(l.GetTail(), L"c");

    POSITION b = l.Find(L"b");
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(l.Find(L"B"), nullptr);  // case-sensitive
    EXPECT_EQ(l.Find(L"a", a), nullptr);  // search starts after a
    EXPECT_EQ(l.FindIndex(1), b);
    EXPECT_EQ(l.FindIndex(3), nullptr);
    EXPECT_EQ(l.FindIndex(-1), nullptr);

    l.InsertAfter(b, L"b2");
    l.InsertBefore(b, L"a2");
    EXPECT_EQ(Walk(l), (V{L"a", L"a2", L"b", L"b2", L"c"}));
    l.RemoveAt(b);
    l.SetAt(a, L"A");
    EXPECT_EQ(Walk(l), (V{L"A", L"a2", L"b2", L"c"}));
    EXPECT_EQ(l.RemoveHead(), L"A");
    EXPECT_EQ(l.RemoveTail(), L"c");
    EXPECT_EQ(l.GetCount(), 2);

    l.AddTail(&l);  // a list appended to itself
    EXPECT_EQ(Walk(l), (V{L"a2", L"b2", L"a2", L"b2"}));
    CStringList copy(l);
    l.RemoveAll();
    EXPECT_TRUE(l.IsEmpty());
    EXPECT_EQ(copy.GetCount(), 4);
}

TEST(CList, EmptyAndNullPositionsThrow)
{
    CPtrList l;
    POSITION none = nullptr;
    const std::pair<const char*, std::function<void()>> bad[] = {
        {"GetHead", [&] { l.GetHead(); }},
        {"GetTail", [&] { l.GetTail(); }},
        {"RemoveHead", [&] { l.RemoveHead(); }},
        {"RemoveTail", [&] { l.RemoveTail(); }},
        {"GetAt(null)", [&] { l.GetAt(none); }},
        {"GetNext(null)", [&] { l.GetNext(none); }},
        {"RemoveAt(null)", [&] { l.RemoveAt(none); }},
    };
    for (const auto& [name, fn] : bad)
        EXPECT_TRUE(ThrowsInvalidArg(fn)) << name;

    int x = 0;
    CObList ol;
    ol.AddTail(nullptr);
    EXPECT_EQ(ol.GetCount(), 1);
    l.AddTail(&x);
    EXPECT_EQ(l.Find(&x), l.GetHeadPosition());
}

TEST(CMap, StringToStringIsCaseSensitiveAndOrdered)
{
    CMapStringToString m;
    m.SetAt(L"b", L"2");
    m[L"a"] = L"1";
    m.SetAt(L"B", L"upper");
    m.SetAt(L"b", L"two");  // replaces
    EXPECT_EQ(m.GetCount(), 3);

    CString v;
    EXPECT_TRUE(m.Lookup(L"b", v));
    EXPECT_EQ(v, L"two");
    EXPECT_TRUE(m.Lookup(L"B", v));
    EXPECT_EQ(v, L"upper");
    v = L"unchanged";
    EXPECT_FALSE(m.Lookup(L"c", v));
    EXPECT_EQ(v, L"unchanged");

    V keys;
    POSITION pos = m.GetStartPosition();
    while (pos) {
        CString key, value;
        m.GetNextAssoc(pos, key, value);
        keys.push_back(key);
        if (key == L"a") {
            EXPECT_TRUE(m.RemoveKey(key));  // removing the current entry mid-walk
        }
    }
    EXPECT_EQ(keys, (V{L"B", L"a", L"b"}));
    EXPECT_FALSE(m.RemoveKey(L"a"));
    EXPECT_EQ(m.GetCount(), 2);

    EXPECT_TRUE(m[L"new"].IsEmpty());  // operator[] adds
    EXPECT_EQ(m.GetCount(), 3);
    m.RemoveAll();
    EXPECT_EQ(m.GetStartPosition(), nullptr);
}

TEST(CMap, PointerAndObjectMaps)
{
    int x = 5;
    CMapStringToPtr p;
    p.SetAt(L"x", &x);
    void* found = nullptr;
    EXPECT_TRUE(p.Lookup(L"x", found));
    EXPECT_EQ(found, &x);

    CObject* none = nullptr;
    CMapStringToOb o;
    o[L"k"] = nullptr;
    EXPECT_TRUE(o.Lookup(L"k", none));
    EXPECT_FALSE(o.Lookup(L"K", none));
}

TEST(CWaitCursor, CountsBeginsAndEnds)
{
    CWaitCursor::ResetCounts();
    EXPECT_FALSE(CWaitCursor::IsWaiting());
    {
        CWaitCursor outer;
        CWaitCursor inner;
        inner.Restore();
        EXPECT_TRUE(CWaitCursor::IsWaiting());
    }
    EXPECT_FALSE(CWaitCursor::IsWaiting());
    const auto c = CWaitCursor::GetCounts();
    EXPECT_EQ(c.begins, 2);
    EXPECT_EQ(c.ends, 2);
    EXPECT_EQ(c.restores, 1);
}

} // namespace
