// Behaviours of the real host that no documentation settles, as switches for the tests.
#pragma once

namespace host {

/// Each field's default is what this host does; the module has to work under every setting.
struct Switches {
    /// "X", "A", window and crossing list the newest entity first.
    bool newestFirst = true;
    /// pickfirstModified arrives inside acedSSSetFirst; otherwise when the host is next idle.
    bool pickfirstNotifiedInside = true;
    /// acedSSGetFirst answers RTNORM with a null buffer when nothing is selected.
    bool emptyPickfirstIsNorm = false;
    /// Dropping the pick-first set at a command's start, or reading it under the use-pick-set flag
    /// alone, notifies pickfirstModified.
    bool dropNotifiesPickfirst = true;
    /// Commands take what is selected in drawing order, so that copies and the contents of the
    /// clipboard stand in it; otherwise in the order of selection.
    bool copiesInDrawingOrder = true;
    /// COPYCLIP notifies pickfirstModified once before it ends.
    bool copyClipNotifiesPickfirst = true;
    /// kUnloadDwgMsg comes before documentToBeDestroyed.
    bool unloadMessageFirst = true;
    /// A module that is loaded gets kLoadDwgMsg for all open drawings at once; otherwise for each
    /// when it next becomes current.
    bool loadMessageAtOnce = true;
    /// A failed acdbGetObjectId makes its output null; otherwise it leaves it alone.
    bool failedIdIsNull = true;
    /// Height, and each coordinate of the position, of a new text.
    double newTextHeight = 0.0;
    double newTextPosition = 0.0;
};

Switches& switches();

}  // namespace host
