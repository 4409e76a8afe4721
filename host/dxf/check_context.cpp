// What the parts of the drawing check share.
#include "host/dxf/check_context.h"

namespace host {

std::string nameOf(const ObjectBody& body) {
    return std::string(body.type()) + " " + formatHandle(body.handle);
}

void CheckContext::error(const ObjectBody& body, const std::string& text) {
    findings.push_back({Severity::Error, body.handle, nameOf(body) + ": " + text});
}

void CheckContext::note(const ObjectBody& body, const std::string& text) {
    findings.push_back({Severity::Note, body.handle, nameOf(body) + ": " + text});
}

bool CheckContext::isLive(Index index) const {
    return index != kNoIndex && !references.isGone(index);
}

const ObjectBody* CheckContext::live(std::uint64_t handle) const {
    const ObjectBody* const body = store.byHandle(handle);
    return body != nullptr && isLive(body->self) ? body : nullptr;
}

bool CheckContext::isDefined(const char* table, std::string_view name) {
    m_key.assign(table).append(1, ' ').append(name);
    const auto [place, isNew] = m_defined.try_emplace(m_key, false);
    if (isNew) {
        const ObjectBody* const record = store.symbol(table, store.decode(name));
        place->second = record != nullptr && isLive(record->self);
    }
    return place->second;
}

}  // namespace host
