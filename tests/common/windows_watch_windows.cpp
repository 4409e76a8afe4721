// The watch over real Windows.
#include "common/windows_watch.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
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

/// Standard output of the process, in a file while a test runs.
class CapturedOutput {
  public:
    void begin() {
        m_path = std::filesystem::path(testing::TempDir()) /
                 ("velmo-output-" + std::to_string(GetCurrentProcessId()));
        m_file = CreateFileW(m_path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                             0, nullptr);
        m_former = GetStdHandle(STD_OUTPUT_HANDLE);
        SetStdHandle(STD_OUTPUT_HANDLE, m_file);
        m_seen = 0;
    }
    void end() {
        SetStdHandle(STD_OUTPUT_HANDLE, m_former);
        CloseHandle(m_file);
        DeleteFileW(m_path.c_str());
        m_file = nullptr;
    }
    /// Records what was written since the last call.
    void collect() {
        if (m_file == nullptr) return;
        std::ifstream stream(m_path, std::ios::binary);
        stream.seekg(static_cast<std::streamoff>(m_seen));
        const std::string bytes(std::istreambuf_iterator<char>(stream), {});
        m_seen += bytes.size();
        if (bytes.empty()) return;
        const int size = static_cast<int>(bytes.size());
        std::wstring text(bytes.size(), L'\0');
        const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, &text[0], size);
        text.resize(static_cast<std::size_t>(length));
        host::recordEffect(host::EffectKind::StandardOutput, text);
    }

  private:
    std::filesystem::path m_path;
    HANDLE m_file = nullptr;
    HANDLE m_former = nullptr;
    std::size_t m_seen = 0;
};

CapturedOutput output;

/// Records each message box and closes it. The test's own thread waits in the box meanwhile.
class BoxCloser {
  public:
    void begin() {
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
    void end() {
        m_end = true;
        m_thread.join();
    }

  private:
    static void close(HWND box) {
        collectOutput();
        host::recordEffect(host::EffectKind::AlertBox, effectOf(box));
        PostMessageW(box, WM_COMMAND, IDOK, 0);
        while (IsWindow(box))
            Sleep(1);
    }

    std::thread m_thread;
    std::atomic<bool> m_end{false};
};

BoxCloser closer;

}  // namespace

void watchBoxes() { closer.begin(); }

void endWatch() { closer.end(); }

void captureOutput() { output.begin(); }

void collectOutput() { output.collect(); }

void endCapture() { output.end(); }
