#include "platform/ole/clipboard.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/core/wnd.h"

namespace {

struct Clipboard {
    bool open = false;
    HWND opener = nullptr;
    HWND owner = nullptr;
    bool ownerless = false;  // opened with no window and emptied since
    std::vector<std::pair<UINT, HGLOBAL>> data;  // in the order set
};

Clipboard& State()
{
    static Clipboard clipboard;
    return clipboard;
}

// A window destroyed while holding the clipboard open lets go of it.
bool IsOpen()
{
    Clipboard& c = State();
    if (c.open && c.opener && !IsWindow(c.opener)) {
        c.open = false;
        c.opener = nullptr;
    }
    return c.open;
}

auto FindFormat(UINT format)
{
    auto& data = State().data;
    return std::find_if(data.begin(), data.end(), [format](const auto& entry) { return entry.first == format; });
}

}  // namespace

BOOL OpenClipboard(HWND owner)
{
    if (owner && !IsWindow(owner)) return FALSE;
    Clipboard& c = State();
    if (IsOpen()) return c.opener == owner ? TRUE : FALSE;
    c.open = true;
    c.opener = owner;
    c.ownerless = false;
    return TRUE;
}

BOOL CloseClipboard()
{
    if (!IsOpen()) return FALSE;
    Clipboard& c = State();
    c.open = false;
    c.opener = nullptr;
    c.ownerless = false;
    return TRUE;
}

BOOL EmptyClipboard()
{
    if (!IsOpen()) return FALSE;
    Clipboard& c = State();
    for (const auto& entry : c.data) GlobalMemory::FreeHeld(entry.second);
    c.data.clear();
    c.owner = c.opener;
    c.ownerless = c.opener == nullptr;
    return TRUE;
}

HGLOBAL SetClipboardData(UINT format, HGLOBAL mem)
{
    if (!IsOpen() || State().ownerless || format == 0 || !mem) return nullptr;
    const auto existing = FindFormat(format);
    if (existing != State().data.end() && existing->second == mem) return mem;
    if (!GlobalMemory::Hold(mem)) return nullptr;  // already on the clipboard
    if (existing != State().data.end()) {
        GlobalMemory::FreeHeld(existing->second);
        existing->second = mem;
    } else {
        State().data.emplace_back(format, mem);
    }
    return mem;
}

HGLOBAL GetClipboardData(UINT format)
{
    if (!IsOpen()) return nullptr;
    const auto it = FindFormat(format);
    return it == State().data.end() ? nullptr : it->second;
}

BOOL IsClipboardFormatAvailable(UINT format)
{
    return FindFormat(format) != State().data.end() ? TRUE : FALSE;
}

int CountClipboardFormats()
{
    return static_cast<int>(State().data.size());
}

UINT EnumClipboardFormats(UINT format)
{
    if (!IsOpen()) return 0;
    const auto& data = State().data;
    if (format == 0) return data.empty() ? 0 : data.front().first;
    auto it = FindFormat(format);
    if (it == data.end() || ++it == data.end()) return 0;
    return it->first;
}

HWND GetClipboardOwner()
{
    const HWND owner = State().owner;
    return IsWindow(owner) ? owner : nullptr;
}

HWND GetOpenClipboardWindow()
{
    return IsOpen() ? State().opener : nullptr;
}

bool SetClipboardText(HWND owner, std::string_view text)
{
    HGLOBAL mem = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    if (!mem) return false;
    auto* bytes = static_cast<char*>(GlobalLock(mem));
    std::memcpy(bytes, text.data(), text.size());
    bytes[text.size()] = '\0';
    GlobalUnlock(mem);
    bool placed = false;
    if (OpenClipboard(owner)) {
        placed = EmptyClipboard() && SetClipboardData(CF_TEXT, mem) != nullptr;
        CloseClipboard();
    }
    if (!placed) GlobalFree(mem);
    return placed;
}

bool GetClipboardText(HWND owner, std::string* text)
{
    if (!OpenClipboard(owner)) return false;
    bool got = false;
    if (HGLOBAL mem = GetClipboardData(CF_TEXT)) {
        if (const auto* bytes = static_cast<const char*>(GlobalLock(mem))) {
            text->assign(bytes, strnlen(bytes, GlobalSize(mem)));
            GlobalUnlock(mem);
            got = true;
        }
    }
    CloseClipboard();
    return got;
}
