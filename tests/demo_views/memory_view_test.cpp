// The memory view over a fake target: what it reads, where it scrolls, and
// the pixels of marked and changed bytes; and the text of one line.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <vector>

#include "demo/debugger/debug_target.h"
#include "demo/views/memory_view.h"
#include "platform/gdi/sys_color.h"
#include "tests/demo_views/view_fixture.h"
#include "tests/support/window_pixels.h"
#include "watch/debug_protocol.h"

namespace demo_views_test {
namespace {

// Memory of every space, each byte its address's low byte unless set; some
// addresses cannot be read. Every read is recorded.
class FakeTarget : public DebugTarget {
public:
    struct ReadCall {
        std::uint32_t space, address, size;
    };
    std::map<std::uint32_t, std::vector<std::uint8_t>> memory;
    std::set<std::uint32_t> unreadable;
    std::vector<ReadCall> reads;

    FakeTarget()
    {
        for (std::uint32_t space : {WS_CODE, WS_XDATA, WS_DATA, WS_IDATA, WS_PDATA, WS_BIT}) {
            std::vector<std::uint8_t>& bytes = memory[space];
            bytes.resize(space == WS_CODE || space == WS_XDATA ? 0x10000 : 0x100);
            for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i);
        }
    }
    bool Read(std::uint32_t space, std::uint32_t address, std::span<std::uint8_t> out) override
    {
        reads.push_back({space, address, static_cast<std::uint32_t>(out.size())});
        const auto found = memory.find(space);
        if (found == memory.end() || address + out.size() > found->second.size()) return false;
        for (size_t i = 0; i < out.size(); ++i) {
            if (unreadable.count(address + static_cast<std::uint32_t>(i))) return false;
            out[i] = found->second[address + i];
        }
        return true;
    }
    bool Write(std::uint32_t, std::uint32_t, std::span<const std::uint8_t>) override { return false; }
    void Step() override {}
};

TEST(MemoryLine, ShowsAddressHexAndAsciiWithUnreadableBytes)
{
    const MemorySpace xdata = *MemorySpaceOf(WS_XDATA);
    std::vector<int> bytes = {0x41, 0x42, 0x00, 0x7F, kUnreadableByte, 0x20, 0xFF, 0x7E};
    bytes.resize(16, 0x30);
    EXPECT_EQ(FormatMemoryLine(xdata, 0x0110, bytes),
              "X:0110  41 42 00 7F ?? 20 FF 7E 30 30 30 30 30 30 30 30  AB..  .~00000000");

    // Short spaces take two digits; bytes not given stay blank.
    const MemorySpace data = *MemorySpaceOf(WS_DATA);
    const std::vector<int> two = {0x12, 0x34};
    const std::string line = FormatMemoryLine(data, 0x30, two);
    EXPECT_EQ(line.substr(0, 14), "D:30  12 34   ");
    EXPECT_EQ(line.find_last_not_of(' '), static_cast<size_t>(MemoryAsciiColumn(data, 1)));
    EXPECT_EQ(line.substr(static_cast<size_t>(MemoryHexColumn(data, 1)), 2), "34");
    EXPECT_EQ(line[static_cast<size_t>(MemoryAsciiColumn(data, 0))], '.');

    // Out-of-range values count as unreadable; more than a line's bytes are ignored.
    const std::vector<int> odd = {256, -5};
    EXPECT_EQ(FormatMemoryLine(data, 0, odd).substr(6, 5), "?? ??");
    const std::vector<int> many(40, 0x41);
    EXPECT_EQ(FormatMemoryLine(data, 0, many), FormatMemoryLine(data, 0, std::span(many).first(16)));
}

TEST(MemoryLine, SpacesHaveTheirLettersAndExtents)
{
    const std::pair<std::uint32_t, MemorySpace> known[] = {
        {WS_CODE, {'C', 0x10000, 4}}, {WS_XDATA, {'X', 0x10000, 4}}, {WS_DATA, {'D', 0x80, 2}},
        {WS_IDATA, {'I', 0x100, 2}},  {WS_PDATA, {'P', 0x100, 2}},   {WS_BIT, {'B', 0x80, 2}}};
    for (const auto& [code, expected] : known) {
        SCOPED_TRACE(code);
        const auto space = MemorySpaceOf(code);
        ASSERT_TRUE(space);
        EXPECT_EQ(space->letter, expected.letter);
        EXPECT_EQ(space->size, expected.size);
        EXPECT_EQ(space->addressDigits, expected.addressDigits);
    }
    EXPECT_FALSE(MemorySpaceOf(WS_SYS));
    EXPECT_FALSE(MemorySpaceOf(WS_NONE));
    EXPECT_FALSE(MemorySpaceOf(12345));
}

class MemoryViewTest : public ViewFixture<CMemoryView> {
protected:
    int Top() const { return Scroll(SB_VERT).nPos; }
    int FullLines() const { return (Client().Height() - 14) / 14; }  // under a title row, 14-pixel rows
    // Every read lies within the lines now shown.
    void ExpectReadsOnlyShownLines() const
    {
        const std::uint32_t from = static_cast<std::uint32_t>(view.TopLine()) * 16;
        const std::uint32_t end = from + static_cast<std::uint32_t>(FullLines() + 1) * 16;
        for (const FakeTarget::ReadCall& r : target.reads) {
            EXPECT_GE(r.address, from);
            EXPECT_LE(r.address + r.size, end);
        }
    }
    int Count(COLORREF colour, std::uint32_t address) const { return WindowPixels(view).Count(colour, view.HexCellRect(address)); }

