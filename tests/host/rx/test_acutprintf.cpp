// The console line: formatting through the engine and the replaceable sink.
#include <gtest/gtest.h>

#include "host/rx/acutPrintf.h"

namespace {

TEST(AcutPrintf, RecorderSeesFormattedCallsInOrder)
{
    AcConsoleRecorder rec;
    EXPECT_EQ(acutPrintf(L"\nMaßkette %s: %d Punkte", L"A", 3), 21);
    acutPrintf(L"\n%s %.1f%%", std::wstring(L"Höhe"), 12.25);  // a string object passes as text
    ASSERT_EQ(rec.Calls().size(), 2u);
    EXPECT_EQ(rec.Calls()[0], L"\nMaßkette A: 3 Punkte");
    EXPECT_EQ(rec.Calls()[1], L"\nHöhe 12.2%");
    EXPECT_EQ(rec.Text(), rec.Calls()[0] + rec.Calls()[1]);
    rec.Clear();
    EXPECT_TRUE(rec.Text().empty());
}

TEST(AcutPrintf, RecordersNestAndRestoreThePreviousSink)
{
    std::wstring outer;
    AcConsoleSink before = acutSetConsoleSink([&](const std::wstring& t) { outer += t; });
    {
        AcConsoleRecorder inner;
        acutPrintf(L"inside");
        EXPECT_EQ(inner.Text(), L"inside");
    }
    acutPrintf(L"after");
    EXPECT_EQ(outer, L"after");
    acutSetConsoleSink(before);
}

TEST(AcutPrintf, EmptySinkRestoresStdout)
{
    AcConsoleSink before = acutSetConsoleSink(nullptr);
    testing::internal::CaptureStdout();
    acutPrintf(L"%s=%d\n", L"Höhe", 1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "H\xC3\xB6he=1\n");
    acutSetConsoleSink(before);
}

} // namespace
