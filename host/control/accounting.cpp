// The ledger: counters of what is held, descriptions on demand, and the list of module faults.
#include "host/control/accounting.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace host {
namespace {

constexpr int kKinds = 4;
const char* const kKindTexts[kKinds] = {"object(s) left open", "iterator(s) not deleted",
                                        "result buffer(s) not released",
                                        "selection set(s) not freed"};

HeldCounts held = {};

std::vector<HeldLister>& listers() {
    static std::vector<HeldLister> instance;
    return instance;
}

std::vector<std::string>& faults() {
    static std::vector<std::string> instance;
    return instance;
}

/// What iterators walk over that were not deleted yet. Never destroyed.
std::unordered_map<const void*, std::string>& iterators() {
    static auto& instance = *new std::unordered_map<const void*, std::string>;
    return instance;
}

void listIterators(std::vector<std::string>& lines) {
    for (const auto& [iterator, walksOver] : iterators())
        lines.push_back("iterator over " + walksOver);
}

/// " (a; b)", or nothing when no room describes what it holds.
std::string heldDescriptions() {
    std::vector<std::string> lines;
    for (HeldLister lister : listers())
        lister(lines);
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? " (" : "; ") + line;
    return text.empty() ? text : text + ")";
}

}  // namespace

void countHeld(Held kind) noexcept { ++held.counts[static_cast<int>(kind)]; }

void countReturned(Held kind) noexcept { --held.counts[static_cast<int>(kind)]; }

long heldCount(Held kind) { return held.counts[static_cast<int>(kind)]; }

void addHeldLister(HeldLister lister) {
    std::vector<HeldLister>& all = listers();
    if (std::find(all.begin(), all.end(), lister) == all.end()) all.push_back(lister);
}

void holdIterator(const void* iterator, std::string walksOver) {
    addHeldLister(listIterators);
    iterators()[iterator] = std::move(walksOver);
    countHeld(Held::Iterator);
}

void returnIterator(const void* iterator) {
    iterators().erase(iterator);
    countReturned(Held::Iterator);
}

void reportModuleFault(std::string text) { faults().push_back(std::move(text)); }

const std::vector<std::string>& moduleFaults() { return faults(); }

void clearModuleFaults() { faults().clear(); }

HeldCounts heldNow() { return held; }

void checkNothingLeaked(const HeldCounts& before, const std::string& where) {
    std::string descriptions;
    for (int kind = 0; kind < kKinds; ++kind) {
        const long surplus = held.counts[kind] - before.counts[kind];
        if (surplus <= 0) continue;
        if (descriptions.empty()) descriptions = heldDescriptions();
        reportModuleFault("after " + where + ": " + std::to_string(surplus) + " " +
                          kKindTexts[kind] + descriptions);
    }
}

}  // namespace host
