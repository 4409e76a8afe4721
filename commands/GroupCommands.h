// The interactive group commands, the repair pass over all groups and the regrouping of copies.
#pragma once

/// Function of VelmoGROUPMAKE: binds the selected entities, and the whole groups of those that are
/// members already, into one group. Takes the pick-first set as it stands; otherwise asks.
void groupMake();

/// Function of VelmoGROUPDELETE: dissolves groups; the members stay where they are.
void groupDelete();

/// Function of VelmoGROUPREMOVEMEMBER: takes picked entities out of their groups, one at a time.
void groupRemoveMember();
