// What one session works on, and where the result goes.
#pragma once

#include <cstdint>
#include <string>

#include "drafthost/options.h"
#include "host/application/session.h"

/// What one session works on.
struct Job {
    std::string file;    ///< as the user has named it; empty: a new drawing
    std::string target;  ///< where it goes after the script; empty: nowhere
    std::string staged;  ///< where it waits until all has gone well; see Session::stageSaves
    std::string script;  ///< text of the script

    /// How messages call the drawing at an absolute path: as the user has when it is the job's own.
    std::string nameFor(const std::string& path) const;
};

/// Saves the drawing with that serial number of its store, whatever else is open, as the job's
/// target. Gives the exit status.
int saveResult(host::Session& session, const Job& job, std::uint32_t serial);
