#include "platform/ole/clipboard.h"

#include "platform/core/wnd.h"
#include "platform/ole/format_blocks.h"
#include "platform/ole/global_text.h"

namespace {

struct Clipboard {
    // Made first, the block registry outlives the clipboard, which frees its
    // blocks into it when it goes at exit.
    size_t blocksAtStart = GlobalMemory::BlockCount();
    bool open = false;
    HWND opener = nullptr;
    HWND owner = nullptr;
    bool ownerless = false;  // opened with no window and emptied since
    bool emptied = false;    // emptied since opened: the content is new at close
    FormatBlocks data;
    ClipboardTextHook* hook = nullptr;
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

std::optional<std::string> OwnText()
{
    std::string text;
    if (!GlobalText::Read(State().data.Find(CF_TEXT), &text)) return std::nullopt;
    return text;
}

// Takes the other clipboard's text when it changed there.
void TakeHookedText()
{
    Clipboard& c = State();
    if (!c.hook || IsOpen()) return;
    std::optional<std::string> other = c.hook->Fetch();
    if (other == OwnText()) return;
    c.data.Empty();
    c.owner = nullptr;
    if (!other) return;
    if (HGLOBAL mem = GlobalText::Alloc(*other); mem && !c.data.Set(CF_TEXT, mem)) GlobalFree(mem);
}

void PublishToHook()
{
    Clipboard& c = State();
    if (!c.hook || !c.emptied) return;
    c.emptied = false;
    const std::optional<std::string> text = OwnText();
    c.hook->Publish(text ? &*text : nullptr);
}

}  // namespace

void SetClipboardTextHook(ClipboardTextHook* hook)
{
    State().hook = hook;
}

BOOL OpenClipboard(HWND owner)
{
    if (owner && !IsWindow(owner)) return FALSE;
    Clipboard& c = State();
    if (IsOpen()) return c.opener == owner ? TRUE : FALSE;
    TakeHookedText();
    c.open = true;
    c.emptied = false;
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
    PublishToHook();
    return TRUE;
}

BOOL EmptyClipboard()
{
    if (!IsOpen()) return FALSE;
    Clipboard& c = State();
    c.data.Empty();
    c.owner = c.opener;
    c.ownerless = c.opener == nullptr;
    c.emptied = true;
    return TRUE;
}

HGLOBAL SetClipboardData(UINT format, HGLOBAL mem)
{
    if (!IsOpen() || State().ownerless) return nullptr;
    return State().data.Set(format, mem) ? mem : nullptr;
}

HGLOBAL GetClipboardData(UINT format)
{
    return IsOpen() ? State().data.Find(format) : nullptr;
}

BOOL IsClipboardFormatAvailable(UINT format)
{
    TakeHookedText();
    return State().data.Find(format) ? TRUE : FALSE;
}

int CountClipboardFormats()
{
    TakeHookedText();
    return State().data.Count();
}

UINT EnumClipboardFormats(UINT format)
{
    return IsOpen() ? State().data.FormatAfter(format) : 0;
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
    HGLOBAL mem = GlobalText::Alloc(text);
    if (!mem) return false;
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
    const bool got = GlobalText::Read(GetClipboardData(CF_TEXT), text);
    CloseClipboard();
    return got;
}
