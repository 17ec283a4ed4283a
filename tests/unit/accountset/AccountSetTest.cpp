#include "accountset/AccountSet.h"

#include "samplefirm/SampleFirm.h"
#include "support/Printing.h"
#include "support/RawDatabase.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

// Every query of the suite on the large tables uses an index; those of the balance are in BalanceTest.
TEST(AccountSetTest, QueriesOfTheSuiteReadNoWholeTable)
{
  const QTemporaryDir folder;
  const QString path = folder.filePath("set.mdb");
  ASSERT_TRUE(AccountSet::create(path));
  RawDatabase raw(path);
  const char* const queries[] = {
      "select max(Code) as Codee from TabPayfundBill where Code like 'FKD20220608%'",
      "select Code from TabGathefundBill where Datee>='2022-6-1' and Datee<='2022-6-30' order by Datee, Code",
      "select Code from TabKeepTake where Datee>='2022-6-1' and Datee<='2022-6-30' order by Datee, Code",
      "select * from TabPayfundBillInf where BillCode='FKD202206080001'",
      "select * from TabFeeInf where Code='FYD202206080001'",
      "select SumMoney from TabClientTurn where Code='K001' and Num=1",
      "select max(Datee) as Datee from TabTurn",
      "select State from TabWarrant where JXCBillCode='FKD202206080001'",
      "select max(WarrantNum1) from TabWarrant where Datee>='2022-06-01' and Datee<='2022-06-30' and AccountBook1=1",
      "select sum(HXMoney) from TabSFKHeXiao where InOutBillCode='XSD202206080001'",
      "delete from TabSFKHeXiao where SFKBillCode='SKD202206080001'",
      "update TabInBillInf set GouDui=1 where BillCode='CGD202206080001' and Num=2",
      "select Code,Name from TabClient where Code like 'K0%' or Name like 'K0%' order by code",
      "select * from TabAccountantType where ParentCode='1002'",
  };
  for (const char* query : queries)
    EXPECT_FALSE(raw.rows(QString("explain query plan ") + query).contains("|SCAN")) << query;
}

// What cannot be made leaves things as they were.
TEST(AccountSetTest, CreationNeverWritesOverAFileAndLeavesNoHalf)
{
  const QTemporaryDir folder;
  const QString path = folder.filePath("set.mdb");
  QFile other(path);
  ASSERT_TRUE(other.open(QIODevice::WriteOnly));
  other.write("not ours");
  other.close();

  EXPECT_TRUE(errorOf(AccountSet::create(path, SampleFirm::write)).contains(path));
  ASSERT_TRUE(other.open(QIODevice::ReadOnly));
  EXPECT_EQ(other.readAll(), "not ours");
  EXPECT_FALSE(AccountSet::create(folder.path())) << "a folder";
  EXPECT_FALSE(AccountSet::create(folder.filePath("absent/set.mdb")));
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot), QStringList{"set.mdb"});
}

} // namespace
