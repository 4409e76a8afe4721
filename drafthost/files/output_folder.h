// The folder that gets each drawing of a run.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "drafthost/options.h"

/// The file that a path means, links followed, to be compared. Names that differ by case alone
/// count as one, as they do in many file systems.
std::wstring fileMeant(const std::string& path);

/// Where the drawings of a run, or their pictures, go.
class OutputFolder {
  public:
    /// The options have to live longer.
    explicit OutputFolder(const Options& options);
    /// Path below the folder, as the drawing stands below the base, which is the deepest folder
    /// that all drawings of the run have in common unless the options name one; empty without a
    /// folder.
    std::string pathFor(const std::string& file) const;
    /// Refuses what would overwrite a drawing of the run, then makes the folders. Gives the exit
    /// status, with a line printed when it is not kDone.
    int prepare() const;

  private:
    std::string collision() const;
    /// Where a drawing is saved when the script saves it under its own name.
    std::string savedAs(const std::string& file) const;

    const Options& m_options;
    std::string m_folder;
    std::filesystem::path m_base;
};

/// The results of a run before they take their places, which only those of whole jobs do: whatever
/// ends a job early, the folder keeps what it had.
class StagedResults {
  public:
    /// The folder has to live longer.
    StagedResults(const Options& options, const OutputFolder& folder);
    /// Where the result of a drawing waits; empty without an output folder.
    std::string staged(const std::string& file) const;
    /// Puts the result of a job that is over to its place when all went well, or away. Gives a line
    /// to print, empty for none; `status` rises when the place cannot be written.
    std::string settle(const std::string& file, int& status) const;

  private:
    const OutputFolder& m_folder;
    std::map<std::string, std::string> m_staged;  ///< by the name of the drawing
};
