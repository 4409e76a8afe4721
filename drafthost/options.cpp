// Parsing of the command line.
#include "drafthost/options.h"

#include <cctype>
#include <limits>

namespace {

/// Walks the arguments; an option's value is behind "=" or the next argument.
class Parser {
  public:
    Parser(const std::vector<std::string>& arguments, Options& options)
        : m_arguments(arguments), m_options(options) {}

    bool run();
    const std::string& error() const { return m_error; }

  private:
    bool fail(std::string text) {
        m_error = std::move(text);
        return false;
    }
    bool value(std::string& text);
    bool option(const std::string& name);
    bool once(std::optional<std::string>& target);
    bool assignment(std::string& name, std::string& text);
    bool switchValue();
    bool finish();
    bool finishGroups();

    const std::vector<std::string>& m_arguments;
    Options& m_options;
    std::size_t m_at = 0;
    std::string m_name;                     ///< option being read
    std::optional<std::string> m_attached;  ///< its value behind "="
    std::vector<std::string> m_files;
    std::string m_error;
};

bool Parser::value(std::string& text) {
    if (m_attached) {
        text = *m_attached;
        m_attached.reset();
    } else if (m_at < m_arguments.size()) {
        text = m_arguments[m_at++];
    } else {
        return fail(m_name + " needs a value");
    }
    return !text.empty() || fail(m_name + " needs a value that is not empty");
}

bool Parser::once(std::optional<std::string>& target) {
    std::string text;
    if (!value(text)) return false;
    if (target) return fail(m_name + " is given twice");
    target = text;
    return true;
}

bool Parser::assignment(std::string& name, std::string& text) {
    std::string whole;
    if (!value(whole)) return false;
    const std::size_t equals = whole.find('=');
    if (equals == std::string::npos || equals == 0) {
        return fail(m_name + " needs NAME=VALUE, not \"" + whole + "\"");
    }
    name = whole.substr(0, equals);
    text = whole.substr(equals + 1);
    return true;
}

bool Parser::switchValue() {
    std::string name;
    std::string text;
    if (!assignment(name, text)) return false;
    unsigned long long number = 0;
    bool digits = !text.empty() && text.size() <= 10;
    for (const char c : text) {
        digits = digits && std::isdigit(static_cast<unsigned char>(c)) != 0;
        if (digits) number = number * 10 + static_cast<unsigned>(c - '0');
    }
    if (!digits || number > std::numeric_limits<std::uint32_t>::max()) {
        return fail("--registry needs a number from 0 to 4294967295 behind \"" + name + "=\"");
    }
    m_options.switches.emplace_back(name, static_cast<std::uint32_t>(number));
    return true;
}

bool Parser::option(const std::string& name) {
    m_name = name;
    if (name == "-s" || name == "--script" || name == "/s") return once(m_options.script);
    if (name == "-m" || name == "--module") return once(m_options.module);
    std::string text;
    std::string second;
    if (name == "/i") {
        if (!value(text)) return false;
        m_files.push_back(text);
        return true;
    }
    if (name == "--menu") {
        if (!value(text)) return false;
        m_options.menuGroups.push_back(text);
        return true;
    }
    if (name == "--set") {
        if (!assignment(text, second)) return false;
        m_options.variables.emplace_back(text, second);
        return true;
    }
    if (name == "--registry") return switchValue();
    if (name == "--layout") return value(m_options.layout);
    if (name == "--picture") {
        m_options.action = Options::Action::Picture;
        return once(m_options.picture);
    }
    if (name == "--no-module") {
        m_options.noModule = true;
    } else if (name == "--check") {
        m_options.action = Options::Action::Check;
    } else if (name == "--groups") {
        m_options.action = Options::Action::Groups;
    } else if (name == "--json") {
        m_options.json = true;
    } else if (name == "--version") {
        m_options.action = Options::Action::Version;
    } else if (name == "--help" || name == "-h") {
        m_options.action = Options::Action::Help;
    } else {
        return fail("unknown option " + name);
    }
    return !m_attached || fail(name + " takes no value");
}

bool Parser::run() {
    bool onlyFiles = false;
    while (m_at < m_arguments.size()) {
        std::string argument = m_arguments[m_at++];
        const bool slash =
            argument == "/i" || argument == "/s" || argument == "/I" || argument == "/S";
        if (!onlyFiles && argument == "--") {
            onlyFiles = true;
            continue;
        }
        if (onlyFiles || (!slash && (argument.size() < 2 || argument[0] != '-'))) {
            if (argument.empty()) return fail("the name of a drawing is empty");
            m_files.push_back(argument);
            continue;
        }
        if (slash) argument[1] = static_cast<char>(std::tolower(argument[1]));
        const std::size_t equals =
            argument.compare(0, 2, "--") == 0 ? argument.find('=') : std::string::npos;
        m_attached.reset();
        if (equals != std::string::npos) m_attached = argument.substr(equals + 1);
        if (!option(argument.substr(0, equals))) return false;
    }
    return finish();
}

bool Parser::finish() {
    if (m_options.action == Options::Action::Check) {
        if (m_files.empty()) return fail("--check needs at least one file");
        if (m_options.script || m_options.module) {
            return fail("--check only checks files: it takes no script and no module");
        }
        m_options.checked = m_files;
        return true;
    }
    if (m_options.action == Options::Action::Groups || m_options.action == Options::Action::Picture)
        return finishGroups();
    if (m_options.json) return fail("--json belongs to --groups");
    if (!m_options.layout.empty()) return fail("--layout belongs to --picture");
    if (m_options.module && m_options.noModule) {
        return fail("--module and --no-module exclude each other");
    }
    if (m_files.size() > 1) {
        return fail("only one drawing can be given, not also \"" + m_files[1] + "\"");
    }
    if (!m_files.empty()) m_options.drawing = m_files[0];
    return true;
}

bool Parser::finishGroups() {
    const bool list = m_options.action == Options::Action::Groups;
    const std::string name = list ? "--groups" : "--picture";
    if (m_files.empty()) return fail(name + " needs a drawing");
    if (!list && m_files.size() > 1) {
        return fail("--picture draws one drawing, not also \"" + m_files[1] + "\"");
    }
    if (m_options.script || m_options.module) {
        return fail(name + " only reads drawings: it takes no script and no module");
    }
    if (list && (m_options.picture || !m_options.layout.empty())) {
        return fail("--groups and --picture are two runs");
    }
    if (!list && m_options.json) return fail("--json belongs to --groups");
    m_options.checked = m_files;
    return true;
}

}  // namespace

