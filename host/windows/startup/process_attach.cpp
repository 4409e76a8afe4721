// What the C runtime of a Windows library does around DllMain; linked into each native application.
//
// It has to be linked last: then it runs after the library's static construction and, on the way
// out, before the static destruction, as on Windows.
#include <dlfcn.h>

#include "../windows.h"

extern "C" BOOL DllMain(HINSTANCE, DWORD, LPVOID) __attribute__((weak));

namespace {

class ProcessAttach {
  public:
    ProcessAttach() { tell(DLL_PROCESS_ATTACH); }
    ~ProcessAttach() { tell(DLL_PROCESS_DETACH); }

  private:
    void tell(DWORD reason) {
        Dl_info about = {};
        if (DllMain == nullptr || dladdr(this, &about) == 0) return;
        DllMain(static_cast<HINSTANCE>(about.dli_fbase), reason, nullptr);
    }
};

ProcessAttach processAttach;

}  // namespace
