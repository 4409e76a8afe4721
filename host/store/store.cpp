// The store's identity and building: slots, handles, new and copied objects.
#include "host/store/store.h"

#include "host/store/body_text.h"
#include "host/store/data_records.h"
#include "host/store/journal.h"
#include "host/store/store_memory.h"
#include "host/tags/tags.h"

namespace host {

namespace {

std::vector<Store*> openStores(1, nullptr);  // place 0 is never used

}  // namespace

const std::vector<Store*>& storesBySerial() { return openStores; }

Store::Store()
    : m_serial(static_cast<std::uint32_t>(openStores.size())),
      m_arena(std::make_unique<Arena>()),
      m_handles(std::make_unique<HandleIndex>()),
      m_journal(std::make_unique<Journal>(*this)),
      m_dataRecords(std::make_unique<DataRecords>(*this)) {
    openStores.push_back(this);
    m_blocks.emplace_back(new ObjectBody[kBlockSize]);  // slot 0 stays empty: "no object"
    ObjectBody& list = newSlot();
    m_objectsList = list.self;
}

Store::~Store() { openStores[m_serial] = nullptr; }

ObjectBody* Store::resolve(AcDbObjectId id) {
    const std::uint64_t serial = id.asWord() >> 32;
    const Index index = static_cast<Index>(id.asWord());
    if (serial >= openStores.size() || index == kNoIndex) return nullptr;
    const Store* const store = openStores[serial];
    if (store == nullptr || index > store->m_count) return nullptr;
    return &store->at(index);
}

ObjectBody* Store::byHandle(std::uint64_t handle) const {
    if (handle == 0) return nullptr;
    const Index index = m_handles->find(*this, handle);
    return index == kNoIndex ? nullptr : &at(index);
}

void Store::raiseHandleSeed(std::uint64_t seed) {
    m_seed = std::max(m_seed, std::min(seed, kHighestHandle + 1));
}

std::uint64_t Store::freeHandle() {
    if (m_seed < kHighestHandle) return m_seed;
    if (m_gap == 0) m_gap = middleOfWidestGap();
    while (byHandle(m_gap) != nullptr)
        ++m_gap;
    return m_gap;
}

/// Slots are counted in 32 bits, so the gap is wide enough for all that may come, and what points
/// at an object that is not there hardly points into its middle.
std::uint64_t Store::middleOfWidestGap() const {
    std::vector<std::uint64_t> handles{0};
    for (Index index = 1; index <= m_count; ++index)
        handles.push_back(at(index).handle);
    std::sort(handles.begin(), handles.end());
    std::uint64_t widest = 0, begin = 0;
    for (std::size_t i = 1; i < handles.size(); ++i) {
        const std::uint64_t width = handles[i] - handles[i - 1];
        if (width > widest) widest = width, begin = handles[i - 1];
    }
    return begin + widest / 2;
}

void Store::giveHandle(ObjectBody& body, std::uint64_t handle) {
    body.handle = handle;
    m_handles->add(*this, body.self);
    raiseHandleSeed(handle + 1);
}

std::string_view Store::keep(std::string_view text) { return m_arena->keep(text); }

ObjectBody& Store::newSlot() {
    const Index index = ++m_count;
    if ((index >> kBlockBits) == m_blocks.size()) m_blocks.emplace_back(new ObjectBody[kBlockSize]);
    ObjectBody& body = at(index);
    body.store = this;
    body.self = index;
    return body;
}

ObjectBody* Store::create(Kind kind, std::string_view keptText, std::uint64_t handle) {
    if (byHandle(handle) != nullptr) return nullptr;
    ObjectBody& body = newSlot();
    body.kind = kind;
    body.data = keptText.data();
    body.size = static_cast<std::uint32_t>(keptText.size());
    if (handle != 0) giveHandle(body, handle);
    recordsChanged(kind);
    return &body;
}

void Store::assignMissingHandles() {
    for (Index index = 1; index <= m_count; ++index) {
        ObjectBody& body = at(index);
        if (body.handle != 0 || body.size == 0) continue;
        giveHandle(body, freeHandle());
        const bool isDimStyle = body.type() == "DIMSTYLE";
        std::string text(body.tags());
        std::string tag;
        addHandleTag(tag, isDimStyle ? 105 : 5, body.handle);
        TagReader reader(text);
        Tag type;
        reader.next(type);
        text.insert(reader.end(), tag);
        const std::string_view kept = keep(text);
        if (body.ownsData) delete[] body.data;
        body.ownsData = false;
        body.data = kept.data();
        body.size = static_cast<std::uint32_t>(kept.size());
    }
}

ObjectBody& Store::adopt(const ObjectBody& fresh, Index owner) {
    ObjectBody& body = duplicate(fresh, owner);
    body.openForWrite = fresh.openForWrite;
    return body;
}

ObjectBody& Store::make(Kind kind, std::string_view tags, Index owner) {
    return make(kind, tags, Encoding(), owner);
}

ObjectBody& Store::duplicate(const ObjectBody& source, Index owner) {
    const Encoding from = source.store != nullptr ? source.store->encoding() : Encoding();
    return make(source.kind, source.tags(), from, owner);
}

ObjectBody& Store::make(Kind kind, std::string_view tags, const Encoding& from, Index owner) {
    ObjectBody& body = newSlot();
    body.kind = kind;
    body.owner = owner;
    giveHandle(body, freeHandle());
    m_journal->made(body);
    std::string text(tags);
    const bool same =
        from.utf8 == m_encoding.utf8 && (from.utf8 || from.codePage == m_encoding.codePage);
    if (!same) text = recoded(text, from, m_encoding);
    placeText(body, withIdentity(text, body.handle, at(owner).handle));
    ++revision;
    recordsChanged(body.kind);
    return body;
}

}  // namespace host
