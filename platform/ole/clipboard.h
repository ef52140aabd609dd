// The clipboard: one for the whole thread, holding global memory blocks by
// format. The platform's rules hold:
//  - OpenClipboard fails while another window has it open (a window that has
//    been destroyed no longer holds it);
//  - EmptyClipboard, SetClipboardData and GetClipboardData need it open, and
//    CloseClipboard fails when it is not;
//  - EmptyClipboard frees every block and makes the opener the owner; after
//    opening with no window and emptying, SetClipboardData fails, as there is
//    no owner;
//  - SetClipboardData takes the block over: the caller must not free it (and
//    GlobalFree refuses to), it is freed when replaced or emptied away;
//  - GetClipboardData lends the block: lock it to read, never free it.
// CF_TEXT data is GBK text ending in a zero byte, lines ending in "\r\n".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/ole/global_memory.h"

constexpr UINT CF_TEXT = 1;
constexpr UINT CF_BITMAP = 2;
constexpr UINT CF_OEMTEXT = 7;
constexpr UINT CF_DIB = 8;
constexpr UINT CF_UNICODETEXT = 13;

AFX_API BOOL OpenClipboard(HWND owner);
AFX_API BOOL CloseClipboard();
AFX_API BOOL EmptyClipboard();
// Returns mem on success, null on failure (clipboard not open, no owner,
// null or bad block, format 0, or a block already on the clipboard under
// another format). Rendering on request (a null block) is not supported.
AFX_API HGLOBAL SetClipboardData(UINT format, HGLOBAL mem);
// Null when the clipboard is not open or holds nothing in that format.
AFX_API HGLOBAL GetClipboardData(UINT format);
// These need no open clipboard.
AFX_API BOOL IsClipboardFormatAvailable(UINT format);
AFX_API int CountClipboardFormats();
// The format after `format` in the order they were set (0 starts); 0 at the
// end or when the clipboard is not open.
AFX_API UINT EnumClipboardFormats(UINT format);
AFX_API HWND GetClipboardOwner();
AFX_API HWND GetOpenClipboardWindow();

// CF_TEXT in one call each, opening and closing the clipboard for owner.
// Setting empties the clipboard first; when the block cannot be had the
// clipboard is left as it was. Getting reads up to the first zero byte, or
// the whole block when it has none. Both false when the clipboard is busy or
// (getting) holds no text.
AFX_API bool SetClipboardText(HWND owner, std::string_view text);
AFX_API bool GetClipboardText(HWND owner, std::string* text);

// Another clipboard that CF_TEXT is shared with: the desktop's, while the
// application shows in a real window. Without one the clipboard is the
// thread's own. Closing the clipboard after emptying it publishes what it
// now holds; opening it (and asking what it holds) first takes the other
// clipboard's text when that differs from its own CF_TEXT, which then
// replaces everything it held, with no owner.
class AFX_EXT_CLASS ClipboardTextHook {
public:
    virtual ~ClipboardTextHook() = default;
    // The clipboard's CF_TEXT (GBK), null when it holds none.
    virtual void Publish(const std::string* gbkText) = 0;
    // The other clipboard's text as GBK with "\r\n" line ends; none when it
    // holds no text.
    virtual std::optional<std::string> Fetch() = 0;
};

// Null goes back to the thread's own clipboard. The hook must outlive its use.
AFX_API void SetClipboardTextHook(ClipboardTextHook* hook);
