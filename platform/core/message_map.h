// Message maps: static tables that bind messages, commands and notifications
// to member functions, each table chained to its base class's table.
//
//   class CMyView : public CTreeCtrl {
//       DECLARE_MESSAGE_MAP()
//       void OnLButtonDown(UINT flags, CPoint point);
//   };
//   BEGIN_MESSAGE_MAP(CMyView, CTreeCtrl)
//       ON_WM_LBUTTONDOWN()
//       ON_COMMAND(32056, &CMyView::OnSeek)
//   END_MESSAGE_MAP()
//
// Every entry carries a small thunk (a captureless lambda) that unpacks wParam
// and lParam into the handler's arguments, so the tables stay type-safe.
#pragma once

#include "platform/core/messages.h"

class CCmdTarget;
class CCmdUI;
class CWnd;
class CDC;

// Unpacks one message for one handler. Returns false when an _EX handler
// declines the message so that routing goes on.
using AFX_PMSG = bool (*)(CCmdTarget* target, WPARAM wParam, LPARAM lParam, void* extra, LRESULT* result);

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;  // window message, WM_COMMAND, WM_NOTIFY or a reflected one
    UINT nCode;     // command or notification code (0 for plain messages)
    UINT nID;       // first control or command id
    UINT nLastID;   // last id of a range
    AFX_PMSG pfn;   // null ends the table
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// Codes of WM_COMMAND entries: a command proper and its update handler.
constexpr UINT CN_COMMAND = 0;
constexpr UINT CN_UPDATE_COMMAND_UI = static_cast<UINT>(-1);

#define DECLARE_MESSAGE_MAP()                           \
protected:                                              \
    static const AFX_MSGMAP* GetThisMessageMap();       \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                       \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); } \
    const AFX_MSGMAP* theClass::GetThisMessageMap()                                   \
    {                                                                                 \
        using ThisClass [[maybe_unused]] = theClass;                                  \
        using TheBaseClass = baseClass;                                               \
        static const AFX_MSGMAP_ENTRY entries[] = {
#define END_MESSAGE_MAP()                                                        \
    {0, 0, 0, 0, nullptr}                                                        \
    }                                                                            \
    ;                                                                            \
    static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, entries}; \
    return &messageMap;                                                          \
    }

#define DP_THUNK(body)                                                                                                 \
    [](CCmdTarget* target, [[maybe_unused]] WPARAM wParam, [[maybe_unused]] LPARAM lParam, [[maybe_unused]] void* extra, \
       [[maybe_unused]] LRESULT* result) -> bool {                                                                     \
        [[maybe_unused]] auto* self = static_cast<ThisClass*>(target);                                                 \
        body;                                                                                                          \
    }

