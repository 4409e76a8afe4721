// System variables: a small table; those of the application have their value here, those of
// documents read and write the drawing.
#include "host/editor/state/sysvars.h"

#include <cmath>

#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/editor/state/current_drawing.h"
#include "host/editor/state/document_variables.h"
#include "host/objectarx/system_variables.h"
#include "host/objects/result_list.h"
#include "host/store/store.h"

namespace host {
namespace {

/// One variable. Without `read` the value is the application's, from `low` to `high`; without
/// `write` a document's variable is read-only.
struct Variable {
    const wchar_t* name;
    SysvarKind kind;
    double initial;
    double low;
    double high;
    void (*read)(const DocumentState& document, SysvarValue& value);
    bool (*write)(Store& store, const SysvarValue& value, std::wstring& explanation);
};

constexpr double kMostShort = 32767;

constexpr Variable kVariables[] = {
    {L"CLAYER", SysvarKind::Text, 0, 0, 0, readCurrentLayer, writeCurrentLayer},
    {L"CMDECHO", SysvarKind::Short, 1, 0, 1, nullptr, nullptr},
    {L"CTAB", SysvarKind::Text, 0, 0, 0, readCurrentTab, nullptr},
    {L"CVPORT", SysvarKind::Short, 0, 1, kMostShort, readViewport, writeViewport},
    {L"DWGNAME", SysvarKind::Text, 0, 0, 0, readDrawingName, nullptr},
    {L"ERRNO", SysvarKind::Short, 0, 0, kMostShort, nullptr, nullptr},
    {L"EXPERT", SysvarKind::Short, 0, 0, 5, nullptr, nullptr},
    {L"FILEDIA", SysvarKind::Short, 1, 0, 1, nullptr, nullptr},
    {L"HIGHLIGHT", SysvarKind::Short, 1, 0, 1, nullptr, nullptr},
    {L"PICKADD", SysvarKind::Short, 2, 0, 2, nullptr, nullptr},
    {L"PICKBOX", SysvarKind::Short, 3, 0, 50, nullptr, nullptr},
    {L"PICKFIRST", SysvarKind::Short, 1, 0, 1, nullptr, nullptr},
    {L"TEXTSIZE", SysvarKind::Real, 0, 1e-10, 1e99, readTextSize, writeTextSize},
    {L"TILEMODE", SysvarKind::Short, 0, 0, 1, readTileMode, writeTileMode},
    {L"VIEWSIZE", SysvarKind::Real, 0, 0, 0, readViewSize, nullptr},
};
constexpr std::size_t kCount = sizeof kVariables / sizeof kVariables[0];

/// Values of the application's variables, by place in the table.
struct Values {
    double numbers[kCount];
    Values() { reset(); }
    void reset() {
        for (std::size_t i = 0; i < kCount; ++i)
            numbers[i] = kVariables[i].initial;
    }
};

Values& values() {
    static Values instance;
    return instance;
}

const Variable* find(const std::wstring& name) {
    const std::wstring key = foldCase(name);
    for (const Variable& variable : kVariables) {
        if (key == variable.name) return &variable;
    }
    return nullptr;
}

double& numberOf(const Variable& variable) { return values().numbers[&variable - kVariables]; }

/// False for a document's variable while no document is open.
bool readValue(const Variable& variable, SysvarValue& value) {
    value.kind = variable.kind;
    if (variable.read == nullptr)
        value.number = numberOf(variable);
    else if (currentStore() != nullptr)
        variable.read(*currentDocumentState(), value);
    else
        return false;
    return true;
}

bool isReadOnly(const Variable& variable) {
    return variable.read != nullptr && variable.write == nullptr;
}

bool inRange(const Variable& variable, double number) {
    return variable.low <= number && number <= variable.high;
}

bool writeValue(const Variable& variable, const SysvarValue& value, std::wstring& explanation) {
    const std::wstring name = variable.name;
    if (isReadOnly(variable)) {
        explanation = name + L" is read-only";
        return false;
    }
    if (value.kind != SysvarKind::Text && !inRange(variable, value.number)) {
        const bool whole = value.kind == SysvarKind::Short;
        explanation = whole ? name + L" takes a whole number from " +
                                  std::to_wstring(static_cast<int>(variable.low)) + L" to " +
                                  std::to_wstring(static_cast<int>(variable.high))
                            : name + L" takes a number above 0";
        return false;
    }
    if (variable.read == nullptr) {
        numberOf(variable) = value.number;
        return true;
    }
    Store* store = currentStore();
    if (store == nullptr) {
        explanation = name + L" needs an open drawing";
        return false;
    }
    return variable.write(*store, value, explanation);
}

std::wstring asText(const SysvarValue& value) {
    if (value.kind == SysvarKind::Text) return value.text;
    if (value.kind == SysvarKind::Short) return std::to_wstring(static_cast<int>(value.number));
    return fromUtf8(formatReal(value.number));
}

}  // namespace

bool sysvarText(const std::wstring& name, std::wstring& text) {
    const Variable* variable = find(name);
    SysvarValue value;
    if (variable == nullptr || !readValue(*variable, value)) return false;
    text = asText(value);
    return true;
}

bool setSysvarText(const std::wstring& name, const std::wstring& text, std::wstring& explanation) {
    const Variable* variable = find(name);
    if (variable == nullptr) {
        explanation = L"there is no system variable " + name;
        return false;
    }
    SysvarValue value;
    value.kind = variable->kind;
    value.text = text;
    const std::string bytes = toUtf8(text);
    if (value.kind == SysvarKind::Short) {
        const std::optional<long long> number = parseInteger(bytes);
        value.number = number ? static_cast<double>(*number) : NAN;  // in no range
    } else if (value.kind == SysvarKind::Real) {
        value.number = parseReal(bytes).value_or(NAN);
    }
    return writeValue(*variable, value, explanation);
}

bool isSysvar(const std::wstring& name) { return find(name) != nullptr; }

bool isReadOnlySysvar(const std::wstring& name) {
    const Variable* variable = find(name);
    return variable != nullptr && isReadOnly(*variable);
}

int sysvarInteger(const wchar_t* name) {
    const Variable* variable = find(name);
    SysvarValue value;
    if (variable == nullptr || !readValue(*variable, value)) return 0;
    return static_cast<int>(value.number);
}

void setErrno(int value) { numberOf(*find(L"ERRNO")) = value; }

std::vector<std::wstring> sysvarNames() {
    std::vector<std::wstring> names;
    for (const Variable& variable : kVariables)
        names.emplace_back(variable.name);
    return names;
}

void resetSysvars() { values().reset(); }

}  // namespace host

