// LISP functions of modules: the call in progress, and calling them.
#pragma once

#include <string>

#include "host/application/session.h"
#include "host/objectarx/result_buffer.h"
#include "host/scripting/lisp_table.h"

namespace host {

/// The invocation that the module is answering.
struct Invocation {
    int code = 0;
    resbuf* arguments = nullptr;  ///< the host's
    bool returnsVoid = false;
};

/// Calls in progress; they nest when a function makes the host call another.
class LispCalls {
  public:
    Invocation* current() const { return m_current; }

    /// Sets the invocation for as long as this lives.
    class Scope {
      public:
        Scope(LispCalls& calls, Invocation& invocation)
            : m_calls(calls), m_former(calls.m_current) {
            calls.m_current = &invocation;
        }
        ~Scope() { m_calls.m_current = m_former; }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

      private:
        LispCalls& m_calls;
        Invocation* m_former;
    };

  private:
    Invocation* m_current = nullptr;
};

}  // namespace host
