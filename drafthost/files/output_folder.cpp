// Places below the folder that a run fills, and what may not be overwritten.
#include "drafthost/files/output_folder.h"

#include <map>
#include <set>
#include <system_error>
#include <vector>

#include "drafthost/files/picture_file.h"
#include "drafthost/system/output.h"
#include "host/dxf/file/file_access.h"
#include "host/dxf/save/save_drawing.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace {

using Path = std::filesystem::path;

/// Files by place and, for those that are there, by what they are: two names of one file are one.
class Files {
  public:
    /// Notes a file for a drawing; the drawing that had it before, empty for none.
    std::string add(const std::string& path, const std::string& drawing) {
        const std::string former = drawingOf(path);
        m_drawings.emplace(fileMeant(path), drawing);
        if (const std::string what = host::fileIdentity(path); !what.empty())
            m_drawings.emplace(host::fromUtf8(what), drawing);
        return former;
    }
    std::string drawingOf(const std::string& path) const {
        auto found = m_drawings.find(fileMeant(path));
        if (found == m_drawings.end())
            found = m_drawings.find(host::fromUtf8(host::fileIdentity(path)));
        return found != m_drawings.end() ? found->second : "";
    }

  private:
    std::map<std::wstring, std::string> m_drawings;
};

constexpr const char* kTwoRuns = "; work on them in two runs";

Path absolute(const std::string& file) { return host::pathFromUtf8(host::absolutePath(file)); }

/// The deepest folder that all drawings of the run stand below.
Path commonFolder(const std::vector<std::string>& files) {
    Path common = absolute(files.front()).parent_path();
    for (const std::string& file : files) {
        const Path folder = absolute(file).parent_path();
        Path shared;
        for (auto a = common.begin(), b = folder.begin();
             a != common.end() && b != folder.end() && *a == *b; ++a, ++b)
            shared /= *a;
        common = shared;
    }
    return common;
}

/// Two names of one drawing, or two drawings that go to one place.
std::string sharedPlace(const std::vector<std::string>& files, const Files& sources,
                        const OutputFolder& folder) {
    Files targets;
    for (const std::string& file : files) {
        const std::string placed = folder.pathFor(file);
        const bool apart = !placed.empty();
        const std::string& target = apart ? placed : file;
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

}  // namespace

std::wstring fileMeant(const std::string& path) {
    std::error_code failure;
    const Path real = std::filesystem::weakly_canonical(host::pathFromUtf8(path), failure);
    return host::foldCase(host::fromUtf8(failure ? path : host::utf8OfPath(real)));
}

OutputFolder::OutputFolder(const Options& options)
    : m_options(options),
      m_folder(isPictureFolder(options.picture) ? options.picture : options.outputDir) {
    if (m_folder.empty()) return;
    m_base = options.base.empty() ? commonFolder(options.files) : absolute(options.base);
}

std::string OutputFolder::pathFor(const std::string& file) const {
    if (m_folder.empty()) return {};
    const Path source = absolute(file);
    const Path below = source.lexically_relative(m_base);
    const bool apart = below.empty() || below == ".";  // on another drive
    Path target = host::pathFromUtf8(m_folder) / (apart ? source.filename() : below);
    if (!m_options.picture.empty()) target.replace_extension(".svg");
    return host::utf8OfPath(target);
}

std::string OutputFolder::savedAs(const std::string& file) const {
    return m_folder.empty() ? file : pathFor(file);
}

std::string OutputFolder::collision() const {
    Files sources;
    for (const std::string& file : m_options.files) {
        if (!m_folder.empty() && *absolute(file).lexically_relative(m_base).begin() == "..")
            return file + ": does not stand below --base " + m_options.base;
        sources.add(file, file);
    }
    const std::string shared = sharedPlace(m_options.files, sources, *this);
    if (!shared.empty() || !m_options.picture.empty()) return shared;
    Files targets;
    for (const std::string& file : m_options.files)
        targets.add(savedAs(file), file);
    for (const std::string& file : m_options.files) {
        const std::string backup = host::backupPath(savedAs(file));
        const std::string source = sources.drawingOf(backup);
        const std::string other = source.empty() ? targets.drawingOf(backup) : source;
        if (other.empty() || other == file) continue;
        return backup + ": is " + (source.empty() ? "where " + other + " would go" : "a drawing") +
               " of this run, and the backup of " + file + " would replace it" + kTwoRuns;
    }
    return {};
}

int OutputFolder::prepare() const {
    if (const std::string problem = collision(); !problem.empty()) {
        complain(problem);
        return kUsage;
    }
    if (m_folder.empty()) return kDone;
    std::error_code failure;
    std::set<Path> folders;
    for (const std::string& file : m_options.files)
        folders.insert(host::pathFromUtf8(pathFor(file)).parent_path());
    for (const Path& folder : folders) {
        std::filesystem::create_directories(folder, failure);
        if (!failure) continue;
        complain(host::utf8OfPath(folder) + ": the folder cannot be made: " + failure.message());
        return kUnwritable;
    }
    return kDone;
}

StagedResults::StagedResults(const Options& options, const OutputFolder& folder)
    : m_folder(folder) {
    for (const std::string& file : options.files) {
        const std::string target = host::withoutLinks(folder.pathFor(file));
        if (!target.empty()) m_staged.emplace(file, host::temporaryBeside(target));
    }
}

std::string StagedResults::staged(const std::string& file) const {
    const auto found = m_staged.find(file);
    return found != m_staged.end() ? found->second : "";
}

std::string StagedResults::settle(const std::string& file, int& status) const {
    const std::string staged = this->staged(file);
    if (staged.empty()) return {};
    const std::string target = m_folder.pathFor(file);
    const bool leavesNames = host::hasOtherNames(host::withoutLinks(target));
    host::DxfError error;
    const bool worked = status == kDone || status == kDamaged;  // a repair may leave some damage
    if (worked && host::takeStaged(staged, target, error))
        return leavesNames ? target + ": had other names (hard links); they keep what it held" : "";
    if (worked) status = kUnwritable;
    host::removeFile(staged);
    return error.text.empty() ? "" : error.message();
}
