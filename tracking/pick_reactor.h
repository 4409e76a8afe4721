// The editor reactor that follows the pick-first set.
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

  private:
    bool m_bAttachedToEditor = false;
};
