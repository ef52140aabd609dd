// Text output and measurement.
#include "platform/gdi/dc.h"
#include "platform/gdi/font_model.h"
#include "platform/gdi/text_render.h"

int CDC::OutputText(const gdi::Target& t, CPoint device, std::string_view text, const CRect& clip, const int* widths)
{
    const gdi::FontMetrics m = gdi::MetricsOf(CurrentFont());
    if (m_state.bkMode == OPAQUE && !text.empty()) {
        long long width = 0;
        if (widths)
            for (size_t i = 0; i < text.size(); ++i) width += widths[i];
        else
            width = gdi::TextWidth(m, text);
        gdi::Target inside = t;
        if (!inside.clip.IntersectRect(t.clip, clip)) return device.x;
        CRect cell(device.x, device.y, gdi::Sat(device.x + width), gdi::Sat(0LL + device.y + m.height));
        cell.NormalizeRect();
        gdi::FillPixels(inside, cell, t.Pixel(m_state.bkColor));
    }
    gdi::TextRun run;
    run.x = device.x;
    run.y = device.y;
    run.text = text;
    run.ink = t.Pixel(m_state.textColor);
    run.clip = clip;
    run.widths = widths;
    return gdi::DrawTextRun(t, m, run);
}

BOOL CDC::TextOut(int x, int y, LPCSTR text, int length)
{
    if (!text || length < -1) return FALSE;
    const gdi::Target t = GetTarget();
    OutputText(t, t.ToDevice(x, y), gdi::TextOf(text, length), t.clip, nullptr);
    return TRUE;
}

BOOL CDC::TextOut(int x, int y, const CString& text)
{
    return TextOut(x, y, text.GetString(), text.GetLength());
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, LPCRECT rect, LPCSTR text, int length, const int* widths)
{
    if (length < -1 || (!text && length > 0)) return FALSE;
    const gdi::Target t = GetTarget();
    CRect clip = t.clip;
    if (rect) {
        CRect device = t.ToDevice(*rect);
        device.NormalizeRect();
        if (options & ETO_OPAQUE) gdi::FillPixels(t, device, t.Pixel(m_state.bkColor));
        if (options & ETO_CLIPPED) clip.IntersectRect(clip, device);
    }
    if (clip.IsRectEmpty()) return TRUE;
    OutputText(t, t.ToDevice(x, y), gdi::TextOf(text, length), clip, widths);
    return TRUE;
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, LPCRECT rect, const CString& text, const int* widths)
{
    return ExtTextOut(x, y, options, rect, text.GetString(), text.GetLength(), widths);
}

CSize CDC::GetTextExtent(LPCSTR text, int length) const
{
    const gdi::FontMetrics m = gdi::MetricsOf(CurrentFont());
    return CSize(gdi::TextWidth(m, gdi::TextOf(text, length)), m.height);
}

CSize CDC::GetTextExtent(const CString& text) const
{
    return GetTextExtent(text.GetString(), text.GetLength());
}

BOOL CDC::GetTextMetrics(TEXTMETRIC* metrics) const
{
    if (!metrics) return FALSE;
    gdi::FillTextMetric(CurrentFont(), *metrics);
    return TRUE;
}