using namespace host;

int acedGetVar(const ACHAR* name, resbuf* result) {
    if (callFails("acedGetVar") || name == nullptr || result == nullptr) return RTERROR;
    const Variable* variable = find(name);
    SysvarValue value;
    if (variable == nullptr || !readValue(*variable, value)) return RTERROR;
    switch (value.kind) {
        case SysvarKind::Short:
            result->restype = RTSHORT;
            result->resval.rint = static_cast<short>(value.number);
            break;
        case SysvarKind::Real:
            result->restype = RTREAL;
            result->resval.rreal = value.number;
            break;
        case SysvarKind::Text:
            result->restype = RTSTR;
            result->resval.rstring = newString(value.text);
            break;
    }
    return RTNORM;
}

int acedSetVar(const ACHAR* name, const resbuf* buffer) {
    if (callFails("acedSetVar") || name == nullptr || buffer == nullptr) return RTERROR;
    const Variable* variable = find(name);
    if (variable == nullptr) return RTERROR;
    constexpr int kTypes[] = {RTSHORT, RTREAL, RTSTR};
    SysvarValue value;
    value.kind = variable->kind;
    if (buffer->restype != kTypes[static_cast<int>(value.kind)]) return RTERROR;
    if (value.kind == SysvarKind::Short) value.number = buffer->resval.rint;
    if (value.kind == SysvarKind::Real) value.number = buffer->resval.rreal;
    if (value.kind == SysvarKind::Text) {
        if (buffer->resval.rstring == nullptr) return RTERROR;
        value.text = buffer->resval.rstring;
    }
    std::wstring explanation;
    if (!writeValue(*variable, value, explanation)) return RTERROR;
    recordEffect(EffectKind::SystemVariable, std::wstring(variable->name) + L"=" + asText(value));
    return RTNORM;
}
