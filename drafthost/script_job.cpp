// One drawing of a run with a script: messages and Ctrl+C.
#include "drafthost/script_job.h"

#include <cstdint>

#include "drafthost/system/output.h"
#include "drafthost/system/process.h"
#include "host/control/accounting.h"
#include "host/objectarx/database.h"
#include "host/objectarx/documents.h"
#include "host/scripting/script.h"
#include "host/store/store.h"
#include "host/text/text_codec.h"

namespace {

/// A script that is over once Ctrl+C was pressed.
class InterruptibleScript : public host::ScriptSource {
  public:
    using ScriptSource::ScriptSource;
    host::Answer next(const std::wstring& prompt, host::InputUnit unit) override {
        if (interruptRequested()) return {host::Answer::Kind::End, {}};
        return ScriptSource::next(prompt, unit);
    }
};

/// Name of the current drawing for messages.
std::string drawingName(const Job& job) {
    const AcApDocument* document = acDocManagerPtr()->curDocument();
    return document != nullptr ? job.nameFor(host::toUtf8(document->fileName())) : "no drawing";
}

int runScript(host::Session& session, const Options& options, const Job& job) {
    const std::string name = options.script == "-" ? "standard input" : options.script;
    InterruptibleScript script(host::fromTextFile(job.script));
    session.diagnostics = complain;
    session.runInput(script, !options.keepGoing, [&] {
        return drawingName(job) + ": " + name + ":" + std::to_string(script.line());
    });
    if (interruptRequested()) complain(drawingName(job) + ": interrupted");
    return interruptRequested() ? static_cast<int>(kInterrupted) : session.exitStatus;
}

}  // namespace

int runJob(host::Session& session, const Options& options, const Job& job) {
    const std::uint32_t serial = session.database()->store().serial();
    int status = runScript(session, options, job);
    if (job.target.empty()) return status;
    if (status == kDone && !host::moduleFaults().empty()) status = kFailed;
    return status == kDone ? saveResult(session, job, serial) : status;
}
