#include "funclist/func_list_tree_ctrl.h"

#include <cstring>

#include "host/host_link.h"
#include "host/resource_ids.h"
#include "host/show_menu.h"
#include "host/view_keys.h"
#include "platform/core/input_state.h"
#include "platform/core/message_box.h"
#include "platform/text/compare.h"
#include "platform/text/gbk.h"

namespace {

// "错误" and "函数列表已超过%d，只显示前%d个！", in GBK.
constexpr char kLimitCaption[] = "\xB4\xED\xCE\xF3";
constexpr char kLimitFormat[] =
    "\xBA\xAF\xCA\xFD\xC1\xD0\xB1\xED\xD2\xD1\xB3\xAC\xB9\xFD%d\xA3\xAC\xD6\xBB\xCF\xD4\xCA\xBE\xC7\xB0%d\xB8\xF6\xA3\xA1";

constexpr DWORD kFuncListStyles = WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT |
                                  TVS_SHOWSELALWAYS | TVS_INFOTIP | TVS_FULLROWSELECT;

// A one-byte string, as the letter search compares them.
struct OneByte {
    char text[2] = {0, 0};
    explicit OneByte(unsigned char byte) { text[0] = static_cast<char>(byte); }
};

OneByte FirstByteOf(const CFuncSeekItem* item)
{
    return OneByte(item && !item->name.IsEmpty() ? static_cast<unsigned char>(item->name[0]) : 0);
}

}  // namespace

BEGIN_MESSAGE_MAP(CFuncListTreeCtrl, CTreeCtrl)
    ON_WM_LBUTTONDOWN()
    ON_WM_RBUTTONDOWN()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_CHAR()
    ON_COMMAND(ID_FUNLIST_SEEK, &CFuncListTreeCtrl::OnFunlistSeek)
    ON_UPDATE_COMMAND_UI(ID_FUNLIST_SEEK, &CFuncListTreeCtrl::OnUpdateFunlistSeek)
END_MESSAGE_MAP()

CFuncListTreeCtrl::CFuncListTreeCtrl()
{
    std::memset(m_currentFile, 0, sizeof m_currentFile);
    m_imageList.Create(IDB_TREE_IMAGES, kTreeImageWidth, kTreeImageGrowth, RGB(255, 255, 255));
}

CFuncListTreeCtrl::~CFuncListTreeCtrl() = default;

BOOL CFuncListTreeCtrl::Create(CWnd* pParentWnd)
{
    if (!CTreeCtrl::Create(kFuncListStyles, CRect(0, 0, 100, 100), pParentWnd, 0)) return FALSE;
    SetImageList(&m_imageList, TVSIL_NORMAL);
    return TRUE;
}

void CFuncListTreeCtrl::ShowMenu(CPoint point)
{
    ShowViewMenu(this, IDR_FUNCLIST_MENU, point);
}

// ---------------------------------------------------------------- showing a list

void CFuncListTreeCtrl::UpdateView(const char* file, CFuncSeekItems* list)
{
    if (!file) return;
    SetRedraw(FALSE);
    // The field holds 255 bytes; a longer path is cut at a character boundary.
    CopyGbkText(std::string_view(file, strnlen(file, 4096)), m_currentFile, sizeof m_currentFile);

    const bool changed = list != m_pList;
    m_pList = list;
    if (!list || list->GetSize() == 0) {
        DeleteAllItems();
        SetRedraw(TRUE);
        return;
    }
    const int count = GetViewMax(changed);
    HTREEITEM line = GetRootItem();
    // One buffer for every line's text; nodes are read in place, so a line
    // that is already right costs no copy and no message.
    std::string text;
    TreeItemPeek node;
    for (int i = 0; i < count; ++i) {
        CFuncSeekItem* entry = list->ItemAt(i);
        if (!entry) continue;
        text.clear();
        AppendTreeText(text, *entry);
        const auto data = static_cast<LPARAM>(entry->line);
        if (line && PeekItem(line, node)) {
            // A change of letter case alone does not rewrite a line.
            if (CompareFolded(node.text, text) != 0) SetItemText(line, text.c_str());
            if (node.data != data) SetItemData(line, static_cast<DWORD_PTR>(data));
            line = node.nextSibling;
        } else {
            // Lines are added at the end, so nothing follows the new one.
            TreeInsertItem(text.c_str(), entry->line, kImageFunction);
            line = nullptr;
        }
    }
    while (line) {
        const HTREEITEM next = GetNextSiblingItem(line);
        DeleteItem(line);
        line = next;
    }
    SetRedraw(TRUE);
}

