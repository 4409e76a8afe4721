// Brings session, page and server together.
#include "window/window.h"

#include <optional>

#include "host/control/effects.h"
#include "host/text/text_codec.h"
#include "window/browser.h"
#include "window/display.h"
#include "window/floor.h"
#include "window/server.h"

namespace window {
namespace {

/// Decides when the session is over, and tells the terminal why it is not.
class Farewell {
  public:
    Farewell(const Setup& setup, const Floor& floor) : m_setup(setup), m_floor(floor) {}
    void watch(const Display& display, const std::string& address) {
        m_display = &display;
        m_address = address;
    }
    bool isOver() {
        if (m_over || m_display == nullptr) return m_over;
        const bool interrupted = m_setup.takeInterrupt(), deserted = m_floor.deserted();
        if (interrupted) ++m_interrupts;
        m_over = m_interrupts > 1 || ((interrupted || deserted) && m_display->nothingToLose());
        if (m_over) return true;
        if (interrupted)
            m_setup.tell("there is work that is not saved; Ctrl+C again leaves it; the page is " +
                         m_address);
        if (deserted && !m_deserted)
            m_setup.tell(
                "the page was closed, and there is work that is not saved; open it again: " +
                m_address);
        m_deserted = deserted;
        return false;
    }
    bool wasInterrupted() const { return m_over && m_interrupts > 0; }

  private:
    const Setup& m_setup;
    const Floor& m_floor;
    const Display* m_display = nullptr;
    std::string m_address;
    int m_interrupts = 0;
    bool m_deserted = false;
    bool m_over = false;
};

void announce(const Setup& setup, const std::string& address, std::optional<Signpost>& signpost) {
    setup.ready(address);
    if (!setup.opensBrowser) return;
    signpost.emplace(address);
    if (!signpost->open())
        setup.tell("no browser can be started (xdg-open): open the address above in one");
}

}  // namespace

End run(host::Session& session, const Setup& setup) {
    Desk desk;
    Floor floor;
    Farewell farewell(setup, floor);
    Display display(session, desk, setup.reader, [&] { return farewell.isOver(); });
    Conversation& conversation = display.conversation();
    std::optional<Signpost> signpost;
    Server server(desk, floor, [&](const json::Request& request, const Reply& reply) {
        display.answer(request, reply);
    });
    if (!server.start()) return End::NoPort;
    host::commandLineSink() = [&](const std::wstring& text) { conversation.print(text); };
    session.diagnostics = [&](const std::string& line) { conversation.diagnose(line); };
    host::printLine(host::fromUtf8(setup.greeting));
    farewell.watch(display, server.address());
    announce(setup, server.address(), signpost);
    do
        session.runInput(conversation);
    while (!session.leave(conversation));
    display.conclude();
    desk.close();
    session.diagnostics = nullptr;
    host::commandLineSink() = nullptr;
    return farewell.wasInterrupted() ? End::Interrupted : End::Quit;
}

}  // namespace window
