#include "platform/Machine.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

struct MachineTest : testing::Test {
  QTemporaryDir folder;
  ThisMachine machine;

  QString program(const QByteArray& content, QFile::Permissions permissions)
  {
    const QString path = folder.filePath(u"程序 1.exe"_s);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.setPermissions(permissions));
    return path;
  }
};

constexpr QFile::Permissions Runnable = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

} // namespace

TEST_F(MachineTest, AStartedProgramIsNotWaitedFor)
{
  QElapsedTimer clock;
  clock.start();
  EXPECT_TRUE(machine.startProgram(program("#!/bin/sh\nexec sleep 5\n", Runnable)));
  EXPECT_LT(clock.elapsed(), 4000);
}

TEST_F(MachineTest, WhatCannotRunIsNotStarted)
{
  EXPECT_FALSE(machine.startProgram(folder.filePath(u"没有.exe"_s)));
  EXPECT_FALSE(machine.startProgram(folder.path()));
  EXPECT_FALSE(machine.startProgram(program("#!/bin/sh\n", QFile::ReadOwner | QFile::WriteOwner)));
  EXPECT_FALSE(machine.startProgram(program("#!/no/such/shell\n", Runnable)));
  EXPECT_FALSE(machine.startProgram(program("no program at all", Runnable)));
}

TEST_F(MachineTest, ItsCodeStaysTheSame)
{
  EXPECT_EQ(machine.terminalCode().size(), 32);
  EXPECT_EQ(machine.terminalCode(), ThisMachine().terminalCode());
}
