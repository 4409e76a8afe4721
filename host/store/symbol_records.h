// Symbol table records: texts of new ones and the rules of their names.
#pragma once

#include <string>
#include <string_view>

#include "host/objectarx/error_status.h"
#include "host/store/object_body.h"

namespace host {

class Store;

/// Tags of a new record: type and the two subclass markers, flags 0, no name yet.
std::string newRecordText(std::string_view type, std::string_view subclass);

/// True for a name that a record may have; `anonymous` also allows a leading asterisk.
bool symbolNameIsValid(std::wstring_view name, bool anonymous);

/// Gives a record that just joined the block table its BLOCK and ENDBLK. The base point that the
/// record carried while it was new moves to the BLOCK.
void makeBlockParts(Store& store, ObjectBody& record);

}  // namespace host