// Plain messages.
#define ON_MESSAGE(message, memberFxn) {message, 0, 0, 0, DP_THUNK(*result = (self->*(memberFxn))(wParam, lParam); return true)},
#define ON_WM_CREATE() {WM_CREATE, 0, 0, 0, DP_THUNK(*result = self->OnCreate(reinterpret_cast<LPCREATESTRUCT>(lParam)); return true)},
#define ON_WM_DESTROY() {WM_DESTROY, 0, 0, 0, DP_THUNK(self->OnDestroy(); return true)},
#define ON_WM_SIZE() {WM_SIZE, 0, 0, 0, DP_THUNK(self->OnSize(static_cast<UINT>(wParam), GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)); return true)},
#define ON_WM_PAINT() {WM_PAINT, 0, 0, 0, DP_THUNK(self->OnPaint(); return true)},
#define ON_WM_ERASEBKGND() {WM_ERASEBKGND, 0, 0, 0, DP_THUNK(*result = self->OnEraseBkgnd(CDC::FromHandle(reinterpret_cast<HDC>(wParam))); return true)},
#define ON_WM_SETFOCUS() {WM_SETFOCUS, 0, 0, 0, DP_THUNK(self->OnSetFocus(CWnd::FromHandle(reinterpret_cast<HWND>(wParam))); return true)},
#define ON_WM_KILLFOCUS() {WM_KILLFOCUS, 0, 0, 0, DP_THUNK(self->OnKillFocus(CWnd::FromHandle(reinterpret_cast<HWND>(wParam))); return true)},
#define ON_WM_CONTEXTMENU() {WM_CONTEXTMENU, 0, 0, 0, DP_THUNK(self->OnContextMenu(CWnd::FromHandle(reinterpret_cast<HWND>(wParam)), CPoint(lParam)); return true)},
#define ON_WM_MEASUREITEM() {WM_MEASUREITEM, 0, 0, 0, DP_THUNK(self->OnMeasureItem(static_cast<int>(wParam), reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam)); *result = TRUE; return true)},
#define DP_MOUSE_ENTRY(message, handler) {message, 0, 0, 0, DP_THUNK(self->handler(static_cast<UINT>(wParam), CPoint(lParam)); return true)},
#define ON_WM_LBUTTONDOWN() DP_MOUSE_ENTRY(WM_LBUTTONDOWN, OnLButtonDown)
#define ON_WM_LBUTTONUP() DP_MOUSE_ENTRY(WM_LBUTTONUP, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() DP_MOUSE_ENTRY(WM_LBUTTONDBLCLK, OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() DP_MOUSE_ENTRY(WM_RBUTTONDOWN, OnRButtonDown)
#define ON_WM_RBUTTONUP() DP_MOUSE_ENTRY(WM_RBUTTONUP, OnRButtonUp)
#define ON_WM_MOUSEMOVE() DP_MOUSE_ENTRY(WM_MOUSEMOVE, OnMouseMove)
#define ON_WM_MOUSEWHEEL() {WM_MOUSEWHEEL, 0, 0, 0, DP_THUNK(*result = self->OnMouseWheel(LOWORD(wParam), static_cast<short>(HIWORD(wParam)), CPoint(lParam)); return true)},
#define DP_KEY_ENTRY(message, handler) {message, 0, 0, 0, DP_THUNK(self->handler(static_cast<UINT>(wParam), LOWORD(static_cast<WPARAM>(lParam)), HIWORD(static_cast<WPARAM>(lParam))); return true)},
#define ON_WM_KEYDOWN() DP_KEY_ENTRY(WM_KEYDOWN, OnKeyDown)
#define ON_WM_KEYUP() DP_KEY_ENTRY(WM_KEYUP, OnKeyUp)
#define ON_WM_CHAR() DP_KEY_ENTRY(WM_CHAR, OnChar)
#define ON_WM_GETDLGCODE() {WM_GETDLGCODE, 0, 0, 0, DP_THUNK(*result = self->OnGetDlgCode(); return true)},
#define ON_WM_ENTERMENULOOP() {WM_ENTERMENULOOP, 0, 0, 0, DP_THUNK(self->OnEnterMenuLoop(static_cast<BOOL>(wParam)); return true)},
#define ON_WM_EXITMENULOOP() {WM_EXITMENULOOP, 0, 0, 0, DP_THUNK(self->OnExitMenuLoop(static_cast<BOOL>(wParam)); return true)},

// Commands from menus (and control notifications by id).
#define ON_COMMAND(id, memberFxn) {WM_COMMAND, CN_COMMAND, static_cast<UINT>(id), static_cast<UINT>(id), DP_THUNK((self->*(memberFxn))(); return true)},
#define ON_COMMAND_RANGE(id, idLast, memberFxn) \
    {WM_COMMAND, CN_COMMAND, static_cast<UINT>(id), static_cast<UINT>(idLast), DP_THUNK((self->*(memberFxn))(static_cast<UINT>(wParam)); return true)},
#define ON_UPDATE_COMMAND_UI(id, memberFxn) \
    {WM_COMMAND, CN_UPDATE_COMMAND_UI, static_cast<UINT>(id), static_cast<UINT>(id), DP_THUNK((self->*(memberFxn))(static_cast<CCmdUI*>(extra)); return true)},
#define ON_CONTROL(code, id, memberFxn) {WM_COMMAND, static_cast<UINT>(code), static_cast<UINT>(id), static_cast<UINT>(id), DP_THUNK((self->*(memberFxn))(); return true)},
#define ON_NOTIFY(code, id, memberFxn) \
    {WM_NOTIFY, static_cast<UINT>(code), static_cast<UINT>(id), static_cast<UINT>(id), DP_THUNK((self->*(memberFxn))(reinterpret_cast<NMHDR*>(lParam), result); return true)},

// Notifications offered back to the control that sent them.
#define ON_CONTROL_REFLECT(code, memberFxn) \
    {WM_REFLECT_BASE + WM_COMMAND, static_cast<UINT>(code), 0, 0, DP_THUNK((self->*(memberFxn))(); return true)},
#define ON_CONTROL_REFLECT_EX(code, memberFxn) \
    {WM_REFLECT_BASE + WM_COMMAND, static_cast<UINT>(code), 0, 0, DP_THUNK(return (self->*(memberFxn))() != FALSE)},
#define ON_NOTIFY_REFLECT(code, memberFxn) \
    {WM_REFLECT_BASE + WM_NOTIFY, static_cast<UINT>(code), 0, 0, DP_THUNK((self->*(memberFxn))(reinterpret_cast<NMHDR*>(lParam), result); return true)},
#define ON_NOTIFY_REFLECT_EX(code, memberFxn) \
    {WM_REFLECT_BASE + WM_NOTIFY, static_cast<UINT>(code), 0, 0, DP_THUNK(return (self->*(memberFxn))(reinterpret_cast<NMHDR*>(lParam), result) != FALSE)},
