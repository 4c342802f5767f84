// AcArray: lengths, growth, insertion and removal, searching, and range checks.
#include "host/rx/AcArray.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace {

std::vector<int> items(const AcArray<int>& a)
{
    return {a.begin(), a.end()};
}

TEST(AcArray, AppendGrowsPhysicalLengthInGrowSteps)
{
    AcArray<int> a(0, 8);
    EXPECT_TRUE(a.isEmpty());
    EXPECT_EQ(a.append(5), 0);
    EXPECT_EQ(a.physicalLength(), 8);
    for (int i = 1; i < 9; ++i)
        a.append(i);
    EXPECT_EQ(a.length(), 9);
    EXPECT_EQ(a.physicalLength(), 16);
    EXPECT_EQ(a.first(), 5);
    EXPECT_EQ(a.last(), 8);

    // Past the grow size the array doubles, so a long run of appends reallocates rarely.
    int growths = 0;
    for (int i = 0, phys = a.physicalLength(); i < 100000; ++i) {
        a.append(i);
        if (a.physicalLength() != phys) {
            phys = a.physicalLength();
            ++growths;
        }
    }
    EXPECT_LE(growths, 14);
}

TEST(AcArray, LogicalAndPhysicalLength)
{
    AcArray<double> a;
    a.setLogicalLength(7);
    EXPECT_EQ(a.length(), 7);
    EXPECT_GE(a.physicalLength(), 7);
    EXPECT_EQ(a[6], 0.0);
    a[6] = 2.5;
    a.setPhysicalLength(3); // truncates
    EXPECT_EQ(a.length(), 3);
    a.setLogicalLength(0);
    EXPECT_TRUE(a.isEmpty());
}

TEST(AcArray, InsertRemoveAndReverse)
{
    AcArray<int> a{1, 2, 4};
    a.insertAt(2, 3).insertAt(0, 0).insertAt(5, 5);
    EXPECT_EQ(items(a), (std::vector<int>{0, 1, 2, 3, 4, 5}));
    a.removeAt(0).removeLast();
    EXPECT_EQ(items(a), (std::vector<int>{1, 2, 3, 4}));
    a.reverse();
    EXPECT_EQ(items(a), (std::vector<int>{4, 3, 2, 1}));
    // Appending an element of the array itself must survive reallocation.
    for (int i = 0; i < 20; ++i)
        a.append(a[0]);
    EXPECT_EQ(a.last(), 4);
}

TEST(AcArray, FindAndContains)
{
    AcArray<int> a{7, 8, 7};
    int at = -1;
    EXPECT_TRUE(a.find(7, at));
    EXPECT_EQ(at, 0);
    EXPECT_TRUE(a.find(7, at, 1));
    EXPECT_EQ(at, 2);
    EXPECT_EQ(a.find(9), -1);
    EXPECT_FALSE(a.contains(8, 2));
    EXPECT_TRUE(a.remove(8));
    EXPECT_FALSE(a.contains(8));
}

TEST(AcArray, OutOfRangeThrows)
{
    AcArray<int> a{1, 2};
    const AcArray<int>& c = a;
    EXPECT_THROW(a[2], std::out_of_range);
    EXPECT_THROW(c.at(-1), std::out_of_range);
    EXPECT_THROW(a.insertAt(3, 0), std::out_of_range);
    EXPECT_THROW(a.removeAt(2), std::out_of_range);
    EXPECT_THROW(a.setLogicalLength(-1), std::out_of_range);
    AcArray<int> empty;
    EXPECT_THROW(empty.first(), std::out_of_range);
    EXPECT_THROW(empty.last(), std::out_of_range);
    EXPECT_THROW(empty.removeLast(), std::out_of_range);
}

} // namespace
