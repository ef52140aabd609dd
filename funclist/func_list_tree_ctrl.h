// The function list pane's view: the functions of one source file, one line
// each, shown in place from the host's entries and capped at 3000 lines. A
// click reports the picked function to the host; a double click, Enter or
// "定位到" asks the host to open the file there; a typed letter jumps to the
// next function with that initial.
#pragma once

#include <cstdint>
#include <string>

#include "funclist/func_seek_items.h"
#include "host/host_messages.h"
#include "platform/controls/tree_ctrl.h"
#include "platform/gdi/image_list.h"

// More entries than this are not shown.
constexpr int kFuncListMaxLines = 3000;

class AFX_EXT_CLASS CFuncListTreeCtrl : public CTreeCtrl {
public:
    CFuncListTreeCtrl();
    ~CFuncListTreeCtrl() override;

    virtual BOOL Create(CWnd* pParentWnd);
    void ShowMenu(CPoint point);
    BOOL PreTranslateMessage(MSG* pMsg) override;

    const char* GetCurrentFile() const { return m_currentFile; }
    CFuncSeekItems* GetShownList() const { return m_pList; }

    // Shows a list in place, reusing the lines from the top. A null file does nothing.
    void UpdateView(const char* file, CFuncSeekItems* list);
    // Lines to show; with warn, a list of more than the cap is announced first.
    int GetViewMax(bool warn);
    CString GetTreeText(CFuncSeekItem* item) const;
    // Appends a line's text, as GetTreeText makes it, to out.
    static void AppendTreeText(std::string& out, const CFuncSeekItem& item);
    HTREEITEM TreeInsertItem(const char* text, long data, int image);
    // Selects the next entry whose name starts with the character.
    void EditVarSeekLetter(UINT ch);
    // Selects the first line, from the top, for the given source line.
    void EditVarSeek(int line);
    void SetSelItem(int position);
    // Position of the item (the selected line when null), 0 when there is none.
    int GetSelAbsoult(HTREEITEM item) const;
    // The line under the mouse cursor, counted only on its image or label.
    HTREEITEM RclickSelected() const;

protected:
    DECLARE_MESSAGE_MAP()
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnLButtonDown(UINT flags, CPoint point);
    void OnRButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnChar(UINT ch, UINT repeat, UINT flags);
    void OnFunlistSeek();
    void OnUpdateFunlistSeek(CCmdUI* pCmdUI);

private:
    // Sends one of the view's messages with the current file and a line's data.
    void SendForLine(UINT message, HTREEITEM line);
    // Selects the line under the cursor (or clears), reporting it with `message`.
    void PickLineUnderCursor(UINT message);
    CFuncSeekItem* EntryAt(int position) const;

    char m_currentFile[kPathBytes];
    CFuncSeekItems* m_pList = nullptr;  // shown, not owned
    CImageList m_imageList;
    std::int32_t m_menuLoop = 0;
};
