// Watching real Windows: no message box stays open, each becomes a recorded effect.
#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <string>
#include <thread>

#include "host/control/effects.h"

namespace {

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    const int length = GetWindowTextW(window, &text[0], static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::wstring classOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

BOOL CALLBACK readPart(HWND part, LPARAM text) {
    const bool icon = (GetWindowLongPtrW(part, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
    if (classOf(part) == L"Static" && IsWindowVisible(part) && !icon)
        *reinterpret_cast<std::wstring*>(text) = textOf(part);
    return TRUE;
}

/// Title, style and text, as the effect has them; the style is not looked at.
std::wstring effectOf(HWND window) {
    std::wstring text;
    EnumChildWindows(window, readPart, reinterpret_cast<LPARAM>(&text));
    return textOf(window) + L"\n" + L"?\n" + text;
}

BOOL CALLBACK findBox(HWND window, LPARAM found) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId() || classOf(window) != L"#32770") return TRUE;
    if (!IsWindowVisible(window) || GetDlgItem(window, IDOK) == nullptr) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// Records each message box of this process and closes it, on a thread of its own. The test's own
/// thread waits in the box meanwhile.
class BoxWatch : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        m_end = false;
        m_thread = std::thread([this] {
            while (!m_end) {
                HWND box = nullptr;
                EnumWindows(findBox, reinterpret_cast<LPARAM>(&box));
                if (box != nullptr) close(box);
                Sleep(5);
            }
        });
    }
    void OnTestEnd(const testing::TestInfo&) override {
        m_end = true;
        m_thread.join();
    }
    static void close(HWND box) {
        host::recordEffect(host::EffectKind::AlertBox, effectOf(box));
        PostMessageW(box, WM_COMMAND, IDOK, 0);
        while (IsWindow(box))
            Sleep(1);
    }

    std::thread m_thread;
    std::atomic<bool> m_end{false};
};

const bool watching = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new BoxWatch);
    return true;
}();

}  // namespace
