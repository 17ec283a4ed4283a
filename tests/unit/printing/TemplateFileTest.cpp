#include "printing/BillTemplate.h"

#include "screen/Form.h"
#include "screen/Grid.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <unistd.h>

namespace {

constexpr char Content[] = "no workbook";

// Templates as a hostile account set holds them; what is in them is no workbook, so each print fails.
struct TemplateFileTest : testing::Test, AccountSetFixture {
  Form form{desk, "frmPayfund"};
  Grid lines{&form, "MSH"};
  // No driver lies in the folder, so no office is started.
  Session withoutOffice{.desk = desk, .machine = machine, .params = session.params, .spreadsheet = Spreadsheet(folder.path())};

  TemplateFileTest()
  {
    for (const char* name : {"PrintTemp", "TempFile"})
      QDir(folder.path()).mkpath(name);
    file.run("insert into TabPayfundBill(Code) values('FKD1')");
  }

  QString print(const QString& name)
  {
    file.run("delete from TabExcelTable");
    file.run("insert into TabExcelTable(TabName,TabInf) values(cast(x'" + name.toUtf8().toHex() + "' as text),'" + Content + "')");
    BillTemplate::PrintBill_Excel(withoutOffice, {.templateName = name,
                                                  .billCode = "FKD1",
                                                  .headerTable = "TabPayfundBill",
                                                  .placeholders = [] { return QList<BillTemplate::Placeholder>(); },
                                                  .lines = &lines,
                                                  .amountColumn = 3,
                                                  .finish = BillTemplate::Finish::HandOver});
    return desk.takeTexts();
  }

  QStringList everything() const
  {
    QStringList found;
    for (const QString& at : {QString(), QString("PrintTemp/"), QString("TempFile/"), QString("202268090000/")})
      for (const QString& name : QDir(folder.filePath(at)).entryList(QDir::Files | QDir::Hidden))
        found.append(at + name);
    return found;
  }
};

TEST_F(TemplateFileTest, NoNameLeadsOutOfTheFolders)
{
  // The folder into which a name would have to go first.
  QDir(folder.path()).mkpath("PrintTemp/202268090000");
  QDir(folder.path()).mkpath("TempFile/202268090000");
  const QStringList before = everything();
  for (const QString& name :
       {QString("/../../stolen.xls"), QString("/x.xls"), QString("/") + folder.path() + "/stolen.xls", QString(4000, u'长')}) {
    EXPECT_EQ(print(name), "操作发生不可预测性错误！请退出软件重启电脑后再操作！") << shown(name);
    EXPECT_EQ(everything().join(' '), before.join(' ')) << shown(name);
  }
}

TEST_F(TemplateFileTest, NoCopyFollowsALink)
{
  const QString other = folder.filePath("other");
  for (const char* place : {"PrintTemp", "TempFile"}) {
    const QString copy = folder.filePath(QString(place) + "/202268090000甲.xls");
    QFile::remove(copy);
    ASSERT_EQ(symlink(QFile::encodeName(other).constData(), QFile::encodeName(copy).constData()), 0);
  }
  EXPECT_EQ(print("甲.xls"), "操作发生不可预测性错误！请退出软件重启电脑后再操作！");
  EXPECT_FALSE(QFile::exists(other));
  QFile unpacked(folder.filePath("PrintTemp/202268090000甲.xls"));
  ASSERT_TRUE(unpacked.open(QIODevice::ReadOnly));
  EXPECT_EQ(unpacked.readAll(), Content);
}

} // namespace
