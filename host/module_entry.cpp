// The module's entry: joins the host's framework so that the library's menus,
// strings, bitmap and icons are found by id.
#include "platform/core/module.h"

namespace {
AFX_EXTENSION_MODULE g_dockpanesModule;
}

extern "C" AFX_API BOOL DllMain(HINSTANCE hInstance, DWORD reason, LPVOID)
{
    switch (reason) {
    case DLL_PROCESS_ATTACH:
        if (!AfxInitExtensionModule(g_dockpanesModule, hInstance)) return 0;
        // The framework owns the link object for the life of the process.
        new CDynLinkLibrary(g_dockpanesModule);
        return 1;
    case DLL_PROCESS_DETACH:
        AfxTermExtensionModule(g_dockpanesModule);
        return 1;
    default:
        return 1;  // thread attach and detach: nothing to do
    }
}
