#pragma once

#include "drafts/Draft.h"

#include <QFile>

struct Session;

// The file of one draft in TempFile of the program folder: one for each screen, account set and operator. A draft is a help
// and never an obstacle: without the folder there is none, and a failure is said once on stderr.
class DraftFile {
public:
  // The one of this screen. Before, there is none.
  void open(const Session& session, const QString& screen);

  // Nothing if there is none that can be read, or if a window that is still open wrote it.
  std::optional<Draft> read() const;
  // False if it could not be kept. Doesn't wait for the disk.
  bool write(const Draft& draft);
  // Does nothing if another window of this screen has put its own there.
  void remove(const Draft& draft) const;

private:
  QString m_path;
  QFile m_held; // what this window wrote last; locked, so that others see that it is still open
  bool m_hasFailed = false;
};
