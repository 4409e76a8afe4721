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
    std::string base;  ///< folder whose subfolders the output folder keeps; empty: the common one
    std::string outputDir;  ///< gets each drawing after its script; empty: nothing is saved
    int jobs = 1;           ///< drawings worked on at a time
    bool quiet = false;     ///< no transcript, nothing about what is as it should be
    std::string module;     ///< empty: the one beside the program
    bool noModule = false;
    bool check = false;
    bool groups = false;
    bool layers = false;
    bool json = false;       ///< what --check, --groups or --layers list, as JSON
    bool window = false;     ///< the session in the browser
    bool noBrowser = false;  ///< its address alone
    std::string makeGroups;  ///< by "layer", "block" or "color"; empty: no groups are made
    std::string only = "*";  ///< names to make groups for
    int least = 2;           ///< entities for a group
    bool repair = false;
    std::string picture;     ///< file or folder to draw into, "-": standard output; empty: nothing
    std::string space;       ///< to draw: model space when empty, else that of a layout
    std::string layerNames;  ///< to draw: names with wild cards; empty: all
    int group = 0;           ///< to draw alone, by its number; 0: everything
    std::vector<double> corners;  ///< to draw: two corners; empty: everything
    std::vector<std::string> menuGroups;
    std::vector<std::string> variables;  ///< "NAME=VALUE"
    std::vector<std::string> switches;   ///< "NAME=VALUE", a number of 32 bits
};

/// True for a run that changes drawings without a script.
inline bool changesByItself(const Options& options) {
    return options.repair || !options.makeGroups.empty();
}

/// Reads the arguments behind the program's name. False, with one line, when they are wrong.
bool parseOptions(std::vector<std::string> arguments, Options& options, std::string& error);
