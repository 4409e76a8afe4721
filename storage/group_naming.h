// The group prefix and the persistent names that are formed from it.
#pragma once

#include <string>

/// Suffixes behind the group prefix. Drawings hold these names, so they never change.
namespace GroupSuffix {
const wchar_t* const kRecordKey = L"_GROUP";
const wchar_t* const kRecordText = L" Group entity";
const wchar_t* const kBeginMarker = L"_GB";
const wchar_t* const kEndMarker = L"_GE";
const wchar_t* const kLayer = L"_GFRZ";
}  // namespace GroupSuffix

/// The two words that can stand in front of them.
namespace GroupPrefix {
const wchar_t* const kOlder = L"KEST";
const wchar_t* const kNewer = L"VELMO";
}  // namespace GroupPrefix

/// The word that names everything that belongs to groups in the working drawing: "KEST" or
/// "VELMO". Decided by the detailing blocks that the drawing holds, then by its group layer;
/// determined afresh at every call. "KEST" when the block table cannot be read.
std::wstring groupPrefix();
