// The same work for each of several drawings.
#pragma once

#include <functional>
#include <string>

#include "drafthost/options.h"

/// Does `work`, which gives an exit status, for each file of the options; gives the highest status.
///
/// One file is worked on in this process. Several get one each, `options.jobs` at a time; what they
/// write appears in the order of the files, and standard error gets a line for each that failed and
/// one in the end. With `options.json` what `work` writes are the elements of one list. Ctrl+C ends
/// the run after what is under way.
///
/// `settle`, when there is one, is asked in this process once the work for a file is over, however
/// it ended: it may raise the status, and gives a line for standard error or none.
using Settle = std::function<std::string(const std::string& file, int& status)>;
int runBatch(const Options& options, const std::function<int(const std::string& file)>& work,
             const Settle& settle = {});
