// Damages a drawing as text, entity by entity.
#include "damage.h"

#include <sstream>

namespace tests {
namespace {

bool endsWith(const std::string& text, const std::string& ending) {
    return text.size() >= ending.size() &&
           text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

bool isPart(const std::string& type) {
    return type == "ATTRIB" || type == "VERTEX" || type == "SEQEND";
}

}  // namespace

DamagedDrawing::DamagedDrawing(const std::string& dxf, const std::string& prefix, unsigned seed)
    : m_prefix(prefix), m_random(seed) {
    std::istringstream stream(dxf);
    bool inEntities = false;
    Tags* target = &m_before;
    for (std::string code, value; std::getline(stream, code) && std::getline(stream, value);) {
        code = code.substr(code.find_first_not_of(' '));
        if (inEntities && code == "0" && value == "ENDSEC") {
            inEntities = false;
            target = &m_behind;
        } else if (inEntities && code == "0" && !isPart(value)) {
            target = &m_entities.emplace_back();
        }
        target->emplace_back(code, value);
        if (code == "2" && value == "ENTITIES") inEntities = true;
    }
}

std::string DamagedDrawing::text() const {
    std::ostringstream text;
    const auto write = [&](const Tags& tags) {
        for (const auto& [code, value] : tags)
            text << code << '\n' << value << '\n';
    };
    write(m_before);
    for (const Tags& entity : m_entities)
        write(entity);
    write(m_behind);
    return text.str();
}

std::size_t DamagedDrawing::anyMarker() {
    for (;;) {
        const std::size_t i = any(m_entities.size());
        for (const auto& [code, value] : m_entities[i]) {
            if (code == "2" && (endsWith(value, "_GB") || endsWith(value, "_GE"))) return i;
        }
    }
}

std::string* DamagedDrawing::attributeValue(const std::string& code) {
    std::vector<std::string*> found;
    bool inAttribute = false;
    for (auto& [tag, value] : m_entities[anyMarker()]) {
        if (tag == "0") inAttribute = value == "ATTRIB";
        if (inAttribute && tag == code) found.push_back(&value);
    }
    return found.empty() ? nullptr : found[any(found.size())];
}

std::string DamagedDrawing::anyText() {
    const Tags& other = m_entities[any(m_entities.size())];
    std::string handle;
    for (const auto& [code, value] : other) {
        if (code == "5" && handle.empty()) handle = value;
    }
    const std::string texts[] = {handle, handle, "1",  "2",     "3",         "4", "many",
                                 "",     " 2",   "-1", "FFFFF", "ENT_HANDL", "2x"};
    return texts[any(std::size(texts))];
}

std::string DamagedDrawing::move() {
    const std::size_t from = any(m_entities.size()), to = any(m_entities.size());
    const Tags moved = m_entities[from];
    m_entities.erase(m_entities.begin() + static_cast<long>(from));
    m_entities.insert(m_entities.begin() + static_cast<long>(to), moved);
    return "move " + std::to_string(from) + " to " + std::to_string(to);
}

/// Of an attribute, or of the block that a marker refers to.
std::string DamagedDrawing::rename() {
    const std::string names[] = {m_prefix + "_GB", m_prefix + "_GE", "velmo_ge", "OTHER",
                                 m_prefix + "_GX"};
    const std::string& name = names[any(std::size(names))];
    if (any(2) == 0) {
        if (std::string* tag = attributeValue("2")) *tag = name;
        return "tag " + name;
    }
    bool first = true;
    for (auto& [code, value] : m_entities[anyMarker()]) {
        if (code == "2" && first) value = names[any(2)];
        first = first && code != "2";
    }
    return "another block";
}

std::string DamagedDrawing::insert() {
    Tags entity = {{"0", "POINT"}, {"8", "0"}, {"10", "0"}, {"20", "0"}, {"30", "0"}};
    if (any(2) == 0) {
        entity = {{"0", "POLYLINE"}, {"8", "0"}, {"66", "1"}, {"70", "8"}};
        for (int i = 0; i < 2; ++i)
            entity.insert(entity.end(), {{"0", "VERTEX"}, {"8", "0"}, {"10", "1"}, {"70", "32"}});
        entity.insert(entity.end(), {{"0", "SEQEND"}, {"8", "0"}});
    }
    const std::size_t place = any(m_entities.size());
    m_entities.insert(m_entities.begin() + static_cast<long>(place), entity);
    return entity[0].second + " at " + std::to_string(place);
}

std::string DamagedDrawing::lockLayer() {
    bool inLayer = false;
    for (auto& [code, value] : m_before) {
        if (code == "0") inLayer = false;
        if (code == "2" && value == m_prefix + "_GFRZ") inLayer = true;
        if (inLayer && code == "70") value = "4";
    }
    return "lock the layer";
}

std::string DamagedDrawing::damage() {
    switch (any(14)) {
        case 0:
        case 1:
        case 2:
            if (m_entities.size() < 6) return "nothing";
            m_entities.erase(m_entities.begin() + static_cast<long>(any(m_entities.size())));
            return "erase";
        case 3:
        case 4:
            return move();
        case 5:
        case 6:
            return rename();
        case 7:
        case 8:
            return insert();
        case 9:
            return lockLayer();
        default:
            if (std::string* text = attributeValue("1")) return "text " + (*text = anyText());
            return "nothing";
    }
}

}  // namespace tests
