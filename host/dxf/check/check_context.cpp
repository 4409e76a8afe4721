// What the parts of the drawing check share.
#include "host/dxf/check/check_context.h"

#include "host/store/body_text.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

bool listsLayouts(const Store& store, Index root) {
    return root != kNoIndex &&
           store.at(root).tags().find("\nACAD_LAYOUT\n") != std::string_view::npos;
}

}  // namespace

CheckContext::CheckContext(const Store& drawing)
    : store(drawing),
      references(drawing),
      rootDictionary(drawing.rootDictionary()),
      hasLayouts(listsLayouts(drawing, rootDictionary)) {}

const ObjectLinks& CheckContext::links(const ObjectBody& body) {
    const auto [place, isNew] = m_links.try_emplace(body.self);
    ObjectLinks& links = place->second;
    if (!isNew) return links;
    links.firstEntry = handleTag(body.tags(), 350);
    links.extensionDictionary = extensionDictionaryHandle(body.tags());
    links.layout = handleTag(body.tags(), 340);
    const auto layoutPart = subclassPart(body.tags(), "AcDbLayout");
    if (layoutPart) links.block = handleTag(*layoutPart, 330);
    return links;
}

std::string nameOf(const ObjectBody& body) {
    return std::string(body.type()) + " " + formatHandle(body.handle);
}

void CheckContext::add(Severity severity, std::uint64_t handle, const std::string& text) {
    findings.push_back({severity, handle, oneLine(store.decode(text))});
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
