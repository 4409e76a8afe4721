// Standard output and standard error of the program.
#pragma once

#include <string>

/// Writes to standard output. A closed pipe is no error: what follows is dropped in silence. Any
/// other failure is told once on standard error and remembered.
void writeOutput(const std::string& text);
void flushOutput();
/// Ends the line of standard output that is not ended yet.
void endLine();
/// True when something could not be written for another reason than a closed pipe.
bool outputFailed();

/// From here on what is written to standard output is appended to a text; with null no more.
void captureOutput(std::string* text);

/// Writes "drafthost: " and one line to standard error.
void complain(const std::string& line);
/// Passes lines on that another process has complained.
void writeErrors(const std::string& lines);

/// Shows how far a load or save is, on standard error when that is a terminal, once it has taken
/// over a second. At 1 the line is taken away. False once Ctrl+C was pressed: it is to stop.
bool showProgress(const std::string& what, double done);
/// Shows one line in the place of the one before on standard error when that is a terminal; an
/// empty one takes it away. Take it away before anything else is written.
void showStatus(const std::string& line);
