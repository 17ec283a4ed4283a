#include "accountset/Copy.h"

#include "accountset/AccountSet.h"
#include "support/Printing.h"
#include "support/TestServer.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct CopyTest : testing::Test {
  void SetUp() override
  {
    if (!TestServer::administrator())
      GTEST_SKIP() << "tools/with-server runs these tests";
  }

  std::unique_ptr<Store> file(const QString& name, AccountSet::Content content)
  {
    const Place place{folder.filePath(name), {}};
    EXPECT_EQ(AccountSet::create(place.file, content), u""_s);
    return Store::open(place).store;
  }

  // The tables that both sides do not hold alike.
  static QStringList differing(Store& from, Store& to)
  {
    QString reason;
    QStringList tables;
    for (const Copy::Proof& proof : Copy::prove(from, to, reason))
      if (!(proof.from == proof.to))
        tables.append(proof.table);
    return reason.isEmpty() ? tables : QStringList(reason);
  }

  QTemporaryDir folder;
};

} // namespace

TEST_F(CopyTest, ThereAndBackIsTheSame)
{
  const auto source = file(u"a.mdb"_s, AccountSet::Content::Demo);
  // What is easily lost on the way: quotes, nothing, an empty text, bytes, long fractions, a blank ahead of a date.
  ASSERT_EQ(source->runAll({u"insert into TabClient(Code,Name,Address) values('Z''1','a\\b''\"?{}',''),('Z2',null,'😀')"_s,
                            u"insert into TabExcelTable values('模板','付款单',1,x'00ff27275c')"_s,
                            u"insert into TabSFKHeXiao values(' 2022-06-08','A','B',0.1,'2022-6-8',null)"_s,
                            u"insert into TabMoneyType values('ZZ',6.831249,'否')"_s}),
            u""_s);
  const TestServer::Database server(u"copy_test"_s);
  const auto middle = Store::open(server.administrator).store;
  ASSERT_TRUE(middle) << shown(server.reason);
  ASSERT_EQ(Copy::rows(*source, *middle), u""_s);
  const auto target = file(u"b.mdb"_s, AccountSet::Content::Empty);
  ASSERT_EQ(Copy::rows(*middle, *target), u""_s);
  EXPECT_EQ(differing(*source, *middle), QStringList());
  EXPECT_EQ(differing(*source, *target), QStringList());
  for (const char* sql : {"select * from TabClient order by Code", "select TabName, hex(TabInf) from TabExcelTable order by TabName",
                          "select * from TabSFKHeXiao order by InOutBillCode", "select * from TabWarrantInf order by BillCode, LineNum"}) {
    const StatementResult there = source->run(QLatin1String(sql));
    const StatementResult back = target->run(QLatin1String(sql));
    ASSERT_EQ(there.rows.rows(), back.rows.rows());
    for (qint64 row = 0; row < there.rows.rows(); ++row)
      for (int i = 0; i < there.rows.names().size(); ++i) {
        ASSERT_EQ(there.rows.value(row, i).isNull(), back.rows.value(row, i).isNull());
        ASSERT_EQ(there.rows.value(row, i).toText(), back.rows.value(row, i).toText());
      }
  }

  // What holds rows is not written over, and a cent that went astray is seen.
  EXPECT_NE(Copy::rows(*source, *middle), u""_s);
  ASSERT_EQ(middle->runAll({u"update TabFeeInf set Moneyy=Moneyy+0.01 where LineNo=1 and Code=(select min(Code) from TabFeeInf)"_s,
                            u"delete from TabTurn"_s}),
            u""_s);
  EXPECT_EQ(differing(*source, *middle), QStringList({u"TabTurn"_s, u"TabFeeInf"_s}));
}

TEST_F(CopyTest, ARowThatDoesNotFitLeavesNothingBehind)
{
  const auto source = file(u"a.mdb"_s, AccountSet::Content::Demo);
  ASSERT_EQ(source->runAll({u"update TabFee set SumMoney='abc'"_s}), u""_s);
  const TestServer::Database server(u"copy_test"_s);
  const auto target = Store::open(server.administrator).store;
  ASSERT_TRUE(target);
  EXPECT_TRUE(Copy::rows(*source, *target).startsWith(u"TabFee: "_s));
  EXPECT_EQ(target->run(u"select count(*) from TabClient"_s).rows.value(0, 0).toInteger(), 0);
}
