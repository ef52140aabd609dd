// The sample program's C sources and the symbols the service describes it
// with must never drift apart: every symbol is defined in the sources, once,
// at its address and in its space, with SDCC's absolute placement, and the
// code constants hold what the simulated target loads.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "demo/debugger/traffic_symbols.h"
#include "tests/demo/service_driver.h"

namespace {

struct Placement {
    std::uint32_t space = WS_NONE;
    std::uint32_t address = 0;
    bool isExtern = false;
};

// The text of every .c and .h file of the sample, comments taken out (the
// sources put no comment markers inside strings).
std::string SampleText()
{
    std::string text;
    for (const auto& entry : std::filesystem::directory_iterator(DEMO_SAMPLE_DIR)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".c" && extension != ".h") continue;
        std::ifstream file(entry.path());
        std::ostringstream contents;
        contents << file.rdbuf();
        text += contents.str() + "\n";
    }
    static const std::regex comments(R"(/\*[\s\S]*?\*/|//[^\n]*)");
    return std::regex_replace(text, comments, " ");
}

std::uint32_t SpaceOf(const std::string& keyword)
{
    static const std::map<std::string, std::uint32_t> spaces{
        {"__bit", WS_BIT},     {"__data", WS_DATA},   {"__idata", WS_IDATA},
        {"__pdata", WS_PDATA}, {"__xdata", WS_XDATA}, {"__code", WS_CODE},
    };
    return spaces.at(keyword);
}

// Declarations placed with __at, by name: "__xdata __at(0x0110) struct config
// cfg;", "unsigned char __xdata * __data __at(0x33) cursor;". The keyword
// right before __at is the variable's own space.
std::multimap<std::string, Placement> AbsoluteDeclarations(const std::string& text)
{
    // 1: what comes before the space in the statement, 2: the space,
    // 3: the address, 4: the name, before an optional [size] and ";" or "=".
    static const std::regex declaration(R"(([\w\s*]*?)\b(__bit|__data|__idata|__pdata|__xdata|__code))"
                                        R"(\s+__at\s*\(\s*(0x[0-9A-Fa-f]+)\s*\))"
                                        R"([^;=\[]*\b([A-Za-z_]\w*)\s*(?:\[[^\]]*\]\s*)?[;=])");
    static const std::regex externWord(R"(\bextern\b)");
    std::multimap<std::string, Placement> found;
    const auto end = std::sregex_iterator();
    for (auto match = std::sregex_iterator(text.begin(), text.end(), declaration); match != end; ++match) {
        const auto address = static_cast<std::uint32_t>(std::stoul((*match)[3], nullptr, 16));
        const bool isExtern = std::regex_search((*match)[1].str(), externWord);
        found.emplace((*match)[4], Placement{SpaceOf((*match)[2]), address, isExtern});
    }
    return found;
}

TEST(SampleSources, EverySymbolIsDefinedOnceAtItsAddressAndSpace)
{
    const std::multimap<std::string, Placement> declared = AbsoluteDeclarations(SampleText());
    const SymbolTable symbols = Traffic::Symbols();
    ASSERT_FALSE(symbols.All().empty());
    for (const Symbol& symbol : symbols.All()) {
        SCOPED_TRACE(symbol.name);
        int definitions = 0;
        const auto [first, last] = declared.equal_range(symbol.name);
        for (auto it = first; it != last; ++it) {
            EXPECT_EQ(it->second.space, symbol.space);
            EXPECT_EQ(it->second.address, symbol.address);
            definitions += it->second.isExtern ? 0 : 1;
        }
        EXPECT_EQ(definitions, 1);
    }
}

TEST(SampleSources, TheSourcesPlaceNoVariableTheSymbolsLack)
{
    const std::multimap<std::string, Placement> declared = AbsoluteDeclarations(SampleText());
    const SymbolTable symbols = Traffic::Symbols();
    ASSERT_GE(declared.size(), symbols.All().size());
    for (const auto& [name, placement] : declared) {
        SCOPED_TRACE(name);
        EXPECT_NE(symbols.Find(name), nullptr) << "placed in the sources, unknown to the symbols";
    }
}

TEST(SampleSources, TheCodeConstantsHoldWhatTheTargetLoads)
{
    const std::string text = SampleText();
    ServiceDriver driver;

    std::smatch match;
    ASSERT_TRUE(std::regex_search(text, match, std::regex(R"(\blamp_mask\s*\[[^\]]*\]\s*=\s*\{([^}]*)\})")));
    std::vector<std::uint32_t> masks;
    const std::string list = match[1];
    static const std::regex number(R"(0x[0-9A-Fa-f]+|\d+)");
    for (auto it = std::sregex_iterator(list.begin(), list.end(), number); it != std::sregex_iterator(); ++it) {
        masks.push_back(static_cast<std::uint32_t>(std::stoul(it->str(), nullptr, 0)));
    }
    ASSERT_EQ(masks.size(), static_cast<std::size_t>(driver.Count(driver.Evaluate("lamp_mask"))));
    for (std::size_t i = 0; i < masks.size(); ++i) {
        EXPECT_EQ(driver.Evaluate("lamp_mask[" + std::to_string(i) + "]").value, masks[i]) << i;
    }

    ASSERT_TRUE(std::regex_search(text, match, std::regex(R"(\bname\s*\[\s*(\d+)\s*\]\s*=\s*"([^"]*)\")")));
    const std::string name = match[2];
    EXPECT_EQ(std::stoul(match[1]), name.size() + 1) << "the terminator fills the array";
    for (std::size_t i = 0; i <= name.size(); ++i) {
        const std::uint32_t expected = i < name.size() ? static_cast<std::uint8_t>(name[i]) : 0;
        EXPECT_EQ(driver.Evaluate("name[" + std::to_string(i) + "]").value, expected) << i;
    }
}

}  // namespace
