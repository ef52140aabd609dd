#include <gtest/gtest.h>

#include "gdi_test_support.h"
#include "platform/gdi/gdi_registry.h"
#include "platform/gdi/sys_color.h"

using gdi_test::Canvas;

TEST(GdiObject, StaleHandlesFindNothing)
{
    HGDIOBJ handle;
    {
        CPen pen(PS_SOLID, 1, RGB(1, 2, 3));
        handle = pen.GetSafeHandle();
        ASSERT_NE(CPen::FromHandle(handle), nullptr);
    }
    EXPECT_EQ(CGdiObject::FromHandle(handle), nullptr);
    EXPECT_FALSE(DeleteObject(handle));
    CDC dc;
    EXPECT_EQ(dc.SelectObject(handle), nullptr);
}

TEST(GdiObject, FromHandleChecksTheKindAndKeepsOneWrapper)
{
    CBrush brush(RGB(9, 8, 7));
    EXPECT_EQ(CPen::FromHandle(brush), nullptr);
    EXPECT_EQ(CFont::FromHandle(brush), nullptr);
    CBrush* wrapper = CBrush::FromHandle(brush);
    ASSERT_NE(wrapper, nullptr);
    EXPECT_NE(wrapper, &brush);
    EXPECT_EQ(CBrush::FromHandle(brush), wrapper);
    COLORREF color = 0;
    EXPECT_TRUE(wrapper->GetColor(&color));
    EXPECT_EQ(color, RGB(9, 8, 7));
}

TEST(GdiObject, NothingLeaksThroughCreateSelectAndDelete)
{
    Canvas canvas(4, 4);
    const size_t before = gdi::ObjectCount();
    for (int i = 0; i < 50; ++i) {
        CFont font;
        ASSERT_TRUE(font.CreatePointFont(90, "x"));
        canvas.dc.SelectObject(canvas.dc.SelectObject(&font));  // makes a wrapper for `font`
        CBrush brush(RGB(i, 0, 0));
        CBrush::FromHandle(brush)->DeleteObject();  // deleted through its own wrapper
        EXPECT_FALSE(brush.DeleteObject());
    }
    EXPECT_EQ(gdi::ObjectCount(), before);
}

TEST(GdiObject, StockAndSystemObjectsAreSharedAndSurviveDeletion)
{
    for (HGDIOBJ shared : {GetStockObject(WHITE_BRUSH), GetSysColorBrush(COLOR_BTNFACE)}) {
        ASSERT_NE(shared, nullptr);
        EXPECT_FALSE(DeleteObject(shared));
        CBrush owner;
        owner.Attach(shared);
        EXPECT_FALSE(owner.DeleteObject());
        EXPECT_NE(CBrush::FromHandle(shared), nullptr);
    }
    EXPECT_EQ(GetStockObject(WHITE_BRUSH), GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(GetSysColorBrush(COLOR_BTNFACE), GetSysColorBrush(COLOR_BTNFACE));
    COLORREF color = 0;
    EXPECT_TRUE(CBrush::FromHandle(GetSysColorBrush(COLOR_INFOBK))->GetColor(&color));
    EXPECT_EQ(color, GetSysColor(COLOR_INFOBK));
    EXPECT_FALSE(CBrush::FromHandle(GetStockObject(NULL_BRUSH))->GetColor(&color));
    for (int bad : {-1, 9, 18}) EXPECT_EQ(GetStockObject(bad), nullptr);
    EXPECT_EQ(GetSysColorBrush(99), nullptr);
    EXPECT_EQ(GetSysColor(99), 0u);
}

TEST(GdiObject, SelectReturnsThePreviousObject)
{
    Canvas canvas(4, 4);
    CPen pen(PS_SOLID, 1, RGB(255, 0, 0));
    CPen* old = canvas.dc.SelectObject(&pen);
    ASSERT_NE(old, nullptr);
    EXPECT_EQ(old->GetSafeHandle(), GetStockObject(BLACK_PEN));
    EXPECT_EQ(canvas.dc.SelectObject(old)->GetSafeHandle(), pen.GetSafeHandle());
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&canvas.dc, 2, 2));
    EXPECT_EQ(canvas.dc.SelectObject(&bitmap), nullptr);  // not a memory DC
    EXPECT_EQ(canvas.dc.SelectObject(static_cast<CPen*>(nullptr)), nullptr);
}

TEST(GdiObject, DeletingASelectedPenFallsBackToBlack)
{
    Canvas canvas(10, 10);
    {
        CPen red(PS_SOLID, 1, RGB(255, 0, 0));
        canvas.dc.SelectObject(&red);
    }
    canvas.dc.Rectangle(1, 1, 5, 5);
    EXPECT_EQ(canvas.At(1, 1), 0x000000u);
    EXPECT_EQ(canvas.dc.GetCurrentPen(), nullptr);
}

TEST(GdiObject, FaceNamesAreCutBetweenCharacters)
{
    std::string name(30, 'a');
    name += "\xD6\xD0";  // a double-byte character straddling the 31-byte limit
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(90, name.c_str()));
    LOGFONT lf;
    ASSERT_EQ(font.GetLogFont(&lf), static_cast<int>(sizeof(LOGFONT)));
    EXPECT_EQ(std::string(lf.lfFaceName), std::string(30, 'a'));
    EXPECT_EQ(lf.lfHeight, -12);
}
