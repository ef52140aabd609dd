// Text drawn from the cached character cells: what shows inside a clip is
// what the same text shows unclipped, characters that share a byte are kept
// apart, and each height and weight has cells of its own.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gdi_test_support.h"
#include "platform/gdi/font.h"
#include "platform/text/gbk.h"

using gdi_test::BoxGlyphs;
using gdi_test::Canvas;

namespace {

constexpr std::uint32_t kPaper = 0x808080;
constexpr COLORREF kInk = RGB(10, 20, 30);

struct Scene {
    int height = 12;
    bool bold = false;
    std::string text;
};

// Draws the scene at (x, y) on a fresh canvas, limited to clip (all of it
// when empty).
Surface Draw(const Scene& scene, CPoint at, const CRect& clip = CRect())
{
    Canvas c(240, 60, kPaper, CPoint(0, 0), clip.IsRectEmpty() ? CRect(0, 0, 240, 60) : clip);
    CFont font;
    font.CreateFont(-scene.height, 0, 0, 0, scene.bold ? FW_BOLD : FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, "x");
    c.dc.SelectObject(&font);
    c.dc.SetBkMode(TRANSPARENT);
    c.dc.SetTextColor(kInk);
    c.dc.TextOut(at.x, at.y, scene.text.c_str(), static_cast<int>(scene.text.size()));
    return c.surface;
}

int InkCount(const Surface& s)
{
    int n = 0;
    for (std::uint32_t p : s.Pixels()) n += p != kPaper;
    return n;
}

// Every clip, whether it cuts cells or holds them whole, shows exactly the
// unclipped drawing inside it and nothing outside.
void ExpectClipsCutTheFullDrawing(const Scene& scene, CPoint at = CPoint(3, 5))
{
    const Surface full = Draw(scene, at);
    ASSERT_GT(InkCount(full), 0);
    const std::vector<CRect> clips = {
        CRect(0, 0, 240, 60),  CRect(4, 6, 9, 11),    CRect(0, 0, 5, 60),  CRect(7, 0, 240, 8),
        CRect(10, 9, 200, 12), CRect(0, 12, 240, 60), CRect(20, 0, 21, 60), CRect(3, 5, 4, 6),
    };
    for (const CRect& clip : clips) {
        const Surface cut = Draw(scene, at, clip);
        int wrong = 0;
        for (int y = 0; y < full.Height(); ++y)
            for (int x = 0; x < full.Width(); ++x) {
                const bool inside = x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
                wrong += cut.GetPixel(x, y) != (inside ? full.GetPixel(x, y) : kPaper);
            }
        EXPECT_EQ(wrong, 0) << "height " << scene.height << (scene.bold ? " bold" : "") << " at " << ::testing::PrintToString(at)
                            << " clip " << ::testing::PrintToString(clip);
    }
}

TEST(TextCells, AClipShowsTheUnclippedTextInsideItAndNothingElse)
{
    const std::string text = GBK(u8"Wg|j 中文x\t@") + "\xB0" "A" "\x81";
    for (int height : {7, 12, 13, 16}) {
        for (bool bold : {false, true}) {
            ExpectClipsCutTheFullDrawing({height, bold, text});
            // Cells hanging over the surface's top-left corner.
            ExpectClipsCutTheFullDrawing({height, bold, text}, CPoint(-5, -4));
            if (::testing::Test::HasFailure()) return;
        }
    }
}

TEST(TextCells, HollowBoxesAreClippedTheSameWay)
{
    BoxGlyphs boxes;
    ExpectClipsCutTheFullDrawing({12, false, GBK(u8"ab中")});
    ExpectClipsCutTheFullDrawing({3, true, "abc"});
}

TEST(TextCells, CharactersSharingAByteKeepTheirOwnInk)
{
    if (!gdi::GlyphCache::Instance().HasFonts()) GTEST_SKIP() << "no bitmap CJK font installed";
    // "A" and a double-byte character whose trail byte is 'A', drawn in
    // either order: each looks as it does alone.
    const Surface a = Draw({12, false, "A"}, CPoint(0, 0));
    const Surface wide = Draw({12, false, "\xB0" "A"}, CPoint(0, 0));
    EXPECT_NE(a.Pixels(), wide.Pixels());
    EXPECT_EQ(Draw({12, false, "A"}, CPoint(0, 0)).Pixels(), a.Pixels());
    // Dropping every cached cell and drawing again gives the same pixels.
    gdi::GlyphCache::Instance().SetFontDirectory(gdi::GlyphCache::DefaultFontDirectory());
    EXPECT_EQ(Draw({12, false, "\xB0" "A"}, CPoint(0, 0)).Pixels(), wide.Pixels());
    EXPECT_EQ(Draw({12, false, "A"}, CPoint(0, 0)).Pixels(), a.Pixels());
}

TEST(TextCells, EachHeightAndWeightHasItsOwnCells)
{
    const std::string text = "MMM";
    const int regular = InkCount(Draw({12, false, text}, CPoint(0, 0)));
    const int bold = InkCount(Draw({12, true, text}, CPoint(0, 0)));
    const int taller = InkCount(Draw({24, false, text}, CPoint(0, 0)));
    EXPECT_GT(bold, regular);
    EXPECT_GT(taller, regular);
    // Asked again in another order, each is as it was.
    EXPECT_EQ(InkCount(Draw({24, false, text}, CPoint(0, 0))), taller);
    EXPECT_EQ(InkCount(Draw({12, false, text}, CPoint(0, 0))), regular);
    EXPECT_EQ(InkCount(Draw({12, true, text}, CPoint(0, 0))), bold);
}

TEST(TextCells, TextFarOffTheSurfaceDrawsNothing)
{
    for (const CPoint at : {CPoint(-1000000000, 5), CPoint(5, 1000000000), CPoint(2147483000, -2147483000)})
        EXPECT_EQ(InkCount(Draw({16, true, GBK(u8"中W")}, at)), 0) << ::testing::PrintToString(at);
}

}  // namespace
