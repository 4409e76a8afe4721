// What a session holds, for the sources of this room.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "host/application/documents.h"
#include "host/application/lisp_calls.h"
#include "host/application/modules.h"
#include "host/application/session.h"
#include "host/control/accounting.h"

namespace host {

struct Session::Impl {
    Impl() : modules(documents) {}

    Documents documents;
    Modules modules;
    LispCalls lisp;
    std::function<bool(const char*, int)> progress;
    std::function<void(const std::string&)> diagnostics;
    HeldCounts heldAtStart = {};  ///< left over by an earlier session of the process
    bool quit = false;
    ExitStatus exitStatus = kDone;
    /// Files that this session has written, links followed: each one's former content is kept once.
    std::set<std::string> saved;
    std::string stagedFor, staged;  ///< see stageSaves

    /// Makes a document current and gives its modules the kLoadDwgMsg that is due.
    void activate(HostDocument& document);
    /// Why no further document may be opened now; no error when one may.
    Outcome mayAddDocument() const;
    Outcome addDocument(std::unique_ptr<AcDbDatabase> database, std::wstring path);
    /// Closes one document with all messages; none is current afterwards.
    void close(HostDocument& document);
    /// Saves the current drawing; with `keepName` the document stays with its own file.
    Outcome save(const std::string& path, bool keepName);
    /// Everything a quitting host does: messages, documents, modules.
    void shutDown();

    /// Notes why a command failed, and its exit status; gives Failed.
    CommandStatus fail(const Outcome& outcome);
    /// Session::callLisp without the line about a failure.
    CommandStatus callLisp(const std::wstring& expression);
    /// Prints the one line about a command that did not end well and notes its exit status.
    void reportCommand(const std::string& where, const std::wstring& command, CommandStatus status);
    void diagnose(const std::string& line);
};

/// Commands that need documents and modules.
extern const CommandTable kDocumentCommands, kModuleCommands, kHelpCommands;

}  // namespace host
