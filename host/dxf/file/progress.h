// How loading and saving tell how far they are.
#pragma once

#include <functional>

namespace host {

/// Called now and then with the share that is done, from 0 to 1. May be empty. False asks to stop:
/// a load ends with an error; a save, which must not end half way, goes on.
using ProgressFunction = std::function<bool(double done)>;

}  // namespace host
