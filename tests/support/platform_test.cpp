// Contracts of Windows that the module does not reach, or only by chance: the stood-in one keeps
// what the real one promises.
#include "platform.h"
#include "host/control/windows_setup.h"
#include "support_fixture.h"

namespace {

/// A path in the temporary folder, as the module writes paths.
std::wstring streamPath(const std::wstring& folder) { return folder + L"\\stream.txt"; }

/// The error of opening a file for writing.
DWORD openError(const std::wstring& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return GetLastError();
    EXPECT_TRUE(CloseHandle(file));
    return ERROR_SUCCESS;
}

std::wstring formatted(const wchar_t* format, ...) {
    va_list arguments, again;
    va_start(arguments, format);
    va_copy(again, arguments);
    const int length = _vscwprintf(format, arguments);
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    EXPECT_EQ(_vsnwprintf(&text[0], text.size(), format, again), length);
    va_end(again);
    va_end(arguments);
    return text;
}

TEST_F(Support, WideFormatsTakeWideText) {
    EXPECT_EQ(formatted(L"%s|%5.2s|%-4ls|", L"\U0001D11E", L"abc", L"d"),
              L"\U0001D11E|   ab|d   |");
    EXPECT_EQ(formatted(L"%S|%hs|%c|%C|%lc", "n", "h", L'\x20AC', 'x', L'y'), L"n|h|\x20AC|x|y");
    EXPECT_EQ(formatted(L"%%s %04X %I64d %*d %.1f%%", 0xAB, 1LL << 40, 3, 7, 2.5),
              L"%s 00AB 1099511627776   7 2.5%");
    EXPECT_EQ(formatted(L"%s", std::wstring(5000, L'x').c_str()), std::wstring(5000, L'x'));
}

TEST_F(Support, NumbersAndComparison) {
    EXPECT_EQ(_wtoi(L" -12x"), -12);
    EXPECT_EQ(_wtoi(L"x"), 0);
    EXPECT_EQ(_wtoi(L"99999999999"), INT32_MAX);
    EXPECT_EQ(_wcsicmp(L"Velmo_GB", L"VELMO_gb"), 0);
    EXPECT_LT(_wcsicmp(L"a", L"AB"), 0);
    EXPECT_GT(_wcsicmp(L"b", L"AB"), 0);
}

TEST_F(Support, UnicodeStreamsKeepLongTextWhole) {
    std::wstring text;
    for (int i = 0; i < 5000; ++i)
        text += L"\U0001D11E\x20AC\x00E9x\n";
    const std::wstring path = streamPath(wide(temporaryFolder()));
    for (int round = 1; round <= 2; ++round) {
        std::FILE* const file = _wfopen(path.c_str(), L"a+t, ccs=UNICODE");
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(fwprintf_s(file, L"%s", text.c_str()), static_cast<int>(text.size()));
        EXPECT_EQ(std::fclose(file), 0);
    }
    EXPECT_EQ(decodeLog(readFile(temporaryFolder() / "stream.txt")), text + text);
}

TEST_F(Support, RegistryValuesAreReadByTheirSize) {
    host::setRegistryText(L"HKCU\\Software\\Here", L"Name", L"abc");
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"SOFTWARE\\here", 0, KEY_READ, &key),
              ERROR_SUCCESS);
    wchar_t text[4] = {};
    DWORD size = sizeof text - 1, type = 0;
    BYTE* const data = reinterpret_cast<BYTE*>(text);
    EXPECT_EQ(RegQueryValueExW(key, L"NAME", nullptr, &type, data, &size), ERROR_MORE_DATA);
    EXPECT_EQ(size, sizeof text);
    EXPECT_EQ(RegQueryValueExW(key, L"NAME", nullptr, &type, data, &size), ERROR_SUCCESS);
    EXPECT_EQ(std::wstring(text), L"abc");
    EXPECT_EQ(type, DWORD{REG_SZ});
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Soft", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
}

TEST_F(Support, FileErrorsAreThoseOfWindows) {
    const std::wstring path = streamPath(wide(temporaryFolder()));
    EXPECT_EQ(openError(path), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(openError(path + L"\\below\\it"), DWORD{ERROR_PATH_NOT_FOUND});
    writeFile(temporaryFolder() / "stream.txt", "x");
    writeFile(temporaryFolder() / "other.txt", "y");
    EXPECT_EQ(openError(path), DWORD{ERROR_SUCCESS});
    const std::wstring other = path.substr(0, path.size() - 10) + L"other.txt";
    EXPECT_FALSE(MoveFileW(path.c_str(), other.c_str()));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ALREADY_EXISTS});
    EXPECT_TRUE(DeleteFileW(other.c_str()));
    EXPECT_TRUE(MoveFileW(path.c_str(), other.c_str()));
    EXPECT_EQ(readFile(temporaryFolder() / "other.txt"), "x");
    EXPECT_FALSE(DeleteFileW(path.c_str()));
}

}  // namespace
