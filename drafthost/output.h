// Standard output and standard error of the program.
#pragma once

#include <string>

/// Writes to standard output. A closed pipe is no error: what follows is dropped in silence. Any
/// other failure is told once on standard error and remembered.
void writeOutput(const std::string& text);
void flushOutput();
/// True when something could not be written for another reason than a closed pipe.
bool outputFailed();

/// Writes "drafthost: " and one line to standard error.
void complain(const std::string& line);

/// Shows how far a load or save is, on standard error when that is a terminal, once it has taken
/// over a second. At 100 the line is taken away.
void showProgress(const char* what, int percent);
