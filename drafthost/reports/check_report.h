// The check of drawings, as the program prints it.
#pragma once

#include "drafthost/options.h"

/// Checks a file and prints what is found as text or JSON. Gives the exit status.
int checkFile(const Options& options, const std::string& file);
