// The anonymous blocks that hold the pictures of dimensions.
#pragma once

#include <string>

#include "host/store/object_body.h"

namespace host {

class Store;

/// Record of the block that shows a dimension, or null.
ObjectBody* pictureOf(const ObjectBody& dimension);
/// Gives a dimension a copy of its picture in a new anonymous block; gives the new record.
ObjectBody& copyPicture(Store& store, ObjectBody& dimension);

/// A new, empty anonymous block "*<letter><number>" with the base point of another block.
ObjectBody& makeAnonymousBlock(Store& store, wchar_t letter, const ObjectBody& like);

}  // namespace host
