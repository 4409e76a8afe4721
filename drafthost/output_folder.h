// The folder that gets each drawing after its script.
#pragma once

#include <map>
#include <string>

#include "drafthost/options.h"

/// Where a drawing goes; empty without an output folder.
std::string outputPath(const Options& options, const std::string& file);
/// Refuses what would overwrite a drawing of the run, then makes the folder. Gives the exit status,
/// with a line printed when it is not kDone.
int prepareOutputFolder(const Options& options);

/// The results of a run before they take their places, which only those of whole jobs do: whatever
/// ends a job early, the folder keeps what it had.
class StagedResults {
  public:
    explicit StagedResults(const Options& options);
    /// Where the result of a drawing waits; empty without an output folder.
    std::string staged(const std::string& file) const;
    /// Puts the result of a job that is over to its place when all went well, or away. Gives a line
    /// to print, empty for none; `status` rises when the place cannot be written.
    std::string settle(const std::string& file, int& status) const;

  private:
    const Options& m_options;
    std::map<std::string, std::string> m_staged;  ///< by the name of the drawing
};
