// Edits of an object's tags that the store and the object classes share.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/text/text_codec.h"

namespace host {

struct ObjectBody;

/// Gives a body that is being made its first text. Not a change: nothing is counted.
void placeText(ObjectBody& body, std::string_view text);

/// Copy of an object's tags with another handle (tag 5, in DIMSTYLE 105) and another owner
/// (330). Both are added where they are missing; whatever the text had, it has one owner then.
std::string withIdentity(std::string_view text, std::uint64_t handle, std::uint64_t owner);

/// Copy of an object's tags with every value converted from one encoding to another.
std::string recoded(std::string_view text, const Encoding& from, const Encoding& to);

/// The extension dictionary's handle in an object's tags, or 0.
std::uint64_t extensionDictionaryHandle(std::string_view text);
/// Links an object to its extension dictionary; handle 0 takes the link away.
void setExtensionDictionary(std::string& text, std::uint64_t handle);

}  // namespace host
