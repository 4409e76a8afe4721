// The keys of a terminal, where the Esc key and the sequences of other keys begin alike.
#pragma once

#include <cwchar>
#include <functional>
#include <string>

/// A sequence that a key sends, and what it does as the line editor calls it.
struct KeySequence {
    const char* keys;
    const char* function;
};

/// Reads standard input key by key. Esc is given as Ctrl+C; so the line editor never sees it but at
/// the begin of one of the sequences below, and has no mode to end in. Other sequences are dropped.
class KeyReader {
  public:
    static constexpr wchar_t kCancel = 3;
    /// The sequences that are given on, ended by one without keys.
    static const KeySequence kSequences[];

    /// `stopped` is asked when a signal interrupts the reading.
    explicit KeyReader(std::function<bool()> stopped) : m_stopped(std::move(stopped)) {}
    /// 1 with a key, 0 at the end of the input or when stopped, -1 on an error.
    int next(wchar_t& key);

  private:
    /// False when a signal asks to stop before there is input.
    bool waitForInput();
    /// As next(), one byte; with `patient` false 0 also when none comes within a moment.
    int readByte(char& byte, bool patient);
    /// True when what follows Esc is a sequence to be given on, which is then in m_ready. `isKey`
    /// is false when it is one to be dropped.
    bool readSequence(bool& isKey);

    std::function<bool()> m_stopped;
    std::string m_ready;  ///< bytes that were read ahead
    std::mbstate_t m_state = {};
};
