#include "startup/ModReadWriteParameters.h"

#include "startup/ModChangeStr.h"
#include "support/FakeDesk.h"
#include "support/FixedMachine.h"
#include "support/Printing.h"

#include "session/Session.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

struct ModReadWriteParametersTest : testing::Test {
  QTemporaryDir folder;
  FixedMachine machine{folder.path()};
  FakeDesk desk;
  Session session{desk, machine};
  QString path = folder.filePath(u"SysPar.dll"_s);

  void writeBytes(const QByteArray& content)
  {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

  static QByteArray scrambled(const QStringList& lines)
  {
    QByteArray content;
    for (const QString& line : lines)
      content += ModChangeStr::ChangeStrEncode(line) + "\r\n";
    return content;
  }

  bool read() { return ModReadWriteParameters::ReadSystemParameters(machine, session.params); }

  SessionParams readLines(const QStringList& lines)
  {
    writeBytes(scrambled(lines));
    EXPECT_TRUE(read());
    return session.params;
  }

  QStringList storedLines()
  {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QStringList lines;
    for (const QByteArray& line : file.readAll().split('\n'))
      lines.append(ModChangeStr::ChangeStrDecode(line.endsWith('\r') ? line.chopped(1) : line));
    return lines;
  }
};

} // namespace

TEST_F(ModReadWriteParametersTest, TheFileIsWrittenLineByLineInItsFixedOrder)
{
  SessionParams& params = session.params;
  params.SoftType = u" ZV "_s;
  params.OperatorsNum = 3;
  params.DatabaseType = u"Access "_s;
  params.AccountVisionClass = -1;
  params.IsLotMoney = true;
  params.ConDataName = u" A001.mdb "_s;
  params.OperateType = u"付款"_s;
  params.UserName = u"系统管理员"_s;
  params.OperateDate = QDate(2022, 6, 8);
  params.OperationsDirective = u"付款"_s;
  ASSERT_TRUE(ModReadWriteParameters::WriteSystemParameters(session, {u" 打印 "_s, {}, u"TabPayfundBill"_s, u"FKD202206080001"_s, {}}));
  EXPECT_EQ(storedLines().join(u'|'),
            u"SoftType=ZV|OperatorsNum= 3|DatabaseType=Access|VisionNum=|VisionType=|AccountVisionType=|AccountVisionClass=-1|"
            "LoginType=|CalCostType=|IsJXC=0|demoData=0|IsAccessSQL=0|IsLotMoney=1|ConDataName= A001.mdb|ConDataRemark=|"
            "PrintModleName=|ConDataBaseUID=|ConDataBasePWD=|ConServerIP=|ConPortNum=|OperateType=付款|UserName=系统管理员|UserPSW=|"
            "UserNum= 0|OperateDate=2022-06-08|CloudAccount=|CloudAccount2=|OperationsDirective=打印|OperationsDirective2=|"
            "OperationsDirective3=TabPayfundBill|OperationsDirective4=FKD202206080001|OperationsDirective5=|"_s);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll().startsWith("QU8`ktOoajN\r\n")) << "SoftType=ZV, byte for byte";
}

