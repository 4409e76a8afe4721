// Tries the host on a script that may hold anything.
#pragma once

#include <string>
#include <string_view>

/// Runs a script in a session of its own with a small drawing, in which commands that touch files
/// or load modules are refused. Gives what the host did wrong, empty when it kept the rules: each
/// problem is told in one clear line, nobody is blamed for a module's fault, and every drawing that
/// is left has no errors in the check, can be saved, and loads and saves to equal bytes.
/// `folder` has to exist. The script ends early when its drawings have grown large.
std::string faultOfScript(std::string_view bytes, const std::string& folder);
