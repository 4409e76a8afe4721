// What the module asked of the host, recorded in order.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace host {

enum class EffectKind {
    CommandLine,     ///< text as printed, one effect a call
    MenuCommand,     ///< text of acedMenuCmd
    AlertBox,        ///< message box: title, line feed, style as a number, line feed, text
    Redraw,          ///< mode and handle: "3 2A"
    Notification,    ///< name and argument: "commandWillStart LINE"
    SystemVariable,  ///< write: "PICKFIRST=1"
    Registration,    ///< what is registered or taken back: "addCommand VelmoGROUPMAKE"
    DebugOutput,     ///< text for an attached debugger
    Breakpoint,      ///< the module broke into the debugger; no text
    StandardOutput,  ///< text the module wrote to standard output
    RegistryRead,    ///< value name
    RegistryWrite,   ///< key and value name
    FileWrite,       ///< path that the module opened for writing, deleted or renamed
};

struct Effect {
    EffectKind kind;
    std::wstring text;
    bool operator==(const Effect& other) const { return kind == other.kind && text == other.text; }
};

/// Records one effect (when recording is on) and hands command-line text to the sink.
void recordEffect(EffectKind kind, std::wstring text);
/// Prints text on the command line as it stands.
void print(const std::wstring& text);
/// Prints one line on the command line, on a line of its own.
void printLine(const std::wstring& text);
/// All effects since the last clear, oldest first.
const std::vector<Effect>& effects();
void clearEffects();
/// Recording is on at start; long runs of the program switch it off to save memory.
void setEffectRecording(bool on);
/// Receives command-line text as it is printed, unless it is empty.
using CommandLineSink = std::function<void(const std::wstring&)>;
CommandLineSink& commandLineSink();

/// Concatenated texts of one kind; the whole command-line transcript for CommandLine.
std::wstring effectText(EffectKind kind);
/// Texts of one kind, one element an effect.
std::vector<std::wstring> effectTexts(EffectKind kind);

}  // namespace host
