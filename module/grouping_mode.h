// The switch that turns grouping on and off in the current drawing, and the menu items beside it.
#pragma once

/// Function of VelmoGROUPACTIVE: picking a member selects its group again.
void groupingOn();
/// Function of VelmoGROUPNOTACTIVE: picks are left as they are.
void groupingOff();

/// Greys the menu item that switches grouping on, in the first menu group of ours that is loaded.
void showGroupingOn();
