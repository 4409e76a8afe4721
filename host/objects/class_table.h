// Which interface class views a stored object.
#pragma once

#include "host/objectarx/database_objects.h"
#include "host/store/object_body.h"

class AcRxClass;

namespace host {

/// Makes the view class that fits the body's kind. Owned by the opening it is made for.
AcDbObject* makeView(ObjectBody& body);
/// Class of a kind, without making a view.
AcRxClass* classOf(Kind kind);

}  // namespace host
