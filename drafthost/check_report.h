// The check of drawings, as the program prints it.
#pragma once

#include "drafthost/options.h"

/// Checks the files and prints what is found as text or JSON. Gives the exit status.
int checkFiles(const Options& options);
