// Tries the host on a drawing that may be damaged in any way.
#include "common/drawing_trial.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <numeric>
#include <vector>

#include "common/scratch.h"
#include "host/dxf/check/drawing_check.h"
#include "host/dxf/load/load_drawing.h"
#include "host/dxf/save/save_drawing.h"
#include "host/text/text_codec.h"

namespace trial {
namespace {

using Findings = std::vector<host::Finding>;

/// The findings that saving does not mend, one a line. Their order is that of the objects in
/// memory, which is not the file's where structure was supplied.
std::string lasting(const Findings& findings) {
    std::vector<std::string> texts;
    for (const host::Finding& finding : findings) {
        if (finding.text.rfind("$HANDSEED", 0) != 0) texts.push_back(finding.text + "\n");
    }
    std::sort(texts.begin(), texts.end());
    return std::accumulate(texts.begin(), texts.end(), std::string());
}

/// Saves a drawing to a file that was not there; the reason when that fails.
std::string save(host::Store& store, const std::string& path) {
    std::remove(path.c_str());
    host::DxfError error;
    return host::saveDrawing(store, path, error) ? "" : error.message();
}

std::string unclear(const Findings& findings) {
    for (const host::Finding& finding : findings) {
        if (!isClearLine(finding.text)) return "unclear finding: " + finding.text;
    }
    return {};
}

}  // namespace

bool isClearLine(const std::string& text) {
    if (text.empty() || text.size() > 2000 || !host::wellFormed(text, {})) return false;
    for (const char c : text) {
        if ((c >= 0 && c < ' ') || c == '\x7F') return false;
    }
    return true;
}

std::string faultOfDrawing(host::Store& store, const Findings& before, const std::string& folder) {
    if (const std::string text = unclear(before); !text.empty()) return text;
    const std::string first = folder + "/first.dxf";
    const std::string second = folder + "/second.dxf";
    if (const std::string why = save(store, first); !why.empty()) return "not saved: " + why;
    host::DxfError error;
    Findings supplied;
    const auto again = host::loadDrawing(first, error, {}, &supplied);
    if (again == nullptr) return "not loaded again: " + error.message();
    if (!supplied.empty()) return "saved without: " + supplied.front().text;
    const std::string after = lasting(host::checkDrawing(*again));
    if (after != lasting(before)) {
        return "checks differently.\nBefore:\n" + lasting(before) + "After:\n" + after;
    }
    if (const std::string why = save(*again, second); !why.empty()) return "not saved: " + why;
    return tests::contentOf(first) == tests::contentOf(second) ? "" : "saves differently";
}

Trial tryDrawing(std::string_view text, const std::string& folder) {
    Trial trial;
    const std::string path = folder + "/tried.dxf";
    tests::write(path, std::string(text));
    host::DxfError error;
    Findings supplied;
    const auto store = host::loadDrawing(path, error, {}, &supplied);
    if (store == nullptr) {
        trial.message = error.message();
        trial.line = error.line;
        const bool advises = error.text.find("; ") != std::string::npos;
        if (!advises || !isClearLine(trial.message)) trial.fault = "unclear: " + trial.message;
        return trial;
    }
    trial.loaded = true;
    const Findings findings = host::checkDrawing(*store);
    trial.clean = supplied.empty() && findings.empty();
    trial.fault = unclear(supplied);
    if (trial.fault.empty()) trial.fault = faultOfDrawing(*store, findings, folder);
    return trial;
}

}  // namespace trial