    FakeTarget target;
};

TEST_F(MemoryViewTest, ShowScrollsToTheObjectAndMarksItsBytes)
{
    view.Show(&target, WS_XDATA, 0x0803, 4, "buffer");
    Paint::UpdateAllWindows();
    EXPECT_EQ(view.Title(), "buffer");
    EXPECT_EQ(view.TopLine(), 0x80 - FullLines() / 3);
    EXPECT_EQ(Top(), view.TopLine());
    EXPECT_EQ(Scroll(SB_VERT).nMax + 1, 0x1000);
    ExpectReadsOnlyShownLines();
    EXPECT_LE(target.reads.size(), static_cast<size_t>(FullLines() + 1));

    for (std::uint32_t a = 0x0803; a < 0x0807; ++a) EXPECT_GT(Count(CMemoryView::kMarkBack, a), 4) << a;
    EXPECT_EQ(Count(CMemoryView::kMarkBack, 0x0802), 0);
    EXPECT_EQ(Count(CMemoryView::kMarkBack, 0x0807), 0);
    EXPECT_TRUE(view.HexCellRect(0x0000).IsRectEmpty());  // scrolled away
}

TEST_F(MemoryViewTest, AnObjectInViewDoesNotScrollAndOneAtTheEndScrollsToTheLastPage)
{
    view.Show(&target, WS_IDATA, 0x10, 2, "counter");
    EXPECT_EQ(view.TopLine(), 0);
    view.Show(&target, WS_CODE, 0xFFF0, 16, "tail");
    EXPECT_EQ(view.TopLine(), 0x1000 - FullLines());
    Paint::UpdateAllWindows();
    EXPECT_GT(Count(CMemoryView::kMarkBack, 0xFFFF), 4);
}

TEST_F(MemoryViewTest, UnreadableBytesAreFoundOneByOne)
{
    target.unreadable = {0x25};
    view.Show(&target, WS_DATA, 0x20, 8, "patchy");
    Paint::UpdateAllWindows();
    // The whole line failed, so each of its bytes was asked for alone.
    int singles = 0;
    for (const FakeTarget::ReadCall& r : target.reads) singles += r.size == 1 && r.address >= 0x20 && r.address < 0x30;
    EXPECT_EQ(singles, 16);
    // Its "??" is drawn on its mark like any other byte.
    const COLORREF ink = GetSysColor(COLOR_WINDOWTEXT);
    EXPECT_GT(Count(ink, 0x25), 0);
    EXPECT_GT(Count(CMemoryView::kMarkBack, 0x25), 0);
}

TEST_F(MemoryViewTest, RefreshDrawsChangedBytesInRed)
{
    view.Show(&target, WS_DATA, 0x30, 4, "state");
    Paint::UpdateAllWindows();
    EXPECT_EQ(Count(CMemoryView::kChangedInk, 0x31), 0);
    target.memory[WS_DATA][0x31] = 0x99;
    view.Refresh();
    Paint::UpdateAllWindows();
    EXPECT_GT(Count(CMemoryView::kChangedInk, 0x31), 0);
    EXPECT_EQ(Count(CMemoryView::kChangedInk, 0x30), 0);
    // Unchanged by the next run: black again.
    view.Refresh();
    Paint::UpdateAllWindows();
    EXPECT_EQ(Count(CMemoryView::kChangedInk, 0x31), 0);
    EXPECT_GT(Count(GetSysColor(COLOR_WINDOWTEXT), 0x31), 0);
}

TEST_F(MemoryViewTest, ScrollingReadsOnlyTheLinesThatComeIntoView)
{
    view.Show(&target, WS_CODE, 0, 1, "code");
    Paint::UpdateAllWindows();
    target.reads.clear();
    view.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 0x200));
    Paint::UpdateAllWindows();
    EXPECT_EQ(view.TopLine(), 0x200);
    ExpectReadsOnlyShownLines();
    EXPECT_FALSE(target.reads.empty());
    view.SendMessage(WM_VSCROLL, SB_BOTTOM);
    EXPECT_EQ(view.TopLine(), 0x1000 - FullLines());
}

TEST_F(MemoryViewTest, SmallSpacesAndBadRequestsStayInBounds)
{
    view.Show(&target, WS_BIT, 0x7F, 1, "flag");
    Paint::UpdateAllWindows();
    EXPECT_EQ(Scroll(SB_VERT).nMax + 1, 8);  // 128 bits, one byte each
    for (const FakeTarget::ReadCall& r : target.reads) EXPECT_LE(r.address + r.size, 0x80u);
    EXPECT_GT(Count(CMemoryView::kMarkBack, 0x7F), 0);

    // Past the space's end, and a size that would wrap: nothing marked, nothing read past it.
    target.reads.clear();
    view.Show(&target, WS_DATA, 0x200, 0xFFFFFFFF, "far");
    Paint::UpdateAllWindows();
    for (const FakeTarget::ReadCall& r : target.reads) EXPECT_LE(r.address + r.size, 0x80u);
    EXPECT_TRUE(view.HexCellRect(0x200).IsRectEmpty());

    // A space the view does not show, and no target: nothing read, nothing to scroll.
    target.reads.clear();
    view.Show(&target, WS_SYS, 0, 4, "sys");
    Paint::UpdateAllWindows();
    EXPECT_TRUE(target.reads.empty());
    EXPECT_TRUE(view.HexCellRect(0).IsRectEmpty());
    view.Show(nullptr, WS_DATA, 0, 4, "none");
    view.Refresh();
    Paint::UpdateAllWindows();
    EXPECT_TRUE(view.HexCellRect(0).IsRectEmpty());
}

}  // namespace
}  // namespace demo_views_test
