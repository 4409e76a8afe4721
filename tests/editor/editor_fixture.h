// A drawing with the editor around it, as the tests of the editor use it.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "common/drawing_order.h"
#include "database/drawing_fixture.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/state/document_state.h"
#include "host/objectarx/editor.h"
#include "host/objectarx/selection_sets.h"

namespace tests {

/// Answers given one after the other: "" is Enter, "^" is Esc, and after the last the input ends.
class Answers : public host::InputSource {
  public:
    host::Answer next(const std::wstring& prompt, host::InputUnit unit) override;
    bool interactive() const override { return person; }

    std::deque<std::wstring> left;
    bool person = false;
};

/// Calls back on notifications.
class Watcher : public AcEditorReactor {
  public:
    void pickfirstModified() override {
        if (onPickfirst) onPickfirst();
    }
    void commandWillStart(const ACHAR* name) override {
        if (onStart) onStart(name);
    }
    std::function<void()> onPickfirst;
    std::function<void(std::wstring)> onStart;
};

/// An empty drawing that is current; at the end no fault of the module may be left over.
class EditorTest : public DrawingTest {
  protected:
    EditorTest();
    ~EditorTest() override;

    /// Adds an entity to model space (or the space of a block record) from its tags:
    /// "0 LINE|10 0|20 0|11 5|21 0". On layer 0 unless tag 8 is given. The entities of a test are
    /// called a, b, c, ... in the order of adding.
    AcDbObjectId add(const std::string& tags, host::Index owner = host::kNoIndex);
    /// Adds a record to a table, for example ("LAYER", "0 LAYER|2 walls|70 0|62 7").
    host::ObjectBody& addRecord(const std::string& table, const std::string& tags);
    /// Adds an empty block with its base point, "10 1|20 0"; gives its record.
    host::Index addBlock(const std::string& name, const std::string& base = "10 0|20 0");
    /// "ab" for the first two entities.
    std::string letters(const std::vector<AcDbObjectId>& ids) const;
    /// Members of a set; "?" when the name is no open set.
    std::string members(const ads_name set) const;
    void erase(AcDbObjectId id);
    static AcEditor* editor() { return AcEditor::cast(acrxSysRegistry()->at(L"AcEditor")); }
    static void set(const wchar_t* variable, const wchar_t* value);
    /// Members of the set that acedSSGet gives, which is freed; its answer when it gives none.
    std::string get(const wchar_t* mode, const resbuf* filter = nullptr,
                    const double* pt1 = nullptr, const double* pt2 = nullptr) const;
    /// Notifications since the last call.
    std::vector<std::wstring> takeNotifications();

    host::DocumentState state;
    Answers answers;
    std::vector<AcDbObjectId> entities;
};

}  // namespace tests
