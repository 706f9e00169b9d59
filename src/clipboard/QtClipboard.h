// Copy, cut and paste on a child window: its list is read, the routine runs on its Tag, and the outcome is shown.
//
// No window class is named here: rows stand in List1, buttons and texts are reached by their names, and what else a
// window derives from its Tag it shows in contentChanged.
#pragma once

class ChildWindow;

void copyRows(ChildWindow& window);
void cutRows(ChildWindow& window);
void pasteRows(ChildWindow& window);
