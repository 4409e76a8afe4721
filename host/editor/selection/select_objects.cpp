// The "Select objects:" dialogue, and selections given in one go for gestures.
#include "host/editor/selection/select_objects.h"

#include "host/control/effects.h"
#include "host/control/scoped_value.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/selection/selection_sets.h"
#include "host/editor/selection/selection_sources.h"
#include "host/editor/selection/ssget_call.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/current_drawing.h"
#include "host/store/store.h"
#include "host/text/lisp_cursor.h"

namespace host {
namespace {

const wchar_t kHelp[] =
    L"\nA point picks; W and C take two corners; ALL, L (last), P (previous), R (remove), A (add), "
    L"(handent \"2A\"), (ssget \"X\" '((0 . \"LINE\") (8 . \"WALLS*\"))); Enter ends.";

enum class Word { None, Window, Crossing, All, Last, Previous, Remove, Add, Help };

Word wordOf(const std::wstring& text) {
    struct Entry {
        const wchar_t* text;
        Word word;
    };
    constexpr Entry kWords[] = {
        {L"W", Word::Window},          {L"WINDOW", Word::Window}, {L"C", Word::Crossing},
        {L"CROSSING", Word::Crossing}, {L"ALL", Word::All},       {L"L", Word::Last},
        {L"LAST", Word::Last},         {L"P", Word::Previous},    {L"PREVIOUS", Word::Previous},
        {L"R", Word::Remove},          {L"REMOVE", Word::Remove}, {L"A", Word::Add},
        {L"ADD", Word::Add},           {L"?", Word::Help}};
    std::wstring key = foldCase(text);
    if (!key.empty() && key[0] == L'_') key.erase(0, 1);
    for (const Entry& entry : kWords) {
        if (key == entry.text) return entry.word;
    }
    return Word::None;
}

/// The forms without further words. False, with one line of explanation that ends in `what`, when
/// `text` is none of them.
bool parseSingle(const Store& store, const std::wstring& text, const wchar_t* what,
                 std::vector<AcDbObjectId>& selection, std::wstring& explanation) {
    switch (wordOf(text)) {
        case Word::All:
            selection = selectAll(store);
            return true;
        case Word::Last:
            selection = selectLast(store);
            return true;
        case Word::Previous:
            selection = selectPrevious();
            return true;
        default:
            break;
    }
    AcDbObjectId id;
    if (isSsgetCall(text)) {
        SelectionFilter filter;
        if (!readSsgetCall(text, filter, explanation)) return false;
        selection = selectMatching(store, filter);
        return true;
    }
    if (const std::optional<std::wstring> handle = parseHandent(text)) {
        id = selectHandle(store, *handle, explanation);
        if (id.isNull()) return false;
    } else if (const std::optional<AcGePoint3d> point = parsePoint(text, nullptr)) {
        id = entityUnder(store, *point);
    } else {
        explanation = L"\"" + text + L"\" is no selection" + what;
        return false;
    }
    if (!id.isNull()) selection.push_back(id);
    return true;
}

/// One dialogue from its first prompt to Enter.
class Dialogue {
  public:
    Dialogue(const Store& store, const SelectionFilter& filter)
        : m_store(store), m_filter(filter) {}

    PromptStatus run();
    const std::vector<AcDbObjectId>& selection() const { return m_set.ids(); }

  private:
    /// False when a prompt inside was cancelled.
    bool take(const std::wstring& text);
    bool takeWindow(bool crossing);
    void takeSingle(const std::wstring& text);
    void takeFound(const std::vector<AcDbObjectId>& found);
    /// `repeated` are those found that were in already, or when removing not in.
    void report(std::size_t found, std::size_t repeated, std::size_t filtered, bool first);

