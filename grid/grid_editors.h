// The grid's in-place editors: an edit box for text and number cells and a
// drop-down list for format cells. They only collect input; whether it is
// committed is decided with the grid, which announces commits to its derived
// class.
#pragma once

#include "platform/controls/combo_box.h"
#include "platform/controls/edit.h"

// Control ids of the editors, children of the grid.
constexpr UINT kGridEditId = 1020;
constexpr UINT kGridComboId = 1021;

// What both editors keep: the window the focus came from (normally the grid),
// and whether what was entered is to be committed.
struct GridEditorState {
    CWnd* previousFocus = nullptr;
    BOOL modified = FALSE;

    // Set or clear the flag, then give the focus back.
    void Accept();
    void Cancel();
    BOOL TestAndClear();
    // The focus went to `next`: if that is not where it came from, the entry
    // counts as modified and that window hears of it.
    void FocusLost(CWnd* next, WPARAM fromEditBox);
};

class AFX_EXT_CLASS CGridEdit : public CEdit {
public:
    CGridEdit();
    ~CGridEdit() override;

    BOOL PreTranslateMessage(MSG* pMsg) override;
    virtual void AcceptEdit();
    virtual void CancelEdit();
    // The modified flag, cleared on the way.
    BOOL TestAndClearModified();
    BOOL IsModified() const { return m_state.modified; }
    // No text and nothing entered: an earlier edit's text and flag are gone.
    void Empty();

protected:
    DECLARE_MESSAGE_MAP()
    void OnSetFocus(CWnd* pOldWnd);
    void OnKillFocus(CWnd* pNewWnd);
    void OnChange();

private:
    GridEditorState m_state;
};

class AFX_EXT_CLASS CGridComboBox : public CComboBox {
public:
    CGridComboBox();
    ~CGridComboBox() override;

    BOOL PreTranslateMessage(MSG* pMsg) override;
    virtual void AcceptEdit();
    virtual void CancelEdit();
    BOOL TestAndClearModified();

protected:
    DECLARE_MESSAGE_MAP()
    void OnSetFocus(CWnd* pOldWnd);
    void OnKillFocus(CWnd* pNewWnd);
    void OnSelChange();

private:
    GridEditorState m_state;
};
