// The tests that the windows build leaves out, each with its reason.
#pragma once

struct OnlyOnLinux {
    const char* program;
    const char* test;
    const char* reason;
    bool compiled = true;  ///< false: its source uses calls that Windows does not have
};

inline constexpr OnlyOnLinux kOnlyOnLinux[] = {
    {"program_tests", "TerminalTest.CommandsCancelAndLeave", "needs a pseudo-terminal", false},
    {"program_tests", "ProgramTest.OutputThatCannotBeWritten", "needs /dev/full and a POSIX shell"},
    {"dxf_tests", "Saving.PermissionsAndLinksStay", "POSIX permissions and symbolic links"},
};
