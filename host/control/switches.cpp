// The one set of switches for behaviours that no documentation settles.
#include "host/control/switches.h"

namespace host {

Switches& switches() {
    static Switches instance;
    return instance;
}

}  // namespace host
