#include "startup/ModReadWriteParameters.h"

#include "session/Session.h"
#include "startup/ModChangeStr.h"
#include "support/FakeDesk.h"
#include "support/FixedMachine.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray scrambled(const QString& lines)
{
  QByteArray content;
  for (const QString& line : lines.split(u'|'))
    content += ModChangeStr::ChangeStrEncode(line) + "\r\n";
  return content;
}

struct ModReadWriteParametersTest : testing::Test {
  QTemporaryDir folder;
  FixedMachine machine{folder.path()};
  FakeDesk desk;
  Session session{desk, machine};
  SessionParams& params = session.params;
  const QString path = folder.filePath("SysPar.dll");
  const QByteArray encodedPath = QFile::encodeName(path);
  const QByteArray whole = scrambled("SoftType=a|OperatorsNum=1|DatabaseType=Access");

  void writeBytes(const QByteArray& content) const
  {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
  }

  bool read() { return ModReadWriteParameters::ReadSystemParameters(machine, params); }
  bool write(const Directives& directives) { return ModReadWriteParameters::WriteSystemParameters(session, directives); }

  // Of a file of these lines, separated by "|".
  SessionParams readLines(const QString& lines)
  {
    writeBytes(scrambled(lines));
    EXPECT_TRUE(read());
    return params;
  }
};

} // namespace

TEST_F(ModReadWriteParametersTest, TheFileIsWrittenLineByLineInItsFixedOrder)
{
  params.SoftType = " ZV ";
  params.OperatorsNum = 3;
  params.DatabaseType = "Access ";
  params.AccountVisionClass = -1;
  params.IsLotMoney = true;
  params.ConDataName = " A001.mdb ";
  params.OperateType = params.OperationsDirective = "付款";
  params.UserName = "系统管理员";
  params.OperateDate = QDate(2022, 6, 8);
  ASSERT_TRUE(write({" 打印 ", {}, "TabPayfundBill", "FKD202206080001", {}}));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray content = file.readAll();
  EXPECT_EQ(content,
            scrambled("SoftType=ZV|OperatorsNum= 3|DatabaseType=Access|VisionNum=|VisionType=|AccountVisionType=|"
                      "AccountVisionClass=-1|LoginType=|CalCostType=|IsJXC=0|demoData=0|IsAccessSQL=0|IsLotMoney=1|"
                      "ConDataName= A001.mdb|ConDataRemark=|PrintModleName=|ConDataBaseUID=|ConDataBasePWD=|ConServerIP=|ConPortNum=|"
                      "OperateType=付款|UserName=系统管理员|UserPSW=|UserNum= 0|OperateDate=2022-06-08|CloudAccount=|CloudAccount2=|"
                      "OperationsDirective=打印|OperationsDirective2=|OperationsDirective3=TabPayfundBill|"
                      "OperationsDirective4=FKD202206080001|OperationsDirective5="));
  EXPECT_TRUE(content.startsWith("QU8`ktOoajN\r\n")) << "SoftType=ZV, byte for byte";
}

TEST_F(ModReadWriteParametersTest, WhatWasWrittenIsReadOnceAndTheFileIsGone)
{
  params.UserName = "赵=钱:孙 ";
  params.UserPSW = "a\nb";
  params.IsJXC = true;
  params.DatabaseType = "Access";
  params.OperateType = "收款";
  ASSERT_TRUE(write({"付款", "2", "3", "4", "5"}));
  params = {};
  ASSERT_TRUE(read());
  EXPECT_FALSE(QFile::exists(path));
  EXPECT_EQ(params.UserName, "赵=钱:孙") << "spaces at the end of a line are lost";
  EXPECT_EQ(params.UserPSW, "a\nb");
  EXPECT_TRUE(params.IsJXC && params.IsAccessSQL);
  EXPECT_EQ(params.OperateType, "付款") << "the first directive, not what the file says";
  EXPECT_EQ(params.OperationsDirective5, "5");
  EXPECT_FALSE(read());
}

TEST_F(ModReadWriteParametersTest, KeysAreLookedForOnlyForward)
{
  EXPECT_EQ(readLines("UserName=甲|ConDataName=A|OperationsDirective=付款").ConDataName, "")
      << "the search for SoftType, which is missing, has used up the whole file";
  readLines("SoftType=|OperatorsNum=1|DatabaseType=SQL|VisionNum=|VisionType=a:b=c|[标题]:|Unknown=1|a:b=c|AccountVisionType=x|"
            "AccountVisionClass=7|LoginType=|calcosttype=no|CalCostType=yes");
  EXPECT_EQ(params.VisionType, "a:b=c");
  EXPECT_EQ(params.AccountVisionType, "x") << "after a heading, an unknown key and a heading with a value";
  EXPECT_EQ(params.AccountVisionClass, 7);
  EXPECT_EQ(params.CalCostType, "yes");
  EXPECT_EQ(params.UserName, "");
  // An empty line, or one that is neither value nor heading, ends the search for one key.
  readLines("SoftType=a||DatabaseType=SQL|neither|VisionType=b");
  EXPECT_EQ(QString("%1 %2 %3 %4").arg(params.OperatorsNum).arg(params.DatabaseType, params.VisionNum, params.VisionType), "0 SQL  b");
}

