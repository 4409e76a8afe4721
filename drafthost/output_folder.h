// The folder that gets each drawing of a run.
#pragma once

#include <filesystem>
#include <string>

#include "drafthost/options.h"

/// Where the drawings of a run go.
class OutputFolder {
  public:
    /// The options have to live longer.
    explicit OutputFolder(const Options& options);
    /// Path below the output folder, as the drawing stands below the base, which is the deepest
    /// folder that all drawings of the run have in common unless the options name one; empty
    /// without an output folder.
    std::string pathFor(const std::string& file) const;
    /// Refuses what would overwrite a drawing of the run, then makes the folders. Gives the exit
    /// status, with a line printed when it is not kDone.
    int prepare() const;

  private:
    std::string collision() const;

    const Options& m_options;
    std::filesystem::path m_base;
};
