// Modules: the host program and the extension modules it loads. Each has an
// instance handle and a resource table; extension modules join the
// framework's chain so that lookups by id find their resources.
#pragma once

#include "platform/core/resources.h"
#include "platform/core/win_types.h"

constexpr DWORD DLL_PROCESS_DETACH = 0;
constexpr DWORD DLL_PROCESS_ATTACH = 1;
constexpr DWORD DLL_THREAD_ATTACH = 2;
constexpr DWORD DLL_THREAD_DETACH = 3;

// The entry routine a loadable module exports as "DllMain".
using DllEntryProc = BOOL (*)(HINSTANCE, DWORD reason, LPVOID reserved);

struct AFX_EXTENSION_MODULE {
    BOOL bInitialized = FALSE;
    HMODULE hModule = nullptr;
    HMODULE hResource = nullptr;
};

// Fills the record for a module; fails for an unknown instance handle.
AFX_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
// Releases the record and takes the module's link objects out of the chain.
AFX_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

// The framework's link object of one module: constructing it puts the module
// in the resource chain. The framework owns it; it is freed when its module
// terminates or when the program ends.
class AFX_EXT_CLASS CDynLinkLibrary {
public:
    CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    ~CDynLinkLibrary();
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

    HMODULE m_hModule;
    HMODULE m_hResource;
    BOOL m_bSystem;
};

// Registers a module that is not loaded from a file (the host program itself,
// or a module linked in directly) with its resource table.
AFX_API HINSTANCE AfxRegisterModule(const char* name, const ResourceTable* resources);
AFX_API void AfxUnregisterModule(HINSTANCE module);
// The host program's own resources, searched before the chain.
AFX_API HINSTANCE AfxGetResourceHandle();
AFX_API void AfxSetResourceHandle(HINSTANCE module);
// Modules in the chain, in search order after the host.
AFX_API int AfxGetChainLength();

// Loads a shared object as a module: its resource table is taken from
// AfxModuleResources and its DllMain runs with DLL_PROCESS_ATTACH. A module
// whose entry returns 0 is unloaded again and null is returned.
AFX_API HINSTANCE AfxLoadLibrary(const char* path);
// Runs DllMain with DLL_PROCESS_DETACH and unloads the module.
AFX_API BOOL AfxFreeLibrary(HINSTANCE module);
// An exported routine of a loaded module, or null.
AFX_API void* GetProcAddress(HINSTANCE module, const char* name);
// Why the last AfxLoadLibrary failed, for the caller's diagnostics.
AFX_API const char* AfxLastLoadError();
