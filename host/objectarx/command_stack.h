// The stack of registered commands.
#pragma once

#include "adesk_types.h"
#include "error_status.h"
#include "runtime.h"

class AcEdCommand;
class AcEdUIContext;
/// Module instance handle of the platform. Windows declares the same type.
struct HINSTANCE__;

/// Function of a command.
using AcRxFunctionPtr = void (*)();

/// Flags of a command. Documented.
constexpr Adesk::Int32 ACRX_CMD_MODAL = 0x0;
constexpr Adesk::Int32 ACRX_CMD_USEPICKSET = 0x2;
constexpr Adesk::Int32 ACRX_CMD_REDRAW = 0x4;

/// Commands in named groups, one stack a session.
class AcEdCommandStack : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack)
    /// Adds a command, and its group when that is missing. eDuplicateKey when the group has the
    /// name already (error name assumed). Documented.
    virtual Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName,
                                         const ACHAR* localName, Adesk::Int32 flags,
                                         AcRxFunctionPtr function, AcEdUIContext* context = nullptr,
                                         int code = -1, HINSTANCE__* resources = nullptr,
                                         AcEdCommand** command = nullptr);
    /// Removes a group with all its commands; eKeyNotFound for an unknown one (assumed).
    virtual Acad::ErrorStatus removeGroup(const ACHAR* group);
};

/// The command stack of the session, also in the system registry as "ACAD_REGISTERED_COMMANDS".
AcEdCommandStack* acedRegCmdsPtr();
#define acedRegCmds acedRegCmdsPtr()
