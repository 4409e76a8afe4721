// The sessions of the program, one for each drawing.
#include "drafthost/run.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>

#include "drafthost/batch.h"
#include "drafthost/files/output_folder.h"
#include "drafthost/group_commands.h"
#include "drafthost/groups/group_each.h"
#include "drafthost/groups/group_job.h"
#include "drafthost/prompt/terminal.h"
#include "drafthost/prompt/window_job.h"
#include "drafthost/script_job.h"
#include "drafthost/system/output.h"
#include "drafthost/system/process.h"
#include "host/application/session.h"
#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/control/windows_setup.h"
#include "host/dxf/file/file_access.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/state/menus.h"
#include "host/editor/state/sysvars.h"
#include "host/objectarx/documents.h"
#include "host/text/numbers.h"
#include "host/text/text_codec.h"

namespace {

constexpr const char* kDefaultModule = "VelmoGroup.arx";

/// False when standard input cannot be read to its end.
bool readStandardInput(std::string& text) {
    char buffer[65536];
    std::size_t count = 0;
    while ((count = std::fread(buffer, 1, sizeof buffer, stdin)) > 0)
        text.append(buffer, count);
    return std::ferror(stdin) == 0;
}

bool readFile(const std::string& path, std::string& text, std::string& why) {
    host::InputFile file;
    if (!file.open(path, why, host::Readable::Streams)) return false;
    char buffer[65536];
    long count = 0;
    while ((count = file.read(buffer, sizeof buffer, why)) > 0)
        text.append(buffer, static_cast<std::size_t>(count));
    return count == 0;
}

bool readScript(const std::string& path, std::string& text) {
    if (path == "-") {
        if (readStandardInput(text)) return true;
        complain("standard input cannot be read");
        return false;
    }
    std::string why;
    const bool isFolder = host::placeOf(path) == host::FilePlace::Folder;
    if (!isFolder && readFile(path, text, why)) return true;
    complain(path +
             (isFolder ? ": a directory, not a script" : ": the script cannot be read: " + why));
    return false;
}

/// True when the outcome is good; else its line has been printed.
bool passed(const host::Outcome& outcome) {
    if (!outcome) complain(outcome.error);
    return static_cast<bool>(outcome);
}

std::wstring nameIn(const std::string& assignment) {
    return host::fromUtf8(assignment.substr(0, assignment.find('=')));
}

std::string valueIn(const std::string& assignment) {
    return assignment.substr(assignment.find('=') + 1);
}

bool setVariables(const Options& options) {
    for (const std::string& each : options.variables) {
        std::wstring explanation;
        if (host::setSysvarText(nameIn(each), host::fromUtf8(valueIn(each)), explanation)) continue;
        complain("--set " + each + ": " + host::toUtf8(explanation));
        return false;
    }
    return true;
}

/// The registry that only this run sees: the user's stays as it is.
class OwnRegistry {
  public:
    OwnRegistry() = default;
    ~OwnRegistry() { host::resetWindows(); }
    OwnRegistry(const OwnRegistry&) = delete;
    OwnRegistry& operator=(const OwnRegistry&) = delete;

