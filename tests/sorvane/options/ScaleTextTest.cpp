// Scale texts read as numbers.
#include <gtest/gtest.h>

#include "options/ScaleText.h"

TEST(ScaleText, ScaleStr2Double)
{
    struct SRow {
        const wchar_t* text;
        double value;
    };
    const SRow rows[] = {
        {L"1:100", 0.01}, {L"1:0", 0.01},  {L"0:0", 0.01},      {L"2:1", 2.0},   {L"0.5", 0.5},
        {L"0,5", 0.5},    {L"1:2,5", 0.4}, {L"BMaß", 0.01},     {L"bmass", 0.01}, {L"AnnoScale", 0.01},
        {L"", 0.01},      {L"abc", 1.0},   {L"1:abc", 0.01},    {L"0", 1.0},     {L"5:", 0.05},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(CString(row.text).ToUtf8());
        EXPECT_DOUBLE_EQ(ScaleStr2Double(row.text), row.value);
    }
}
