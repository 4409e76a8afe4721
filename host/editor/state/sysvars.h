// System variables of the application and of documents, for the host's own use.
#pragma once

#include <string>
#include <vector>

namespace host {

/// Value of a variable as text, or false for an unknown name.
bool sysvarText(const std::wstring& name, std::wstring& value);
/// Sets a variable from text; false with one line of explanation for an unknown or read-only one,
/// or a value that does not fit.
bool setSysvarText(const std::wstring& name, const std::wstring& value, std::wstring& explanation);
bool isSysvar(const std::wstring& name);
bool isReadOnlySysvar(const std::wstring& name);
/// Integer value; 0 for an unknown name.
int sysvarInteger(const wchar_t* name);
/// Values of ERRNO that the editor sets. Assumed.
constexpr int kErrnoInvalidName = 2;
constexpr int kErrnoTooManySets = 3;
constexpr int kErrnoInvalidSet = 4;
constexpr int kErrnoNothingPicked = 7;
constexpr int kErrnoEmptyAnswer = 52;
/// ERRNO of the last failed ADS call.
void setErrno(int value);
std::vector<std::wstring> sysvarNames();
/// Application-wide variables back to their defaults (for tests and a new session).
void resetSysvars();

}  // namespace host
