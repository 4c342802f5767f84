// AutoPosLocationOrder: flag bits first, then the locations in the order tried.
#include <gtest/gtest.h>

#include <vector>

#include "options/GlobDimOptions.h"
#include "host/rx/acutPrintf.h"

TEST(AutoPosOrder, Parsing)
{
    struct SRow {
        const wchar_t* text;
        UINT ignoreExt, mirror;
        std::vector<UINT> order;
        bool warns;
    };
    const SRow rows[] = {
        {L"0,14,2,13,15,3", 0, 0, {14, 2, 13, 15, 3}, false},
        {L"1,14,2", 1, 0, {14, 2}, false},
        {L"2,3", 0, 1, {3}, false},
        {L"3,0,8", 1, 1, {0, 8}, false},  // location 0 is a location, not an end
        {L"7,1", 1, 1, {1}, false},       // bits above 1 mean nothing
        {L"0", 0, 0, {}, false},
        {L"", 0, 0, {}, false},
        {L" 1 , 14 ,2 ", 1, 0, {14, 2}, false},
        {L"0,14,,2,", 0, 0, {14, 2}, false},  // empty fields add nothing
        {L",14,2", 0, 0, {14, 2}, false},      // an empty first field has no flags
        {L"0,x,3", 0, 0, {3}, true},
        {L"0,-1,3", 0, 0, {3}, true},
        {L"a,14", 0, 0, {14}, true},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(CString(row.text).ToUtf8());
        CGlobDimOptions options;
        options.arrayOptInt[kOptIntAutoPosIgnoreExt] = 1;  // stale values are replaced
        options.arrayOptInt[kOptIntAutoPosMirror] = 1;
        options.arrayAutoPosOrder.Add(99);
        AcConsoleRecorder console;
        options.SetAutoPosOrder(row.text);
        EXPECT_EQ(options.arrayOptString[kOptStringAutoPosLocationOrder], CString(row.text));
        EXPECT_EQ(options.arrayOptInt[kOptIntAutoPosIgnoreExt], row.ignoreExt);
        EXPECT_EQ(options.arrayOptInt[kOptIntAutoPosMirror], row.mirror);
        EXPECT_EQ(std::vector<UINT>(options.arrayAutoPosOrder.begin(), options.arrayAutoPosOrder.end()), row.order);
        EXPECT_EQ(console.Text().find(L"AutoPosLocationOrder") != std::wstring::npos, row.warns);
    }
}
