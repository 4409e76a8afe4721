// Symbol table records: texts of new ones, the rules of their names, layers and spaces.
#pragma once

#include <string>
#include <string_view>

#include "host/store/object_body.h"

namespace host {

class Store;

/// Tags of a new record: type and the two subclass markers, flags 0, no name yet.
std::string newRecordText(std::string_view type, std::string_view subclass);

/// True for a name that a record may have; `anonymous` also allows a leading asterisk.
bool symbolNameIsValid(std::wstring_view name, bool anonymous);

/// Puts a record that has its place in the store at the end of its table.
void addRecord(Store& store, Index table, ObjectBody& record, std::wstring_view name);

/// Gives a record of the block table its BLOCK and ENDBLK. `pointTags` are tags of which the first
/// 10, 20 and 30 are the base point, each 0 where it is missing.
void makeBlockParts(Store& store, const ObjectBody& record, std::string_view pointTags);
/// The same for a record that just joined: the base point that it carried while it was new moves
/// to the BLOCK.
void completeBlock(Store& store, ObjectBody& record);

/// True for *Paper_Space and its numbered siblings; and for these and *Model_Space.
bool isPaperSpaceName(std::wstring_view name);
bool isSpaceName(std::wstring_view name);

/// State of a layer, from its record.
struct LayerState {
    bool off = false;
    bool frozen = false;
    bool locked = false;
};
LayerState layerState(const ObjectBody& layer);
/// Makes a layer of the drawing current; false when it is frozen.
bool setCurrentLayer(Store& store, const ObjectBody& layer);

}  // namespace host
