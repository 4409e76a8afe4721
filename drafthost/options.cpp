// Parsing of the command line.
#include "drafthost/options.h"

#include <algorithm>
#include <CLI/CLI.hpp>
#include <cstdint>
#include <iterator>
#include <limits>
#include <sstream>

#include "drafthost/files/picture_file.h"
#include "drafthost/groups/entity_lots.h"
#include "drafthost/run.h"
#include "host/text/numbers.h"

namespace {

std::string notEmpty(const std::string& text) { return text.empty() ? "the name is empty" : ""; }

std::string isAssignment(const std::string& text) {
    const std::size_t equals = text.find('=');
    const bool good = equals != std::string::npos && equals > 0;
    return good ? "" : "needs NAME=VALUE, not \"" + text + "\"";
}

std::string isSwitch(const std::string& text) {
    if (const std::string problem = isAssignment(text); !problem.empty()) return problem;
    const auto number = host::parseInteger(text.substr(text.find('=') + 1));
    const bool good =
        number && *number >= 0 && *number <= std::numeric_limits<std::uint32_t>::max();
    return good ? "" : "needs a number from 0 to 4294967295 behind NAME=";
}

std::string isProperty(const std::string& by) {
    const auto* const end = std::end(kLotNames);
    return std::find(std::begin(kLotNames), end, by) != end
               ? ""
               : "takes layer, block or color, not \"" + by + "\"";
}

/// The host's own console program takes /i DRAWING and /s SCRIPT. False for a /i without a drawing.
bool replaceSlashForms(std::vector<std::string>& arguments) {
    for (std::size_t at = 0; at < arguments.size() && arguments[at] != "--"; ++at) {
        if (arguments[at] == "/s" || arguments[at] == "/S") arguments[at] = "--script";
        if (arguments[at] != "/i" && arguments[at] != "/I") continue;
        arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(at));
        if (at == arguments.size()) return false;
    }
    return true;
}

void addFlag(CLI::App& app, const char* name, bool& value, const char* help) {
    app.add_flag(name, value, help)->disable_flag_override();
}

/// An option that takes one text, or one each time it is given; by itself none that is empty.
template <typename Texts>
void addText(CLI::App& app, const char* name, Texts& value, const char* form, const char* help,
             std::string (*problem)(const std::string&) = notEmpty) {
    app.add_option(name, value, help)->type_name(form)->allow_extra_args(false)->check(problem);
}

void addNumber(CLI::App& app, const char* name, int& value, int highest, const char* help) {
    app.add_option(name, value, help)
        ->type_name("N")
        ->check(CLI::Range(1, highest).description(""));
}

void declareScripts(CLI::App& app, Options& options) {
    addText(app, "-s,--script", options.script, "FILE",
            "commands from FILE (\"-\": standard input)");
    addText(app, "--output-dir", options.outputDir, "DIR",
            "save each drawing there, under its name and subfolder; the source stays");
    addText(app, "--base", options.base, "DIR",
            "keep subfolders from there on, not from the drawings' common folder");
    addFlag(app, "--keep-going", options.keepGoing, "go on with a script after a failed command");
    addNumber(app, "-j,--jobs", options.jobs, 64, "so many drawings at a time, from 1 to 64");
    addFlag(app, "-q,--quiet", options.quiet, "no transcript, and of drawings what is wrong alone");
}

void declareSession(CLI::App& app, Options& options) {
    addText(app, "-m,--module", options.module, "FILE",
            "module to load at start, else VelmoGroup.arx beside the program");
    addFlag(app, "--no-module", options.noModule, "no module at start");
    addText(app, "--menu", options.menuGroups, "GROUP",
            "the menu group counts as loaded (repeatable)");
    addText(app, "--set", options.variables, "NAME=VALUE",
            "a system variable at start (repeatable)", isAssignment);
    addText(app, "--registry", options.switches, "NAME=DWORD",
            "a per-user switch of the module (repeatable); DebugStartup=1 prints the failed checks",
            isSwitch);
}

