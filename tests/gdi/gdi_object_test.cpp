#include <gtest/gtest.h>

#include <cstring>

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
    EXPECT_EQ(CPen::FromHandle(handle), nullptr);
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
    EXPECT_EQ(wrapper->GetSafeHandle(), brush.GetSafeHandle());
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
        CFont* old = canvas.dc.SelectObject(&font);
        canvas.dc.SelectObject(old);  // makes a wrapper for `font`
        CBrush brush(RGB(i, 0, 0));
        CBrush::FromHandle(brush)->DeleteObject();  // deleted through its wrapper
        EXPECT_FALSE(brush.DeleteObject());
    }
    EXPECT_EQ(gdi::ObjectCount(), before);
}

TEST(GdiObject, StockObjectsAreSharedAndSurviveDeletion)
{
    HGDIOBJ white = GetStockObject(WHITE_BRUSH);
    ASSERT_NE(white, nullptr);
    EXPECT_EQ(GetStockObject(WHITE_BRUSH), white);
    EXPECT_FALSE(DeleteObject(white));
    {
        CBrush owner;
        owner.Attach(white);
    }  // the destructor's delete is refused too
    COLORREF color = 0;
    ASSERT_NE(CBrush::FromHandle(white), nullptr);
    EXPECT_TRUE(CBrush::FromHandle(white)->GetColor(&color));
    EXPECT_EQ(color, RGB(255, 255, 255));
    EXPECT_FALSE(CBrush::FromHandle(GetStockObject(NULL_BRUSH))->GetColor(&color));
    EXPECT_EQ(GetStockObject(-1), nullptr);
    EXPECT_EQ(GetStockObject(9), nullptr);
    EXPECT_EQ(GetStockObject(18), nullptr);
}

TEST(GdiObject, SelectReturnsThePreviousObject)
{
    Canvas canvas(4, 4);
    CPen pen(PS_SOLID, 1, RGB(255, 0, 0));
    CPen* old = canvas.dc.SelectObject(&pen);
    ASSERT_NE(old, nullptr);
    EXPECT_EQ(old->GetSafeHandle(), GetStockObject(BLACK_PEN));
    EXPECT_EQ(canvas.dc.GetCurrentPen()->GetSafeHandle(), pen.GetSafeHandle());
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
    canvas.dc.SelectStockObject(NULL_BRUSH);
    canvas.dc.Rectangle(1, 1, 5, 5);
    EXPECT_EQ(canvas.At(1, 1), 0x000000u);
    EXPECT_EQ(canvas.dc.GetCurrentPen(), nullptr);
}

TEST(GdiObject, InvalidCreationsFail)
{
    CPen pen;
    EXPECT_FALSE(pen.CreatePen(PS_INSIDEFRAME + 1, 1, 0));
    EXPECT_FALSE(pen.CreatePen(-1, 1, 0));
    EXPECT_TRUE(pen.CreatePen(PS_DOT, 0, 0));
    EXPECT_FALSE(pen.CreatePen(PS_SOLID, 1, 0));  // already holds one
    CFont font;
    EXPECT_FALSE(font.CreateFontIndirect(nullptr));
    CBitmap bitmap;
    EXPECT_FALSE(bitmap.CreateBitmap(0, 5, 1, 32, nullptr));
    EXPECT_FALSE(bitmap.CreateBitmap(5, 5, 1, 8, nullptr));
    EXPECT_FALSE(bitmap.CreateCompatibleBitmap(nullptr, 5, -1));
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

TEST(SysColor, ClassicSchemeAndSharedBrushes)
{
    EXPECT_EQ(GetSysColor(COLOR_BTNFACE), RGB(212, 208, 200));
    EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHT), RGB(10, 36, 106));
    EXPECT_EQ(GetSysColor(COLOR_INFOBK), RGB(255, 255, 225));
    EXPECT_EQ(GetSysColor(COLOR_3DDKSHADOW), RGB(64, 64, 64));
    EXPECT_EQ(GetSysColor(COLOR_HOTLIGHT), RGB(0, 0, 128));
    EXPECT_EQ(GetSysColor(-1), 0u);
    EXPECT_EQ(GetSysColor(1000), 0u);
    HBRUSH face = GetSysColorBrush(COLOR_BTNFACE);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(GetSysColorBrush(COLOR_BTNFACE), face);
    EXPECT_FALSE(DeleteObject(face));
    COLORREF color = 0;
    EXPECT_TRUE(CBrush::FromHandle(face)->GetColor(&color));
    EXPECT_EQ(color, GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(GetSysColorBrush(99), nullptr);
}
