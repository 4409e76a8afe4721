// The program at a terminal (prompt, line editing, Ctrl+C and Ctrl+D) and at an output that fails.
#include <poll.h>
#include <pty.h>
#include <unistd.h>

#include <csignal>

#include "program_fixture.h"

namespace {

constexpr const char* kControlC = "\3";
constexpr const char* kControlD = "\4";

/// A program at a pseudo-terminal.
class AtTerminal {
  public:
    /// `state` is the folder of what lasts from session to session.
    explicit AtTerminal(const std::string& state) {
        m_child = forkpty(&m_terminal, nullptr, nullptr, nullptr);
        if (m_child != 0) return;
        std::signal(SIGHUP, SIG_DFL);  // which a run under nohup ignores
        setenv("TERM", "dumb", 1);
        setenv("XDG_STATE_HOME", state.c_str(), 1);
        execl(DRAFTHOST_FILE, "drafthost", "--no-module", nullptr);
        _exit(127);
    }
    ~AtTerminal() { close(m_terminal); }

    /// Types each text once what stands before it is shown.
    void follow(std::initializer_list<std::pair<const char*, std::string>> dialogue) {
        for (const auto& [shown, typed] : dialogue) {
            if (!shows(shown)) return;
            EXPECT_EQ(write(m_terminal, typed.data(), typed.size()),
                      static_cast<ssize_t>(typed.size()));
        }
    }
    void send(int signal) const { kill(m_child, signal); }
    int status() {
        int result = -1;
        waitpid(m_child, &result, 0);
        return WIFEXITED(result) ? WEXITSTATUS(result) : -1;
    }

  private:
    /// Reads until `text` has come since the last call; false when it does not come in time.
    bool shows(const std::string& text) {
        constexpr int kLongest = 20000;  // milliseconds
        for (char buffer[512]; m_seen.find(text) == std::string::npos;) {
            pollfd terminal = {m_terminal, POLLIN, 0};
            const bool ready = poll(&terminal, 1, kLongest) > 0;
            const ssize_t count = ready ? read(m_terminal, buffer, sizeof buffer) : 0;
            if (count > 0) {
                m_seen.append(buffer, static_cast<std::size_t>(count));
                continue;
            }
            ADD_FAILURE() << "no \"" << text << "\" in: " << m_seen;
            kill(m_child, SIGKILL);
            return false;
        }
        m_seen.erase(0, m_seen.find(text) + text.size());
        return true;
    }

    int m_terminal = -1;
    pid_t m_child = -1;
    std::string m_seen;
};

using TerminalTest = ProgramTest;

TEST_F(TerminalTest, CommandsCancelAndLeave) {
    tests::write("a b.bak", "no drawing");
    AtTerminal terminal("/dev/null");
    terminal.follow({{"Drawing1.dxf; ? lists the commands", ""},
                     {"Command: ", "LINE 0,0\n"},
                     {"Specify next point: ", "nonsense\n"},
                     {"is no point", ""},
                     {"Specify next point: ", "1,1\n"},
                     {"[Undo]: ", kControlC},
                     {"*Cancel*", ""},
                     {"Command: ", "PICK ALL\nPICKED \n"},
                     {" LINE", ""},
                     {"Command: ", kControlD},  // before the prompt it would belong to the system
                     {"Save the changes to Drawing1.dxf? [Yes/No/Cancel] <Yes>: ", kControlD},
                     {"Command: ", "SAVEAS\n"},
                     {"Save drawing as <Drawing1.dxf>: ", "\n"},
                     {"Saved as ", "SAVEAS DXF 16 a b\n"},
                     {"a b.dxf.", "CIRCLE 0,0\n"},
                     {"Specify radius of circle: ", "\n"},
                     {"A radius is needed", "1\n"},
                     {"Command: ", "CLOSE\n"},
                     {"<Yes>: ", "n\n"},
                     {"Command: ", "OPEN a\t\n"},
                     {"Command: ", "QUIT\n"}});
    EXPECT_EQ(terminal.status(), 0);
    EXPECT_TRUE(std::filesystem::exists("Drawing1.dxf"));
    EXPECT_TRUE(std::filesystem::exists("a b.dxf"));
}

TEST_F(TerminalTest, WhatASignalEndsIsKeptAndToldAtTheNextStart) {
    for (const int signal : {SIGHUP, SIGTERM}) {
        AtTerminal terminal("/dev/null");
        terminal.follow({{"Command: ", "LINE 0,0 1,1\n"}, {"[Undo]: ", ""}});
        terminal.send(signal);
        EXPECT_EQ(terminal.status(), 130);
        EXPECT_EQ(drafthost("--check Drawing1.recovered.dxf").status, 0);
    }
    AtTerminal next("/dev/null");
    next.follow({{"Drawing1.recovered.dxf keeps work", ""}, {"Command: ", "QUIT\n"}});
    EXPECT_EQ(next.status(), 0);
}

TEST_F(TerminalTest, EscTabAndTheHistory) {
    const std::string state = std::filesystem::current_path().string();
    AtTerminal first(state);
    first.follow({{"Command: ", "CIRC\t\n"},
                  {"center point", "\033"},
                  {"*Cancel*", ""},
                  {"Command: ", "xREGEN\033[1~\033[15~\033[3~\n"},  // Home, F5, Delete
                  {"Regenerating model.", ""},
                  {"Command: ", "\n"},
                  {"Regenerating model.", ""},
                  {"Command: ", "QUIT\n"}});
    EXPECT_EQ(first.status(), 0);
    AtTerminal second(state);
    second.follow(
        {{"Command: ", "\033[A\033[A\n"}, {"Regenerating model.", ""}, {"Command: ", kControlD}});
    EXPECT_EQ(second.status(), 0);
    // A link in the place of the history is somebody else's.
    std::filesystem::rename("drafthost/history", "other");
    std::filesystem::create_symlink("../other", "drafthost/history");
    const std::string before = contentOf("other");
    AtTerminal third(state);
    third.follow({{"Command: ", "POINT 1,1\n"}, {"Command: ", "QUIT n\n"}});
    EXPECT_EQ(third.status(), 0);
    EXPECT_EQ(contentOf("other"), before);
}

TEST_F(ProgramTest, OutputThatCannotBeWritten) {
    const std::string help = "\"" DRAFTHOST_FILE "\" --help";
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(dup2(ends[1], 9), 9);  // shells know descriptors of one digit
    close(ends[0]);                  // nobody reads
    EXPECT_EQ(runShell(help + " >&9 2>errors"), 0);
    EXPECT_EQ(contentOf("errors"), "");
    close(ends[1]);
    close(9);
    EXPECT_EQ(runShell(help + " >/dev/full 2>errors"), 1);
    EXPECT_EQ(contentOf("errors"),
              "drafthost: standard output cannot be written: No space left on device\n");
}

}  // namespace
