// The group prefix and the persistent names that are formed from it.
#pragma once

#include <string>

/// Suffixes behind the group prefix. Drawings hold these names, so they never change.
namespace GroupSuffix {
constexpr const wchar_t* kRecordKey = L"_GROUP";
constexpr const wchar_t* kRecordText = L" Group entity";
constexpr const wchar_t* kBeginMarker = L"_GB";
constexpr const wchar_t* kEndMarker = L"_GE";
constexpr const wchar_t* kLayer = L"_GFRZ";
}  // namespace GroupSuffix

/// The two words that can stand in front of them.
namespace GroupPrefix {
constexpr const wchar_t* kOlder = L"KEST";
constexpr const wchar_t* kNewer = L"VELMO";
}  // namespace GroupPrefix

/// The word that names everything that belongs to groups in the working drawing: "KEST" or
/// "VELMO". Decided by the detailing blocks that the drawing holds, then by its group layer;
/// determined afresh at every call. "KEST" when the block table cannot be read.
std::wstring groupPrefix();
