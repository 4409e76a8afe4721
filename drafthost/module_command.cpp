// Runs a command of the module as a script would.
#include "drafthost/module_command.h"

#include "host/control/effects.h"
#include "host/control/scoped_value.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/state/active_command.h"

namespace {

/// Is the source of input as long as it lives.
class Prepared : public host::InputSource {
  public:
    explicit Prepared(const std::vector<std::wstring>& answers)
        : m_answers(answers), m_inUse(host::inputSource(), this) {}
    host::Answer next(const std::wstring&, host::InputUnit) override {
        using Kind = host::Answer::Kind;
        if (m_next == m_answers.size()) return {Kind::End, {}};
        const std::wstring& text = m_answers[m_next++];
        return {text.empty() ? Kind::Enter : Kind::Text, text};
    }

  private:
    const std::vector<std::wstring>& m_answers;
    std::size_t m_next = 0;
    host::ScopedValue<host::InputSource*> m_inUse;
};

/// Keeps what is printed back as long as it lives.
class Mute {
  public:
    Mute()
        : m_sink(host::setCommandLineSink([this](const std::wstring& text) { m_text += text; })) {}
    ~Mute() { host::setCommandLineSink(m_sink); }
    Mute(const Mute&) = delete;
    Mute& operator=(const Mute&) = delete;

    void show() const {
        if (m_sink) m_sink(m_text);
    }

  private:
    std::wstring m_text;
    host::CommandLineSink m_sink;
};

}  // namespace

host::CommandStatus runModuleCommand(const std::wstring& name,
                                     const std::vector<std::wstring>& answers,
                                     const std::vector<AcDbObjectId>& picked) {
    const Prepared source(answers);
    host::CommandStatus status = host::CommandStatus::Done;
    {
        const Mute mute;
        host::setPickfirst(picked);
        status = host::runCommand(name);
        if (status != host::CommandStatus::Done) mute.show();
    }
    if (status == host::CommandStatus::Unknown)
        host::printProblem(name + L" is not there: it needs the module.");
    return status;
}
