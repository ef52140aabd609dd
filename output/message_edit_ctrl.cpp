#include "output/message_edit_ctrl.h"

#include <cstring>
#include <new>

#include "host/host_link.h"
#include "host/resource_ids.h"
#include "host/show_menu.h"
#include "host/view_font.h"
#include "host/view_keys.h"
#include "platform/controls/edit.h"
#include "platform/text/field_text.h"
#include "siblings/orv_project_misc.h"

namespace {

constexpr DWORD kMessageViewStyles = WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_AUTOVSCROLL |
                                     ES_AUTOHSCROLL | ES_NOHIDESEL | ES_READONLY;

}  // namespace

BEGIN_MESSAGE_MAP(CMessageEditCtrl, CRichEditCtrl)
    ON_WM_LBUTTONDBLCLK()
    ON_WM_KEYDOWN()
    ON_COMMAND(ID_MESSAGE_COPY, &CMessageEditCtrl::OnMessageCopy)
    ON_COMMAND(ID_MESSAGE_CLEAR, &CMessageEditCtrl::OnMessageClear)
    ON_COMMAND(ID_MESSAGE_SEEK, &CMessageEditCtrl::OnMessageSeek)
    ON_UPDATE_COMMAND_UI(ID_MESSAGE_SEEK, &CMessageEditCtrl::OnUpdateMessageSeek)
    ON_COMMAND(ID_MESSAGE_STOP, &CMessageEditCtrl::OnMessageStop)
END_MESSAGE_MAP()

CMessageEditCtrl::CMessageEditCtrl()
{
    m_font.CreatePointFont(kViewFontTenths, kViewFontFace);
}

CMessageEditCtrl::~CMessageEditCtrl() = default;

BOOL CMessageEditCtrl::Create(CWnd* pParentWnd)
{
    return CRichEditCtrl::Create(kMessageViewStyles, CRect(0, 0, 100, 100), pParentWnd, 0);
}

void CMessageEditCtrl::ShowMenu(CPoint point)
{
    ShowViewMenu(this, IDR_MESSAGE_MENU, point);
}

// ---------------------------------------------------------------- the store

bool CMessageEditCtrl::Store(const MessageLineRecord* record, bool atFront)
{
    if (!record) return false;
    if (m_startNew && record->level == 0) ClearAllMessages();
    try {
        if (atFront) m_records.push_front(*record);
        else m_records.push_back(*record);
    } catch (const std::bad_alloc&) {
        return false;  // the record is dropped; the view stays as it was
    }
    // The copy's path is handed to the host; it ends inside its field.
    MessageLineRecord& kept = atFront ? m_records.front() : m_records.back();
    if (!std::memchr(kept.file, 0, sizeof kept.file)) kept.file[sizeof kept.file - 1] = '\0';
    return true;
}

bool CMessageEditCtrl::AddMessage(const MessageLineRecord* record)
{
    if (!Store(record, false)) return false;
    UpdateText(MessageTextAction::ShowLast);
    return true;
}

bool CMessageEditCtrl::InsertMessage(const MessageLineRecord* record)
{
    if (!Store(record, true)) return false;
    UpdateText(MessageTextAction::ShowFirst);
    return true;
}

void CMessageEditCtrl::ClearAllMessages()
{
    std::deque<MessageLineRecord>().swap(m_records);
    UpdateText(MessageTextAction::Clear);
}

// ---------------------------------------------------------------- the text

