// One run of the host: documents, modules, the LISP of each document and the script in progress.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/application/exit_status.h"
#include "host/editor/run/command_runner.h"
#include "host/objectarx/documents.h"

class AcDbDatabase;

namespace host {

class InputSource;

/// Outcome of an operation that can fail: empty text means success. `status` is that of a failure.
struct Outcome {
    std::string error;
    ExitStatus status = kFailed;
    explicit operator bool() const { return error.empty(); }
};

/// The stood-in application. At most one exists at a time; making one puts all rooms of the host
/// into their first state, and destroying it unloads the modules and closes the documents (with
/// their messages) and reports what is still held.
class Session {
  public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // --- documents ----------------------------------------------------------------------------
    /// Opens a new empty drawing and makes it current.
    Outcome newDrawing();
    /// Loads a drawing and makes it current; kUnreadable when it cannot be read. With a `target`
    /// the drawing is that file's from then on: QSAVE writes there, and the source stays as it is.
    Outcome openDrawing(const std::string& path, const std::string& target = {});
    /// Saves the current drawing: beginSave, file, saveComplete. An empty path means its own.
    /// kUnwritable when it cannot be written; the former file is whole then. The first save of a
    /// file in a session keeps the former one as a backup, the later ones leave that backup alone.
    Outcome saveDrawing(const std::string& path);
    /// From here on what is saved as the file `path` is only made ready as `staged`, beside it, and
    /// waits for takeStaged(): see save_drawing.h.
    void stageSaves(const std::string& path, const std::string& staged);
    /// Closes the current document without saving: kUnloadDwgMsg, documentToBeDestroyed.
    Outcome closeDrawing();
    /// Makes another open document current, by index in opening order.
    Outcome activate(std::size_t index);
    std::size_t documentCount() const;
    AcApDocument* document(std::size_t index) const;
    /// Database of the current document, or null.
    AcDbDatabase* database() const;

    // --- modules ------------------------------------------------------------------------------
    /// Loads an application: kInitAppMsg, then kLoadDwgMsg for each open document.
    Outcome loadModule(const std::string& path);
    /// Unloads it, by file name without regard to case: kUnloadDwgMsg for each, kUnloadAppMsg.
    /// Refused for a locked one.
    Outcome unloadModule(const std::string& name);
    /// File names of the loaded applications in loading order.
    std::vector<std::string> modules() const;
    /// Sends one message to a loaded application, for tests of its dispatch.
    int sendMessage(const std::string& name, int message);

    // --- commands -----------------------------------------------------------------------------
    /// Runs script text in the `.scr` language until its end. Done, or the first command's status
    /// that is not; the script goes on after a failed command unless `stopAtFailure`. `name` is how
    /// messages call the script.
    CommandStatus runScript(const std::wstring& text, bool stopAtFailure = false,
                            const std::string& name = "script");
    /// The same with answers from any source, until it says End. `where` gives the place of the
    /// answer last given ("plan.scr:3"), for messages; it may be empty. A command that a person at
    /// an interactive source cancels has not failed.
    CommandStatus runInput(InputSource& source, bool stopAtFailure = false,
                           const std::function<std::string()>& where = {});
    /// After a person's input is over: runs QUIT, which asks about changes, unless it ran before.
    /// False when the person wants to stay; the end of the input while that is asked leaves, as
    /// nobody may be there any more.
    bool leave(InputSource& source);
    /// Calls a defined LISP function "(Name args)"; prints its value unless it asked for none.
    CommandStatus callLisp(const std::wstring& expression);

    /// Called with 0 to 100 while a drawing is loaded or saved; false ends the loading.
    void setProgress(std::function<bool(const char* what, int percent)> progress);
    /// Receives one line, without line end, for each command that did not end well: where, what and
    /// what to do. Without a receiver the lines appear on the command line.
    void setDiagnostics(std::function<void(const std::string& line)> diagnostics);
    /// Highest exit status that a command has earned so far.
    ExitStatus exitStatus() const;

    struct Impl;
    Impl& impl() { return *m_impl; }

  private:
    std::unique_ptr<Impl> m_impl;
};

/// What can be typed at the empty prompt and what commands ask for, in lines without a last line
/// end: commands of the host and of modules, short forms, gestures.
std::wstring commandHelp();
/// Names that can be typed at the empty prompt: commands and gestures.
std::vector<std::wstring> typableNames();

/// The session that exists, or null.
Session* currentSession();

}  // namespace host
