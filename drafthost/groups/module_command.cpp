// Runs a command of the module as a script would.
#include "drafthost/groups/module_command.h"

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

}  // namespace

host::CommandStatus runModuleCommand(const std::wstring& name,
                                     const std::vector<std::wstring>& answers,
                                     const std::vector<AcDbObjectId>& picked) {
    const Prepared source(answers);
    host::CommandStatus status = host::CommandStatus::Done;
    host::CommandLineSink& sink = host::commandLineSink();
    std::wstring printed;
    {
        const host::ScopedValue<host::CommandLineSink> mute(
            sink, [&](const std::wstring& text) { printed += text; });
        host::setPickfirst(picked);
        status = host::runCommand(name);
    }
    if (status != host::CommandStatus::Done && sink) sink(printed);
    if (status == host::CommandStatus::Unknown)
        host::printProblem(name + L" is not there: it needs the module.");
    return status;
}
