// The slice of Win32 and of the Microsoft C runtime that the module calls, stood in for on Linux.
//
// Text is wchar_t (UTF-32 here, UTF-16 on Windows); sizes that Windows counts in bytes count
// sizeof(wchar_t) for each character. Paths may use both slashes; there are no drives. Each call
// that can fail asks the fault point first and then answers with ERROR_GEN_FAILURE.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cwchar>

#define WINAPI

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using LONG_PTR = std::intptr_t;
using LSTATUS = LONG;
using REGSAM = DWORD;
using LPVOID = void*;
using PVOID = void*;
using LPCVOID = const void*;
using LPBYTE = BYTE*;
using LPDWORD = DWORD*;
using PDWORD = DWORD*;
using PUINT = UINT*;
using LPBOOL = BOOL*;
using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using HANDLE = void*;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;
using HWND = struct HWND__*;
using HKEY = struct HKEY__*;
using PHKEY = HKEY*;

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(static_cast<LONG_PTR>(0x80000001)))
#define HKEY_LOCAL_MACHINE (reinterpret_cast<HKEY>(static_cast<LONG_PTR>(0x80000002)))

#define ERROR_SUCCESS 0L
#define ERROR_FILE_NOT_FOUND 2L
#define ERROR_PATH_NOT_FOUND 3L
#define ERROR_ACCESS_DENIED 5L
#define ERROR_INVALID_HANDLE 6L
#define ERROR_GEN_FAILURE 31L
#define ERROR_SHARING_VIOLATION 32L
#define ERROR_INVALID_PARAMETER 87L
#define ERROR_INSUFFICIENT_BUFFER 122L
#define ERROR_ALREADY_EXISTS 183L
#define ERROR_ENVVAR_NOT_FOUND 203L
#define ERROR_MORE_DATA 234L
#define ERROR_RESOURCE_DATA_NOT_FOUND 1812L

#define REG_NONE 0
#define REG_SZ 1
#define REG_DWORD 4
#define KEY_READ 0x20019
#define MB_ICONERROR 0x10
#define IDOK 1
#define GENERIC_READ 0x80000000u
#define GENERIC_WRITE 0x40000000u
#define FILE_SHARE_READ 1
#define FILE_SHARE_WRITE 2
#define OPEN_EXISTING 3
#define FILE_ATTRIBUTE_DIRECTORY 0x10
#define FILE_ATTRIBUTE_NORMAL 0x80
#define INVALID_FILE_ATTRIBUTES 0xFFFFFFFFu
#define STD_OUTPUT_HANDLE (static_cast<DWORD>(-11))
#define CP_ACP 0
#define GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT 2
#define GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS 4
#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define MAX_COMPUTERNAME_LENGTH 15

struct SECURITY_ATTRIBUTES;
struct OVERLAPPED;
/// 100-nanosecond steps since 1601, UTC.
struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
/// Calendar time; wDayOfWeek counts from Sunday = 0.
struct SYSTEMTIME {
    WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
};
union LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};

extern "C" {

/// Told by the C runtime after static construction (DLL_PROCESS_ATTACH) and before static
/// destruction (DLL_PROCESS_DETACH) of a library that has it. Documented.
BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);

/// The calling thread's last failure. Documented.
DWORD WINAPI GetLastError();

// Registry. Key and value names are compared without regard to case. Documented.

/// Opens a key; the caller closes it with RegCloseKey. ERROR_FILE_NOT_FOUND for an unknown one.
LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, PHKEY result);
/// Reads a value: type and bytes. ERROR_FILE_NOT_FOUND without it; ERROR_MORE_DATA when `*size`
/// is too small, which then holds the size needed.
LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                LPDWORD size);
/// ERROR_INVALID_HANDLE for a key that is not open.
LSTATUS WINAPI RegCloseKey(HKEY key);

// Message boxes and the debugger. Documented.

/// Recorded, and answered with IDOK at once.
int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT style);
BOOL WINAPI IsDebuggerPresent();
/// Recorded while a debugger counts as present.
void WINAPI OutputDebugStringW(LPCWSTR text);
/// Recorded: the debugger that counts as present goes on at once.
void WINAPI DebugBreak();

// Files. Documented, but for the error of a path that is neither there nor forbidden.

/// Opens a file that is there (OPEN_EXISTING only) for reading or writing; INVALID_HANDLE_VALUE on
/// failure. The caller closes it with CloseHandle.
HANDLE WINAPI CreateFileW(LPCWSTR name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                          DWORD disposition, DWORD attributes, HANDLE pattern);
BOOL WINAPI CloseHandle(HANDLE handle);
/// Writes bytes; to standard output they are recorded as well.
BOOL WINAPI WriteFile(HANDLE file, LPCVOID data, DWORD size, LPDWORD written,
                      OVERLAPPED* overlapped);
