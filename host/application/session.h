// One run of the host: documents, modules, the LISP of each document and the script in progress.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "host/application/documents.h"
#include "host/application/exit_status.h"
#include "host/application/modules.h"
#include "host/control/accounting.h"
#include "host/editor/run/command_runner.h"
#include "host/objectarx/result_buffer.h"

namespace host {

class InputSource;

/// The call of a LISP function that a module is answering.
struct Invocation {
    int code = 0;
    resbuf* arguments = nullptr;  ///< the host's
    bool returnsVoid = false;
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
    /// With `keepName` the document stays with its own file.
    Outcome saveDrawing(const std::string& path, bool keepName = false);
    /// From here on what is saved as the file `path` is only made ready as `staged`, beside it, and
    /// waits for takeStaged(): see save_drawing.h.
    void stageSaves(const std::string& path, const std::string& staged);
    /// Writes each changed drawing beside its own file, "plan.dxf" as "plan.recovered.dxf", in the
    /// state that it has: no module is told. Gives a line for each. Not while a command runs.
    std::vector<std::string> rescueDrawings();
    /// Closes the current document without saving: kUnloadDwgMsg, documentToBeDestroyed.
    Outcome closeDrawing();
    /// Makes an open document current and gives its modules the kLoadDwgMsg that is due.
    void activate(HostDocument& document);
    /// Database of the current document, or null.
    AcDbDatabase* database() const;
    Documents documents;

    // --- modules ------------------------------------------------------------------------------
    Modules modules{documents};
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
    /// The call in progress, or null; they nest when a function makes the host call another.
    Invocation* invocation = nullptr;
    /// Notes why a command failed, and its exit status; gives Failed.
    CommandStatus fail(const Outcome& outcome);
    bool quit = false;  ///< QUIT ran

    /// Called with 0 to 1 while a drawing is loaded or saved; false ends the loading.
    std::function<bool(const std::string& what, double done)> progress;
    /// Receives one line, without line end, for each command that did not end well: where, what and
    /// what to do. Without a receiver the lines appear on the command line.
    std::function<void(const std::string& line)> diagnostics;
    /// Highest exit status that a command has earned so far.
    ExitStatus exitStatus = kDone;

  private:
    /// Why no further document may be opened now; no error when one may.
    Outcome mayAddDocument() const;
    Outcome addDocument(std::unique_ptr<AcDbDatabase> database, std::wstring path);
    /// Closes one document with all messages; none is current afterwards.
    void close(HostDocument& document);
    /// Prints the one line about a command that did not end well and notes its exit status.
    void reportCommand(const std::string& where, const std::wstring& command, CommandStatus status);

    HeldCounts m_heldAtStart = {};  ///< left over by an earlier session of the process
    /// Files that this session has written, links followed: each one's former content is kept once.
    std::set<std::string> m_saved;
    std::string m_stagedFor, m_staged;  ///< see stageSaves
};

/// Commands that need documents and modules.
extern const CommandTable kDocumentCommands, kModuleCommands, kHelpCommands;

/// What can be typed at the empty prompt and what commands ask for, in lines without a last line
/// end: commands of the host and of modules, short forms, gestures.
std::wstring commandHelp();

/// The session that exists, or null.
Session* currentSession();

}  // namespace host
