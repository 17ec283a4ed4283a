#pragma once

#include <QStringList>

// An office process of ours: its profile, and the pipe on which it listens. It never uses the operator's own profile,
// so that ending it closes none of their documents. Instances are numbered, since two offices can't share a profile;
// the first free one is taken, so that new profiles are rare.
struct OfficeInstance {
  QString profileFolder;
  QString pipe;

  // 1 is the first. Below the operator's cache folder, or the one for temporary files without one.
  static OfficeInstance numbered(int number);

  QString profile() const { return profileFolder + QLatin1String("/profile"); }
  QString temporaryFolder() const { return profileFolder + QLatin1String("/temporary"); }
  // Names the program that has taken the instance; deleted when that program ends, unless it is killed.
  QString lockFile() const { return profileFolder + QLatin1String("/taken"); }
  // Creates its folders, empties the temporary one, and creates the profile with the settings that we need unless one
  // with the same settings exists. Only for the program that has taken the instance.
  void prepare() const;
  // The files in which an office of this profile listens, ours and the one on which it learns that another was started
  // with its profile. A killed office leaves them.
  QStringList pipeFiles() const;
  // Deletes everything but the lock, after the death of the program that had taken it.
  void clear() const;
};