TEST_F(ModReadWriteParametersTest, ValuesAreReadByTheirKind)
{
  const auto withFlag = [this](const QString& flag) {
    return readLines("SoftType=|OperatorsNum=|DatabaseType=|VisionNum=|VisionType=|AccountVisionType=|AccountVisionClass=|LoginType=|"
                     "CalCostType=|IsJXC=" +
                     flag)
        .IsJXC;
  };
  EXPECT_TRUE(withFlag("1") && withFlag(" 1"));
  EXPECT_FALSE(withFlag("") || withFlag("0") || withFlag("true") || withFlag("11") || withFlag("-1"));
  for (const auto& [text, number] : {std::pair{" 12", 12}, {"-3x", -3}, {"abc", 0}, {"99999", 32767}})
    EXPECT_EQ(readLines(QString("SoftType=|OperatorsNum=") + text).OperatorsNum, number) << text;
  for (const auto& [type, isAccess] : {std::pair{"Access", true}, {"Access2", false}, {"access", false}, {"SQL", false}})
    EXPECT_EQ(readLines(QString("SoftType=|OperatorsNum=|DatabaseType=") + type).IsAccessSQL, isAccess) << type;
  for (const auto& [text, day] : {std::pair{"2022/6/1", 1}, {"abc", 8}, {"", 8}}) {
    writeBytes(*ModReadWriteParameters::fileContent({{"OperateDate", text}}));
    ASSERT_TRUE(read());
    EXPECT_EQ(params.OperateDate, QDate(2022, 6, day)) << text;
  }
}

TEST_F(ModReadWriteParametersTest, AFileThatIsNotOneIsNotReadAndLeavesTheSessionAlone)
{
  params.UserName = "甲";
  EXPECT_FALSE(read()) << "absent";
  const std::pair<const char*, QByteArray> files[] = {
      {"empty", {}},
      {"empty lines", "\r\n\r\n\r\n"},
      {"zeros", QByteArray(5000, '\0')},
      {"not scrambled", "SoftType=a\r\nOperatorsNum=1\r\n"},
      {"huge", whole + QByteArray(4 << 20, 'a') + '\n'},
      {"cut inside a line", whole.chopped(3)},
  };
  for (const auto& [what, content] : files) {
    writeBytes(content);
    EXPECT_FALSE(read()) << what;
    EXPECT_FALSE(QFile::exists(path)) << what;
  }
  EXPECT_EQ(params.UserName, "甲");
}

// Other users may have put something at the file's name. None of it is waited for, believed or written to.
TEST_F(ModReadWriteParametersTest, OnlyAPlainFileIsRead)
{
  const QString other = folder.filePath("other");
  const auto remove = [&] { ASSERT_TRUE(QDir().rmdir(path) || QFile::remove(path)); };
  ASSERT_TRUE(QDir().mkdir(path));
  EXPECT_FALSE(read()) << "a folder";
  remove();
  ASSERT_EQ(mkfifo(encodedPath.constData(), 0600), 0);
  EXPECT_FALSE(read()) << "a pipe";
  remove();
  ASSERT_EQ(symlink("/dev/zero", encodedPath.constData()), 0);
  EXPECT_FALSE(read()) << "a device";
  remove();
  writeBytes(whole);
  ASSERT_TRUE(QFile::rename(path, other) && QFile::link(other, path));
  EXPECT_FALSE(read()) << "a link to a good one";

  // A new file replaces the link, and its target is left alone; nobody else can read the passwords in it.
  EXPECT_TRUE(write({"打印"}));
  struct stat status = {};
  ASSERT_EQ(lstat(encodedPath.constData(), &status), 0);
  EXPECT_EQ(status.st_mode, mode_t(S_IFREG | 0600));
  EXPECT_EQ(QFile(other).size(), whole.size());
  EXPECT_TRUE(read());
}

TEST_F(ModReadWriteParametersTest, AFileOfSomebodyElseOrOneThatCannotBeDeletedIsNotRead)
{
  constexpr uid_t Somebody = 1;
  constexpr uid_t Nobody = 65534;
  const QByteArray folderPath = QFile::encodeName(folder.path());
  const bool isRoot = geteuid() == 0;
  if (isRoot) {
    writeBytes(whole);
    ASSERT_EQ(chown(encodedPath.constData(), Somebody, Somebody), 0);
    EXPECT_FALSE(read()) << "of somebody else";
    ASSERT_TRUE(QFile::remove(path));
  }
  writeBytes(whole);
  ASSERT_EQ(chmod(encodedPath.constData(), 0644), 0);
  // The folder is read-only, which does not stop root: so another user reads.
  ASSERT_EQ(chmod(folderPath.constData(), 0555), 0);
  ASSERT_EQ(seteuid(isRoot ? Nobody : geteuid()), 0);
  EXPECT_FALSE(read()) << "can't be deleted";
  ASSERT_EQ(seteuid(getuid()), 0);
  ASSERT_EQ(chmod(folderPath.constData(), 0700), 0);
  EXPECT_TRUE(read());
}

TEST_F(ModReadWriteParametersTest, WhatTheFileCannotHoldIsRefusedAndLeavesNoFile)
{
  const auto isRefused = [this] { return !write({"打印"}) && desk.takeTexts() == "参数存取失败！"; };
  for (const QString& value : {QString("😀"), QString(QChar(0xD800)), QString("a\x0F"), QString("a\x12"), QChar(0) + QString("b")}) {
    writeBytes("an older file");
    params.UserPSW = value;
    EXPECT_TRUE(isRefused()) << shown(value);
    EXPECT_FALSE(QFile::exists(path));
  }
  params.UserPSW.clear();
  machine.folder = folder.filePath("not-there");
  EXPECT_TRUE(isRefused());
}
