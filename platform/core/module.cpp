#include "platform/core/module.h"

#include <dlfcn.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/text/cstring.h"

namespace {

struct ModuleData {
    std::string name;
    void* library = nullptr;  // dlopen handle for loaded modules
    const ResourceTable* resources = nullptr;
};

struct ModuleState {
    std::map<std::uintptr_t, ModuleData> modules;
    std::uintptr_t next = 0x400000;
    HINSTANCE resourceHandle = nullptr;
    // The chain of link objects, in the order modules joined it. The
    // framework owns them, so whatever is left at exit is freed here.
    std::vector<std::unique_ptr<CDynLinkLibrary>> owned;
    std::vector<CDynLinkLibrary*> chain;
    std::string lastError;

    ~ModuleState()
    {
        chain.clear();
        owned.clear();
    }
};

ModuleState& State()
{
    static ModuleState state;
    return state;
}

ModuleData* FindModule(HINSTANCE module)
{
    auto& modules = State().modules;
    const auto it = modules.find(reinterpret_cast<std::uintptr_t>(module));
    return it == modules.end() ? nullptr : &it->second;
}

HINSTANCE AddModule(ModuleData data)
{
    ModuleState& state = State();
    const std::uintptr_t value = state.next;
    state.next += 0x10000;
    state.modules.emplace(value, std::move(data));
    return reinterpret_cast<HINSTANCE>(value);
}

}  // namespace

// ---------------------------------------------------------------- registry

HINSTANCE AfxRegisterModule(const char* name, const ResourceTable* resources)
{
    return AddModule(ModuleData{name ? name : "", nullptr, resources});
}

void AfxUnregisterModule(HINSTANCE module)
{
    ModuleState& state = State();
    if (state.resourceHandle == module) state.resourceHandle = nullptr;
    state.modules.erase(reinterpret_cast<std::uintptr_t>(module));
}

HINSTANCE AfxGetResourceHandle() { return State().resourceHandle; }
void AfxSetResourceHandle(HINSTANCE module) { State().resourceHandle = module; }
int AfxGetChainLength() { return static_cast<int>(State().chain.size()); }

// ---------------------------------------------------------------- extension modules

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule)
{
    if (!FindModule(hModule)) return FALSE;
    state.hModule = hModule;
    state.hResource = hModule;
    state.bInitialized = TRUE;
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll)
{
    ModuleState& modules = State();
    const auto belongs = [&](const CDynLinkLibrary* link) { return bAll || link->m_hModule == state.hModule; };
    std::erase_if(modules.chain, belongs);
    std::erase_if(modules.owned, [&](const std::unique_ptr<CDynLinkLibrary>& link) { return belongs(link.get()); });
    state.bInitialized = FALSE;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(bSystem)
{
    ModuleState& modules = State();
    modules.chain.push_back(this);
    modules.owned.emplace_back(this);
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    std::erase(State().chain, this);
}

// ---------------------------------------------------------------- resources

ResourceBlob FindResourceInModule(HINSTANCE module, ResourceType type, UINT id)
{
    const ModuleData* data = FindModule(module);
    if (!data || !data->resources || !data->resources->entries) return {};
    const ResourceTable& table = *data->resources;
    for (size_t i = 0; i < table.count; ++i) {
        const ResourceEntry& entry = table.entries[i];
        if (entry.type == type && entry.id == id) return ResourceBlob{module, entry.data, entry.size};
    }
    return {};
}

HINSTANCE AfxFindResourceHandle(UINT id, ResourceType type)
{
    return AfxFindResourceData(type, id).module;
}

ResourceBlob AfxFindResourceData(ResourceType type, UINT id)
{
    ModuleState& state = State();
    if (ResourceBlob blob = FindResourceInModule(state.resourceHandle, type, id)) return blob;
    for (const CDynLinkLibrary* link : state.chain) {
        if (ResourceBlob blob = FindResourceInModule(link->m_hResource, type, id)) return blob;
    }
    return {};
}

bool CString::LoadString(UINT id)
{
    const ResourceBlob blob = AfxFindResourceData(ResourceType::String, id);
    if (!blob) return false;
    m_text.assign(reinterpret_cast<const char*>(blob.data), blob.size);
    return true;
}

// ---------------------------------------------------------------- loader

HINSTANCE AfxLoadLibrary(const char* path)
{
    ModuleState& state = State();
    if (!path) return nullptr;
    void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        const char* error = dlerror();
        state.lastError = error ? error : "dlopen failed";
        return nullptr;
    }
    using TableProc = const ResourceTable* (*)();
    auto tableProc = reinterpret_cast<TableProc>(dlsym(library, AFX_MODULE_RESOURCES_SYMBOL));
    auto entry = reinterpret_cast<DllEntryProc>(dlsym(library, "DllMain"));
    const HINSTANCE module = AddModule(ModuleData{path, library, tableProc ? tableProc() : nullptr});
    if (entry && !entry(module, DLL_PROCESS_ATTACH, nullptr)) {
        state.lastError = "the module's entry refused to attach";
        state.modules.erase(reinterpret_cast<std::uintptr_t>(module));
        dlclose(library);
        return nullptr;
    }
    return module;
}

BOOL AfxFreeLibrary(HINSTANCE module)
{
    ModuleData* data = FindModule(module);
    if (!data || !data->library) return FALSE;
    void* library = data->library;
    if (auto entry = reinterpret_cast<DllEntryProc>(dlsym(library, "DllMain"))) entry(module, DLL_PROCESS_DETACH, nullptr);
    State().modules.erase(reinterpret_cast<std::uintptr_t>(module));
    dlclose(library);
    return TRUE;
}

void* GetProcAddress(HINSTANCE module, const char* name)
{
    const ModuleData* data = FindModule(module);
    return data && data->library && name ? dlsym(data->library, name) : nullptr;
}

const char* AfxLastLoadError()
{
    return State().lastError.c_str();
}
