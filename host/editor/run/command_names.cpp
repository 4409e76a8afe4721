// The table of short forms, and the distance between names.
#include "host/editor/run/command_names.h"

#include <algorithm>

#include "host/editor/state/sysvars.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// How many letters have to be put in, left out, replaced or exchanged with their neighbour.
std::size_t distance(const std::wstring& from, const std::wstring& to) {
    std::vector<std::size_t> beforeLast, last, now(to.size() + 1);
    for (std::size_t j = 0; j <= to.size(); ++j)
        now[j] = j;
    for (std::size_t i = 1; i <= from.size(); ++i) {
        beforeLast = std::move(last);
        last = now;
        now[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const bool same = from[i - 1] == to[j - 1];
            now[j] = std::min({last[j] + 1, now[j - 1] + 1, last[j - 1] + (same ? 0 : 1)});
            const bool exchanged =
                i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
            if (exchanged) now[j] = std::min(now[j], beforeLast[j - 2] + 1);
        }
    }
    return now.back();
}

/// The name nearest to a typed one in upper case; empty when none is near enough.
std::wstring nearestName(const std::wstring& wanted, const std::vector<std::wstring>& names) {
    std::size_t least = (wanted.size() + 1) / 3 + 1;  // further off it is a guess
    std::wstring nearest;
    for (const std::wstring& name : names) {
        const std::size_t away = distance(wanted, foldCase(name));
        if (away >= least) continue;
        least = away;
        nearest = name;
    }
    return nearest;
}

/// True when the name holds so many letters in a row of a typed one in upper case.
bool shares(const std::wstring& name, const std::wstring& wanted, std::size_t letters) {
    for (std::size_t at = 0; at + letters <= wanted.size(); ++at)
        if (foldCase(name).find(wanted.substr(at, letters)) != std::wstring::npos) return true;
    return false;
}

/// "A, B" of the names that share so many letters with a typed one; empty for more than a few.
std::wstring sharing(const std::wstring& wanted, std::size_t letters,
                     const std::vector<std::wstring>& names) {
    constexpr int kMost = 12;
    int count = 0;
    std::wstring list;
    for (const std::wstring& name : names) {
        if (!shares(name, wanted, letters)) continue;
        list += (list.empty() ? L"" : L", ") + name;
        ++count;
    }
    return count > kMost ? std::wstring() : list;
}

}  // namespace

const std::vector<CommandAlias>& commandAliases() {
    static const std::vector<CommandAlias> table = {
        {L"C", L"CIRCLE"}, {L"CO", L"COPY"}, {L"CP", L"COPY"},    {L"DT", L"TEXT"},
        {L"E", L"ERASE"},  {L"L", L"LINE"},  {L"LI", L"LIST"},    {L"LS", L"LIST"},
        {L"M", L"MOVE"},   {L"T", L"TEXT"},  {L"MI", L"MIRROR"},  {L"PO", L"POINT"},
        {L"RE", L"REGEN"}, {L"Z", L"ZOOM"},  {L"SET", L"SETVAR"}, {L"EXIT", L"QUIT"},
        {L"?", L"HELP"}};
    return table;
}

std::wstring commandBehind(const std::wstring& name) {
    for (const CommandAlias& alias : commandAliases())
        if (name == alias.typed) return alias.command;
    return isSysvar(name) ? L"SETVAR" : std::wstring();
}

std::wstring hintAt(const std::wstring& typed, const std::vector<std::wstring>& names) {
    constexpr std::size_t kShortest = 3, kLongest = 64;  // nobody mistypes more than a name
    constexpr std::size_t kLongPart = 5;
    if (typed.size() > kLongest) return {};
    const std::wstring wanted = foldCase(typed);
    std::wstring others;
    if (wanted.size() >= kShortest) others = sharing(wanted, wanted.size(), names);
    if (others.empty()) {
        const std::wstring nearest = nearestName(wanted, names);
        if (!nearest.empty()) return L"nearest is " + nearest + L"; ";
        others = sharing(wanted, kLongPart, names);
    }
    if (others.empty()) return others;
    const bool several = others.find(L',') != std::wstring::npos;
    return (several ? L"there are " : L"nearest is ") + others + L"; ";
}

}  // namespace host
