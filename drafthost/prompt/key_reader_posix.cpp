// Tells Esc from the sequences of other keys by what follows at once.
#include "drafthost/prompt/key_reader_posix.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace {

constexpr char kEscape = 27;

bool isKnown(const std::string& keys) {
    for (const KeySequence* each = KeyReader::kSequences; each->keys != nullptr; ++each)
        if (keys == each->keys) return true;
    return false;
}

}  // namespace

const KeySequence KeyReader::kSequences[] = {
    {"\033[A", "ed-prev-history"},      {"\033OA", "ed-prev-history"},
    {"\033[B", "ed-next-history"},      {"\033OB", "ed-next-history"},
    {"\033[C", "ed-next-char"},         {"\033OC", "ed-next-char"},
    {"\033[D", "ed-prev-char"},         {"\033OD", "ed-prev-char"},
    {"\033[H", "ed-move-to-beg"},       {"\033OH", "ed-move-to-beg"},
    {"\033[1~", "ed-move-to-beg"},      {"\033[7~", "ed-move-to-beg"},
    {"\033[F", "ed-move-to-end"},       {"\033OF", "ed-move-to-end"},
    {"\033[4~", "ed-move-to-end"},      {"\033[8~", "ed-move-to-end"},
    {"\033[3~", "ed-delete-next-char"}, {nullptr, nullptr}};

int KeyReader::readByte(char& byte, bool patient) {
    constexpr int kMoment = 50;  // milliseconds: a sequence comes faster, a hand does not
    if (!m_ready.empty()) {
        byte = m_ready.front();
        m_ready.erase(0, 1);
        return 1;
    }
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    if (!patient && poll(&input, 1, kMoment) <= 0) return 0;
    for (;;) {
        if (!waitForInput()) return 0;
        const ssize_t count = read(STDIN_FILENO, &byte, 1);
        if (count >= 0) return static_cast<int>(count);
        if (errno != EINTR) return -1;
    }
}

bool KeyReader::waitForInput() {
    sigset_t signals, former;
    sigemptyset(&signals);
    for (const int each : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&signals, each);
    // Between the question and the waiting none may come: it would be seen with the next key only.
    sigprocmask(SIG_BLOCK, &signals, &former);
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    bool stopped = m_stopped();
    while (!stopped && ppoll(&input, 1, nullptr, &former) < 0 && errno == EINTR)
        stopped = m_stopped();
    sigprocmask(SIG_SETMASK, &former, nullptr);
    return !stopped;
}

bool KeyReader::readSequence(bool& isKey) {
    isKey = true;
    char byte = 0;
    if (readByte(byte, false) != 1) return false;
    if (byte != '[' && byte != 'O') {
        m_ready.insert(0, 1, byte);
        return false;
    }
    std::string keys = {kEscape, byte};
    do {  // a sequence ends with its first letter or tilde
        if (readByte(byte, false) != 1) break;
        keys += byte;
    } while (byte < '@' || byte > '~');
    isKey = isKnown(keys);
    if (isKey) m_ready.insert(0, keys, 1, std::string::npos);
    return isKey;
}

int KeyReader::next(wchar_t& key) {
    for (;;) {
        char byte = 0;
        const int count = readByte(byte, true);
        if (count != 1) return count;
        if (byte == kEscape) {
            bool isKey = false;
            const bool isSequence = readSequence(isKey);
            key = isSequence ? wchar_t{kEscape} : kCancel;
            if (isKey) return 1;
            continue;
        }
        const std::size_t used = std::mbrtowc(&key, &byte, 1, &m_state);
        constexpr auto kUnfinished = static_cast<std::size_t>(-2);
        if (used == kUnfinished) continue;
        if (used <= 1) return 1;
        m_state = {};  // no character: dropped
    }
}
