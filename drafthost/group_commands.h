// What the program adds to a session about groups: two commands, and what saves did to groups.
#pragma once

#include <memory>

#include "host/application/session.h"

/// Registers GROUPLIST and PICTURE for a session, which has to outlive their use.
void registerGroupCommands(const host::Session& session);

/// Watches saves while it lives and says on standard error which groups the repair before them
/// dissolved or shortened. Make it before a module is loaded, so that it sees a drawing before the
/// module does, and destroy it before the session.
class SaveWatch {
  public:
    SaveWatch();
    ~SaveWatch();
    SaveWatch(const SaveWatch&) = delete;
    SaveWatch& operator=(const SaveWatch&) = delete;

  private:
    class Reactor;
    std::unique_ptr<Reactor> m_reactor;
};
