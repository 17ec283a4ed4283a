#pragma once

#include <QString>

#include <span>

class Grid;
struct Session;

// How the columns of a screen's grid are stored, under the name of the screen, for every operator of
// the account set.
namespace GridLayout {

// The default layout of a column; the width is in twips.
struct Column {
  const char16_t* caption;
  int width;
};

// Lays out the columns of a grid: as stored for the screen with this title, or else by `columns`. Cells and rows are
// kept. A stored layout of fewer rows than columns is an error in the data and throws RunTimeError.
void apply(Session& session, Grid& grid, const QString& screenTitle, std::span<const Column> columns);

// The operator changes the columns of the live grid in a dialog over the screen, and may store them. No-op without
// the permission.
void FMSHFormat_Click(Session& session, Grid& grid, const QString& screenTitle);

// Deletes the stored layout, after asking. True if it is gone; the grid on screen is unchanged.
bool FDeleteMSHFormat_Click(Session& session, const QString& screenTitle);

// Stores the grid as it is under a name, in place of an earlier layout, and says so.
void SaveGridLayout(Session& session, Grid& grid, const QString& name);

} // namespace GridLayout