    bool set(const Options& options) {
        for (const std::string& each : options.switches) {
            const auto value = static_cast<std::uint32_t>(*host::parseInteger(valueIn(each)));
            if (host::setRegistryDword(host::moduleRegistryKey(), nameIn(each), value)) continue;
            complain("--registry " + each + ": Windows does not let the value be written");
            return false;
        }
        return true;
    }
};

bool loadModule(host::Session& session, const Options& options) {
    if (options.noModule) return true;
    if (!options.module.empty()) return passed(session.modules.load(options.module));
    const std::string path = programFolder() + kDefaultModule;
    if (host::placeOf(path) != host::FilePlace::None) return passed(session.modules.load(path));
    complain(path +
             ": the module is not beside the program: name it with --module, or start with "
             "--no-module");
    return false;
}

/// Drawing, variables and module; the exit status when that fails, else kDone.
int start(host::Session& session, const Options& options, const Job& job) {
    for (const std::string& group : options.menuGroups)
        host::loadMenuGroup(host::fromUtf8(group));
    const host::Outcome opened =
        job.file.empty() ? session.newDrawing() : session.openDrawing(job.file, job.target);
    if (!passed(opened)) return opened.status;
    if (!job.target.empty()) session.stageSaves(job.target, job.staged);
    if (!setVariables(options)) return kUsage;
    return loadModule(session, options) ? kDone : kFailed;
}

/// Exit status of a finished session whose commands ended with `status`.
int reportFaults(const Job& job, int status) {
    const std::string head = job.file.empty() ? "" : job.file + ": ";
    for (const std::string& fault : host::moduleFaults())
        complain(head + "module fault: " + fault);
    return host::moduleFaults().empty() ? status : std::max<int>(status, kFailed);
}

void writeCommandLine(const std::wstring& text) {
    writeOutput(host::toUtf8(host::printableLines(text)));
}

/// Gives the exit status.
int runTerminal(host::Session& session) {
    endLine();
    const std::unique_ptr<Terminal> terminal = openTerminal();
    host::commandLineSink() = [&](const std::wstring& text) {
        terminal->print(host::printableLines(text));
    };
    host::printLine(L"drafthost " + host::fromUtf8(DRAFTHOST_VERSION) + L", " +
                    acDocManagerPtr()->curDocument()->fileName() + L"; ? lists the commands");
    do
        session.runInput(*terminal);
    while (!terminal->gone() && !session.leave(*terminal));
    if (terminal->gone()) {
        for (const std::string& line : session.rescueDrawings())
            complain(line);
    }
    host::commandLineSink() = writeCommandLine;
    return endingSignal() != 0 ? static_cast<int>(kInterrupted) : session.exitStatus;
}

int runDrawing(const Options& options, const Job& job) {
    OwnRegistry registry;
    if (!registry.set(options)) return kUsage;
    host::setEffectRecording(false);  // nobody asks for them, and they would grow for ever
    if (!options.quiet && !changesByItself(options)) host::commandLineSink() = writeCommandLine;
    auto session = std::make_unique<host::Session>();
    session->progress = showProgress;
    auto watch = std::make_unique<GroupWatch>(job, options.window ? tellOnCommandLine : complain);
    registerGroupCommands(watch.get());
    int status = start(*session, options, job);
    if (status == kDone && options.window) {
        status = runWindow(*session, options);
    } else if (status == kDone && changesByItself(options)) {
        status = runGroupJob(*session, options, job);
    } else if (status == kDone && !options.script.empty()) {
        status = runJob(*session, options, job);
    } else if (status == kDone && isInteractive()) {
        status = runTerminal(*session);
    }
    watch.reset();
    session.reset();
    flushOutput();
    return reportFaults(job, status);
}

}  // namespace

int runSession(const Options& given) {
    Options options = given;
    if (const std::string missing = missingForWindow(); options.window && !missing.empty()) {
        complain("--window: " + missing);
        return kUsage;
    }
    // Several drawings need a script that is named: parseOptions has seen to that.
    const bool asks = changesByItself(options) || options.window;
    if (options.script.empty() && !asks && !standardInputIsTerminal()) options.script = "-";
    std::string script;
    if (!options.script.empty() && !readScript(options.script, script)) return kUsage;
    const OutputFolder folder(options);
    if (const int status = folder.prepare(); status != kDone) return status;
    catchInterrupts();
    if (options.files.empty()) return runDrawing(options, {{}, {}, {}, script});
    const StagedResults results(options, folder);
    return runBatch(
        options,
        [&](const std::string& file) {
            std::string target = folder.pathFor(file);
            if (target.empty() && changesByItself(options)) target = file;
            return runDrawing(options, {file, std::move(target), results.staged(file), script});
        },
        [&](const std::string& file, int& status) { return results.settle(file, status); });
}

std::string helpOnCommands() {
    const host::Session session;  // registers the commands
    registerGroupCommands(nullptr);
    return "/i DRAWING and /s SCRIPT work too. Exit status: 0 done; 1 a command failed or was "
           "unknown,\n"
           "or the accounting found a fault; 2 usage; 3 a drawing cannot be read; 4 a drawing "
           "cannot be\n"
           "written; 5 the check found damage, --groups a group that is not whole or a stray, or\n"
           "--repair left one; 130 Ctrl+C, SIGTERM, SIGHUP. With several drawings the "
           "highest.\n\n" +
           host::toUtf8(host::commandHelp());
}
