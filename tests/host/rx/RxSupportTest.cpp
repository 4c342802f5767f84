// Dictionaries, error status names, acrx_abort and wide formatting.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "host/rx/AcRxAbort.h"
#include "host/rx/AcRxDictionary.h"
#include "host/rx/AcadStrc.h"

namespace {

std::vector<std::wstring> keysOf(const AcRxDictionary& dictionary)
{
    std::vector<std::wstring> keys;
    std::unique_ptr<AcRxDictionaryIterator> it(dictionary.newIterator());
    for (; !it->done(); it->next())
        keys.emplace_back(it->key());
    return keys;
}

TEST(RxDictionary, AtPutAndRemoveHandBackObjects)
{
    AcRxDictionary dictionary;
    auto* first = new AcRxObject();
    auto* second = new AcRxObject();
    EXPECT_EQ(dictionary.atPut(L"key", first), nullptr);
    EXPECT_EQ(dictionary.atPut(L"key", second), first);  // the caller owns first again
    delete first;
    EXPECT_EQ(dictionary.numEntries(), 1u);
    EXPECT_EQ(dictionary.at(L"key"), second);

    std::unique_ptr<AcRxObject> removed(dictionary.remove(L"key"));
    EXPECT_EQ(removed.get(), second);
    EXPECT_EQ(dictionary.numEntries(), 0u);
    EXPECT_EQ(dictionary.remove(L"key"), nullptr);
    EXPECT_FALSE(dictionary.deletesObjects());
    // Neither keys nor objects may be null.
    EXPECT_EQ(dictionary.atPut(nullptr, second), nullptr);
    EXPECT_EQ(dictionary.atPut(L"k", nullptr), nullptr);
    EXPECT_EQ(dictionary.numEntries(), 0u);
    EXPECT_EQ(dictionary.at(nullptr), nullptr);
}

TEST(RxDictionary, CaseSensitivityIsAChoiceOfTheDictionary)
{
    AcRxObject object;
    struct Case {
        bool ignoreCase;
        const ACHAR* lookup;
        bool found;
    };
    const Case cases[] = {
        {false, L"Service", true}, {false, L"SERVICE", false}, {false, L"service", false},
        {true, L"Service", true},  {true, L"SERVICE", true},   {true, L"sERVICe", true},
        {true, L"Servic", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.ignoreCase << " " << std::wstring(c.lookup));
        AcRxDictionary dictionary(c.ignoreCase);
        dictionary.atPut(L"Service", &object);
        EXPECT_EQ(dictionary.has(c.lookup), c.found);
        EXPECT_EQ(dictionary.isCaseSensitive(), !c.ignoreCase);
    }
    AcRxDictionary folded(true);
    folded.atPut(L"Service", &object);
    folded.atPut(L"SERVICE", &object);
    EXPECT_EQ(keysOf(folded), std::vector<std::wstring>{L"Service"});  // first spelling kept
}

TEST(RxDictionary, IteratorWalksInKeyOrderAndSurvivesRemoval)
{
    AcRxDictionary dictionary;
    AcRxObject a, b, c;
    dictionary.atPut(L"c", &c);
    dictionary.atPut(L"a", &a);
    dictionary.atPut(L"b", &b);
    EXPECT_EQ(keysOf(dictionary), (std::vector<std::wstring>{L"a", L"b", L"c"}));

    std::unique_ptr<AcRxDictionaryIterator> it(dictionary.newIterator());
    ASSERT_FALSE(it->done());
    EXPECT_EQ(it->object(), &a);
    dictionary.remove(it->key());  // removing the current entry
    EXPECT_STREQ(it->key(), L"a");
    EXPECT_TRUE(it->next());
    EXPECT_EQ(it->object(), &b);
    dictionary.remove(L"c");  // and one ahead
    EXPECT_FALSE(it->next());
    EXPECT_TRUE(it->done());
    EXPECT_FALSE(it->next());

    AcRxDictionary empty;
    EXPECT_TRUE(std::unique_ptr<AcRxDictionaryIterator>(empty.newIterator())->done());
}

TEST(RxErrorStatus, TextIsTheStatusName)
{
    struct Case {
        Acad::ErrorStatus status;
        const ACHAR* text;
    };
    const Case cases[] = {
        {Acad::eOk, L"eOk"},
        {Acad::eNotImplementedYet, L"eNotImplementedYet"},
        {Acad::eOnLockedLayer, L"eOnLockedLayer"},
        {Acad::eKeyNotFound, L"eKeyNotFound"},
        {Acad::eHandleNotFound, L"eHandleNotFound"},
        {static_cast<Acad::ErrorStatus>(-1), L"eUnknownErrorStatus"},
        {Acad::eWasNotifying, L"eWasNotifying"},
        {Acad::eMakeMeProxy, L"eMakeMeProxy"},
        {static_cast<Acad::ErrorStatus>(100000), L"eUnknownErrorStatus"},
    };
    for (const auto& c : cases)
        EXPECT_STREQ(acadErrorStatusText(c.status), c.text) << static_cast<int>(c.status);
}

TEST(RxErrorStatus, EveryStatusHasItsOwnValueAndName)
{
    // Values the module compares as numbers.
    EXPECT_EQ(Acad::eOk, 0);
    EXPECT_EQ(Acad::eInvalidInput, 3);
    EXPECT_EQ(Acad::eWasNotifying, 85);
    EXPECT_EQ(Acad::eMakeMeProxy, 301);
    std::set<int> values;
    std::set<std::wstring> names;
    std::size_t count = 0;
#define SV_COLLECT(name)                                         \
    ++count;                                                     \
    values.insert(Acad::name);                                   \
    names.insert(acadErrorStatusText(Acad::name));               \
    EXPECT_STREQ(acadErrorStatusText(Acad::name), ACRX_T(#name));
#define SV_COLLECT_PINNED(name, value) SV_COLLECT(name)
    SV_ACAD_ERROR_STATUS_LIST(SV_COLLECT, SV_COLLECT_PINNED)
#undef SV_COLLECT
#undef SV_COLLECT_PINNED
    EXPECT_EQ(values.size(), count);
    EXPECT_EQ(names.size(), count);
}

TEST(RxAbort, ThrowingHandlerCarriesTheFormattedMessage)
{
    const AcRxAbortHandler outside = acrxSetAbortHandler(nullptr);
    acrxSetAbortHandler(outside);
    {
        AcRxThrowOnAbort guard;
        try {
            acrx_abort(L"bad class %s in line %d", L"SVdim", 12);
            ADD_FAILURE() << "acrx_abort returned";
        } catch (const AcRxAbort& e) {
            EXPECT_EQ(e.message(), L"bad class SVdim in line 12");
            EXPECT_STREQ(e.what(), "bad class SVdim in line 12");
        }
    }
    EXPECT_EQ(acrxSetAbortHandler(outside), outside);  // the guard put the old one back
}

TEST(RxAbortDeathTest, DefaultHandlerEndsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(acrx_abort(L"Class mismatch"), "acrx_abort: Class mismatch");
}

}  // namespace
