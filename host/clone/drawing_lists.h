// What a whole drawing lists, kept in step with what was cloned.
#pragma once

#include "host/clone/clone_map.h"

namespace host {

/// Enters the clones of objects that a listing of the source's drawing names into the one of the
/// target under the same name, which gets an empty one when it has none. Behind the translation.
void enterInListings(const Store& from, Store& to, const CloneMap& map);

/// Gives a drawing the class records (section CLASSES) of the types in it from slot `firstNew` on,
/// as another drawing has them. The real host drops objects of unknown types (assumed).
void bringClasses(const Store& from, Store& to, Index firstNew);

}  // namespace host
