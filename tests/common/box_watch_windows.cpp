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

/// What is seen of a message box: title, style and text, as the effect has them.
struct Box {
    std::wstring text;
    HICON icon = nullptr;
    int buttons = 0;
};

BOOL CALLBACK lookAtPart(HWND part, LPARAM box) {
    Box& seen = *reinterpret_cast<Box*>(box);
    if (!IsWindowVisible(part)) return TRUE;
    const bool icon = (GetWindowLongPtrW(part, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
    if (classOf(part) == L"Button") ++seen.buttons;
    if (classOf(part) == L"Static" && icon)
        seen.icon = reinterpret_cast<HICON>(SendMessageW(part, STM_GETICON, 0, 0));
    if (classOf(part) == L"Static" && !icon) seen.text = textOf(part);
    return TRUE;
}

std::wstring effectOf(HWND window) {
    Box box;
    EnumChildWindows(window, lookAtPart, reinterpret_cast<LPARAM>(&box));
    unsigned style = box.buttons == 1 ? MB_OK : MB_OKCANCEL;
    if (box.icon != nullptr && box.icon == LoadIconW(nullptr, MAKEINTRESOURCEW(32513)))
        style |= MB_ICONERROR;
    return textOf(window) + L"\n" + std::to_wstring(style) + L"\n" + box.text;
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
