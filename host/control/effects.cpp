// The recorded effects of the module, and the sink of the command line.
#include "host/control/effects.h"

#include <utility>

namespace host {
namespace {

struct EffectState {
    std::vector<Effect> recorded;
    CommandLineSink sink;
    bool recording = true;
};

EffectState& effectState() {
    static EffectState instance;
    return instance;
}

}  // namespace

void recordEffect(EffectKind kind, std::wstring text) {
    EffectState& now = effectState();
    if (kind == EffectKind::CommandLine && now.sink) now.sink(text);
    if (now.recording) now.recorded.push_back({kind, std::move(text)});
}

void print(const std::wstring& text) { recordEffect(EffectKind::CommandLine, text); }

void printLine(const std::wstring& text) { print(L"\n" + text); }

const std::vector<Effect>& effects() { return effectState().recorded; }

void clearEffects() { effectState().recorded.clear(); }

void setEffectRecording(bool on) { effectState().recording = on; }

CommandLineSink& commandLineSink() { return effectState().sink; }

std::wstring effectText(EffectKind kind) {
    std::wstring all;
    for (const std::wstring& text : effectTexts(kind))
        all += text;
    return all;
}

std::vector<std::wstring> effectTexts(EffectKind kind) {
    std::vector<std::wstring> texts;
    for (const Effect& effect : effectState().recorded) {
        if (effect.kind == kind) texts.push_back(effect.text);
    }
    return texts;
}

}  // namespace host
