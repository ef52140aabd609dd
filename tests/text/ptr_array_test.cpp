// The framework's arrays under hostile indices and counts: a call either
// does what it says inside the array or leaves the array as it was.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <utility>
#include <vector>

#include "platform/text/ptr_array.h"

namespace {

class PtrArrayCounts : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (int& slot : slots) array.Add(&slot);
    }

    std::vector<void*> Contents() const
    {
        std::vector<void*> contents;
        for (int i = 0; i < array.GetSize(); ++i) contents.push_back(array.GetAt(i));
        return contents;
    }
    std::vector<void*> Slots(std::initializer_list<int> indices)
    {
        std::vector<void*> pointers;
        for (int i : indices) pointers.push_back(i < 0 ? nullptr : &slots[i]);
        return pointers;
    }
    static std::string Call(int index, int count) { return "(" + std::to_string(index) + ", " + std::to_string(count) + ")"; }

    int slots[4] = {};
    int extra = 0;
    CPtrArray array;
};

TEST_F(PtrArrayCounts, RemoveAtCutsACountPastTheEndAtTheEnd)
{
    const auto all = Contents();
    for (const int count : {2, 3, 100, INT_MAX - 2, INT_MAX - 1, INT_MAX}) {
        array.RemoveAll();
        for (void* p : all) array.Add(p);
        array.RemoveAt(2, count);
        EXPECT_EQ(Contents(), Slots({0, 1})) << Call(2, count);
    }
    array.RemoveAt(0, INT_MAX);
    EXPECT_TRUE(array.IsEmpty());
}

TEST_F(PtrArrayCounts, RemoveAtWithABadIndexOrCountDoesNothing)
{
    const std::pair<int, int> calls[] = {{-1, 1},       {-1, 2},      {INT_MIN, INT_MAX}, {4, 1},  {5, INT_MAX},
                                         {INT_MAX, 1},  {INT_MAX, INT_MAX}, {0, 0},       {1, -1}, {2, INT_MIN}};
    for (const auto& [index, count] : calls) {
        array.RemoveAt(index, count);
        EXPECT_EQ(Contents(), Slots({0, 1, 2, 3})) << Call(index, count);
    }
    array.RemoveAt(1);
    EXPECT_EQ(Contents(), Slots({0, 2, 3}));
}

TEST_F(PtrArrayCounts, InsertAtPadsWithNullsUpToAnIndexPastTheEnd)
{
    array.InsertAt(1, &extra, 2);
    EXPECT_EQ(Contents(), (std::vector<void*>{&slots[0], &extra, &extra, &slots[1], &slots[2], &slots[3]}));
    array.InsertAt(8, &extra);
    ASSERT_EQ(array.GetSize(), 9);
    EXPECT_EQ(array.GetAt(6), nullptr);
    EXPECT_EQ(array.GetAt(7), nullptr);
    EXPECT_EQ(array.GetAt(8), &extra);
}

TEST_F(PtrArrayCounts, InsertAtBeyondTheLargestSizeOrWithABadCountDoesNothing)
{
    const std::pair<int, int> calls[] = {
        {0, INT_MAX},  {4, INT_MAX},         {INT_MAX, 1},   {kPtrArrayMaxSize, 1}, {0, kPtrArrayMaxSize - 3},
        {-1, 1},       {INT_MIN, INT_MAX},   {0, 0},         {2, -1},               {2, INT_MIN},
    };
    for (const auto& [index, count] : calls) {
        array.InsertAt(index, &extra, count);
        EXPECT_EQ(Contents(), Slots({0, 1, 2, 3})) << Call(index, count);
    }
}

TEST_F(PtrArrayCounts, SetSizeOutsideZeroToTheLargestSizeDoesNothing)
{
    for (const int size : {-1, INT_MIN, kPtrArrayMaxSize + 1, INT_MAX}) {
        array.SetSize(size);
        EXPECT_EQ(Contents(), Slots({0, 1, 2, 3})) << size;
    }
    array.SetSize(6);
    EXPECT_EQ(Contents(), Slots({0, 1, 2, 3, -1, -1}));
    array.SetSize(1);
    EXPECT_EQ(Contents(), Slots({0}));
    array.SetSize(0);
    EXPECT_TRUE(array.IsEmpty());
}

TEST(StringCounts, PiecesAreCutToTheText)
{
    const CString text("abcdef");
    EXPECT_EQ(text.Mid(2, INT_MAX), "cdef");
    EXPECT_EQ(text.Mid(INT_MAX, INT_MAX), "");
    EXPECT_EQ(text.Mid(INT_MIN, 2), "ab");
    EXPECT_EQ(text.Mid(2), "cdef");
    EXPECT_EQ(text.Mid(2, 0), "");
    EXPECT_EQ(text.Left(INT_MAX), "abcdef");
    EXPECT_EQ(text.Left(INT_MIN), "");
    EXPECT_EQ(text.Right(INT_MAX), "abcdef");
    EXPECT_EQ(text.Right(2), "ef");
    // A length past the text's terminator stops at the terminator.
    EXPECT_EQ(CString("ab", INT_MAX), "ab");
    EXPECT_EQ(CString("abc", 2), "ab");
    EXPECT_EQ(CString("abc", -1), "");
}

}  // namespace
