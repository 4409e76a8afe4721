// The slice of MFC that the module uses: extension-module support and the wide string class.
//
// As in MFC, this header comes before any other that includes <windows.h>.
#pragma once

#include <windows.h>

#include <string>

class CDynLinkLibrary;

/// State of one extension module: a static object of the module's, zero before the process attach.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    CDynLinkLibrary* pFirstLibrary;  ///< the module's record; owned by this state
};

/// Takes the module under the framework's care; once. False when that fails. Documented.
inline BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module) {
    if (state.bInitialized) return TRUE;
    state.bInitialized = TRUE;
    state.hModule = module;
    return TRUE;
}

/// The framework's record of one extension module, made with `new` after AfxInitExtensionModule
/// and deleted by AfxTermExtensionModule. Documented.
class CDynLinkLibrary {
  public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state)
        : m_hModule(state.hModule), m_pNext(state.pFirstLibrary) {
        state.pFirstLibrary = this;
    }

    HMODULE m_hModule;
    CDynLinkLibrary* m_pNext;
};

/// Ends the framework's care; harmless without a beginning. Documented.
inline void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state) {
    while (state.pFirstLibrary != nullptr) {
        CDynLinkLibrary* const library = state.pFirstLibrary;
        state.pFirstLibrary = library->m_pNext;
        delete library;
    }
    state.bInitialized = FALSE;
}

/// The wide string class, as far as the module uses it; null text counts as empty. Documented.
class CString {
  public:
    CString() = default;
    CString(LPCWSTR text) : m_text(text != nullptr ? text : L"") {}

    BOOL IsEmpty() const { return m_text.empty() ? TRUE : FALSE; }
    void Empty() { m_text.clear(); }

  private:
    std::wstring m_text;
};
