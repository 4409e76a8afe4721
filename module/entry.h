// The entry point of the module and its start-up and shut-down.
#pragma once

#include "platform.h"

/// Answers the host's application messages; always kRetOK, also for messages it does not know.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt);

/// Start-up, once, on kInitAppMsg: commands, reactor, support library, menu, logging, documents.
void initApplication();
/// Takes down what initApplication built, once, on kUnloadAppMsg.
void unloadApplication();
