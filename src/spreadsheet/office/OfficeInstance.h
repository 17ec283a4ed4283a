#pragma once

#include <QString>

// Where an office program of ours lives: its profile, and the pipe on which it listens. It is never the
// operator's own profile, so that ending it closes nothing of his. Instances are numbered, since two offices
// can't share a profile; the first one free is taken, so that a new profile is made as rarely as possible.
struct OfficeInstance {
  QString profileFolder;
  QString pipe;

  // 1 is the first. Below the operator's cache folder, or the one for temporary files without one.
  static OfficeInstance numbered(int number);

  QString profile() const { return profileFolder + "/profile"; }
  QString temporaryFolder() const { return profileFolder + "/temporary"; }
  // Names the program that has taken the instance. It goes with that program, unless that was killed.
  QString lockFile() const { return profileFolder + "/taken"; }
  // Makes its folders, empties the temporary one, and makes the profile with the settings that our work needs
  // unless there is one made with the same. Only for who has taken the instance.
  void prepare() const;
  // Leaves nothing of it but the lock, after the death of whoever had taken it.
  void clear() const;
};