TEST_F(ModReadWriteParametersTest, WhatWasWrittenIsReadAndTheFileIsGone)
{
  session.params.UserName = u"赵=钱:孙 "_s;
  session.params.UserPSW = u"a\nb"_s;
  session.params.IsJXC = true;
  session.params.DatabaseType = u"Access"_s;
  session.params.OperateType = u"收款"_s;
  ASSERT_TRUE(ModReadWriteParameters::WriteSystemParameters(session, {u"付款"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
  session.params = {};
  ASSERT_TRUE(read());
  EXPECT_FALSE(QFile::exists(path));
  EXPECT_EQ(session.params.UserName, u"赵=钱:孙"_s) << "blanks at the end of a line are lost";
  EXPECT_EQ(session.params.UserPSW, u"a\nb"_s);
  EXPECT_TRUE(session.params.IsJXC);
  EXPECT_TRUE(session.params.IsAccessSQL);
  EXPECT_EQ(session.params.OperateType, u"付款"_s) << "the order, not what the file says";
  EXPECT_EQ(session.params.OperationsDirective5, u"5"_s);
  EXPECT_FALSE(read()) << "it can be read once";
}

TEST_F(ModReadWriteParametersTest, KeysAreLookedForOnlyForward)
{
  EXPECT_EQ(readLines({u"UserName=甲"_s, u"ConDataName=A"_s, u"OperationsDirective=付款"_s}).ConDataName, u""_s)
      << "SoftType, which is not there, has used the whole file up";
  const SessionParams params =
      readLines(u"SoftType=|OperatorsNum=1|DatabaseType=SQL|VisionNum=|VisionType=a:b=c|[标题]:|Unknown=1|a:b=c|AccountVisionType=x|"
                "AccountVisionClass=7|LoginType=|calcosttype=no|CalCostType=yes"_s.split(u'|'));
  EXPECT_EQ(params.VisionType, u"a:b=c"_s);
  EXPECT_EQ(params.AccountVisionType, u"x"_s) << "behind a heading, an unknown key and a heading with a value";
  EXPECT_EQ(params.AccountVisionClass, 7);
  EXPECT_EQ(params.CalCostType, u"yes"_s);
  EXPECT_EQ(params.UserName, u""_s);
}

TEST_F(ModReadWriteParametersTest, AnEmptyLineEndsTheSearchForOneKey)
{
  const SessionParams params = readLines({u"SoftType=a"_s, u""_s, u"DatabaseType=SQL"_s, u"neither"_s, u"VisionType=b"_s});
  EXPECT_EQ(params.OperatorsNum, 0);
  EXPECT_EQ(params.DatabaseType, u"SQL"_s);
  EXPECT_EQ(params.VisionNum, u""_s);
  EXPECT_EQ(params.VisionType, u"b"_s);
}

TEST_F(ModReadWriteParametersTest, YesIsOneAndNumbersAreNumericPrefixes)
{
  const auto linesUntil = [](const QString& number, const QString& flag) {
    return u"SoftType=|OperatorsNum=%1|DatabaseType=|VisionNum=|VisionType=|AccountVisionType=|AccountVisionClass=|LoginType=|"
           "CalCostType=|IsJXC=%2"_s.arg(number, flag)
               .split(u'|');
  };
  for (const QString& yes : {u"1"_s, u" 1"_s}) // "IsJXC=1 " loses its blank when it is scrambled
    EXPECT_TRUE(readLines(linesUntil(u"0"_s, yes)).IsJXC) << shown(yes);
  for (const QString& no : {u""_s, u"0"_s, u"true"_s, u"11"_s, u"-1"_s})
    EXPECT_FALSE(readLines(linesUntil(u"0"_s, no)).IsJXC) << shown(no);
  EXPECT_EQ(readLines(linesUntil(u" 12"_s, {})).OperatorsNum, 12);
  EXPECT_EQ(readLines(linesUntil(u"-3x"_s, {})).OperatorsNum, -3);
  EXPECT_EQ(readLines(linesUntil(u"abc"_s, {})).OperatorsNum, 0);
  EXPECT_EQ(readLines(linesUntil(u"99999"_s, {})).OperatorsNum, 32767);
}

TEST_F(ModReadWriteParametersTest, TheSessionDateIsADate)
{
  for (const auto& [given, found] :
       {std::pair{u"2022/6/1"_s, QDate(2022, 6, 1)}, {u"abc"_s, QDate(2022, 6, 8)}, {u""_s, QDate(2022, 6, 8)}}) {
    writeBytes(*ModReadWriteParameters::fileContent({{u"OperateDate"_s, given}}));
    ASSERT_TRUE(read());
    EXPECT_EQ(session.params.OperateDate, found);
  }
}

TEST_F(ModReadWriteParametersTest, OnlyTheExactTypeAccessSpeaksItsDialect)
{
  for (const auto& [type, isAccess] : {std::pair{u"Access"_s, true}, {u"Access2"_s, false}, {u"access"_s, false}, {u"SQL"_s, false}})
    EXPECT_EQ(readLines({u"SoftType="_s, u"OperatorsNum=0"_s, u"DatabaseType="_s + type}).IsAccessSQL, isAccess) << shown(type);
}

TEST_F(ModReadWriteParametersTest, AFileThatIsNoneIsNotReadAndLeavesTheSessionAlone)
{
  session.params.UserName = u"甲"_s;
  EXPECT_FALSE(read()) << "absent";
  const QByteArray whole = scrambled({u"SoftType=a"_s, u"OperatorsNum=1"_s, u"DatabaseType=Access"_s});
  struct Row {
    const char* what;
    QByteArray content;
  };
  for (const auto& [what, content] : {
           Row{"empty", {}},
           Row{"empty lines", "\r\n\r\n\r\n"},
           Row{"zeros", QByteArray(5000, '\0')},
           Row{"not scrambled", "SoftType=a\r\nOperatorsNum=1\r\n"},
           Row{"huge", whole + QByteArray(4 << 20, 'a')},
           Row{"one endless line", QByteArray(1 << 20, 'a')},
           Row{"cut inside a line", whole.chopped(3)},
       }) {
    writeBytes(content);
    EXPECT_FALSE(read()) << what;
    EXPECT_FALSE(QFile::exists(path)) << what;
  }
  EXPECT_EQ(session.params.UserName, u"甲"_s);
}

// Others may have laid something at the file's name. None of it is waited for, believed or written to.
TEST_F(ModReadWriteParametersTest, WhatIsNoPlainFileOfOursIsNotRead)
{
  const QByteArray whole = scrambled({u"SoftType=a"_s, u"OperatorsNum=1"_s, u"DatabaseType=Access"_s});
  const QByteArray name = QFile::encodeName(path);
  const QString other = folder.filePath(u"other"_s);
  const auto clear = [&] { return QDir().rmdir(path) || QFile::remove(path); };

  ASSERT_TRUE(QDir().mkdir(path));
  EXPECT_FALSE(read()) << "a folder";
  ASSERT_TRUE(clear());
  ASSERT_EQ(mkfifo(name.constData(), 0600), 0);
  EXPECT_FALSE(read()) << "a pipe";
  ASSERT_TRUE(clear());
  ASSERT_EQ(symlink("/dev/zero", name.constData()), 0);
  EXPECT_FALSE(read()) << "a device";
  ASSERT_TRUE(clear());
  writeBytes(whole);
  ASSERT_TRUE(QFile::rename(path, other));
  ASSERT_EQ(symlink(QFile::encodeName(other).constData(), name.constData()), 0);
  EXPECT_FALSE(read()) << "a link to a good one";

  // A new file takes the link's place and its target is left alone; nobody else can read the passwords in it.
  EXPECT_TRUE(ModReadWriteParameters::WriteSystemParameters(session, {u"打印"_s}));
  struct stat status = {};
  ASSERT_EQ(lstat(name.constData(), &status), 0);
  EXPECT_TRUE(S_ISREG(status.st_mode));
  EXPECT_EQ(status.st_mode & 0777, 0600U);
  EXPECT_EQ(QFile(other).size(), whole.size());
  EXPECT_TRUE(read());
}

TEST_F(ModReadWriteParametersTest, AFileThatIsNotOursOrCannotBeDeletedIsNotRead)
{
  constexpr uid_t Somebody = 1;
  constexpr uid_t Nobody = 65534;
  const QByteArray whole = scrambled({u"SoftType=a"_s, u"OperatorsNum=1"_s, u"DatabaseType=Access"_s});
  const bool isRoot = geteuid() == 0;
  writeBytes(whole);
  if (isRoot) {
    ASSERT_EQ(chown(QFile::encodeName(path).constData(), Somebody, Somebody), 0);
    EXPECT_FALSE(read()) << "of somebody else";
    ASSERT_TRUE(QFile::remove(path));
    writeBytes(whole);
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0644), 0);
  }
  // The folder can't be written. Root could all the same, so it is somebody who isn't.
  ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0555), 0);
  ASSERT_EQ(seteuid(isRoot ? Nobody : geteuid()), 0);
  EXPECT_FALSE(read()) << "can't be deleted";
  ASSERT_EQ(seteuid(getuid()), 0);
  ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0700), 0);
  EXPECT_TRUE(QFile::exists(path));
  EXPECT_TRUE(read());
}

TEST_F(ModReadWriteParametersTest, WhatTheFileCannotHoldIsRefusedAndLeavesNoFile)
{
  for (const QString& value :
       {u"😀"_s, QString(QChar(0xD800)), u"a"_s + QChar(0x0F) + u"b"_s, u"a"_s + QChar(0x12), QString(QChar(0)) + u"b"_s}) {
    writeBytes("an older file");
    session.params.UserPSW = value;
    EXPECT_FALSE(ModReadWriteParameters::WriteSystemParameters(session, {u"打印"_s}));
    EXPECT_EQ(desk.takeTexts(), u"参数存取失败！"_s);
    EXPECT_FALSE(QFile::exists(path));
  }
  session.params.UserPSW.clear();
  machine.folder = folder.filePath(u"not-there"_s);
  EXPECT_FALSE(ModReadWriteParameters::WriteSystemParameters(session, {u"打印"_s}));
  EXPECT_EQ(desk.takeTexts(), u"参数存取失败！"_s);
}
