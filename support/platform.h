// The platform's headers, named in this one place: MFC and Windows, then ObjectARX.
#pragma once

// MFC wants to be the first to include <windows.h>.
#include <afxwin.h>

#include <lm.h>

#include <arxHeaders.h>
