// The interactive group commands, the repair pass over all groups and the regrouping of copies.
#pragma once

/// Function of VelmoGROUPMAKE: binds the selected entities, and the whole groups of those that are
/// members already, into one group. Takes the pick-first set as it stands; otherwise asks.
void groupMake();

/// Function of VelmoGROUPDELETE: dissolves groups; the members stay where they are.
void groupDelete();

/// Function of VelmoGROUPREMOVEMEMBER: takes picked entities out of their groups, one at a time.
void groupRemoveMember();

/// Brings every group of the working drawing back in line with its markers: rewrites both markers
/// of a group that holds members, with the smaller count if some are gone; erases the markers of
/// one that is empty or holds more than its count. Prints how many were updated and deleted, and
/// ends with purgeStrayMarkers.
void updateAllGroups();

/// Erases markers whose partner does not exist, and pairs with nothing between them.
void purgeStrayMarkers();

/// Links each begin marker behind the current document's m_idLastBeforeCommand with the end marker
/// that follows it, so that copies form groups of their own. Counts are kept.
void relinkCopiedGroups();
