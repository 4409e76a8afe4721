// Remembers the library's instance and makes it an MFC extension module.
#include "library_attach.h"

#include "boundary.h"

namespace {

HINSTANCE G_hInstance = nullptr;
AFX_EXTENSION_MODULE G_extensionModule = {};
bool G_bExtensionInitialised = false;

void attach(HINSTANCE instance) {
    G_hInstance = instance;
    if (G_bExtensionInitialised) return;
    if (!AfxInitExtensionModule(G_extensionModule, instance)) return;
    G_bExtensionInitialised = true;
    // Owned by the framework from here on: terminating the extension module deletes it.
    new CDynLinkLibrary(G_extensionModule);
}

void detach() {
    if (G_bExtensionInitialised) AfxTermExtensionModule(G_extensionModule);
    G_bExtensionInitialised = false;
}

}  // namespace

HINSTANCE moduleInstance() { return G_hInstance; }

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    withinBoundary([&] {
        if (reason == DLL_PROCESS_ATTACH) attach(instance);
        if (reason == DLL_PROCESS_DETACH) detach();
    });
    return TRUE;
}
