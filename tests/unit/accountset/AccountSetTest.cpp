#include "accountset/AccountSet.h"

#include "accountset/Schema.h"
#include "database/SqliteCollations.h"
#include "samplefirm/SampleFirm.h"
#include "support/Printing.h"
#include "support/RawDatabase.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

struct AccountSetTest : testing::Test {
  void SetUp() override
  {
    ASSERT_TRUE(AccountSet::create(path));
    ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &database), SQLITE_OK);
    ASSERT_EQ(SqliteCollations::registerAll(database), SQLITE_OK);
    ASSERT_TRUE(takes(u"pragma synchronous=off"_s)); // many small statements, and nothing to lose
  }
  void TearDown() override { sqlite3_close(database); }

  bool takes(const QString& sql) { return sqlite3_exec(database, sql.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK; }

  // A row that holds nothing but what the table demands, the same for every table.
  static QString leastInsert(const Schema::Table& table)
  {
    QStringList columns;
    QStringList values;
    for (const Schema::Column& column : table.columns) {
      const bool isRequired = column.presence == Schema::Presence::Required;
      if (!isRequired && !columns.isEmpty())
        continue;
      columns.append(QLatin1String(column.name));
      values.append(isRequired ? u"'7'"_s : u"null"_s);
    }
    return u"insert into %1(%2) values(%3)"_s.arg(QLatin1String(table.name), columns.join(u','), values.join(u','));
  }

  static bool isKeyRequired(const Schema::Table& table)
  {
    const QStringList key = QString::fromLatin1(table.key).split(u", "_s);
    return std::ranges::all_of(key, [&](const QString& name) {
      return std::ranges::any_of(table.columns, [&](const Schema::Column& column) {
        return QLatin1String(column.name) == name && column.presence == Schema::Presence::Required;
      });
    });
  }

  QTemporaryDir folder;
  QString path = folder.filePath(u"set.mdb"_s);
  sqlite3* database = nullptr;
};

TEST_F(AccountSetTest, ARowNeedsNoMoreThanItsKeyAndStandsOnce)
{
  for (const Schema::Table& table : Schema::allTables()) {
    const QString sql = leastInsert(table);
    EXPECT_TRUE(takes(sql)) << shown(sql);
    EXPECT_NE(takes(sql), isKeyRequired(table)) << shown(sql);
  }
}

// Everything that the system asks of the large tables goes through an index.
TEST_F(AccountSetTest, QuestionsOfTheSystemReadNoWholeTable)
{
  RawDatabase raw(path);
  const QString vouchers = u"select sum(Debtor-Lender) from TabWarrant,TabWarrantInf,TabAccountantType,TabClient"
                           " where (TabWarrant.JXCBillCode='' or TabWarrant.JXCBillCode is null)"
                           " and TabWarrant.Datee>'2022-05-31' and TabWarrant.Datee<='2022-06-08'"
                           " and TabAccountantType.Code=TabClient.YingShouCode and TabClient.Code='K001' %1"
                           " and TabWarrant.Code=TabWarrantInf.BillCode and TabWarrantInf.AccountantCode=TabAccountantType.Code"_s;
  const QString questions[] = {
      u"select max(Code) as Codee from TabPayfundBill where Code like 'FKD20220608%'"_s,
      u"select Code from TabGathefundBill where Datee>='2022-6-1' and Datee<='2022-6-30' order by Datee, Code"_s,
      u"select Code from TabKeepTake where Datee>='2022-6-1' and Datee<='2022-6-30' order by Datee, Code"_s,
      u"select * from TabPayfundBillInf where BillCode='FKD202206080001'"_s,
      u"select * from TabFeeInf where Code='FYD202206080001'"_s,
      u"select sum(SumMoney-AllDiscount) from TabOutBill where UnitCode='K001' and State='正常' and Datee>'1900-01-01'"_s,
      u"select sum(Moneyy) from TabGathefundBillInf where UnitCode='K001' and AccountantCode like '1001%' and Datee>'1900-01-01'"_s,
      u"select sum(TabSustainInf.Moneyy) from TabSustainInf,TabSustain where TabSustainInf.UnitCode='K001'"
      " and TabSustainInf.Datee>'1900-01-01' and TabSustain.SustainType='客户' and TabSustain.Code=TabSustainInf.Code"_s,
      vouchers.arg(u"and TabWarrantInf.WLHS='K001'"_s),
      vouchers.arg(u""_s),
      u"select SumMoney from TabClientTurn where Code='K001' and Num=1"_s,
      u"select max(Datee) as Datee from TabTurn"_s,
      u"select State from TabWarrant where JXCBillCode='FKD202206080001'"_s,
      u"select max(WarrantNum1) from TabWarrant where Datee>='2022-06-01' and Datee<='2022-06-30' and AccountBook1=1"_s,
      u"select sum(HXMoney) from TabSFKHeXiao where InOutBillCode='XSD202206080001'"_s,
      u"delete from TabSFKHeXiao where SFKBillCode='SKD202206080001'"_s,
      u"update TabInBillInf set GouDui=1 where BillCode='CGD202206080001' and Num=2"_s,
      u"select Code,Name from TabClient where Code like 'K0%' or Name like 'K0%' order by code"_s,
      u"select * from TabAccountantType where ParentCode='1002'"_s,
  };
  for (const QString& question : questions)
    EXPECT_FALSE(raw.rows(u"explain query plan "_s + question).contains(u"|SCAN"_s)) << shown(question);
}

// What cannot be made leaves things as they were.
TEST(AccountSetCreation, NeverWritesOverAFileAndLeavesNoHalf)
{
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"set.mdb"_s);
  QFile other(path);
  ASSERT_TRUE(other.open(QIODevice::WriteOnly));
  other.write("not ours");
  other.close();

  EXPECT_TRUE(errorOf(AccountSet::create(path, SampleFirm::write)).contains(path));
  ASSERT_TRUE(other.open(QIODevice::ReadOnly));
  EXPECT_EQ(other.readAll(), "not ours");
  EXPECT_FALSE(AccountSet::create(folder.path())) << "a folder";
  EXPECT_FALSE(AccountSet::create(folder.filePath(u"absent/set.mdb"_s)));
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot), QStringList{u"set.mdb"_s});
}

} // namespace
