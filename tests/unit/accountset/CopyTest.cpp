#include "accountset/Copy.h"

#include "accountset/AccountSet.h"
#include "samplefirm/SampleFirm.h"
#include "support/Printing.h"
#include "support/TestServer.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

struct CopyTest : testing::Test {
  void SetUp() override
  {
    if (!TestServer::administrator())
      GTEST_SKIP() << "tools/with-server runs these tests";
  }

  std::unique_ptr<Store> file(const QString& name, const AccountSet::Fill& fill = {})
  {
    const AccountSetLocation location{folder.filePath(name), {}};
    EXPECT_TRUE(AccountSet::create(location.file, fill));
    return *Store::open(location);
  }

  // The tables that both sides do not hold alike.
  static QStringList differing(Store& from, Store& to)
  {
    const auto proofs = Copy::prove(from, to);
    if (!proofs)
      return {proofs.error()};
    QStringList tables;
    for (const Copy::Proof& proof : *proofs)
      if (!(proof.from == proof.to))
        tables.append(proof.table);
    return tables;
  }

  // A copy of the account set that is written to all the while.
  void copyUnderWay(const char* name, const AccountSetLocation& source, Store& target);

  QTemporaryDir folder;
};

// Writes bills, each with its two lines in one transaction, until it is stopped.
class Writer {
public:
  explicit Writer(AccountSetLocation location) : m_location(std::move(location)), m_thread([this] { work(); }) {}
  ~Writer() { stop(); }

  void stop()
  {
    m_goesOn = false;
    if (m_thread.joinable())
      m_thread.join();
  }

  std::atomic<int> bills = 0;
  QString error;                           // to be read when it has been stopped
  std::chrono::milliseconds longestWait{}; // too

private:
  void work()
  {
    const auto store = *Store::open(m_location);
    for (; m_goesOn && error.isEmpty(); ++bills) {
      const QString code = u"FKX%1"_s.arg(bills);
      const auto start = std::chrono::steady_clock::now();
      error = errorOf(store->runAll({u"begin"_s, u"insert into TabPayfundBill(Code,SumMoney) values('%1',2)"_s.arg(code),
                                     u"insert into TabPayfundBillInf(LineNo,BillCode,Moneyy) values(1,'%1',1)"_s.arg(code),
                                     u"insert into TabPayfundBillInf(LineNo,BillCode,Moneyy) values(2,'%1',1)"_s.arg(code), u"commit"_s}));
      longestWait = std::max(longestWait, std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start));
    }
  }

  AccountSetLocation m_location;
  std::atomic<bool> m_goesOn = true;
  std::thread m_thread;
};

void CopyTest::copyUnderWay(const char* name, const AccountSetLocation& source, Store& target)
{
  const auto filler = *Store::open(source);
  ASSERT_TRUE(
      filler->runAll({u"insert into TabPayfundBill(Code,SumMoney) with recursive n(i) as (select 1 union all select i+1 from n "
                      "where i<10000) select 'FKO'||i, 2 from n"_s,
                      u"insert into TabPayfundBillInf(LineNo,BillCode,Moneyy) select i, Code, 1 from TabPayfundBill, (select 1 as i "
                      "union all select 2) n"_s}));
  Writer writer(source);
  while (writer.bills < 3)
    std::this_thread::yield();
  const auto from = *Store::openMoment(source);
  const int bills = writer.bills;
  EXPECT_TRUE(Copy::rows(*from, target));
  EXPECT_EQ(differing(*from, target), QStringList());
  const int written = writer.bills - bills;
  writer.stop();
  EXPECT_EQ(writer.error, u""_s);
  // The copying itself holds nobody off.
  EXPECT_GT(written, 0);
  EXPECT_EQ(target
                .run(u"select (select count(*) from TabPayfundBill h where (select count(*) from TabPayfundBillInf l where "
                     "l.BillCode=h.Code)<>2)+(select count(*) from TabPayfundBillInf l where not exists (select 1 from TabPayfundBill h "
                     "where h.Code=l.BillCode))"_s)
                ->value(0, 0)
                .toInteger(),
            0);
  std::printf("copy of a %s under way: %d bills written meanwhile, the longest took %d ms\n", name, written,
              int(writer.longestWait.count()));
}

} // namespace

