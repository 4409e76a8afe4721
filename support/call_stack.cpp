// Walks the call stack and names each frame by its module and the place in it.
#include "call_stack.h"

#include <cstdint>
#include <sstream>

#include "module_file.h"
#include "platform.h"

namespace {

/// Older Windows versions walk fewer than 63 frames, those skipped included.
const DWORD kSkippedFrames = 1;
const DWORD kMostFrames = 62 - kSkippedFrames;

std::wstring frameText(void* address) {
    HMODULE hModule = NULL;
    const DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    const bool known =
        ::GetModuleHandleExW(flags, reinterpret_cast<const wchar_t*>(address), &hModule) != FALSE;
    std::uintptr_t place = reinterpret_cast<std::uintptr_t>(address);
    if (known) place -= reinterpret_cast<std::uintptr_t>(hModule);
    std::wostringstream text;
    text << (known ? moduleFileName(hModule) + L" + " : std::wstring()) << L"0x" << std::hex
         << std::uppercase << place << L"\n";
    return text.str();
}

}  // namespace

std::wstring callStackText() {
    void* frames[kMostFrames] = {};
    const WORD count = ::RtlCaptureStackBackTrace(kSkippedFrames, kMostFrames, frames, NULL);
    std::wstring text;
    for (WORD i = 0; i < count; ++i)
        text += frameText(frames[i]);
    return text;
}
