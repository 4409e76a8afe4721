// A session for the tests of this room, with the texts they compare.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "common/checks.h"
#include "common/process.h"
#include "common/scratch.h"
#include "host/application/session.h"
#include "host/control/effects.h"
#include "host/control/switches.h"
#include "host/objectarx/database.h"
#include "host/objectarx/documents.h"
#include "host/scripting/script.h"
#include "host/store/store.h"
#include "host/tags/tags.h"
#include "host/text/text_codec.h"

using namespace host;
using tests::contentOf;
using tests::holds;
using tests::takeFaults;
using tests::write;
using Texts = std::vector<std::string>;

/// Types as a person does, who is asked again after a wrong answer; "^D" is the end of the input.
class Person : public ScriptSource {
  public:
    using ScriptSource::ScriptSource;
    Answer next(const std::wstring& prompt, InputUnit unit) override {
        const Answer answer = ScriptSource::next(prompt, unit);
        return answer.text == L"^D" ? Answer{Answer::Kind::End, {}} : answer;
    }
    bool interactive() const override { return true; }
};

/// A fresh session and a fresh folder for each test. No test may leave a fault of a module behind
/// without looking at it.
class SessionTest : public testing::Test {
  protected:
    SessionTest() {
        setVariable("PROBE", nullptr);
        session = std::make_unique<Session>();
    }
    ~SessionTest() override {
        session.reset();
        EXPECT_EQ(takeFaults(), Texts());
        setVariable("PROBE", nullptr);
    }

    std::string file(const std::string& name) const { return m_folder.file(name); }

    std::wstring quoted(const std::string& name) const {
        return L"\"" + fromUtf8(file(name)) + L"\"";
    }

    /// What the command line shows since the last call.
    std::string shown() {
        const std::string text = toUtf8(effectText(EffectKind::CommandLine));
        clearEffects();
        return text;
    }
    /// The lines about commands that did not end well, while a script runs.
    std::string problemsOf(const std::wstring& script) {
        std::string text;
        session->diagnostics = [&](const std::string& line) { text += line + "\n"; };
        session->runScript(script, false, "plan.scr");
        session->diagnostics = nullptr;
        return text;
    }
    /// Types of the entities of the current drawing's model space, "LINE CIRCLE".
    std::string entities() const {
        const Store& store = session->database()->store();
        std::string text;
        for (const ObjectBody& entity : store.children(store.modelSpace()))
            text += (text.empty() ? "" : " ") + std::string(entity.type());
        return text;
    }
    std::unique_ptr<Session> session;

  private:
    tests::ScratchFolder m_folder;
};
