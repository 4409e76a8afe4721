// What the editor tells about commands: how the last one ended, and whether grouping is on.
#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include "host/editor/run/command_runner.h"
#include "host/objectarx/editor.h"

namespace window {

/// Watches while it lives. Of the host's thread.
class CommandWatch : public AcEditorReactor {
  public:
    CommandWatch();
    ~CommandWatch() override;
    CommandWatch(const CommandWatch&) = delete;
    CommandWatch& operator=(const CommandWatch&) = delete;

    void commandEnded(const ACHAR* name) override;
    void commandCancelled(const ACHAR*) override { m_ended = host::CommandStatus::Cancelled; }
    void commandFailed(const ACHAR*) override { m_ended = host::CommandStatus::Failed; }
    void pickfirstModified() override;

    /// How a command ended since it was last asked; nothing when none did.
    std::optional<host::CommandStatus> takeEnd();
    /// True while picks in the current drawing are widened to groups. The module says so to nobody;
    /// what switches it are its two commands, and a change of the picks with PICKFIRST 0.
    bool groupingOn() const;

  private:
    bool* modeOfCurrent();

    std::optional<host::CommandStatus> m_ended;
    std::map<std::uint32_t, bool> m_off;  ///< by serial number of the drawing
};

}  // namespace window
