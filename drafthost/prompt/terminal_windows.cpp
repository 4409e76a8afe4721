// The terminal of Windows, whose console edits lines by itself.
#include "drafthost/prompt/terminal.h"

#include <windows.h>

#include <iterator>

#include "drafthost/system/output.h"
#include "drafthost/system/process.h"
#include "host/text/text_codec.h"

namespace {

class ConsoleTerminal : public Terminal {
  public:
    ConsoleTerminal() { catchInterrupts(true); }
    void print(const std::wstring& text) override { writeOutput(host::toUtf8(text)); }
    bool gone() const override { return m_gone; }

  private:
    bool m_gone = false;
    bool readLine(const std::wstring& prompt, host::InputUnit unit, std::wstring& line,
                  host::Answer& otherwise) override;
};

bool ConsoleTerminal::readLine(const std::wstring&, host::InputUnit, std::wstring& line,
                               host::Answer& otherwise) {
    flushOutput();
    wchar_t buffer[4096];
    DWORD length = 0;
    forgetInterrupts();
    const BOOL read = ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), buffer,
                                   static_cast<DWORD>(std::size(buffer)), &length, nullptr);
    constexpr wchar_t kControlZ = 0x1A;
    m_gone = !read;
    const bool isEnd = m_gone || length == 0 || buffer[0] == kControlZ;
    otherwise.kind = interruptRequested() ? host::Answer::Kind::Cancel : host::Answer::Kind::End;
    if (!interruptRequested() && !isEnd) line.assign(buffer, length);
    return !line.empty();
}

}  // namespace

std::unique_ptr<Terminal> openTerminal() { return std::make_unique<ConsoleTerminal>(); }
