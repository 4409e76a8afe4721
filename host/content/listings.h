// Objects that list others of the whole drawing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/store/object_body.h"

namespace host {

/// Handle of the record of what is put together again when a drawing in an older form is loaded; 0
/// when there is none.
std::uint64_t recomposedList(const Store& store);

/// True for what the drawing keeps to find all objects of a kind by: fields, section planes,
/// lights, and that record. A new object of the kind belongs into it (assumed), a clone of a listed
/// one included.
bool isListing(const ObjectBody& body, std::uint64_t recomposedList);

/// One listed object: its handle (330, lights 5), and for a light its name (1).
struct ListedObject {
    std::uint64_t handle = 0;
    std::string tags;
};

/// What a listing names, in its order.
std::vector<ListedObject> listedObjects(const ObjectBody& listing);
/// The same entry for another object.
ListedObject listedAs(const ListedObject& entry, std::uint64_t handle);
/// The tags of a listing that names these, with their number where it states one (90). One without
/// that group stays as it is.
std::string listingOf(const ObjectBody& listing, const std::vector<ListedObject>& objects);

}  // namespace host