void CMessageEditCtrl::Repaint()
{
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

void CMessageEditCtrl::UpdateText(MessageTextAction action, int index)
{
    switch (action) {
    case MessageTextAction::Clear:
        SetSel(0, -1);
        ReplaceSel("", FALSE);
        m_markedLine = -1;
        Repaint();
        return;
    case MessageTextAction::ShowLast: {
        if (m_records.empty()) return;
        const MessageLineRecord& record = m_records.back();
        const int level = std::clamp(record.level, 0, kMaxIndentLevel);
        const CString line = CString(' ', kBlanksPerLevel * level) + CString(FieldText(record.text));
        SetFont(&m_font, TRUE);
        long end = GetTextLength();
        SetSel(end, end);
        ReplaceSel(line, FALSE);
        end = GetTextLength();
        SetSel(end, end);
        LineScroll(1);
        Repaint();
        return;
    }
    case MessageTextAction::ShowFirst: {
        if (m_records.empty()) return;
        const MessageLineRecord& record = m_records.front();
        SetFont(&m_font, TRUE);
        SetSel(0, 0);
        ReplaceSel(CString(FieldText(record.text)), FALSE);
        SetSel(0, 0);
        Repaint();
        return;
    }
    case MessageTextAction::GotoRecord:
        GotoRecord(index);
        return;
    }
}

void CMessageEditCtrl::GotoRecord(int index)
{
    if (index < 0 || index >= GetMessageCount()) {
        Repaint();
        return;
    }
    const int start = LineIndex(index);
    SetSel(start, start);
    MarkCurrentLine();
    MessageLineRecord& record = m_records[static_cast<size_t>(index)];
    if (!record.located) {
        Repaint();
        return;
    }
    switch (m_gotoMode) {
    case kGotoSendsMessageViewGoto:
        HostLink::Send(UWM_MSGVIEW_GOTO, reinterpret_cast<WPARAM>(record.file), static_cast<LPARAM>(record.line));
        break;
    case kGotoSendsGotoSource:
        HostLink::GotoSource(record.file, record.line);
        break;
    default:
        return;  // the red mark is all
    }
    Repaint();
}

int CMessageEditCtrl::GetCurrentMessage() const
{
    const int line = static_cast<int>(SendMessage(EM_EXLINEFROMCHAR, 0, LineIndex(-1)));
    if (line < 0 || line >= GetMessageCount()) return -1;
    return m_records[static_cast<size_t>(line)].located ? line : -1;
}

int CMessageEditCtrl::GetFirstLocatedMessage() const
{
    for (size_t i = 0; i < m_records.size(); ++i) {
        if (m_records[i].located) return static_cast<int>(i);
    }
    return -1;
}

bool CMessageEditCtrl::GotoCurrentMessage()
{
    const int index = GetCurrentMessage();
    if (index == -1) return false;
    UpdateText(MessageTextAction::GotoRecord, index);
    return true;
}

bool CMessageEditCtrl::GotoFirstMessage()
{
    const int index = GetFirstLocatedMessage();
    if (index == -1) return false;
    UpdateText(MessageTextAction::GotoRecord, index);
    return true;
}

void CMessageEditCtrl::MarkCurrentLine()
{
    if (m_markedLine != -1) {
        SetLineColour(m_markedLine, kAutomaticColour);
        m_markedLine = -1;
    }
    const int start = LineIndex(-1);
    SetLineColour(start, kMarkColour);
    m_markedLine = start;
}

void CMessageEditCtrl::SetLineColour(int start, COLORREF colour)
{
    const BOOL locked = LockWindowUpdate();
    CHARRANGE saved{};
    SendMessage(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&saved));
    SetSel(start, start);
    const int length = LineLength(-1);
    SetSel(start, start + length);
    CHARFORMAT format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_COLOR;
    if (colour == kAutomaticColour) {
        format.dwEffects = CFE_AUTOCOLOR;
    } else {
        format.dwEffects = 0;
        format.crTextColor = colour;
    }
    SetSelectionCharFormat(format);
    SendMessage(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&saved));
    if (locked) UnlockWindowUpdate();
}

void CMessageEditCtrl::ApplyDockFont()
{
    char face[kPathBytes] = {};
    const int tenths = DockFontTenths(GetDockFontInfo(face));
    // Kept until the next change rather than destroyed at once, so that the
    // control never holds a font that is gone.
    m_dockFont.DeleteObject();
    if (!m_dockFont.CreatePointFont(tenths, face)) return;
    SetFont(&m_dockFont, TRUE);
}

// ---------------------------------------------------------------- input and commands

void CMessageEditCtrl::OnLButtonDblClk(UINT, CPoint)
{
    // The first press placed the caret; a double click selects no word here.
    GotoCurrentMessage();
}

void CMessageEditCtrl::OnKeyDown(UINT key, UINT, UINT)
{
    if (key == VK_RETURN) GotoCurrentMessage();
    Default();
}

void CMessageEditCtrl::OnMessageCopy() { SendMessage(WM_COPY); }
void CMessageEditCtrl::OnMessageClear() { ClearAllMessages(); }
void CMessageEditCtrl::OnMessageSeek() { GotoCurrentMessage(); }
void CMessageEditCtrl::OnUpdateMessageSeek(CCmdUI* pCmdUI) { pCmdUI->Enable(GetCurrentMessage() != -1); }
void CMessageEditCtrl::OnMessageStop() { CleanTerminate(1); }

BOOL CMessageEditCtrl::PreTranslateMessage(MSG* pMsg)
{
    if (TakeStopOrRefreshKey(pMsg, m_menuLoop)) return TRUE;
    return CRichEditCtrl::PreTranslateMessage(pMsg);
}

LRESULT CMessageEditCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    TrackMenuLoop(message, m_menuLoop);
    switch (message) {
    case UWM_MSGVIEW_APPEND:
        m_startNew = wParam == 0;
        AddMessage(reinterpret_cast<const MessageLineRecord*>(lParam));
        return 0;
    case UWM_MSGVIEW_PREPEND:
        m_startNew = wParam == 0;
        InsertMessage(reinterpret_cast<const MessageLineRecord*>(lParam));
        return 0;
    case UWM_MSGVIEW_GOTO:
        GotoFirstMessage();
        return 0;
    case UWM_DOCK_FONT_CHANGED:
        ApplyDockFont();
        break;
    case WM_KEYDOWN:
        if (wParam == VK_ESCAPE) return 0;  // never reaches the text control
        break;
    default:
        break;
    }
    return CRichEditCtrl::WindowProc(message, wParam, lParam);
}
