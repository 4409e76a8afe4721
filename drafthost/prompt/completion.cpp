// Candidates for the Tab key: names of commands, names of files.
#include "drafthost/prompt/completion.h"

#include <algorithm>
#include <filesystem>

#include "host/application/gestures.h"
#include "host/dxf/file/file_access.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace {

/// How much two texts have in common from their begin on, in whole characters.
std::string common(const std::string& a, const std::string& b) {
    auto same = static_cast<std::size_t>(
        std::mismatch(a.begin(), a.begin() + static_cast<long>(std::min(a.size(), b.size())),
                      b.begin())
            .first -
        a.begin());
    while (same > 0 && same < a.size() && (a[same] & 0xC0) == 0x80)
        --same;
    return a.substr(0, same);
}

/// Replaces what was typed by what all candidates begin with.
Completion among(std::vector<std::string> candidates, const std::string& typed) {
    Completion result;
    if (candidates.empty()) return result;
    std::sort(candidates.begin(), candidates.end());
    std::string shared = candidates.front();
    for (const std::string& each : candidates)
        shared = common(shared, each);
    if (candidates.size() == 1 || shared.size() > typed.size()) {
        result.length = typed.size();
        result.text = shared;
    } else {
        result.choices = std::move(candidates);
    }
    return result;
}

Completion completeCommand(const std::string& typed) {
    std::vector<std::string> candidates;
    const std::wstring begin = host::foldCase(host::fromUtf8(typed));
    for (const std::wstring& name : host::typableNames()) {
        if (host::foldCase(name).rfind(begin, 0) == 0) candidates.push_back(host::toUtf8(name));
    }
    return among(std::move(candidates), typed);
}

Completion completeFile(const std::string& typed) {
    const std::string folder = host::folderPart(typed);
    const std::string begin = typed.substr(folder.size());
    std::vector<std::string> candidates;
    std::error_code failure;
    const std::string place = folder.empty() ? "." : host::withHome(folder);
    std::filesystem::directory_iterator at(host::pathFromUtf8(place), failure);
    for (; !failure && at != std::filesystem::directory_iterator(); at.increment(failure)) {
        std::string name = host::utf8OfPath(at->path().filename());
        const bool hidden = name[0] == '.' && begin.empty();
        const std::wstring folded = host::foldCase(host::fromUtf8(name));
        const bool backup = folded.size() > 4 && folded.substr(folded.size() - 4) == L".BAK";
        if (hidden || backup || name.rfind(begin, 0) != 0) continue;
        std::error_code ignored;
        if (at->is_directory(ignored)) name += "/";
        candidates.push_back(std::move(name));
    }
    return among(std::move(candidates), begin);
}

}  // namespace

Completion complete(const std::string& line, bool atEmptyPrompt) {
    if (!atEmptyPrompt) return completeFile(line.substr(!line.empty() && line[0] == '"' ? 1 : 0));
    const std::size_t blank = line.find(' ');
    return blank == std::string::npos ? completeCommand(line)
                                      : complete(line.substr(blank + 1), false);
}
