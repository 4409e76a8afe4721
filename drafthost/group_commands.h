// What the program adds to a session about groups: two commands, and what saves did to groups.
#pragma once

#include <functional>
#include <memory>
#include <string>

/// Registers GROUPLIST and PICTURE; call it once a session exists.
void registerGroupCommands();

/// Watches saves while it lives and tells, one line each, which groups the repair before them
/// dissolved or shortened. Make it before a module is loaded, so that it sees a drawing before the
/// module does, and destroy it before the session.
class SaveWatch {
  public:
    explicit SaveWatch(std::function<void(const std::string& line)> tell);
    ~SaveWatch();
    SaveWatch(const SaveWatch&) = delete;
    SaveWatch& operator=(const SaveWatch&) = delete;

  private:
    class Reactor;
    std::unique_ptr<Reactor> m_reactor;
};
