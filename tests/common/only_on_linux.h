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
    {"dxf_tests", "Saving.DevicesAreNoTarget", "needs /dev/full"},
    {"dxf_tests", "Saving.PermissionsAndLinksStay", "POSIX permissions and symbolic links"},
    {"dxf_tests", "KilledSave.LeavesTheOldDrawingOrTheNewOne", "forks a process that ends", false},
    {"module_tests", "NoMemory.AStartThatFailsIsTakenBackAndTheNextOneSucceeds",
     "tells by the dynamic linker whose allocation fails", false},
    {"module_tests", "NoMemory.ADrawingsRecordIsMadeAtTheNextUse", "the same", false},
    {"module_tests", "NoMemory.ACommandIsLeftWithNothingOpenAndNothingLost", "the same", false},
    {"support_tests", "Support.AnAttachedDebuggerGetsReportsAndABreakpoint",
     "no debugger is attached there", false},
    {"support_tests", "Support.ADebuggerChangesNothingWithoutSwitches",
     "no debugger is attached there", false},
    {"support_tests", "Support.DebuggerOnlyWhenPresent",
     "counts breakpoints, which the stand-in does", false},
    {"support_tests", "Support.TheDebuggerGetsMessagesWithoutAnySwitch",
     "no debugger is attached there", false},
    {"support_tests", "Support.TheHeaderTellsTheMachine",
     "sets values of the machine in the registry", false},
    {"support_tests", "Support.EveryFailingFileCallIsRetried", "makes single calls fail", false},
    {"support_tests", "Support.TheTenthAttemptIsTheLast", "would sleep for five seconds once more",
     false},
    {"support_tests", "Support.WithoutTheServiceTheMachinesStartNamesTheLog", "sets the clock",
     false},
    {"support_tests", "Support.RegistryFailuresMeanOff", "makes single calls fail", false},
    {"support_tests", "Support.WithoutVersionResourceNoSwitchIsFound",
     "takes the version resource away", false},
    {"support_tests", "Support.AKeyThatCannotBeClosedIsReported", "makes single calls fail", false},
    {"support_tests", "Support.LongModulePathIsNotCut",
     "a path longer than Windows loads modules from", false},
    {"support_tests", "Support.OtherModesOfOpeningAreRefused", "a limit of the stand-in only",
     false},
};
