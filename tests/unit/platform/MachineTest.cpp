#include "platform/Machine.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

struct MachineTest : testing::Test {
  QTemporaryDir folder;
  ThisMachine machine;

  QString program(const QByteArray& content, QFile::Permissions permissions)
  {
    const QString path = folder.filePath("程序 1.exe");
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.setPermissions(permissions));
    return path;
  }
};

constexpr QFile::Permissions Runnable = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

} // namespace

TEST_F(MachineTest, AStartedProgramIsNotWaitedFor)
{
  const QString running = folder.filePath("running");
  EXPECT_TRUE(machine.startProgram(program("#!/bin/sh\n: >\"${0%/*}/running\"; sleep 1; rm -f \"${0%/*}/running\"\n", Runnable)));
  EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(running); })) << "not started, or waited for";
}

TEST_F(MachineTest, WhatCannotRunIsNotStarted)
{
  EXPECT_FALSE(machine.startProgram(folder.filePath("没有.exe")));
  EXPECT_FALSE(machine.startProgram(folder.path()));
  EXPECT_FALSE(machine.startProgram(program("#!/bin/sh\n", QFile::ReadOwner | QFile::WriteOwner)));
  EXPECT_FALSE(machine.startProgram(program("#!/no/such/shell\n", Runnable)));
  EXPECT_FALSE(machine.startProgram(program("no program at all", Runnable)));
}
