// What the Tab key makes of a line typed so far.
#pragma once

#include <string>
#include <vector>

/// Text is UTF-8.
struct Completion {
    std::size_t length = 0;            ///< bytes at the end of the line that are replaced
    std::string text;                  ///< by this
    std::vector<std::string> choices;  ///< to be shown, when there is nothing to add
};

/// Completes the name of a command at the empty prompt, behind it and at other prompts the name of
/// a file, blanks and all. Backups are not offered. Without a candidate nothing is replaced or
/// shown.
Completion complete(const std::string& line, bool atEmptyPrompt);
