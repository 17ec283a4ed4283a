#include "OfficeDeath.h"
#include "OfficeClient.h"

#include "spreadsheet/office/Office.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace std::chrono_literals;

// What becomes of an office when the program that started it is killed, and who may end it when it is not.

int hold(const std::string& what)
{
  Office office;
  const std::unique_ptr<Workbook> workbook = orThrow(office.create());
  if (what == "handed-over")
    orThrow(workbook->finish(orThrow(workbook->sheetNames()).first(), Workbook::Finish::HandOver, "输出...."));
  std::puts("ready");
  std::fflush(stdout);
  pause();
  return 0;
}

namespace {

// A virtual display.
struct Display {
  QProcess server;

  Display()
  {
    server.start("Xvfb", {"-displayfd", "1", "-nolisten", "tcp"});
    if (!server.waitForReadyRead())
      qFatal("no display can be had");
    qputenv("DISPLAY", ":" + server.readLine().trimmed());
  }
  ~Display()
  {
    qunsetenv("DISPLAY");
    server.kill();
    server.waitForFinished();
  }
};

struct Holder {
  QProcess program;

  explicit Holder(const QString& what)
  {
    program.start(QCoreApplication::applicationFilePath(), {QString::fromStdString(holdOffice), what});
    if (!program.waitForReadyRead(60000))
      qFatal("no office came up");
  }
  ~Holder()
  {
    program.kill();
    program.waitForFinished();
  }
};

// Deaths take a moment.
bool isGone(int number)
{
  for (int tries = 0; tries < 100 && !OfficeClient::processes(number).isEmpty(); ++tries)
    usleep(100000);
  return OfficeClient::processes(number).isEmpty();
}

QStringList contentOf(const QString& folder)
{
  return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

QByteArray limitsOf(pid_t process)
{
  QFile limits(QStringLiteral("/proc/%1/limits").arg(process));
  return limits.open(QIODevice::ReadOnly) ? limits.readAll().simplified() : QByteArray();
}

} // namespace

// Both have an office of their own; the next start takes the first instance and leaves nothing of the second one.
TEST(OfficeDeath, AKilledProgramTakesItsOfficeAlong)
{
  {
    Holder first("working");
    Holder second("working");
    EXPECT_FALSE(OfficeClient::processes(1).isEmpty());
    EXPECT_FALSE(OfficeClient::processes(2).isEmpty());
  }
  EXPECT_TRUE(isGone(1));
  EXPECT_TRUE(isGone(2));
  const OfficeInstance left = OfficeInstance::numbered(2);
  EXPECT_TRUE(QFile::exists(left.lockFile()));
  for (const QString& pipe : left.pipeFiles())
    EXPECT_TRUE(QFile::exists(pipe)) << pipe.toStdString();

  Office office;
  orThrow(office.create());
  EXPECT_EQ(contentOf(left.profileFolder), QStringList());
  for (const QString& pipe : left.pipeFiles())
    EXPECT_FALSE(QFile::exists(pipe)) << pipe.toStdString();
}

// It stays open, without the limits of an office that works for the program.
TEST(OfficeDeath, AHandedOverWorkbookStays)
{
  const Display display;
  {
    Holder holder("handed-over");
  }
  const OfficeClient client;
  ASSERT_EQ(client.open().size(), 1);
  EXPECT_EQ(client.open().first().title(), "输出....");
  usleep(300000);
  EXPECT_EQ(OfficeClient::processes().size(), 1);
  EXPECT_TRUE(limitsOf(OfficeClient::processes().value(0)).contains("Max data size unlimited"));
  OfficeClient::kill(SIGKILL);
  EXPECT_TRUE(isGone(1));
}

// The preview is of the page, whichever sheet its workbook was saved on. What the user opens there stays open
// when the preview is left, and when the program ends.
TEST(OfficeDeath, DocumentsOfTheUserAreNotClosed)
{
  const QTemporaryDir folder;
  const Display display;
  auto office = std::make_unique<Office>();
  orThrow(office->create());
  auto client = std::make_unique<OfficeClient>();
  for (const char* format : {"xls", "xlsx"}) {
    OfficeClient::Book made = client->create();
    made.rename(made.sheetNames().first(), "sheet1");
    made.type("sheet1", 1, 1, "页");
    made.addSheet("附页");
    made.type("附页", 1, 1, "不印");
    made.activate("附页");
    const QString path = folder.filePath(QStringLiteral("书.") + format);
    made.store(path);
    made.close();

    std::unique_ptr<Workbook> page = orThrow(office->open(path));
    orThrow(page->finish("sheet1", Workbook::Finish::Preview, "打印"));
    EXPECT_TRUE(client->open().first().isInPreview()) << format;
    EXPECT_EQ(client->open().first().title(), "打印");
    EXPECT_TRUE(page->isInPreview());
    if (format == QStringLiteral("xls"))
      continue;
    client->create().type("工作表1", 1, 1, "我的");
    EXPECT_TRUE(page->isInPreview());
    client.reset();
    page.reset();
    office.reset();
  }
  const OfficeClient left;
  ASSERT_EQ(left.open().size(), 1);
  EXPECT_EQ(left.open().first().shown("工作表1", 1, 1), "我的");
  OfficeClient::kill(SIGKILL);
  EXPECT_TRUE(isGone(1));
}
