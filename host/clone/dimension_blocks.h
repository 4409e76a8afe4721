// The anonymous blocks that hold the pictures of dimensions and tables.
#pragma once

#include "host/store/object_body.h"

namespace host {

class Store;

/// Record of the block that shows a dimension or a table, or null. The block of a dimension is in
/// the coordinates of the drawing, that of a table in the table's own.
ObjectBody* pictureOf(const ObjectBody& entity);
/// Gives a dimension or a table a copy of its picture in a new anonymous block; gives the new
/// record.
ObjectBody& copyPicture(Store& store, ObjectBody& entity);

/// A new, empty anonymous block "*<letter><number>" with the base point of another block.
ObjectBody& makeAnonymousBlock(Store& store, wchar_t letter, const ObjectBody& like);

}  // namespace host
