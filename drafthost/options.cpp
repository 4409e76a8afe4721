// Parsing of the command line.
#include "drafthost/options.h"

#include <algorithm>
#include <CLI/CLI.hpp>
#include <cstdint>
#include <limits>
#include <sstream>

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

void declareScripts(CLI::App& app, Options& options) {
    app.add_option("-s,--script", options.script, "commands from FILE (\"-\": standard input)")
        ->type_name("FILE")
        ->check(notEmpty);
    app.add_option("--output-dir", options.outputDir,
                   "after its script each drawing is saved under its name in DIR")
        ->type_name("DIR")
        ->check(notEmpty);
    app.add_flag("--keep-going", options.keepGoing, "go on with a script after a failed command")
        ->disable_flag_override();
    app.add_option("-j,--jobs", options.jobs, "so many drawings at a time, from 1 to 64")
        ->type_name("N")
        ->check(CLI::Range(1, 64).description(""));
    app.add_flag("-q,--quiet", options.quiet, "no transcript, and of drawings what is wrong alone")
        ->disable_flag_override();
}

void declareSession(CLI::App& app, Options& options) {
    app.add_option("-m,--module", options.module,
                   "module to load at start, else VelmoGroup.arx beside the program")
        ->type_name("FILE")
        ->check(notEmpty);
    app.add_flag("--no-module", options.noModule, "no module at start")->disable_flag_override();
    const auto addList = [&](const char* name, std::vector<std::string>& values, const char* form,
                             const char* help) {
        return app.add_option(name, values, help)->type_name(form)->allow_extra_args(false);
    };
    addList("--menu", options.menuGroups, "GROUP", "the menu group counts as loaded (repeatable)")
        ->check(notEmpty);
    addList("--set", options.variables, "NAME=VALUE", "a system variable at start (repeatable)")
        ->check(isAssignment);
    addList("--registry", options.switches, "NAME=DWORD",
            "a per-user switch of the module (repeatable); DebugStartup=1 prints the failed checks")
        ->check(isSwitch);
}

void declareWindow(CLI::App& app, Options& options) {
    app.add_flag("--window", options.window, "work on the drawing in the browser")
        ->disable_flag_override();
    app.add_flag("--no-browser", options.noBrowser, "--window prints its address alone")
        ->disable_flag_override();
}

void declareReading(CLI::App& app, Options& options) {
    app.add_flag("--check", options.check, "check the drawings, change nothing")
        ->disable_flag_override();
    app.add_flag("--groups", options.groups, "list the groups of the drawings, change nothing")
        ->disable_flag_override();
    app.add_flag("--json", options.json, "--check and --groups print one JSON document")
        ->disable_flag_override();
    app.add_option("--picture", options.picture, "draw the drawing and its groups into an SVG file")
        ->type_name("OUT")
        ->check(notEmpty);
    app.add_option("--layout", options.layout, "draw this layout instead of model space")
        ->type_name("NAME")
        ->check(notEmpty);
}

void declare(CLI::App& app, Options& options) {
    app.add_option("drawing.dxf", options.files, "the drawings to open or to read")
        ->type_name("")
        ->check(notEmpty);
    declareScripts(app, options);
    declareSession(app, options);
    declareWindow(app, options);
    declareReading(app, options);
    app.set_version_flag("--version", "drafthost " DRAFTHOST_VERSION);
    app.get_formatter()->column_width(28);
    app.footer(helpOnCommands);
}

/// What is missing for a script, or for several drawings.
std::string scriptProblem(const Options& options, const std::string& reading) {
    if (!options.script.empty()) {
        const bool nowhere = !options.outputDir.empty() && options.files.empty();
        return nowhere ? "--output-dir needs a drawing" : "";
    }
    if (!options.outputDir.empty()) return "--output-dir belongs to --script";
    if (options.keepGoing) return "--keep-going belongs to --script";
    if (reading.empty() && options.files.size() > 1)
        return "several drawings need --script, --check or --groups";
    return {};
}

std::string windowProblem(const Options& options, const std::string& reading) {
    if (!options.window) return options.noBrowser ? "--no-browser belongs to --window" : "";
    if (!reading.empty() || !options.script.empty())
        return "--window is a run of its own: it takes no script, and nothing is listed";
    return options.files.size() > 1
               ? "--window takes one drawing, not also \"" + options.files[1] + "\""
               : "";
}

/// What no single option can tell; empty when all is well.
std::string contradiction(const Options& options) {
    const bool draws = !options.picture.empty();
    if (options.check + options.groups + draws > 1)
        return "--check, --groups and --picture are runs of their own";
    const std::string reading = options.check    ? "--check"
                                : options.groups ? "--groups"
                                : draws          ? "--picture"
                                                 : "";
    if (options.json && !options.groups && !options.check)
        return "--json belongs to --check and --groups";
    if (!options.layout.empty() && !draws) return "--layout belongs to --picture";
    if (!reading.empty() && options.files.empty()) return reading + " needs at least one file";
    if (!reading.empty() && !(options.script.empty() && options.module.empty()))
        return reading + " only reads drawings: it takes no script and no module";
    if (options.noModule && !options.module.empty())
        return "--module and --no-module exclude each other";
    if (draws && options.files.size() > 1)
        return "--picture takes one drawing, not also \"" + options.files[1] + "\"";
    if (const std::string problem = windowProblem(options, reading); !problem.empty())
        return problem;
    return scriptProblem(options, reading);
}

}  // namespace

bool parseOptions(std::vector<std::string> arguments, Options& options, std::string& error) {
    CLI::App app("A headless host for drawings. Without a drawing it opens a new, empty one.",
                 "drafthost");
    app.allow_windows_style_options(false);  // a path may begin with a slash
    declare(app, options);
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
