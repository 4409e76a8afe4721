// The folder that gets each drawing after its script.
#include "drafthost/output_folder.h"

#include <filesystem>
#include <map>
#include <system_error>

#include "drafthost/output.h"
#include "host/dxf/file/file_access.h"
#include "host/dxf/save/save_drawing.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace {

/// The file that a path means, links followed. Names that differ by case alone count as one, as
/// they do in many file systems.
std::wstring placeIn(const std::string& path) {
    std::error_code failure;
    const std::filesystem::path real =
        std::filesystem::weakly_canonical(host::pathFromUtf8(path), failure);
    return host::foldCase(host::fromUtf8(failure ? path : host::utf8OfPath(real)));
}

/// Files by place and, for those that are there, by what they are: two names of one file are one.
class Files {
  public:
    /// Notes a file for a drawing; the drawing that had it before, empty for none.
    std::string add(const std::string& path, const std::string& drawing) {
        const std::string former = drawingOf(path);
        m_drawings.emplace(placeIn(path), drawing);
        if (const std::string what = host::fileIdentity(path); !what.empty())
            m_drawings.emplace(host::fromUtf8(what), drawing);
        return former;
    }
    std::string drawingOf(const std::string& path) const {
        auto found = m_drawings.find(placeIn(path));
        if (found == m_drawings.end())
            found = m_drawings.find(host::fromUtf8(host::fileIdentity(path)));
        return found != m_drawings.end() ? found->second : "";
    }

  private:
    std::map<std::wstring, std::string> m_drawings;
};

/// Where a drawing of the run is saved when the script saves it under its own name.
std::string savedAs(const Options& options, const std::string& file) {
    return options.outputDir.empty() ? file : outputPath(options, file);
}

constexpr const char* kTwoRuns = "; work on them in two runs";

/// Two names of one drawing, or two drawings that go to one place.
std::string sharedPlace(const Options& options, const Files& sources) {
    Files targets;
    for (const std::string& file : options.files) {
        const std::string target = savedAs(options, file);
        const bool apart = !options.outputDir.empty();
        if (apart && !sources.drawingOf(target).empty())
            return target + ": is a drawing of this run; name another --output-dir";
        const std::string other = targets.add(target, file);
        if (other.empty()) continue;
        return apart ? target + ": both " + other + " and " + file + " would go there" + kTwoRuns
                     : file + ": is the drawing that " + other + " names already" +
                           (other == file ? "; name it once" : kTwoRuns);
    }
    return {};
}

std::string collision(const Options& options) {
    Files sources;
    for (const std::string& file : options.files)
        sources.add(file, file);
    const std::string shared = sharedPlace(options, sources);
    if (!shared.empty()) return shared;
    Files targets;
    for (const std::string& file : options.files)
        targets.add(savedAs(options, file), file);
    for (const std::string& file : options.files) {
        const std::string backup = host::backupPath(savedAs(options, file));
        const std::string source = sources.drawingOf(backup);
        const std::string other = source.empty() ? targets.drawingOf(backup) : source;
        if (other.empty() || other == file) continue;
        return backup + ": is " + (source.empty() ? "where " + other + " would go" : "a drawing") +
               " of this run, and the backup of " + file + " would replace it" + kTwoRuns;
    }
    return {};
}

}  // namespace

std::string outputPath(const Options& options, const std::string& file) {
    if (options.outputDir.empty()) return {};
    return host::utf8OfPath(host::pathFromUtf8(options.outputDir) /
                            host::pathFromUtf8(file).filename());
}

int prepareOutputFolder(const Options& options) {
    if (const std::string problem = collision(options); !problem.empty()) {
        complain(problem);
        return kUsage;
    }
    if (options.outputDir.empty()) return kDone;
    std::error_code failure;
    std::filesystem::create_directories(host::pathFromUtf8(options.outputDir), failure);
    if (!failure) return kDone;
    complain(options.outputDir + ": the folder cannot be made: " + failure.message());
    return kUnwritable;
}

StagedResults::StagedResults(const Options& options) : m_options(options) {
    for (const std::string& file : options.files) {
        if (options.outputDir.empty()) break;
        const std::string target = host::withoutLinks(outputPath(options, file));
        m_staged.emplace(file, host::temporaryBeside(target));
    }
}

std::string StagedResults::staged(const std::string& file) const {
    const auto found = m_staged.find(file);
    return found != m_staged.end() ? found->second : "";
}

std::string StagedResults::settle(const std::string& file, int& status) const {
    const std::string staged = this->staged(file);
    if (staged.empty()) return {};
    const std::string target = outputPath(m_options, file);
    const bool leavesNames = host::hasOtherNames(host::withoutLinks(target));
    host::DxfError error;
    if (status == kDone && host::takeStaged(staged, target, error))
        return leavesNames ? target + ": had other names (hard links); they keep what it held" : "";
    if (status == kDone) status = kUnwritable;
    host::removeFile(staged);
    return error.text.empty() ? "" : error.message();
}