    const Store& m_store;
    const SelectionFilter& m_filter;
    SelectionSet m_set;
    bool m_removing = false;
};

PromptStatus Dialogue::run() {
    const ScopedValue<Question> asking(question(), {Wanted::Selection, std::nullopt, &m_set.ids()});
    for (;;) {
        const Answer answer = prompt(m_removing ? L"\nRemove objects: " : L"\nSelect objects: ");
        if (answer.kind == Answer::Kind::Enter)
            return m_set.ids().empty() ? PromptStatus::None : PromptStatus::Ok;
        if (answer.kind != Answer::Kind::Text || !take(answer.text)) return PromptStatus::Cancel;
    }
}

bool Dialogue::take(const std::wstring& text) {
    switch (wordOf(text)) {
        case Word::Window:
            return takeWindow(false);
        case Word::Crossing:
            return takeWindow(true);
        case Word::Remove:
            m_removing = true;
            break;
        case Word::Add:
            m_removing = false;
            break;
        case Word::Help:
            print(kHelp);
            break;
        default:
            takeSingle(text);
            break;
    }
    return true;
}

bool Dialogue::takeWindow(bool crossing) {
    AcGePoint3d corner, opposite;
    if (promptPoint(L"\nSpecify first corner: ", nullptr, corner) != PromptStatus::Ok) return false;
    if (promptPoint(L"\nSpecify opposite corner: ", &corner, opposite) != PromptStatus::Ok)
        return false;
    takeFound(selectWindow(m_store, corner, opposite, crossing));
    return true;
}

/// A wrong answer selects nothing and the dialogue goes on; from a script the command counts as
/// failed in the end.
void Dialogue::takeSingle(const std::wstring& text) {
    std::vector<AcDbObjectId> found;
    std::wstring explanation;
    if (parseSingle(m_store, text, L"; ? lists what is", found, explanation))
        takeFound(found);
    else
        wrongAnswer(explanation);
}

void Dialogue::takeFound(const std::vector<AcDbObjectId>& found) {
    std::size_t matching = 0, repeated = 0;
    const bool first = m_set.ids().empty();
    for (const AcDbObjectId& id : found) {
        const ObjectBody* body = Store::resolve(id);
        if (body == nullptr || !m_filter.matches(*body)) continue;
        ++matching;
        const bool changed = m_removing ? m_set.remove(id) : m_set.add(id);
        if (!changed) ++repeated;
    }
    report(matching, repeated, found.size() - matching, first);
}

void Dialogue::report(std::size_t found, std::size_t repeated, std::size_t filtered, bool first) {
    std::wstring text = L"\n" + std::to_wstring(found) + L" found";
    if (m_removing)
        text += L", " + std::to_wstring(found - repeated) + L" removed";
    else if (repeated > 0)
        text +=
            L" (" + std::to_wstring(repeated) + (repeated == 1 ? L" duplicate)" : L" duplicates)");
    if (!first) text += L", " + std::to_wstring(m_set.ids().size()) + L" total";
    print(text);
    if (filtered > 0)
        printLine(std::to_wstring(filtered) + (filtered == 1 ? L" was" : L" were") +
                  L" filtered out.");
}

/// Joins what a blank separated inside a parenthesis.
std::wstring joined(const std::vector<std::wstring>& words) {
    std::wstring text;
    for (const std::wstring& word : words)
        text += (text.empty() ? L"" : L" ") + word;
    return text;
}

bool parseBox(const Store& store, const std::vector<std::wstring>& words, bool crossing,
              std::vector<AcDbObjectId>& selection, std::wstring& explanation) {
    std::optional<AcGePoint3d> corner, opposite;
    if (words.size() == 3) {
        corner = parsePoint(words[1], nullptr);
        if (corner) opposite = parsePoint(words[2], &*corner);
    }
    if (!opposite) {
        explanation = L"a window takes two corners, for example W 0,0 10,10";
        return false;
    }
    selection = selectWindow(store, *corner, *opposite, crossing);
    return true;
}

}  // namespace

PromptStatus selectObjects(const SelectionFilter& filter, std::vector<AcDbObjectId>& selection) {
    selection.clear();
    const Store* store = currentStore();
    if (store == nullptr) return PromptStatus::Cancel;
    Dialogue dialogue(*store, filter);
    const PromptStatus status = dialogue.run();
    if (status == PromptStatus::Ok) selection = dialogue.selection();
    rememberSelection(selection);
    return status;
}

PromptStatus promptSelection(std::vector<AcDbObjectId>& selection) {
    selection.clear();
    if (pickfirstSettable()) selection = takePickfirst();
    if (!selection.empty()) {
        printLine(std::to_wstring(selection.size()) + L" found");
        rememberSelection(selection);
        return PromptStatus::Ok;
    }
    return selectObjects({}, selection);
}

bool parseSelection(const std::vector<std::wstring>& words, std::vector<AcDbObjectId>& selection,
                    std::wstring& explanation) {
    selection.clear();
    const Store* store = currentStore();
    if (store == nullptr || words.empty()) {
        explanation = store == nullptr ? L"no drawing is open" : L"nothing to select was given";
        return false;
    }
    const Word word = wordOf(words[0]);
    if (word == Word::Window || word == Word::Crossing)
        return parseBox(*store, words, word == Word::Crossing, selection, explanation);
    const wchar_t* const what =
        L": give a point, W or C with two corners, ALL, L, P, (handent \"2A\") or (ssget ...)";
    return parseSingle(*store, joined(words), what, selection, explanation);
}

}  // namespace host