/// --window is the browser or, beside --picture, a part of the drawing.
void declareWindow(CLI::App& app, Options& options, bool draws) {
    if (draws) {
        app.add_option("--window", options.corners, "what lies between two corners alone")
            ->type_name("X1,Y1,X2,Y2")
            ->delimiter(',')
            ->expected(4)
            ->allow_extra_args(false);
    } else {
        addFlag(app, "--window", options.window,
                "work on the drawing in the browser; with --picture and X1,Y1,X2,Y2: draw "
                "what lies between these corners alone");
    }
    addFlag(app, "--no-browser", options.noBrowser, "--window prints its address alone");
}

void declareReading(CLI::App& app, Options& options) {
    addFlag(app, "--check", options.check, "check the drawings, change nothing");
    addFlag(app, "--groups", options.groups, "list the groups of the drawings, change nothing");
    addFlag(app, "--layers", options.layers,
            "list the layers of the drawings, their entities, how many are in groups");
    addFlag(app, "--json", options.json, "--check, --groups, --layers print one JSON document");
    addText(app, "--picture", options.picture, "OUT",
            "draw drawings and their groups as SVG into a file, "
            "DIR/ for many, or \"-\": standard output");
    addText(app, "--space,--layout", options.space, "NAME", "of a layout, instead of model space");
    addText(app, "--layer", options.layerNames, "PATTERN",
            "these layers alone; wild cards, commas between names");
    addNumber(app, "--group", options.group, std::numeric_limits<int>::max(),
              "this group alone, by its number in the picture");
}

void declareChanging(CLI::App& app, Options& options) {
    addText(app, "--make-groups", options.makeGroups, "BY",
            "make one group for each layer, block or color of model space", isProperty);
    addText(app, "--only", options.only, "PATTERN",
            "of these names; wild cards, commas between patterns");
    addNumber(app, "--min", options.least, 1000000000, "that have so many entities, 2 unless said");
    addFlag(app, "--repair", options.repair,
            "repair the groups, take stray markers and group records away");
}

void declare(CLI::App& app, Options& options, bool draws) {
    app.add_option("drawing.dxf", options.files, "the drawings to open or to read")
        ->type_name("")
        ->check(notEmpty);
    declareScripts(app, options);
    declareChanging(app, options);
    declareSession(app, options);
    declareWindow(app, options, draws);
    declareReading(app, options);
    app.set_version_flag("--version", "drafthost " DRAFTHOST_VERSION);
    app.get_formatter()->column_width(28);
    app.footer(helpOnCommands);
}

/// The options that say what the run does, without a script; in the order of the help.
std::vector<std::string> purposes(const Options& options) {
    const std::pair<bool, const char*> all[] = {
        {options.check, "--check"},
        {options.groups, "--groups"},
        {options.layers, "--layers"},
        {!options.picture.empty(), "--picture"},
        {!options.makeGroups.empty(), "--make-groups"},
        {options.repair, "--repair"},
    };
    std::vector<std::string> given;
    for (const auto& [wanted, name] : all)
        if (wanted) given.emplace_back(name);
    return given;
}

/// What is missing for a script, or for several drawings.
std::string scriptProblem(const Options& options, const std::string& purpose) {
    if (options.keepGoing && options.script.empty()) return "--keep-going belongs to --script";
    const bool saves = !options.script.empty() || changesByItself(options);
    if (!options.outputDir.empty() && !saves)
        return "--output-dir belongs to --script, --make-groups and --repair";
    if (!options.outputDir.empty() && options.files.empty()) return "--output-dir needs a drawing";
    if (!saves && purpose.empty() && options.files.size() > 1)
        return "several drawings need --script, --make-groups, --repair, --check, --groups or "
               "--layers";
    return {};
}

