// The folder that gets each drawing after its script, or the pictures.
#include "drafthost/output_folder.h"

#include <filesystem>
#include <map>
#include <set>
#include <system_error>

#include "drafthost/output.h"
#include "drafthost/picture_file.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace {

std::string collision(const Options& options) {
    std::set<std::wstring> sources;
    for (const std::string& file : options.files)
        sources.insert(fileMeant(file));
    std::map<std::wstring, std::string> targets;
    for (const std::string& file : options.files) {
        const std::string target = outputPath(options, file);
        const std::wstring identity = fileMeant(target);
        if (sources.count(identity) != 0)
            return target + ": is a drawing of this run; name another folder";
        const auto [other, fresh] = targets.emplace(identity, file);
        if (!fresh) {
            return target + ": both " + other->second + " and " + file +
                   " would go there; work on them in two runs";
        }
    }
    return {};
}

/// The folder that the run fills; empty for none.
std::string outputFolder(const Options& options) {
    return isPictureFolder(options.picture) ? options.picture : options.outputDir;
}

}  // namespace

std::wstring fileMeant(const std::string& path) {
    std::error_code failure;
    const std::filesystem::path real =
        std::filesystem::weakly_canonical(host::pathFromUtf8(path), failure);
    return host::foldCase(host::fromUtf8(failure ? path : host::utf8OfPath(real)));
}

std::string outputPath(const Options& options, const std::string& file) {
    const std::string folder = outputFolder(options);
    if (folder.empty()) return {};
    std::filesystem::path name = host::pathFromUtf8(file).filename();
    if (folder == options.picture) name.replace_extension(".svg");
    return host::utf8OfPath(host::pathFromUtf8(folder) / name);
}

int prepareOutputFolder(const Options& options) {
    const std::string folder = outputFolder(options);
    if (folder.empty()) return kDone;
    if (const std::string problem = collision(options); !problem.empty()) {
        complain(problem);
        return kUsage;
    }
    std::error_code failure;
    std::filesystem::create_directories(host::pathFromUtf8(folder), failure);
    if (!failure) return kDone;
    complain(folder + ": the folder cannot be made: " + failure.message());
    return kUnwritable;
}
