// The program's global variables by name: exact byte matches only, the
// first of a repeated name, and nothing for a name it does not hold.
#include <gtest/gtest.h>

#include <string>

#include "demo/debugger/symbol_table.h"

TEST(SymbolTable, FindsNamesByTheirExactBytesAndTheFirstOfARepeatedOne)
{
    SymbolTable table;
    for (int i = 0; i < 500; ++i) table.Add({"v" + std::to_string(i), kNoType, 1, static_cast<std::uint32_t>(i)});
    table.Add({"v7", kNoType, 2, 9999});                            // the same name again
    table.Add({std::string("nul\0x", 5), kNoType, 3, 4242});      // a NUL inside the name
    ASSERT_NE(table.Find("v499"), nullptr);
    EXPECT_EQ(table.Find("v499")->address, 499u);
    EXPECT_EQ(table.Find("v7")->address, 7u);
    EXPECT_EQ(table.Find("v7")->space, 1u);
    EXPECT_EQ(table.Find("V7"), nullptr);  // C names are case-sensitive
    EXPECT_EQ(table.Find("v"), nullptr);
    EXPECT_EQ(table.Find("v4990"), nullptr);
    EXPECT_EQ(table.Find(""), nullptr);
    EXPECT_EQ(table.Find("nul"), nullptr);
    ASSERT_NE(table.Find(std::string_view("nul\0x", 5)), nullptr);
    EXPECT_EQ(table.Find(std::string_view("nul\0x", 5))->address, 4242u);
    EXPECT_EQ(table.All().size(), 502u);
    EXPECT_EQ(table.All()[500].address, 9999u);  // kept, in the order added
}
