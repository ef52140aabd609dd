// Menus: trees of items loaded from menu templates or built item by item.
// HMENU handles are numbers mapped to the menu's data; a popup item's submenu
// belongs to its parent menu and goes with it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/core/resource_formats.h"
#include "platform/text/cstring.h"

constexpr UINT MF_STRING = 0x0000;
constexpr UINT MF_ENABLED = 0x0000;
constexpr UINT MF_UNCHECKED = 0x0000;
constexpr UINT MF_BYCOMMAND = 0x0000;
constexpr UINT MF_BYPOSITION = 0x0400;

struct MenuData;

struct MenuItemData {
    UINT flags = 0;  // MF_GRAYED, MF_DISABLED, MF_CHECKED, MF_POPUP, MF_SEPARATOR
    UINT id = 0;
    std::string text;  // GBK
    std::unique_ptr<MenuData> submenu;
};

struct MenuData {
    HMENU handle = nullptr;
    std::vector<MenuItemData> items;
};

class AFX_EXT_CLASS CMenu {
public:
    CMenu() = default;
    ~CMenu();
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;

    HMENU m_hMenu = nullptr;
    HMENU GetSafeHmenu() const { return m_hMenu; }
    operator HMENU() const { return m_hMenu; }

    // The non-owning wrapper of a handle (one per menu), or null.
    static CMenu* FromHandle(HMENU hMenu);

    // From the resource chain; FALSE when no module holds the menu or its
    // template is malformed.
    BOOL LoadMenu(UINT id);
    BOOL CreatePopupMenu();
    BOOL CreateMenu();
    BOOL Attach(HMENU hMenu);
    HMENU Detach();
    BOOL DestroyMenu();

    BOOL AppendMenu(UINT flags, UINT_PTR idOrSubmenu = 0, const char* text = nullptr);
    int GetMenuItemCount() const;
    // -1 for a popup item or a bad position, 0 for a separator.
    UINT GetMenuItemID(int position) const;
    CMenu* GetSubMenu(int position) const;
    int GetMenuString(UINT idOrPosition, CString& text, UINT flags) const;
    // Flags of the item, or 0xFFFFFFFF when there is no such item.
    UINT GetMenuState(UINT idOrPosition, UINT flags) const;
    // Previous MF_GRAYED|MF_DISABLED state, or 0xFFFFFFFF.
    UINT EnableMenuItem(UINT idOrPosition, UINT enable);
    UINT CheckMenuItem(UINT idOrPosition, UINT check);

    MenuData* Data() const;
};

// Handle-level functions.
AFX_API HMENU LoadMenu(UINT id);
AFX_API BOOL DestroyMenu(HMENU hMenu);
AFX_API BOOL IsMenu(HMENU hMenu);
// A deep copy of a menu's items, for menus that keep their own copy.
AFX_API std::vector<MenuItemData> CopyMenuItems(HMENU hMenu);
// How many menus exist; lets tests prove that nothing leaks.
AFX_API int LiveMenuCount();
