// The folder that gets each drawing after its script.
#include "drafthost/output_folder.h"

#include <filesystem>
#include <map>
#include <set>
#include <system_error>

#include "drafthost/output.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace {

/// The file that a path means, links followed. Names that differ by case alone count as one, as
/// they do in many file systems.
std::wstring identityOf(const std::string& path) {
    std::error_code failure;
    const std::filesystem::path real =
        std::filesystem::weakly_canonical(host::pathFromUtf8(path), failure);
    return host::foldCase(host::fromUtf8(failure ? path : host::utf8OfPath(real)));
}

std::string collision(const Options& options) {
    std::set<std::wstring> sources;
    for (const std::string& file : options.files)
        sources.insert(identityOf(file));
    std::map<std::wstring, std::string> targets;
    for (const std::string& file : options.files) {
        const std::string target = outputPath(options, file);
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

}  // namespace

std::string outputPath(const Options& options, const std::string& file) {
    if (options.outputDir.empty()) return {};
    return host::utf8OfPath(host::pathFromUtf8(options.outputDir) /
                            host::pathFromUtf8(file).filename());
}

int prepareOutputFolder(const Options& options) {
    if (options.outputDir.empty()) return kDone;
    if (const std::string problem = collision(options); !problem.empty()) {
        complain(problem);
        return kUsage;
    }
    std::error_code failure;
    std::filesystem::create_directories(host::pathFromUtf8(options.outputDir), failure);
    if (!failure) return kDone;
    complain(options.outputDir + ": the folder cannot be made: " + failure.message());
    return kUnwritable;
}
