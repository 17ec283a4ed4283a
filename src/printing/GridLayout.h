#pragma once

#include <QString>

class Grid;
struct Session;

// How the columns of a screen's grid are stored, under the name of the screen, for every operator of
// the account set. Each screen reads its layout itself when it lays its grid out.
namespace GridLayout {

// The name under which the layout of a screen with this title stands.
QString keyOf(const QString& screenTitle);

// The operator changes the columns of the live grid in a dialog over the screen, and may store them.
// Nothing without the right to.
void FMSHFormat_Click(Session& session, Grid& grid, const QString& screenTitle);

// Takes the stored layout away, after asking. True if it is gone; the grid on screen keeps its look.
bool FDeleteMSHFormat_Click(Session& session, const QString& screenTitle);

// Stores the grid as it stands under a name, in place of what stood there, and tells so.
void SaveGridLayout(Session& session, Grid& grid, const QString& name);

} // namespace GridLayout