/// Only STD_OUTPUT_HANDLE; null otherwise.
HANDLE WINAPI GetStdHandle(DWORD which);
BOOL WINAPI DeleteFileW(LPCWSTR name);
/// Renames; fails with ERROR_ALREADY_EXISTS when the new name is taken.
BOOL WINAPI MoveFileW(LPCWSTR from, LPCWSTR to);
BOOL WINAPI CreateDirectoryW(LPCWSTR name, SECURITY_ATTRIBUTES* security);
/// FILE_ATTRIBUTE_DIRECTORY or FILE_ATTRIBUTE_NORMAL; INVALID_FILE_ATTRIBUTES when not there.
DWORD WINAPI GetFileAttributesW(LPCWSTR name);
/// The path itself, as Linux has no short names; 0 when nothing is there. Lengths as Windows has
/// them: without the ending null on success, with it when the buffer is too small.
DWORD WINAPI GetLongPathNameW(LPCWSTR path, LPWSTR buffer, DWORD size);

// Modules. Documented.

/// File of a module, null meaning the program; cut to `size` characters with the last one null and
/// `size` returned when the buffer is too small; 0 for an unknown module.
DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size);
/// The module that holds an address; only with the flag FROM_ADDRESS.
BOOL WINAPI GetModuleHandleExW(DWORD flags, LPCWSTR address, HMODULE* module);
/// Return addresses of the callers, innermost first, without the first `skip`.
WORD WINAPI RtlCaptureStackBackTrace(DWORD skip, DWORD count, PVOID* frames, PDWORD hash);
/// Bytes of a file's version resource; 0 without one.
DWORD WINAPI GetFileVersionInfoSizeW(LPCWSTR file, LPDWORD handle);
BOOL WINAPI GetFileVersionInfoW(LPCWSTR file, DWORD handle, DWORD size, LPVOID block);
/// "\VarFileInfo\Translation" (length in bytes) or "\StringFileInfo\<translation>\<name>" (length
/// in characters with the ending null). `*value` points into the block.
BOOL WINAPI VerQueryValueW(LPCVOID block, LPCWSTR what, LPVOID* value, PUINT length);

// Process and machine. Documented.

/// Lengths as for GetLongPathNameW; 0 and ERROR_ENVVAR_NOT_FOUND for an unknown variable.
DWORD WINAPI GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size);
BOOL WINAPI GetComputerNameW(LPWSTR buffer, LPDWORD size);
DWORD WINAPI GetCurrentProcessId();
/// Only CP_ACP, which is UTF-8 here; bytes needed when `size` is 0. A code that is no character
/// becomes U+FFFD.
int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int length, LPSTR buffer,
                               int size, LPCSTR defaultChar, LPBOOL usedDefault);

// Time, from the host's clock. Documented.

void WINAPI GetLocalTime(SYSTEMTIME* time);
void WINAPI GetSystemTimeAsFileTime(FILETIME* time);
/// UTC calendar time; fails for moments before 1970 (chosen).
BOOL WINAPI FileTimeToSystemTime(const FILETIME* fileTime, SYSTEMTIME* time);
/// Milliseconds since the machine started, time slept on a fixed clock included.
ULONGLONG WINAPI GetTickCount64();
void WINAPI Sleep(DWORD milliseconds);

// Microsoft's additions to the C runtime. Documented.

/// Compares without regard to case.
int _wcsicmp(const wchar_t* left, const wchar_t* right);
/// Decimal number at the start of the text; 0 without one.
int _wtoi(const wchar_t* text);
/// Formats with Microsoft's wide rules, as far as host/text/wide_format.h has them: at most
/// `count` characters, no ending null when there is no room for it; the length, or -1 when longer.
int _vsnwprintf(wchar_t* buffer, std::size_t count, const wchar_t* format, va_list arguments);
/// Length of the formatted text without the ending null.
int _vscwprintf(const wchar_t* format, va_list arguments);
/// Opens a text file; only the mode "a+t, ccs=UNICODE" (append): UTF-16LE with a byte-order mark at
/// the start of a new or empty file. Null and errno on failure; the caller closes it with fclose,
/// whose result tells whether everything was written. Here it takes text through fwprintf_s only.
std::FILE* _wfopen(const wchar_t* name, const wchar_t* mode);
/// Formats by Microsoft's wide rules into such a file, line feeds as CR LF; the length of the text
/// or -1.
int fwprintf_s(std::FILE* stream, const wchar_t* format, ...);

}  // extern "C"
