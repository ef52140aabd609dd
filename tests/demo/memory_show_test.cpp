// The memory view's side of the service: where the object the watch asks it
// to show lives, told only for a text that evaluates, and the target whose
// bytes the view then reads.
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <vector>

#include "tests/demo/service_driver.h"

namespace {

class MemoryShow : public ::testing::Test {
protected:
    MemoryShow()
    {
        driver.service.showMemory = [this](const MemoryShowRequest& request) { requests.push_back(request); };
    }

    void Show(std::string text) { driver.Request(DRQ_SHOW_MEMORY, text.data()); }

    ServiceDriver driver;
    std::vector<MemoryShowRequest> requests;
};

TEST_F(MemoryShow, AnObjectIsShownWhereItLives)
{
    struct Case {
        const char* text;
        std::uint32_t space, address, size;
    };
    const Case cases[] = {
        {"lights[1].cfg", WS_XDATA, 0x14C, 4},
        {"counter", WS_XDATA, 0x100, 2},
        {"timings", WS_XDATA, 0x120, 24},
        {"mode", WS_IDATA, 0x80, 1},
        {"*label", WS_CODE, 0x810, 1},
        {"current->lamps", WS_XDATA, 0x141, 3},
        {"*(unsigned char xdata *)0x100", WS_XDATA, 0x100, 1},
        {"*(long data *)0x38", WS_DATA, 0x38, 4},
        {"phase + 1", WS_NUMBER, 0, 2},  // a value lives nowhere
    };
    for (const Case& c : cases) Show(c.text);
    ASSERT_EQ(requests.size(), std::size(cases));
    for (std::size_t i = 0; i < requests.size(); ++i) {
        SCOPED_TRACE(cases[i].text);
        EXPECT_EQ(requests[i].space, cases[i].space);
        EXPECT_EQ(requests[i].address, cases[i].address);
        EXPECT_EQ(requests[i].size, cases[i].size);
        EXPECT_EQ(requests[i].expression, cases[i].text);
    }
}

TEST_F(MemoryShow, ATextWithoutAValueShowsNothingAndTheTranscriptSaysSo)
{
    for (const char* text : {"nosuch", "cfg +", "*fault", "(struct)x", "phase = 1"}) {
        SCOPED_TRACE(text);
        Show(text);
        EXPECT_TRUE(requests.empty());
        ASSERT_FALSE(driver.transcript.empty());
        EXPECT_NE(driver.transcript.back().find("nothing shown"), std::string::npos) << driver.transcript.back();
    }
    EXPECT_NE(driver.transcript.front().find("error 52066"), std::string::npos) << "the reason is named";
    Show("cfg");
    EXPECT_EQ(requests.size(), 1u) << "a failure leaves the next request alone";
}

TEST_F(MemoryShow, TheExpressionIsTheWatchTextAsSent)
{
    std::string gbk = "lights[2]";
    gbk += "\xD6\xD0";  // a double-byte character: the text fails, and nothing is shown
    Show(gbk);
    EXPECT_TRUE(requests.empty());
    Show("  lights [ 2 ] . state ");
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].expression, "  lights [ 2 ] . state ");
    EXPECT_EQ(requests[0].address, 0x150u);
}

TEST_F(MemoryShow, TheViewReadsTheBytesTheWatchSees)
{
    Show("total");
    ASSERT_EQ(requests.size(), 1u);
    std::array<std::uint8_t, 4> bytes{};
    ASSERT_TRUE(driver.service.Target().Read(requests[0].space, requests[0].address, bytes));
    EXPECT_EQ(bytes, (std::array<std::uint8_t, 4>{0x40, 0xE2, 0x01, 0x00}));  // 123456, least significant first

    // One target: what the view writes, the watch reads, and a step moves both.
    const std::array<std::uint8_t, 2> seven{7, 0};
    ASSERT_TRUE(driver.service.Target().Write(WS_XDATA, 0x100, seven));
    EXPECT_EQ(driver.Evaluate("counter").value, 7u);
    driver.service.Step();
    std::array<std::uint8_t, 2> counter{};
    ASSERT_TRUE(driver.service.Target().Read(WS_XDATA, 0x100, counter));
    EXPECT_EQ(counter[0], 6);
}

TEST(MemoryShowWithoutAView, TheRequestIsStillAnsweredAndNoted)
{
    ServiceDriver driver;
    std::string text = "cfg";
    driver.Request(DRQ_SHOW_MEMORY, text.data());
    EXPECT_EQ(driver.service.MemoryViewShows(), "cfg");
    ASSERT_FALSE(driver.transcript.empty());
    EXPECT_NE(driver.transcript.back().find("memory view shows \"cfg\""), std::string::npos);
}

}  // namespace
