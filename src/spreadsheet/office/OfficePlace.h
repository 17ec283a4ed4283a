#pragma once

#include <QString>

// Where an office program of ours lives: its profile, and the pipe on which it listens. It is never the
// operator's own profile, so that ending it closes nothing of his. Places are numbered, since two offices
// can't share a profile; the first one free is taken, so that a profile is made anew as rarely as can be.
struct OfficePlace {
  QString profileFolder;
  QString pipe;

  // 1 is the first. Below the operator's cache folder, or the one for temporary files without one.
  static OfficePlace numbered(int number);

  QString temporaryFolder() const { return profileFolder + "/temporary"; }
  // Makes its folders, empties the temporary one, and gives a new profile the settings that our work needs.
  // Only for who has taken the place.
  void prepare() const;
};
