// Watches what repairs do to the groups of the drawings of a session.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// While it lives it tells, a line each, which groups the repair before a save, in REGEN or
/// after a paste dissolved or shortened, and at a drawing's first save whether it is damaged. Make
/// it before a module is loaded, so that it sees a drawing before the module does, and destroy it
/// before the session.
class GroupWatch {
  public:
    /// Lines call the drawing with that absolute path as the user has: `shown`.
    GroupWatch(std::string path, std::string shown,
               std::function<void(const std::string& line)> tell);
    ~GroupWatch();
    GroupWatch(const GroupWatch&) = delete;
    GroupWatch& operator=(const GroupWatch&) = delete;

    /// What the last such repair did to a drawing, given the serial number of its store.
    static const std::vector<std::string>& lastChanges(std::uint32_t serial);

  private:
    class Reactor;
    std::unique_ptr<Reactor> m_reactor;
};
