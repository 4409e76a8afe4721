// Starts xdg-open, without a shell, on a file that leads to the page.
#include "window/browser.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <thread>
#include <vector>

extern char** environ;

namespace window {

Signpost::Signpost(const std::string& address) {
    std::error_code failure;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(failure);
    if (failure) return;
    std::string name = (folder / "drafthost-XXXXXX.html").string();
    constexpr int kSuffix = 5;
    const int file = mkstemps(name.data(), kSuffix);  // readable by this user alone
    if (file < 0) return;
    const std::string page =
        "<!doctype html><meta name=\"referrer\" content=\"no-referrer\">"
        "<meta http-equiv=\"refresh\" content=\"0;url=" +
        address + "\"><a href=\"" + address + "\">drafthost</a>\n";
    const bool written = write(file, page.data(), page.size()) == static_cast<ssize_t>(page.size());
    close(file);
    if (written)
        m_path = name;
    else
        unlink(name.c_str());
}

Signpost::~Signpost() {
    if (!m_path.empty()) unlink(m_path.c_str());
}

bool Signpost::open() const {
    if (m_path.empty()) return false;
    posix_spawn_file_actions_t silence;
    posix_spawn_file_actions_init(&silence);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&silence, stream, "/dev/null", O_RDWR, 0);
    std::string program = "xdg-open", file = m_path;
    char* const arguments[] = {program.data(), file.data(), nullptr};
    pid_t process = -1;
    const int failure =
        posix_spawnp(&process, program.c_str(), &silence, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&silence);
    if (failure != 0) return false;
    std::thread([process] { waitpid(process, nullptr, 0); }).detach();
    return true;
}

}  // namespace window
