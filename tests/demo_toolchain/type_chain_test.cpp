// Type chains as SDCC 4.2 writes them in .cdb files.
#include <gtest/gtest.h>

#include "demo/toolchain/type_chain.h"

namespace {

TEST(TypeChain, ScalarsCarryTheirSizeSignAndLetter)
{
    struct Case {
        const char* text;
        BaseType base;
        bool isSigned;
        std::uint32_t size;
        std::uint32_t baseBytes;
    };
    const Case cases[] = {
        {"({1}SC:U)", BaseType::Char, false, 1, 1},
        {"({1}SC:S)", BaseType::Char, true, 1, 1},
        {"({2}SI:S)", BaseType::Int, true, 2, 2},
        {"({4}SL:U)", BaseType::Long, false, 4, 4},
        {"({4}SF:S)", BaseType::Float, true, 4, 4},
        {"({1}SX:U)", BaseType::Sbit, false, 1, 1},
        {"({1}:S)", BaseType::Bool, true, 1, 1},
        // long long is written with the int letter; only its size tells.
        {"({8}SI:S)", BaseType::Int, true, 8, 8},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const auto chain = ParseTypeChain(c.text);
        ASSERT_TRUE(chain);
        EXPECT_EQ(chain->base, c.base);
        EXPECT_EQ(chain->isSigned, c.isSigned);
        EXPECT_EQ(chain->size, c.size);
        EXPECT_EQ(chain->baseBytes, c.baseBytes);
        EXPECT_TRUE(chain->declarators.empty());
    }
}

TEST(TypeChain, DeclaratorsComeOutermostFirst)
{
    // int grid[2][3]: an array of 2 arrays of 3 ints.
    const auto grid = ParseTypeChain("({12}DA2d,DA3d,SI:S)");
    ASSERT_TRUE(grid);
    ASSERT_EQ(grid->declarators.size(), 2u);
    EXPECT_EQ(grid->declarators[0].count, 2u);
    EXPECT_EQ(grid->declarators[1].count, 3u);
    EXPECT_EQ(grid->baseBytes, 2u);

    // A pointer in code memory to a function returning int.
    const auto fp = ParseTypeChain("({2}DC,DF,SI:S)");
    ASSERT_TRUE(fp);
    ASSERT_EQ(fp->declarators.size(), 2u);
    EXPECT_EQ(fp->declarators[0].kind, Declarator::Pointer);
    EXPECT_EQ(fp->declarators[0].space, PointerSpace::Code);
    EXPECT_EQ(fp->declarators[1].kind, Declarator::Function);
    EXPECT_FALSE(fp->IsFunction());
    EXPECT_TRUE(ParseTypeChain("({2}DF,SV:S)")->IsFunction());
}

TEST(TypeChain, PointerLettersNameTheirSpace)
{
    const std::pair<const char*, PointerSpace> cases[] = {
        {"({3}DG,SC:U)", PointerSpace::Generic}, {"({1}DD,SC:U)", PointerSpace::Data},
        {"({1}DI,SC:U)", PointerSpace::Idata},   {"({2}DX,SC:U)", PointerSpace::Xdata},
        {"({1}DP,SC:U)", PointerSpace::Pdata},   {"({2}DC,SC:U)", PointerSpace::Code},
    };
    for (const auto& [text, space] : cases) {
        SCOPED_TRACE(text);
        const auto chain = ParseTypeChain(text);
        ASSERT_TRUE(chain);
        ASSERT_EQ(chain->declarators.size(), 1u);
        EXPECT_EQ(chain->declarators[0].kind, Declarator::Pointer);
        EXPECT_EQ(chain->declarators[0].space, space);
    }
}

TEST(TypeChain, StructuresAndBitFieldsKeepTheirDetails)
{
    std::size_t used = 0;
    const std::string_view text = "({2}DX,STlight:S),E,0,0";
    const auto pointer = ParseTypeChain(text, &used);
    ASSERT_TRUE(pointer);
    EXPECT_EQ(pointer->base, BaseType::Struct);
    EXPECT_EQ(pointer->structName, "light");
    EXPECT_EQ(text.substr(used), ",E,0,0");

    const auto field = ParseTypeChain("({1}SB3$5:U)");
    ASSERT_TRUE(field);
    EXPECT_EQ(field->base, BaseType::BitField);
    EXPECT_EQ(field->bitStart, 3u);
    EXPECT_EQ(field->bitWidth, 5u);
}

TEST(TypeChain, MalformedChainsAreRefused)
{
    for (const char* text : {"", "(", "({2}", "({x}SI:S)", "({2}SI)", "({2}SI:Q)", "({2}SQ:S)", "({2}DZ,SI:S)",
                             "({2}DAx,SI:S)", "({2}ST:S)", "({1}SB3:U)", "({2}SIextra:S)", "{2}SI:S)",
                             "({99999999999}SI:S)"}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(ParseTypeChain(text));
    }
}

}  // namespace
