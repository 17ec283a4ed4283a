#pragma once

#include "session/Session.h"
#include "support/FakeDesk.h"
#include "support/FixedMachine.h"
#include "support/RawDatabase.h"

#include <QDir>
#include <QTemporaryDir>

// A session of the built-in administrator on an account set file of its own, in a program folder of its own. The file has
// no tables until `file` makes them.
struct SessionFixture {
  QTemporaryDir folder;
  FakeDesk desk;
  FixedMachine machine{folder.path()};
  RawDatabase file{accountSetPath()};
  Session session{desk, machine};

  SessionFixture()
  {
    // An empty database has no header yet.
    file.run("pragma user_version = 1");
    session.params.DatabaseType = "Access";
    session.params.IsAccessSQL = true;
    session.params.ConDataName = "A001.mdb";
    session.params.UserName = "系统管理员";
    session.params.OperateDate = QDate(2022, 6, 8);
  }

  QString accountSetPath() const
  {
    QDir(folder.path()).mkpath("Data");
    return folder.filePath("Data/A001.mdb");
  }
};
