// The tests that compile on Windows and cannot be shown there, each with its reason.
#pragma once

struct OnlyOnLinux {
    const char* program;
    const char* test;
    const char* reason;
};

inline constexpr OnlyOnLinux kOnlyOnLinux[] = {
    {"program_tests", "ProgramTest.OutputThatCannotBeWritten", "needs /dev/full and a POSIX shell"},
    {"dxf_tests", "Saving.DevicesAreNoTarget", "needs /dev/full"},
    {"dxf_tests", "Saving.PermissionsAndLinksStay", "POSIX permissions and symbolic links"},
};