int CFuncListTreeCtrl::GetViewMax(bool warn)
{
    const int size = m_pList ? m_pList->GetSize() : 0;
    if (warn && size > kFuncListMaxLines) {
        CString text;
        text.Format(kLimitFormat, kFuncListMaxLines, kFuncListMaxLines);
        MessageBoxA(HostLink::MainWindow(), text, kLimitCaption, MB_OK | MB_ICONERROR);
    }
    return std::min(size, kFuncListMaxLines);
}

CString CFuncListTreeCtrl::GetTreeText(CFuncSeekItem* item) const
{
    std::string text;
    if (item) AppendTreeText(text, *item);
    return CString(std::string_view(text));
}

void CFuncListTreeCtrl::AppendTreeText(std::string& out, const CFuncSeekItem& item)
{
    // "type name(params)", or "name(params)" without a type; each part ends
    // at its first zero byte, as a C string would.
    if (!item.typeText.IsEmpty()) {
        out += std::string_view(item.typeText.GetString());
        out += ' ';
    }
    out += std::string_view(item.name.GetString());
    out += std::string_view(item.paramText.GetString());
}

HTREEITEM CFuncListTreeCtrl::TreeInsertItem(const char* text, long data, int image)
{
    return InsertItem(TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM, text, image, image, 0, 0,
                      static_cast<LPARAM>(data), TVI_ROOT, TVI_LAST);
}

// ---------------------------------------------------------------- finding lines

CFuncSeekItem* CFuncListTreeCtrl::EntryAt(int position) const
{
    return m_pList ? m_pList->ItemAt(position) : nullptr;
}

void CFuncListTreeCtrl::EditVarSeekLetter(UINT ch)
{
    if (!GetRootItem() || !m_pList) return;
    const int position = GetSelAbsoult(nullptr);
    const OneByte key(static_cast<unsigned char>(ch & 0xFF));
    const OneByte current = FirstByteOf(EntryAt(position));
    const int count = GetViewMax(false);
    // Start after the selection unless the search has to come round to the
    // top: the selection lies past the key's entries, is the last line, or
    // is the last of the key's entries.
    int start = position + 1;
    if (_stricmp(current.text, key.text) > 0 || position + 1 >= count ||
        _stricmp(FirstByteOf(EntryAt(position + 1)).text, key.text) > 0) {
        start = 0;
    }
    for (int i = start; i < count; ++i) {
        if (_stricmp(FirstByteOf(EntryAt(i)).text, key.text) == 0) {
            SetSelItem(i);
            return;
        }
    }
}

void CFuncListTreeCtrl::EditVarSeek(int line)
{
    for (HTREEITEM item = GetRootItem(); item; item = GetNextSiblingItem(item)) {
        if (static_cast<int>(static_cast<LPARAM>(GetItemData(item))) == line) {
            Select(item, TVGN_CARET);
            return;
        }
    }
}

void CFuncListTreeCtrl::SetSelItem(int position)
{
    HTREEITEM item = GetRootItem();
    for (int i = 0; i < position && item; ++i) item = GetNextSiblingItem(item);
    if (item) Select(item, TVGN_CARET);
}

