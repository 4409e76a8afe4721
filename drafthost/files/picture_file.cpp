// Replaces pictures whole, and nothing but pictures.
#include "drafthost/files/picture_file.h"

#include "drafthost/files/output_folder.h"
#include "host/dxf/save/save_drawing.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace {

/// Why no picture may come to stand at a path that is no link; empty when it may.
std::string pictureRefusal(const std::string& target, const std::vector<std::string>& drawings) {
    const host::FilePlace place = host::placeOf(target);
    if (place == host::FilePlace::Folder) return "Is a directory";
    if (place == host::FilePlace::Other) return "Is not a regular file";
    if (!isPictureName(target)) return "leads to " + target + ", whose name does not end in .svg";
    for (const std::string& drawing : drawings) {
        if (fileMeant(drawing) == fileMeant(target)) return "is a drawing that is in use";
    }
    const bool guarded = place == host::FilePlace::File && !host::isWritable(target);
    return guarded ? "Is write-protected" : "";
}

}  // namespace

bool isPictureName(const std::string& path) {
    constexpr std::size_t kEnding = 4;
    return path.size() > kEnding &&
           host::foldCase(host::fromUtf8(path.substr(path.size() - kEnding))) == L".SVG";
}

bool isPictureFolder(const std::string& path) {
    return !path.empty() && !host::pathFromUtf8(path).has_filename();
}

std::string writePictureFile(const std::string& path, const std::string& svg,
                             const std::vector<std::string>& drawings) {
    const std::string target = host::withoutLinks(path);
    std::string why = pictureRefusal(target, drawings);
    if (!why.empty()) return why;
    const auto fill = [&](host::OutputFile& file, std::string& problem) {
        return file.write(svg, problem);
    };
    return host::replaceFile(target, fill, why) ? "" : why;
}
