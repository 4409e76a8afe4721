// Why a drawing could not be read or written.
#pragma once

#include <string>

namespace host {

/// One error, with the file and, where there is one, the line.
struct DxfError {
    std::string file;
    long line = 0;     ///< from 1; 0 when the error belongs to no line
    std::string text;  ///< what is wrong; what to do

    /// "FILE:LINE: what is wrong; what to do", or without the line.
    std::string message() const {
        if (line == 0) return file + ": " + text;
        return file + ":" + std::to_string(line) + ": " + text;
    }
};

}  // namespace host
