#include "platform/menu/menu.h"

#include <map>

namespace {

struct MenuRegistry {
    // Top-level menus own their data; submenus live inside their parent's
    // items and are only indexed here.
    std::map<std::uintptr_t, std::unique_ptr<MenuData>> owned;
    std::map<std::uintptr_t, MenuData*> all;
    std::map<std::uintptr_t, std::unique_ptr<CMenu>> wrappers;
    std::uintptr_t next = 0x20000;
};

MenuRegistry& Registry()
{
    static MenuRegistry registry;
    return registry;
}

std::uintptr_t Key(HMENU hMenu) { return reinterpret_cast<std::uintptr_t>(hMenu); }

MenuData* Find(HMENU hMenu)
{
    auto& all = Registry().all;
    const auto it = all.find(Key(hMenu));
    return it == all.end() ? nullptr : it->second;
}

void Index(MenuData* data)
{
    MenuRegistry& registry = Registry();
    data->handle = reinterpret_cast<HMENU>(registry.next);
    registry.next += 4;
    registry.all.emplace(Key(data->handle), data);
}

// Forgets a menu and every submenu below it.
void Unindex(MenuData* data)
{
    for (auto& item : data->items) {
        if (item.submenu) Unindex(item.submenu.get());
    }
    MenuRegistry& registry = Registry();
    registry.all.erase(Key(data->handle));
    registry.wrappers.erase(Key(data->handle));
}

std::unique_ptr<MenuData> NewMenu()
{
    auto data = std::make_unique<MenuData>();
    Index(data.get());
    return data;
}

HMENU Own(std::unique_ptr<MenuData> data)
{
    const HMENU handle = data->handle;
    Registry().owned.emplace(Key(handle), std::move(data));
    return handle;
}

void AddTemplateItems(MenuData& menu, const std::vector<MenuTemplateItem>& items)
{
    for (const MenuTemplateItem& source : items) {
        MenuItemData item;
        item.flags = source.flags & ~MF_END;
        item.id = source.id;
        item.text = source.text;
        if (source.IsPopup()) {
            item.submenu = NewMenu();
            AddTemplateItems(*item.submenu, source.children);
        }
        menu.items.push_back(std::move(item));
    }
}

std::vector<MenuItemData> CopyItems(const std::vector<MenuItemData>& items)
{
    std::vector<MenuItemData> copy;
    for (const MenuItemData& source : items) {
        MenuItemData item;
        item.flags = source.flags;
        item.id = source.id;
        item.text = source.text;
        if (source.submenu) {
            item.submenu = std::make_unique<MenuData>();
            item.submenu->items = CopyItems(source.submenu->items);
        }
        copy.push_back(std::move(item));
    }
    return copy;
}

// The item named by position or by command id (searched through submenus).
MenuItemData* FindItem(MenuData* menu, UINT idOrPosition, UINT flags)
{
    if (!menu) return nullptr;
    if (flags & MF_BYPOSITION) return idOrPosition < menu->items.size() ? &menu->items[idOrPosition] : nullptr;
    for (MenuItemData& item : menu->items) {
        if (!item.submenu && !(item.flags & MF_SEPARATOR) && item.id == idOrPosition) return &item;
        if (item.submenu) {
            if (MenuItemData* found = FindItem(item.submenu.get(), idOrPosition, flags)) return found;
        }
    }
    return nullptr;
}

}  // namespace

HMENU LoadMenu(UINT id)
{
    const ResourceBlob blob = AfxFindResourceData(ResourceType::Menu, id);
    if (!blob) return nullptr;
    const auto items = ParseMenuTemplate(blob.data, blob.size);
    if (!items) return nullptr;
    auto menu = NewMenu();
    AddTemplateItems(*menu, *items);
    return Own(std::move(menu));
}

BOOL DestroyMenu(HMENU hMenu)
{
    MenuRegistry& registry = Registry();
    const auto it = registry.owned.find(Key(hMenu));
    if (it == registry.owned.end()) return FALSE;  // unknown, or a submenu owned by its parent
    Unindex(it->second.get());
    registry.owned.erase(it);
    return TRUE;
}

BOOL IsMenu(HMENU hMenu) { return Find(hMenu) ? TRUE : FALSE; }

std::vector<MenuItemData> CopyMenuItems(HMENU hMenu)
{
    const MenuData* data = Find(hMenu);
    return data ? CopyItems(data->items) : std::vector<MenuItemData>();
}

