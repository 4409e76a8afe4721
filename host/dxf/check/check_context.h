// What the parts of the drawing check share.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/dxf/load/finding.h"
#include "host/dxf/save/erased_references.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {

/// What one pass over the tags of an object tells the parts of the check.
struct ObjectSummary {
    const ObjectBody* body = nullptr;
    std::string_view text;  ///< tags as they would be saved
    std::string_view type;
    bool hasOwner = false;
    std::uint64_t owner = 0;                ///< tag 330 before the object's own tags
    std::uint64_t extensionDictionary = 0;  ///< 0 when there is none
    bool attributesFollow = false;          ///< tag 66 is not 0
    std::string markers;                    ///< tags 100, in order, with commas between
};

/// What an object says about others that the check asks of one object for many.
struct ObjectLinks {
    std::uint64_t firstEntry = 0;           ///< first tag 350
    std::uint64_t extensionDictionary = 0;  ///< 0 when there is none
    std::uint64_t layout = 0;               ///< of a block record: tag 340
    std::uint64_t block = 0;                ///< of a layout: its block record
};

/// "LINE 2A".
std::string nameOf(const ObjectBody& body);

/// Collects findings and answers what is defined, in constant time.
class CheckContext {
  public:
    explicit CheckContext(const Store& drawing);

    /// Notes a finding. What the text quotes of the drawing is in the drawing's encoding.
    void add(Severity severity, const ObjectBody& body, const std::string& text) {
        add(severity, body.handle, nameOf(body) + ": " + text);
    }
    void error(const ObjectBody& body, const std::string& text) {
        add(Severity::Error, body, text);
    }
    void note(const ObjectBody& body, const std::string& text) { add(Severity::Note, body, text); }
    void error(const std::string& text) { add(Severity::Error, 0, text); }
    void note(const std::string& text) { add(Severity::Note, 0, text); }

    /// Live object with a handle, or null.
    const ObjectBody* live(std::uint64_t handle) const;
    /// Live slots only: not erased, nor their owners.
    bool isLive(Index index) const;
    /// True when a table holds a record of that name (as bytes of the drawing).
    bool isDefined(const char* table, std::string_view name);

    /// Links in the tags of an object. Each object is read once, however many ask for it: else a
    /// drawing could make the time grow with the square of its size.
    const ObjectLinks& links(const ObjectBody& body);

    const Store& store;
    ErasedReferences references;
    const Index rootDictionary;
    const bool hasLayouts;  ///< the root dictionary lists layouts
    std::vector<Finding> findings;
    long ownersAbsent = 0;

  private:
    void add(Severity severity, std::uint64_t handle, const std::string& text);

    std::unordered_map<Index, ObjectLinks> m_links;
    std::unordered_map<std::string, bool> m_defined;  ///< by table and name
    std::string m_key;
};

/// Every tag of the object; fills the summary.
void checkTags(CheckContext& context, ObjectSummary& summary);
void checkSubclasses(CheckContext& context, const ObjectSummary& summary);
void checkOwner(CheckContext& context, const ObjectSummary& summary);
void checkSequence(CheckContext& context, const ObjectSummary& summary);
/// The extension dictionary of an object, and the entries of a dictionary.
void checkDictionaries(CheckContext& context, const ObjectSummary& summary);
/// Block records, their blocks, and the layouts.
void checkBlockRecord(CheckContext& context, const ObjectSummary& summary);
void checkLayout(CheckContext& context, const ObjectSummary& summary);

}  // namespace host
