// What a page shows of the session, and what its pointer does there.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/application/session.h"
#include "json/json.h"
#include "window/command_watch.h"
#include "window/conversation.h"
#include "window/desk.h"
#include "window/groups.h"
#include "window/sheet.h"
#include "window/window.h"

namespace window {

/// Of the host's thread. Requests and answers are JSON; docs/window.md tells what is in them.
class Display {
  public:
    Display(host::Session& session, Desk& desk, Reader reader, std::function<bool()> isOver);

    Conversation& conversation() { return m_conversation; }
    /// Does what a page asks for. A request that makes no sense gets {"error": ...}.
    void answer(const json::Request& request, const Reply& reply);
    /// The session is over: tells the page.
    void conclude();
    /// True when there is nothing that would be lost with the page: no command under way and no
    /// drawing with changes.
    bool nothingToLose() const;

  private:
    /// What the page was told last, so that it is told only what is new.
    struct Told {
        std::uint32_t drawing = 0;
        std::uint64_t revision = 0;
        host::Index space = host::kNoIndex;
        bool groups = false;  ///< as they are since that revision
        std::size_t transcript = 0, script = 0;
        std::vector<AcDbObjectId> selected;
    };
    const host::Store* store() const;
    std::string everything();
    std::string news();
    json::Object state();
    void addSelection(json::Object& news);
    void addGroups(json::Object& news);
    json::Object sheetNews();
    json::Object wholeSheet();
    json::Object look(const json::Request& request);
    void showSpace(const json::Request& request, const Reply& reply);
    void click(const json::Request& request, const Reply& reply);
    void box(const json::Request& request, const Reply& reply);
    void pickGroup(const json::Request& request, const Reply& reply);
    void act(const json::Request& request, const Reply& reply);
    static void decline(const Reply& reply, const std::string& why);
    /// True when what the page shows is what commands work on.
    bool showsCurrentSpace() const;

    host::Session& m_session;
    Reader m_reader;
    CommandWatch m_watch;
    Conversation m_conversation;
    std::optional<Sheet> m_sheet;
    host::Index m_current = host::kNoIndex;  ///< space that commands work in, as the page knows it
    Groups m_groups;
    Told m_told;
    bool m_over = false;
};

}  // namespace window
