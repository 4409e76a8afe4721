// Following an extension dictionary to the data for annotation scales.
#include "host/transform/annotation_scales.h"

#include "host/content/dictionary_text.h"
#include "host/store/body_text.h"
#include "host/store/store.h"

namespace host {
namespace {

const ObjectBody* dictionaryAt(const Store& store, std::uint64_t handle) {
    const ObjectBody* found = store.byHandle(handle);
    const bool isOne = found != nullptr && !found->erased && found->kind == Kind::Dictionary;
    return isOne ? found : nullptr;
}

}  // namespace

std::vector<Index> scaleData(const ObjectBody& entity) {
    const Store& store = *entity.store;
    const ObjectBody* holder = dictionaryAt(store, extensionDictionaryHandle(entity.tags()));
    for (const wchar_t* key : {L"AcDbContextDataManager", L"ACDB_ANNOTATIONSCALES"}) {
        if (holder == nullptr) return {};
        const auto entry = findEntry(*holder, key);
        holder = entry ? dictionaryAt(store, entry->handle) : nullptr;
    }
    std::vector<Index> found;
    if (holder == nullptr) return found;
    DictionaryReader entries(holder->tags());
    for (DictionaryEntry entry; entries.next(entry);) {
        const ObjectBody* data = store.byHandle(entry.handle);
        const bool counts = data != nullptr && !data->erased && !isEntityKind(data->kind);
        if (counts) found.push_back(data->self);
    }
    return found;
}

}  // namespace host
