// The editor reactor that follows the pick-first set and the editing commands.
#pragma once

#include "platform.h"

/// One object serves all open drawings; what differs between them lives in their CDocData.
class KESTpickGroupEnt : public AcEditorReactor {
  public:
    /// Attaches itself to the host's editor when asked to and an editor is there.
    explicit KESTpickGroupEnt(bool attach);
    /// Detaches itself when it was attached.
    ~KESTpickGroupEnt() override;

    /// Widens the pick-first set to whole groups, or drops the whole groups of what was deselected.
    void pickfirstModified() override;
    /// Repairs the groups of the working drawing before it is saved.
    void beginSave(AcDbDatabase* database, const ACHAR* intendedName) override;
    /// Notes the state before copy, mirror and clipboard commands; repairs groups on REGEN.
    void commandWillStart(const ACHAR* name) override;
    /// Makes groups of what COPY, MIRROR and PASTECLIP copied.
    void commandEnded(const ACHAR* name) override;
    /// Forgets the gathered ids of a cancelled COPYCLIP.
    void commandCancelled(const ACHAR* name) override;

  private:
    bool m_bAttachedToEditor;
};