/// An option that belongs to another one.
std::string strayOption(const Options& options) {
    if (options.json && !options.groups && !options.check && !options.layers)
        return "--json belongs to --check, --groups and --layers";
    const bool part = !options.space.empty() || !options.layerNames.empty() || options.group != 0 ||
                      !options.corners.empty();
    if (part && options.picture.empty())
        return "--space, --layer, --group and --window belong to --picture";
    if (!options.base.empty() && options.outputDir.empty()) return "--base belongs to --output-dir";
    if (options.makeGroups.empty() && options.only != Options().only)
        return "--only belongs to --make-groups";
    if (options.makeGroups.empty() && options.least != Options().least)
        return "--min belongs to --make-groups";
    return {};
}

/// What is wrong with the place of pictures.
std::string pictureProblem(const Options& options) {
    const bool many = isPictureFolder(options.picture);
    if (!many && options.picture != "-" && !isPictureName(options.picture))
        return "--picture needs a name that ends in .svg, a folder with / at its end, or -, not "
               "\"" +
               options.picture + "\"";
    if (!many && options.files.size() > 1)
        return "--picture takes one drawing, not also \"" + options.files[1] +
               "\"; for many name a folder with / at its end";
    const std::vector<double>& corners = options.corners;
    if (!corners.empty() && (corners[0] == corners[2] || corners[1] == corners[3]))
        return "--window needs two corners of a box that is not empty";
    return scriptProblem(options, "--picture");
}

std::string windowProblem(const Options& options, const std::string& purpose) {
    if (!options.window) return options.noBrowser ? "--no-browser belongs to --window" : "";
    if (!purpose.empty() || !options.script.empty())
        return "--window is a run of its own: it takes no script, and nothing is listed";
    return options.files.size() > 1
               ? "--window takes one drawing, not also \"" + options.files[1] + "\""
               : "";
}

/// What no single option can tell; empty when all is well.
std::string contradiction(const Options& options) {
    const std::vector<std::string> all = purposes(options);
    if (all.size() > 1) return all[0] + " and " + all[1] + " are runs of their own";
    const std::string purpose = all.empty() ? "" : all[0];
    if (std::string stray = strayOption(options); !stray.empty()) return stray;
    if (!purpose.empty() && options.files.empty()) return purpose + " needs at least one file";
    if (changesByItself(options) && !options.script.empty()) return purpose + " takes no script";
    if (changesByItself(options) && options.noModule) return purpose + " needs the module";
    const bool reads = !purpose.empty() && !changesByItself(options);
    if (reads && !(options.script.empty() && options.module.empty()))
        return purpose + " only reads drawings: it takes no script and no module";
    if (options.noModule && !options.module.empty())
        return "--module and --no-module exclude each other";
    if (!options.picture.empty()) return pictureProblem(options);
    if (const std::string problem = windowProblem(options, purpose); !problem.empty())
        return problem;
    return scriptProblem(options, purpose);
}

bool namesPicture(const std::vector<std::string>& arguments) {
    const std::string option = "--picture";
    return std::any_of(arguments.begin(), arguments.end(), [&](const std::string& argument) {
        return argument == option || argument.rfind(option + "=", 0) == 0;
    });
}

}  // namespace

bool parseOptions(std::vector<std::string> arguments, Options& options, std::string& error) {
    CLI::App app("A headless host for drawings. Without a drawing it opens a new, empty one.",
                 "drafthost");
    app.allow_windows_style_options(false);  // a path may begin with a slash
    declare(app, options, namesPicture(arguments));
    if (!replaceSlashForms(arguments)) {
        error = "/i needs a drawing";
        return false;
    }
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(std::move(arguments));
        error = contradiction(options);
    } catch (const CLI::Success& wish) {  // --help or --version
        std::ostringstream text;
        app.exit(wish, text);
        options.information = text.str();
    } catch (const CLI::ParseError& problem) {
        error = problem.what();
    }
    return error.empty();
}
