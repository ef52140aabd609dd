// Columns: kept by the header, with the sub-item each one shows.
#include "platform/controls/list_ctrl_control.h"

#include <algorithm>

#include "platform/controls/header_ctrl_control.h"
#include "platform/gdi/font_model.h"

namespace listview {

int ListControl::OnInsertColumn(int index, const LVCOLUMN* column)
{
    const HWND header = HeaderHwnd();
    if (!column || !header || index < 0) return -1;
    HDITEM item;
    item.mask = HDI_FORMAT | HDI_WIDTH;
    item.fmt = ((column->mask & LVCF_FMT) ? column->fmt & LVCFMT_JUSTIFYMASK : LVCFMT_LEFT) | HDF_STRING;
    item.cxy = (column->mask & LVCF_WIDTH) ? std::max(column->cx, 0) : kDefaultColumnWidth;
    if (column->mask & LVCF_TEXT) {
        item.mask |= HDI_TEXT;
        item.pszText = column->pszText;
    }
    const int at = static_cast<int>(::SendMessage(header, HDM_INSERTITEM, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)));
    if (at < 0) return -1;
    const size_t slot = std::min(static_cast<size_t>(at), m_subItems.size());
    m_subItems.insert(m_subItems.begin() + static_cast<std::ptrdiff_t>(slot), (column->mask & LVCF_SUBITEM) ? column->iSubItem : at);
    Revalidate();
    m_wnd->Invalidate();
    return at;
}

BOOL ListControl::OnDeleteColumn(int index)
{
    const HWND header = HeaderHwnd();
    if (!header || !::SendMessage(header, HDM_DELETEITEM, static_cast<WPARAM>(index), 0)) return FALSE;
    if (index >= 0 && static_cast<size_t>(index) < m_subItems.size()) m_subItems.erase(m_subItems.begin() + index);
    Revalidate();
    m_wnd->Invalidate();
    return TRUE;
}

BOOL ListControl::OnGetColumn(int index, LVCOLUMN* column) const
{
    const HWND header = HeaderHwnd();
    if (!column || !header) return FALSE;
    HDITEM item;
    item.mask = HDI_FORMAT | HDI_WIDTH;
    if ((column->mask & LVCF_TEXT) && column->pszText && column->cchTextMax > 0) {
        item.mask |= HDI_TEXT;
        item.pszText = column->pszText;
        item.cchTextMax = column->cchTextMax;
    }
    if (!::SendMessage(header, HDM_GETITEM, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item))) return FALSE;
    if (column->mask & LVCF_FMT) column->fmt = item.fmt & LVCFMT_JUSTIFYMASK;
    if (column->mask & LVCF_WIDTH) column->cx = item.cxy;
    if (column->mask & LVCF_SUBITEM) {
        column->iSubItem = static_cast<size_t>(index) < m_subItems.size() ? m_subItems[static_cast<size_t>(index)] : index;
    }
    if (column->mask & LVCF_ORDER) column->iOrder = index;
    return TRUE;
}

BOOL ListControl::OnSetColumn(int index, const LVCOLUMN* column)
{
    const HWND header = HeaderHwnd();
    if (!column || !header) return FALSE;
    HDITEM item;
    if (column->mask & LVCF_FMT) {
        item.mask |= HDI_FORMAT;
        item.fmt = (column->fmt & LVCFMT_JUSTIFYMASK) | HDF_STRING;
    }
    if (column->mask & LVCF_WIDTH) {
        item.mask |= HDI_WIDTH;
        item.cxy = std::max(column->cx, 0);
    }
    if (column->mask & LVCF_TEXT) {
        item.mask |= HDI_TEXT;
        item.pszText = column->pszText;
    }
    if (!::SendMessage(header, HDM_SETITEM, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item))) return FALSE;
    if ((column->mask & LVCF_SUBITEM) && index >= 0 && static_cast<size_t>(index) < m_subItems.size()) {
        m_subItems[static_cast<size_t>(index)] = column->iSubItem;
    }
    return TRUE;
}

int ListControl::ColumnWidth(int index) const
{
    const HWND header = HeaderHwnd();
    HDITEM item;
    item.mask = HDI_WIDTH;
    if (!header || !::SendMessage(header, HDM_GETITEM, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item))) return 0;
    return item.cxy;
}

BOOL ListControl::OnSetColumnWidth(int index, int width)
{
    const HWND header = HeaderHwnd();
    if (!header) return FALSE;
    const Geometry g = ComputeGeometry();
    if (index < 0 || index >= static_cast<int>(g.columns.size())) return FALSE;
    if (width == LVSCW_AUTOSIZE || width == LVSCW_AUTOSIZE_USEHEADER) {
        const bool fill = width == LVSCW_AUTOSIZE_USEHEADER && index + 1 == static_cast<int>(g.columns.size());
        // Owner data keeps no item texts, so the heading is all there is to fit.
        char text[260] = {};
        HDITEM item;
        item.mask = HDI_TEXT;
        item.pszText = text;
        item.cchTextMax = static_cast<int>(sizeof text);
        ::SendMessage(header, HDM_GETITEM, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        width = gdi::TextWidth(gdi::MetricsOfHandle(FontHandle()), text) + 2 * header::kTextPadding;
        // Fitting the heading, the last column also takes whatever room is
        // left on the right.
        if (fill) {
            width = std::max(width, static_cast<int>(g.client.Width()) - g.columns[static_cast<size_t>(index)].left);
        }
    } else if (width < 0) {
        return FALSE;
    }
    HDITEM item;
    item.mask = HDI_WIDTH;
    item.cxy = width;
    return ::SendMessage(header, HDM_SETITEM, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)) ? TRUE : FALSE;
}

}  // namespace listview
