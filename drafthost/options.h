// The command line of drafthost.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Exit statuses of the program.
enum ExitStatus {
    kDone = 0,
    kFailed = 1,  ///< a command failed or was unknown, or the accounting found a fault
    kUsage = 2,
    kUnreadable = 3,  ///< a drawing cannot be read
    kUnwritable = 4,  ///< a drawing cannot be written
    kDamaged = 5,     ///< the check found damage, or a group is not whole
};

/// What the command line asks for. All texts are UTF-8.
struct Options {
    enum class Action { Run, Check, Groups, Picture, Version, Help };
    Action action = Action::Run;
    std::string drawing;                ///< empty: a new one
    std::optional<std::string> script;  ///< "-" is standard input
    std::optional<std::string> module;  ///< no value: the one beside the program
    bool noModule = false;
    std::vector<std::string> menuGroups;
    std::vector<std::pair<std::string, std::string>> variables;
    std::vector<std::pair<std::string, std::uint32_t>> switches;
    std::vector<std::string> checked;    ///< files of --check, --groups and --picture
    bool json = false;                   ///< the list of groups as JSON
    std::optional<std::string> picture;  ///< file to draw into
    std::string layout;                  ///< to draw; empty: model space
};

/// Reads the arguments behind the program's name. False, with one line, when they are wrong.
bool parseOptions(const std::vector<std::string>& arguments, Options& options, std::string& error);
/// Text of --help; the commands are listed behind it.
const char* helpText();