bool parseOptions(const std::vector<std::string>& arguments, Options& options, std::string& error) {
    Parser parser(arguments, options);
    if (parser.run()) return true;
    error = parser.error();
    return false;
}

const char* helpText() {
    return "drafthost [options] [drawing.dxf]          without a drawing: a new, empty one\n"
           "  -s, --script FILE     commands from FILE (\"-\": standard input)\n"
           "  -m, --module FILE     module to load at start (default: VelmoGroup.arx beside the\n"
           "                        program); --no-module\n"
           "  --menu GROUP          the menu group counts as loaded (repeatable)\n"
           "  --set NAME=VALUE      a system variable at start (repeatable)\n"
           "  --registry NAME=DWORD a per-user switch of the module, for example AssertStartup=1\n"
           "                        (repeatable)\n"
           "  --check FILE...       check drawings, change nothing\n"
           "  --groups FILE...      list the groups of drawings and what is wrong with them, "
           "change\n"
           "                        nothing; --json gives one JSON document\n"
           "  --picture OUT FILE    draw a drawing and its groups as SVG: model space, or with\n"
           "                        --layout NAME a layout\n"
           "  --version, --help\n"
           "/i DRAWING and /s SCRIPT work too.\n"
           "\n"
           "Exit status: 0 done; 1 a command failed, was unknown, or the accounting found a "
           "fault;\n"
           "2 usage; 3 a drawing cannot be read; 4 a drawing cannot be written; 5 the check found\n"
           "damage, or --groups a group that is not whole or a stray.\n";
}
