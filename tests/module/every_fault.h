// A scenario of a group's life, run again and again with another call of the host failing each
// time.
#pragma once

#include <functional>
#include <string>

#include "common/census.h"
#include "common/scene.h"

namespace tests {

/// What a user does, and on which drawing.
struct FaultScenario {
    std::string words;                        ///< the drawing, as a Scene draws it
    std::function<void(Scene&)> act;          ///< runs while calls fail
    std::function<void(Scene&)> before = {};  ///< runs before it, with no call failing
    std::function<void(Scene&)> after = {};   ///< runs behind it, with no call failing
    bool moves = false;                       ///< entities may change without being lost
    std::wstring menuGroup = {};              ///< counts as loaded
    std::string file = {};                    ///< drawing to load in place of `words`
};

/// Runs the scenario without a fault, then once for each call of the host with that call failing,
/// alone and with all later ones, with and without reports of failed checks. After each run the
/// module has let go of everything, no entity of the user's is lost or changed, the drawing is
/// sound and repair brings every group in line or dissolves it.
///
/// Under sanitizers every seventh call fails, from one on
/// that VELMO_SEED chooses; on Windows every 25th, without reports.
void failEveryCall(const FaultScenario& scenario);

}  // namespace tests
