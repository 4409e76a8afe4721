// The name under which all sources of this room report failed checks.
#pragma once

/// Reports name the group commands as one source, whichever file a check stands in.
constexpr wchar_t DIAG_SOURCE[] = L"GroupCommands";
