// What a saved drawing says where it named objects that were erased.
#include "host/dxf/save/erased_references.h"

#include <functional>

#include "host/tags/tags.h"

namespace host {
namespace {

/// The tags of one object with one tag looked ahead, written again without dead pointers.
class Rewriter {
  public:
    using IsGone = std::function<bool(std::string_view)>;
    Rewriter(std::string_view text, std::string& result, const IsGone& isGone)
        : m_text(text), m_reader(text), m_result(result), m_isGone(isGone) {}

    void run(std::string_view type, bool isDictionary) {
        m_result.clear();
        advance();
        while (m_more) {
            if (m_tag.code == 102 && !m_tag.value.empty() && m_tag.value[0] == '{') {
                copyBrackets();
            } else if (isDictionary && m_tag.code == 3) {
                copyPair(3);
            } else if (type == "SORTENTSTABLE" && m_tag.code == 331) {
                copyPair(331);
            } else if (type == "HATCH" && m_tag.code == 97) {
                copyBoundaryObjects();
            } else if (type == "GROUP" && m_tag.code == 340 && m_isGone(m_tag.value)) {
                advance();
            } else {
                copyPlain();
            }
        }
    }

  private:
    void advance() {
        m_more = m_reader.next(m_tag);
        if (!m_more) m_tag = {};
    }
    std::string_view stored() const {
        return m_text.substr(m_reader.begin(), m_reader.end() - m_reader.begin());
    }
    void copyPlain() {
        if (isPointerCode(m_tag.code) && m_isGone(m_tag.value)) {
            addTag(m_result, m_tag.code, "0");
        } else {
            m_result += stored();
        }
        advance();
    }
    /// An application's bracket. One that only held dead pointers of the host's own goes too.
    void copyBrackets() {
        const bool own = m_tag.value == "{ACAD_REACTORS" || m_tag.value == "{ACAD_XDICTIONARY";
        if (!own) return copyPlain();
        const std::size_t begin = m_result.size();
        m_result += stored();
        bool dropped = false;
        bool kept = false;
        for (advance(); m_more && m_tag.code != 102; advance()) {
            if (isPointerCode(m_tag.code) && m_isGone(m_tag.value)) {
                dropped = true;
            } else {
                m_result += stored();
                kept = true;
            }
        }
        if (m_more) {
            m_result += stored();
            advance();
        }
        if (dropped && !kept) m_result.resize(begin);
    }
    /// Two tags that are one entry, with a pointer in either.
    void copyPair(int firstCode) {
        const std::size_t begin = m_result.size();
        bool gone = isPointerCode(firstCode) && m_isGone(m_tag.value);
        m_result += stored();
        advance();
        const bool second =
            firstCode == 3 ? m_tag.code >= 350 && m_tag.code <= 369 : m_tag.code == 5;
        if (m_more && second) {
            gone = gone || (m_tag.code != 5 && m_isGone(m_tag.value));
            m_result += stored();
            advance();
        }
        if (gone) m_result.resize(begin);
    }
    /// Count of boundary objects and the objects; 97 has other meanings too, without 330 behind.
    void copyBoundaryObjects() {
        const std::string count(stored());
        advance();
        if (m_tag.code != 330) {
            m_result += count;
            return;
        }
        std::string objects;
        int kept = 0;
        bool dropped = false;
        for (; m_more && m_tag.code == 330; advance()) {
            if (m_isGone(m_tag.value)) {
                dropped = true;
                continue;
            }
            objects += stored();
            ++kept;
        }
        if (dropped) {
            addTag(m_result, 97, kept);
        } else {
            m_result += count;
        }
        m_result += objects;
    }

    std::string_view m_text;
    TagReader m_reader;
    std::string& m_result;
    const IsGone& m_isGone;
    Tag m_tag;
    bool m_more = true;
};

}  // namespace

bool isPointerCode(int code) {
    return (code >= 330 && code <= 369) || (code >= 390 && code <= 399) || code == 480 ||
           code == 481 || code == 1005;
}

ErasedReferences::ErasedReferences(const Store& store) : m_store(store) {
    const Index count = store.count();
    bool any = false;
    for (Index index = 1; index <= count && !any; ++index)
        any = store.at(index).erased;
    if (!any) return;
    m_gone.resize(count + 1);
    std::vector<bool> known(count + 1);
    std::vector<Index> path;
    known[kNoIndex] = true;
    for (Index index = 1; index <= count; ++index) {
        // Up to an owner that is known; in a circle of owners none is erased.
        Index at = index;
        for (; !known[at]; at = store.at(at).owner) {
            known[at] = true;
            m_gone[at] = store.at(at).erased;
            path.push_back(at);
        }
        bool gone = m_gone[at];
        for (; !path.empty(); path.pop_back()) {
            gone = gone || m_gone[path.back()];
            m_gone[path.back()] = gone;
        }
    }
}

bool ErasedReferences::isGoneHandle(std::string_view value) const {
    const ObjectBody* const target = m_store.byHandle(parseHandle(value).value_or(0));
    return target != nullptr && m_gone[target->self];
}

bool ErasedReferences::pointsAtGone(std::string_view text) const {
    TagReader reader(text);
    Tag tag;
    while (reader.next(tag)) {
        if (isPointerCode(tag.code) && isGoneHandle(tag.value)) return true;
    }
    return false;
}

std::string_view ErasedReferences::cleaned(const ObjectBody& body, std::string& buffer) const {
    if (none() || !pointsAtGone(body.tags())) return body.tags();
    const Rewriter::IsGone isGone = [this](std::string_view value) { return isGoneHandle(value); };
    Rewriter(body.tags(), buffer, isGone).run(body.type(), body.kind == Kind::Dictionary);
    return buffer;
}

}  // namespace host
