// The command line of drafthost.
#pragma once

#include <string>
#include <vector>

#include "host/application/exit_status.h"

using host::kDone, host::kFailed, host::kUsage, host::kUnreadable, host::kUnwritable,
    host::kDamaged, host::kInterrupted;

/// What the command line asks for. All texts are UTF-8.
struct Options {
    std::string information;         ///< of --help or --version: there is nothing else to do
    std::vector<std::string> files;  ///< the drawings, if any
    std::string script;              ///< "-" is standard input; empty: none
    bool keepGoing = false;          ///< with a script after a command that failed
    std::string outputDir;  ///< gets each drawing after its script; empty: nothing is saved
    int jobs = 1;           ///< drawings worked on at a time
    bool quiet = false;     ///< no transcript, nothing about what is as it should be
    std::string module;     ///< empty: the one beside the program
    bool noModule = false;
    bool check = false;
    bool groups = false;
    bool json = false;       ///< the list of findings or groups as JSON
    bool window = false;     ///< the session in the browser
    bool noBrowser = false;  ///< its address alone
    std::string picture;     ///< file to draw into; empty: nothing is drawn
    std::string layout;      ///< to draw; empty: model space
    std::vector<std::string> menuGroups;
    std::vector<std::string> variables;  ///< "NAME=VALUE"
    std::vector<std::string> switches;   ///< "NAME=VALUE", a number of 32 bits
};

/// Reads the arguments behind the program's name. False, with one line, when they are wrong.
bool parseOptions(std::vector<std::string> arguments, Options& options, std::string& error);
