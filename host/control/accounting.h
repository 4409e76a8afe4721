// The ledger of what the module holds, and the list of its faults.
#pragma once

#include <string>
#include <vector>

namespace host {

/// Kinds of things that have to be closed, deleted, freed or released.
enum class Held { Object, Iterator, ResultBuffer, SelectionSet };

/// Counts a thing taken or given back. Constant time; the room that owns the things describes them
/// when asked (see addHeldLister).
void countHeld(Held kind) noexcept;
void countReturned(Held kind) noexcept;
/// How many things of a kind are held now.
long heldCount(Held kind);

/// Adds a function that appends one line for each thing of its kind that is held, for example
/// "LINE 2A open for read". Called once per room at first use.
using HeldLister = void (*)(std::vector<std::string>& lines);
void addHeldLister(HeldLister lister);
/// Counts an iterator, by its address, with what it walks over; and that it was deleted.
void holdIterator(const void* iterator, std::string walksOver);
void returnIterator(const void* iterator);

/// Reports a fault of the calling module: a stale id, a double close, a call in a wrong context.
/// The text names the call and the object.
void reportModuleFault(std::string text);
/// Faults since the last clear, oldest first.
const std::vector<std::string>& moduleFaults();
void clearModuleFaults();

/// The check after every command, notification, LISP call and entry-point message: compares what is
/// held with `before` and reports each surplus as a fault, "after <where>: ...".
struct HeldCounts {
    long counts[4];
};
HeldCounts heldNow();
void checkNothingLeaked(const HeldCounts& before, const std::string& where);

}  // namespace host
