// The read-only output view of the message, search results and debug message
// panes: one line per record the host sends. Going to a located line paints
// it red and, by the pane's go-to mode, hands its file and line to the host.
#pragma once

#include <cstdint>
#include <deque>

#include "host/host_messages.h"
#include "output/message_line_record.h"
#include "platform/controls/rich_edit_ctrl.h"
#include "platform/gdi/font.h"

// What going to a located line sends the main frame.
constexpr int kGotoSendsMessageViewGoto = 0;  // message pane: UWM_MSGVIEW_GOTO
constexpr int kGotoSendsGotoSource = 1;       // search results: UWM_GOTO_SOURCE
constexpr int kGotoMarksOnly = 3;             // debug messages: only the red mark

// Blanks per indentation level of an appended line.
constexpr int kBlanksPerLevel = 3;
// Deepest indentation shown: a host's level beyond it is shown at this depth,
// so a bad level cannot ask for gigabytes of blanks.
constexpr int kMaxIndentLevel = 100;

// The actions of UpdateText.
enum class MessageTextAction {
    Clear,
    ShowLast,
    GotoRecord,
    ShowFirst,
};

class AFX_EXT_CLASS CMessageEditCtrl : public CRichEditCtrl {
public:
    CMessageEditCtrl();
    ~CMessageEditCtrl() override;

    virtual BOOL Create(CWnd* pParentWnd);
    void ShowMenu(CPoint point);
    BOOL PreTranslateMessage(MSG* pMsg) override;

    void SetGotoMode(int mode) { m_gotoMode = mode; }
    int GetGotoMode() const { return m_gotoMode; }
    int GetMessageCount() const { return static_cast<int>(m_records.size()); }
    // Character position of the red line's start, or -1.
    int GetMarkedLine() const { return m_markedLine; }

    // Appends a record (or puts it at the top); false when it could not be kept.
    bool AddMessage(const MessageLineRecord* record);
    bool InsertMessage(const MessageLineRecord* record);
    void ClearAllMessages();
    void UpdateText(MessageTextAction action, int index = 0);
    // Index of the located record on the caret's line, else -1.
    int GetCurrentMessage() const;
    int GetFirstLocatedMessage() const;
    bool GotoCurrentMessage();
    bool GotoFirstMessage();
    void MarkCurrentLine();
    // Paints one line (from its first character) in a colour; kAutomaticColour
    // gives it back the control's own text colour.
    void SetLineColour(int start, COLORREF colour);
    void ApplyDockFont();

    static constexpr COLORREF kAutomaticColour = 0xFF000000;
    static constexpr COLORREF kMarkColour = RGB(255, 0, 0);

protected:
    DECLARE_MESSAGE_MAP()
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnMessageCopy();
    void OnMessageClear();
    void OnMessageSeek();
    void OnUpdateMessageSeek(CCmdUI* pCmdUI);
    void OnMessageStop();

private:
    // Takes a record into the store at the front or the back; false when the
    // store cannot grow.
    bool Store(const MessageLineRecord* record, bool atFront);
    void Repaint();
    void GotoRecord(int index);

    std::deque<MessageLineRecord> m_records;  // record k is text line k
    CFont m_font;                              // 9-point 宋体, set before every insertion
    CFont m_dockFont;                          // the panes' font, shown until the next insertion
    std::int32_t m_startNew = 0;
    std::int32_t m_gotoMode = kGotoSendsMessageViewGoto;
    std::int32_t m_menuLoop = 0;
    std::int32_t m_markedLine = -1;
};
