// Life of result buffers: making, releasing, and the book of those that are held.
#include "host/objectarx/result_buffer.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "host/control/accounting.h"
#include "host/objectarx/entities.h"
#include "host/objects/result_list.h"

namespace host {
namespace {

/// What the host knows of a buffer that it made.
struct Entry {
    void* payload = nullptr;  ///< string or binary chunk that was allocated with it
    bool hostOwned = false;
};

using Book = std::unordered_map<const resbuf*, Entry>;

void describeHeldLists(std::vector<std::string>& lines);

/// Never destroyed: modules may release lists while the program ends.
Book& book() {
    static Book& buffers = []() -> Book& {
        addHeldLister(describeHeldLists);
        return *new Book;
    }();
    return buffers;
}

void describeHeldLists(std::vector<std::string>& lines) {
    std::unordered_set<const resbuf*> followers;
    for (const auto& [buffer, entry] : book())
        followers.insert(buffer->rbnext);
    for (const auto& [buffer, entry] : book()) {
        if (entry.hostOwned || followers.count(buffer) != 0) continue;
        lines.push_back("result buffer list starting with type " + std::to_string(buffer->restype));
    }
}

/// Frees one buffer of the book and gives it back to the ledger.
void freeBuffer(Book::iterator at) {
    const resbuf* buffer = at->first;
    std::free(at->second.payload);
    if (!at->second.hostOwned) countReturned(Held::ResultBuffer);
    book().erase(at);
    delete buffer;
}

resbuf* makeBuffer(int type) {
    auto* buffer = new resbuf();
    buffer->restype = static_cast<short>(type);
    book().emplace(buffer, Entry());
    countHeld(Held::ResultBuffer);
    return buffer;
}

}  // namespace

ACHAR* newString(std::wstring_view text) {
    auto* copy = static_cast<ACHAR*>(std::malloc((text.size() + 1) * sizeof(ACHAR)));
    if (copy == nullptr) throw std::bad_alloc();
    std::memcpy(copy, text.data(), text.size() * sizeof(ACHAR));
    copy[text.size()] = 0;
    return copy;
}

ResultList::~ResultList() { freeList(m_first); }

resbuf& ResultList::append(int type) {
    resbuf* buffer = makeBuffer(type);
    (m_last == nullptr ? m_first : m_last->rbnext) = buffer;
    m_last = buffer;
    return *buffer;
}

void ResultList::addText(int type, std::wstring_view text) {
    resbuf& buffer = append(type);
    buffer.resval.rstring = newString(text);
    book()[&buffer].payload = buffer.resval.rstring;
}

void ResultList::addBinary(int type, std::string_view bytes) {
    resbuf& buffer = append(type);
    const std::size_t size = bytes.size() < 0x7FFF ? bytes.size() : 0x7FFF;
    auto* copy = static_cast<char*>(std::malloc(size + 1));
    if (copy == nullptr) throw std::bad_alloc();
    std::memcpy(copy, bytes.data(), size);
    buffer.resval.rbinary.buf = copy;
    buffer.resval.rbinary.clen = static_cast<short>(size);
    book()[&buffer].payload = copy;
}

resbuf* ResultList::release() {
    resbuf* list = m_first;
    m_first = m_last = nullptr;
    return list;
}

void freeList(resbuf* list) {
    while (list != nullptr) {
        const auto at = book().find(list);
        if (at == book().end()) return;
        list = list->rbnext;
        freeBuffer(at);
    }
}

void markHostOwned(resbuf* list) {
    for (; list != nullptr; list = list->rbnext) {
        const auto at = book().find(list);
        if (at == book().end() || at->second.hostOwned) return;
        at->second.hostOwned = true;
        countReturned(Held::ResultBuffer);
    }
}

}  // namespace host

int acutRelRb(resbuf* list) {
    while (list != nullptr) {
        const auto at = host::book().find(list);
        if (at == host::book().end()) {
            host::reportModuleFault(
                "acutRelRb: the list is not one of the host's or was released before");
            return RTERROR;
        }
        if (at->second.hostOwned) return RTNORM;
        list = list->rbnext;
        host::freeBuffer(at);
    }
    return RTNORM;
}

void acutDelString(ACHAR*& text) {
    std::free(text);
    text = nullptr;
}
