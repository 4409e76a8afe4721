// A drawing with groups, and what each step did to it as one line of text.
#pragma once

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "common/drafting.h"
#include "common/drawing_order.h"
#include "gtest/gtest.h"
#include "host/control/effects.h"
#include "host/control/switches.h"
#include "host/editor/selection/pickfirst.h"
#include "host/scripting/script.h"
#include "host/text/text_codec.h"

namespace tests {

/// What the module prints before it changes a selection.
inline constexpr const char* kGathering = "\nGathering GROUP members: ";
inline constexpr const char* kNotGrouped = "\n\tSome are not grouped entities.";

/// A session in which entities of model space are named by their position in drawing order, from 1.
class Scene : public Drafting {
  public:
    /// Draws the words in order, those in brackets as a group: "line (line circle) line". The n-th
    /// entity stands at x = n, markers not counted.
    explicit Scene(const std::string& words, const host::Switches& settings = {},
                   const std::wstring& menuGroup = L"")
        : Drafting("", menuGroup) {
        host::switches() = settings;
        draw(words);
    }

    void draw(const std::string& words) {
        std::istringstream stream(words);
        std::size_t firstMember = 0;
        for (std::string word; stream >> word;) {
            if (word[0] == '(') firstMember = entities().size() + 1;
            const std::wstring x = std::to_wstring(++m_drawn);
            run(word.find("line") != word.npos ? L"LINE " + x + L",0 " + x + L",1\n\n"
                                               : L"CIRCLE " + x + L",0 0.1\n");
            if (word.back() == ')') after(L"VelmoGROUPMAKE " + numbers(firstMember) + L"\n\n");
        }
    }

    /// State after a click or window that finds these entities in this order, with or without
    /// Shift.
    std::string click(const std::vector<int>& positions) { return gesture(positions, host::pick); }
    std::string shiftClick(const std::vector<int>& positions) {
        return gesture(positions, host::unpick);
    }

    /// State after a script; "#3" in it is the third entity. Answers are not echoed.
    std::string after(const std::wstring& script) {
        std::wstring text;
        for (std::size_t i = 0; i < script.size(); ++i) {
            if (script[i] != L'#') {
                text += script[i];
                continue;
            }
            std::size_t length = 0;
            text += handent(entities().at(std::stoul(script.substr(i + 1), &length) - 1));
            i += length;
        }
        host::clearEffects();
        QuietScript source(text);
        session().runInput(source);
        return state();
    }

    /// "ORDER | PICKED | PRINTED": drawing order, positions of the pick-first set in its order,
    /// what the last step printed but for the host's "Command: ", and " | " with the menu commands.
    std::string state() const {
        std::string text = order() + " | " + picked() + " | " + printed();
        std::string separator = " | ";
        for (const std::wstring& command : host::effectTexts(host::EffectKind::MenuCommand)) {
            text += separator + host::toUtf8(command);
            separator = ", ";
        }
        return text;
    }

    std::string picked() const {
        const std::vector<AcDbObjectId> all = entities();
        std::string text;
        for (const AcDbObjectId& id : host::pickfirst()) {
            const auto found = std::find(all.begin(), all.end(), id);
            if (!text.empty()) text += ' ';
            text += found == all.end() ? "?" : std::to_string(1 + (found - all.begin()));
        }
        return text;
    }

    static std::string printed() {
        std::wstring text;
        for (const std::wstring& part : host::effectTexts(host::EffectKind::CommandLine)) {
            if (part != L"\nCommand: " && part != L"\n") text += part;
        }
        return host::toUtf8(text);
    }

    std::vector<AcDbObjectId> entities() const {
        std::vector<AcDbObjectId> all;
        for (const host::ObjectBody& entity : store().children(store().modelSpace()))
            all.push_back(store().idOf(entity));
        return all;
    }

  private:
    class QuietScript : public host::ScriptSource {
      public:
        using ScriptSource::ScriptSource;
        /// What a command has left unread repeats no command.
        host::Answer next(const std::wstring& prompt, host::InputUnit unit) override {
            host::Answer answer = ScriptSource::next(prompt, unit);
            while (answer.kind == host::Answer::Kind::Enter && prompt == L"Command: ")
                answer = ScriptSource::next(prompt, unit);
            return answer;
        }
        bool interactive() const override { return true; }
    };

    template <typename Gesture>
    std::string gesture(const std::vector<int>& positions, Gesture act) {
        const std::vector<AcDbObjectId> all = entities();
        std::vector<AcDbObjectId> ids;
        for (const int position : positions) {
            ids.push_back(all.at(static_cast<std::size_t>(position - 1)));
        }
        host::clearEffects();
        act(ids);
        return state();
    }

    std::wstring numbers(std::size_t first) const {
        std::wstring text;
        for (std::size_t position = first; position <= entities().size(); ++position) {
            text += L"#" + std::to_wstring(position) + L" ";
        }
        return text;
    }

    int m_drawn = 0;
};

/// The switches whose setting the module can notice in one drawing.
inline constexpr bool host::Switches::*kFelt[] = {
    &host::Switches::newestFirst,          &host::Switches::pickfirstNotifiedInside,
    &host::Switches::emptyPickfirstIsNorm, &host::Switches::dropNotifiesPickfirst,
    &host::Switches::copiesInDrawingOrder, &host::Switches::copyClipNotifiesPickfirst};

/// Runs a scenario under the host's defaults, with each of these switches the other way, and with
/// all of them so. The scenario receives the settings.
template <typename Scenario>
void underEachSetting(Scenario scenario) {
    constexpr std::size_t kCount = std::size(kFelt);
    for (std::size_t turn = 0; turn < kCount + 2; ++turn) {
        host::Switches settings;
        for (std::size_t i = 0; i < kCount; ++i)
            if (turn == i + 1 || turn == kCount + 1) settings.*kFelt[i] = !(settings.*kFelt[i]);
        SCOPED_TRACE("other way (from 1; one more is all): " + std::to_string(turn));
        scenario(settings);
        if (testing::Test::HasFailure()) return;
    }
}

}  // namespace tests
