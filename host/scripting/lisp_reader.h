// Reads a typed LISP call "(Name args)" into a name and a list of result buffers.
#pragma once

#include <string>

#include "host/objects/result_list.h"

namespace host {

/// A call as typed.
struct LispCall {
    std::wstring name;
    ResultList arguments;
};

/// Reads one call; arguments are strings, integers, reals, nil, T, (handent "2A") and points as
/// lists: (1 2), '(1 2 3) or (list 1.0 2.0). False, with what is wrong, for anything else.
bool readLispCall(const std::wstring& text, LispCall& call, std::string& problem);

}  // namespace host