TEST_F(CopyTest, ThereAndBackIsTheSame)
{
  const auto source = file(u"a.mdb"_s, SampleFirm::write);
  // What is easily lost on the way: quotes, nothing, an empty text, bytes, long fractions, a blank ahead of a date.
  ASSERT_TRUE(source->runAll({u"insert into TabClient(Code,Name,Address) values('Z''1','a\\b''\"?{}',''),('Z2',null,'😀')"_s,
                              u"insert into TabExcelTable values('模板','付款单',1,x'00ff27275c')"_s,
                              u"insert into TabSFKHeXiao values(' 2022-06-08','A','B',0.1,'2022-6-8',null)"_s,
                              u"insert into TabMoneyType values('ZZ',6.831249,'否')"_s}));
  const TestServer::Database server(u"copy_test"_s);
  ASSERT_EQ(errorOf(server.made), u""_s);
  const auto middle = *Store::open(server.administrator);
  ASSERT_TRUE(Copy::rows(*source, *middle));
  const auto target = file(u"b.mdb"_s);
  ASSERT_TRUE(Copy::rows(*middle, *target));
  EXPECT_EQ(differing(*source, *middle), QStringList());
  EXPECT_EQ(differing(*source, *target), QStringList());
  for (const char* sql : {"select * from TabClient order by Code", "select TabName, hex(TabInf) from TabExcelTable order by TabName",
                          "select * from TabSFKHeXiao order by InOutBillCode", "select * from TabWarrantInf order by BillCode, LineNum"}) {
    const auto there = source->run(QLatin1String(sql));
    const auto back = target->run(QLatin1String(sql));
    ASSERT_EQ(there->rows(), back->rows());
    for (qint64 row = 0; row < there->rows(); ++row)
      for (int i = 0; i < there->names().size(); ++i) {
        ASSERT_EQ(there->value(row, i).isNull(), back->value(row, i).isNull());
        ASSERT_EQ(there->value(row, i).toText(), back->value(row, i).toText());
      }
  }

  // What holds rows is not written over, and a cent that went astray is seen.
  EXPECT_FALSE(Copy::rows(*source, *middle));
  ASSERT_TRUE(middle->runAll(
      {u"update TabFeeInf set Moneyy=Moneyy+0.01 where LineNo=1 and Code=(select min(Code) from TabFeeInf)"_s, u"delete from TabTurn"_s}));
  EXPECT_EQ(differing(*source, *middle), QStringList({u"TabTurn"_s, u"TabFeeInf"_s}));
}

TEST_F(CopyTest, ARowThatDoesNotFitLeavesNothingBehind)
{
  const auto source = file(u"a.mdb"_s, SampleFirm::write);
  ASSERT_TRUE(source->runAll({u"update TabFee set SumMoney='abc'"_s}));
  const TestServer::Database server(u"copy_test"_s);
  const auto target = *Store::open(server.administrator);
  EXPECT_TRUE(errorOf(Copy::rows(*source, *target)).startsWith(u"TabFee: "_s));
  EXPECT_EQ(target->run(u"select count(*) from TabClient"_s)->value(0, 0).toInteger(), 0);
}

TEST_F(CopyTest, ALiveAccountSetIsCopiedAsItIsAtOneMoment)
{
  const AccountSetLocation source{folder.filePath(u"a.mdb"_s), {}};
  ASSERT_TRUE(AccountSet::create(source.file));
  copyUnderWay("file", source, *file(u"b.mdb"_s));
  const TestServer::Database server(u"copy_test"_s);
  copyUnderWay("server", server.clerk, *file(u"c.mdb"_s));
}
