// How messages call the drawing of a job, and saving its result.
#include "drafthost/job.h"

#include "drafthost/system/output.h"
#include "host/store/store.h"
#include "host/text/paths.h"

std::string Job::nameFor(const std::string& path) const {
    const std::string& own = target.empty() ? file : target;
    return !own.empty() && path == host::absolutePath(own) ? file : path;
}

int saveResult(host::Session& session, const Job& job, std::uint32_t serial) {
    for (host::HostDocument* document : session.documents.all()) {
        if (document->database()->store().serial() != serial) continue;
        session.activate(*document);
        const host::Outcome saved = session.saveDrawing(job.target);
        if (!saved) complain(saved.error);
        return saved ? kDone : saved.status;
    }
    complain(job.file + ": the script has closed it, so " + job.target + " is not written");
    return kFailed;
}
