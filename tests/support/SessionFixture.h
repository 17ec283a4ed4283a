#pragma once

#include "session/Session.h"
#include "support/FakeDesk.h"
#include "support/FixedMachine.h"
#include "support/RawDatabase.h"

#include <QDir>
#include <QTemporaryDir>

// A session over an account set file of its own in a program folder of its own, with the built-in
// administrator in front of it. The file holds no tables until `file` makes them.
struct SessionFixture {
  QTemporaryDir folder;
  FakeDesk desk;
  FixedMachine machine{folder.path()};
  RawDatabase file{accountSetPath()};
  Session session{desk, machine};

  SessionFixture()
  {
    // An empty database has no header yet.
    file.run(QStringLiteral("pragma user_version = 1"));
    session.params.DatabaseType = QStringLiteral("Access");
    session.params.IsAccessSQL = true;
    session.params.ConDataName = QStringLiteral("A001.mdb");
    session.params.UserName = QStringLiteral("系统管理员");
    session.params.OperateDate = QDate(2022, 6, 8);
  }

  QString accountSetPath() const
  {
    QDir(folder.path()).mkpath(QStringLiteral("Data"));
    return folder.filePath(QStringLiteral("Data/A001.mdb"));
  }
};