int LiveMenuCount() { return static_cast<int>(Registry().all.size()); }

// ---------------------------------------------------------------- CMenu

CMenu::~CMenu() { DestroyMenu(); }

CMenu* CMenu::FromHandle(HMENU hMenu)
{
    if (!Find(hMenu)) return nullptr;
    auto& wrapper = Registry().wrappers[Key(hMenu)];
    if (!wrapper) {
        wrapper = std::make_unique<CMenu>();
        wrapper->m_hMenu = hMenu;
    }
    return wrapper.get();
}

MenuData* CMenu::Data() const { return Find(m_hMenu); }

BOOL CMenu::LoadMenu(UINT id) { return !m_hMenu && Attach(::LoadMenu(id)); }
BOOL CMenu::CreatePopupMenu() { return !m_hMenu && Attach(Own(NewMenu())); }
BOOL CMenu::CreateMenu() { return CreatePopupMenu(); }

BOOL CMenu::Attach(HMENU hMenu)
{
    if (!hMenu || m_hMenu) return FALSE;
    m_hMenu = hMenu;
    return TRUE;
}

HMENU CMenu::Detach()
{
    const HMENU hMenu = m_hMenu;
    m_hMenu = nullptr;
    return hMenu;
}

BOOL CMenu::DestroyMenu()
{
    // Wrappers from FromHandle never own their menu.
    const auto& wrappers = Registry().wrappers;
    const auto it = wrappers.find(Key(m_hMenu));
    if (!m_hMenu || (it != wrappers.end() && it->second.get() == this)) return FALSE;
    return ::DestroyMenu(Detach());
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR idOrSubmenu, const char* text)
{
    MenuData* data = Data();
    if (!data) return FALSE;
    MenuItemData item;
    item.flags = flags;
    item.text = text ? text : "";
    if (flags & MF_POPUP) {
        // The submenu moves into this menu, as the platform's AppendMenu does.
        MenuRegistry& registry = Registry();
        const auto it = registry.owned.find(idOrSubmenu);
        if (it == registry.owned.end()) return FALSE;
        item.submenu = std::move(it->second);
        registry.owned.erase(it);
    } else {
        item.id = static_cast<UINT>(idOrSubmenu);
    }
    data->items.push_back(std::move(item));
    return TRUE;
}

int CMenu::GetMenuItemCount() const
{
    const MenuData* data = Data();
    return data ? static_cast<int>(data->items.size()) : -1;
}

UINT CMenu::GetMenuItemID(int position) const
{
    const MenuItemData* item = FindItem(Data(), static_cast<UINT>(position), MF_BYPOSITION);
    if (!item || item->submenu || position < 0) return static_cast<UINT>(-1);
    return item->id;
}

CMenu* CMenu::GetSubMenu(int position) const
{
    const MenuItemData* item = position < 0 ? nullptr : FindItem(Data(), static_cast<UINT>(position), MF_BYPOSITION);
    return item && item->submenu ? FromHandle(item->submenu->handle) : nullptr;
}

int CMenu::GetMenuString(UINT idOrPosition, CString& text, UINT flags) const
{
    const MenuItemData* item = FindItem(Data(), idOrPosition, flags);
    text = item ? item->text.c_str() : "";
    return text.GetLength();
}

UINT CMenu::GetMenuState(UINT idOrPosition, UINT flags) const
{
    const MenuItemData* item = FindItem(Data(), idOrPosition, flags);
    return item ? item->flags : 0xFFFFFFFF;
}

UINT CMenu::EnableMenuItem(UINT idOrPosition, UINT enable)
{
    MenuItemData* item = FindItem(Data(), idOrPosition, enable);
    if (!item) return 0xFFFFFFFF;
    const UINT previous = item->flags & (MF_GRAYED | MF_DISABLED);
    item->flags = (item->flags & ~(MF_GRAYED | MF_DISABLED)) | (enable & (MF_GRAYED | MF_DISABLED));
    return previous;
}

UINT CMenu::CheckMenuItem(UINT idOrPosition, UINT check)
{
    MenuItemData* item = FindItem(Data(), idOrPosition, check);
    if (!item) return 0xFFFFFFFF;
    const UINT previous = item->flags & MF_CHECKED;
    item->flags = (item->flags & ~MF_CHECKED) | (check & MF_CHECKED);
    return previous;
}
