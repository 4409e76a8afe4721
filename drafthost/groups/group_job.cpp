// One drawing of --make-groups or --repair: the work, the save, the verdict.
#include "drafthost/groups/group_job.h"

#include <algorithm>
#include <iterator>

#include "drafthost/groups/drawing_inspection.h"
#include "drafthost/groups/group_each.h"
#include "drafthost/groups/group_repair.h"
#include "drafthost/system/output.h"
#include "drafthost/system/process.h"
#include "host/control/accounting.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/sysvars.h"
#include "host/text/text_codec.h"
#include "inspection/report.h"

namespace {

using host::CommandStatus;

/// Shows model space as long as it lives: most drawings are saved with a layout in front.
class InModelSpace {
  public:
    explicit InModelSpace(const host::Store& store) : m_was(store.modelTabCurrent()) { set(true); }
    ~InModelSpace() { set(m_was); }
    InModelSpace(const InModelSpace&) = delete;
    InModelSpace& operator=(const InModelSpace&) = delete;

  private:
    void set(bool model) const {
        std::wstring unused;
        if (!m_was) host::setSysvarText(L"TILEMODE", model ? L"1" : L"0", unused);
    }
    bool m_was;
};

EachWish wishOf(const Options& options) {
    EachWish wish;
    const auto name = std::find(std::begin(kLotNames), std::end(kLotNames), options.makeGroups);
    wish.by = static_cast<LotBy>(name - kLotNames);
    wish.only = host::fromUtf8(options.only);
    wish.least = options.least;
    return wish;
}

/// Gives the exit status; `changed` tells whether there is something to save.
int change(host::Store& store, const Options& options, const Job& job, bool& changed) {
    const auto tell = [&](const std::string& line) {
        if (!options.quiet) writeOutput(job.file + ": " + line + "\n");
    };
    const std::uint64_t revision = store.revision;
    CommandStatus status = CommandStatus::Done;
    if (options.repair) {
        status = repairGroups(store, tell);
        changed = store.revision != revision;
    } else {
        const InModelSpace model(store);
        long formed = 0;
        status = groupEach(store, wishOf(options), tell, formed);
        changed = formed > 0;
    }
    if (interruptRequested()) return kInterrupted;
    if (status == CommandStatus::Done && host::moduleFaults().empty()) return kDone;
    const std::string why = host::toUtf8(host::takeProblem());
    complain(job.file + ": " + (why.empty() ? "the module's command failed" : why));
    return kFailed;
}

}  // namespace

int runGroupJob(host::Session& session, const Options& options, const Job& job) {
    host::Store& store = session.database()->store();
    bool changed = false;
    int status = change(store, options, job, changed);
    const bool saves = changed || !options.outputDir.empty();
    if (status == kDone && saves) status = saveResult(session, job, store.serial());
    if (status != kDone || !options.repair) return status;
    const inspection::Inspection left = inspectDrawing(*store.database, false);
    writeOutput(inspection::listText(job.file + ": left: ", left, inspection::Listed::Faults));
    return left.good() ? kDone : kDamaged;
}