int CFuncListTreeCtrl::GetSelAbsoult(HTREEITEM item) const
{
    if (!item) item = GetSelectedItem();
    if (!item) return 0;
    int position = 0;
    for (HTREEITEM line = GetRootItem(); line; line = GetNextSiblingItem(line), ++position) {
        if (line == item) return position;
    }
    return 0;
}

HTREEITEM CFuncListTreeCtrl::RclickSelected() const
{
    POINT point;
    if (!GetCursorPos(&point)) return nullptr;
    ScreenToClient(&point);
    UINT flags = 0;
    const HTREEITEM hit = HitTest(CPoint(point), &flags);
    return hit && (flags & TVHT_ONITEM) ? hit : nullptr;
}

// ---------------------------------------------------------------- talking to the host

void CFuncListTreeCtrl::SendForLine(UINT message, HTREEITEM line)
{
    if (line) HostLink::Send(message, reinterpret_cast<WPARAM>(m_currentFile), static_cast<LPARAM>(GetItemData(line)));
}

void CFuncListTreeCtrl::PickLineUnderCursor(UINT message)
{
    const HTREEITEM line = RclickSelected();
    Select(line, TVGN_CARET);
    SendForLine(message, line);
}

void CFuncListTreeCtrl::OnLButtonDown(UINT, CPoint)
{
    Default();
    PickLineUnderCursor(UWM_FUNCLIST_SELECTED);
}

void CFuncListTreeCtrl::OnRButtonDown(UINT, CPoint)
{
    SetFocus();
    PickLineUnderCursor(UWM_FUNCLIST_SELECTED);
}

void CFuncListTreeCtrl::OnLButtonDblClk(UINT, CPoint)
{
    Default();
    PickLineUnderCursor(UWM_GOTO_SOURCE);
}

// The letter search stands in for the tree's own type-ahead, which would
// move the selection first: a printable character, whether or not a key down
// came before it, never reaches the tree. Control characters still do, and
// end whatever the tree was doing with them.
void CFuncListTreeCtrl::OnChar(UINT ch, UINT, UINT)
{
    const bool printable = ch >= 0x20 && ch != 0x7F;
    if (!printable) Default();
    EditVarSeekLetter(ch);
    SendForLine(UWM_FUNCLIST_SELECTED, GetSelectedItem());
}

void CFuncListTreeCtrl::OnFunlistSeek()
{
    SendForLine(UWM_GOTO_SOURCE, GetSelectedItem());
}

void CFuncListTreeCtrl::OnUpdateFunlistSeek(CCmdUI* pCmdUI)
{
    pCmdUI->Enable(GetSelectedItem() != nullptr);
}

BOOL CFuncListTreeCtrl::PreTranslateMessage(MSG* pMsg)
{
    if (!m_menuLoop && pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_RETURN) {
        SendForLine(UWM_GOTO_SOURCE, GetSelectedItem());
        return TRUE;
    }
    if (TakeStopOrRefreshKey(pMsg, m_menuLoop)) return TRUE;
    return CTreeCtrl::PreTranslateMessage(pMsg);
}

LRESULT CFuncListTreeCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    TrackMenuLoop(message, m_menuLoop);
    switch (message) {
    case UWM_REFRESH_VIEW:
        UpdateView(reinterpret_cast<const char*>(wParam), reinterpret_cast<CFuncSeekItems*>(lParam));
        return 0;
    case UWM_FUNCLIST_SHOW_FILE: {
        const auto* file = reinterpret_cast<const char*>(wParam);
        if (file && _stricmp(file, m_currentFile) != 0) UpdateView(file, reinterpret_cast<CFuncSeekItems*>(lParam));
        return 0;
    }
    case UWM_FUNCLIST_SEEK_LINE:
        EditVarSeek(static_cast<int>(wParam));
        return 0;
    case UWM_DOCK_FONT_CHANGED:
        return 0;
    default:
        break;
    }
    return CTreeCtrl::WindowProc(message, wParam, lParam);
}
