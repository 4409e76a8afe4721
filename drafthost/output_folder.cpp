// Places below the output folder, and what may not be overwritten.
#include "drafthost/output_folder.h"

#include <map>
#include <set>
#include <system_error>
#include <vector>

#include "drafthost/output.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace {

using Path = std::filesystem::path;

/// The file that a path means, links followed. Names that differ by case alone count as one, as
/// they do in many file systems.
std::wstring identityOf(const std::string& path) {
    std::error_code failure;
    const std::filesystem::path real =
        std::filesystem::weakly_canonical(host::pathFromUtf8(path), failure);
    return host::foldCase(host::fromUtf8(failure ? path : host::utf8OfPath(real)));
}

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

}  // namespace

OutputFolder::OutputFolder(const Options& options) : m_options(options) {
    if (options.outputDir.empty()) return;
    m_base = options.base.empty() ? commonFolder(options.files) : absolute(options.base);
}

std::string OutputFolder::pathFor(const std::string& file) const {
    if (m_options.outputDir.empty()) return {};
    const Path source = absolute(file);
    const Path below = source.lexically_relative(m_base);
    const bool apart = below.empty() || below == ".";  // on another drive
    return host::utf8OfPath(host::pathFromUtf8(m_options.outputDir) /
                            (apart ? source.filename() : below));
}

std::string OutputFolder::collision() const {
    std::set<std::wstring> sources;
    for (const std::string& file : m_options.files)
        sources.insert(identityOf(file));
    std::map<std::wstring, std::string> targets;
    for (const std::string& file : m_options.files) {
        if (*absolute(file).lexically_relative(m_base).begin() == "..")
            return file + ": does not stand below --base " + m_options.base;
        const std::string target = pathFor(file);
        const std::wstring identity = identityOf(target);
        if (sources.count(identity) != 0)
            return target + ": is a drawing of this run; name another --output-dir";
        const auto [other, fresh] = targets.emplace(identity, file);
        if (!fresh) {
            return target + ": both " + other->second + " and " + file +
                   " would go there; work on them in two runs";
        }
    }
    return {};
}

int OutputFolder::prepare() const {
    if (m_options.outputDir.empty()) return kDone;
    if (const std::string problem = collision(); !problem.empty()) {
        complain(problem);
        return kUsage;
    }
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
