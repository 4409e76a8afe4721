// How loading and saving tell how far they are.
#pragma once

#include <functional>

namespace host {

/// Called now and then with the share that is done, from 0 to 1. May be empty.
using ProgressFunction = std::function<void(double done)>;

}  // namespace host
