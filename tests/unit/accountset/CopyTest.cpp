#include "accountset/Copy.h"

#include "accountset/AccountSet.h"
#include "samplefirm/SampleFirm.h"
#include "support/Printing.h"
#include "support/TestServer.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <atomic>
#include <thread>

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

  static QStringList texts(Store& store, const char* sql)
  {
    const auto rows = *store.run(sql);
    QStringList values;
    for (qint64 row = 0; row < rows.rows(); ++row)
      for (int i = 0; i < rows.names().size(); ++i)
        values.append(rows.value(row, i).isNull() ? "NULL" : rows.value(row, i).toText());
    return values;
  }

  // Copies an account set while it is written to.
  void copyUnderWay(const AccountSetLocation& source, Store& target);

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
  QString error; // to be read when it has been stopped

private:
  void work()
  {
    const auto store = *Store::open(m_location);
    for (; m_goesOn && error.isEmpty(); ++bills) {
      const QString code = QString("FKX%1").arg(bills);
      error =
          errorOf(store->runAll({"begin", QString("insert into TabPayfundBill(Code,SumMoney) values('%1',2)").arg(code),
                                 QString("insert into TabPayfundBillInf(LineNo,BillCode,Moneyy) values(1,'%1',1)").arg(code),
                                 QString("insert into TabPayfundBillInf(LineNo,BillCode,Moneyy) values(2,'%1',1)").arg(code), "commit"}));
    }
  }

  AccountSetLocation m_location;
  std::atomic<bool> m_goesOn = true;
  std::thread m_thread;
};

void CopyTest::copyUnderWay(const AccountSetLocation& source, Store& target)
{
  const auto filler = *Store::open(source);
  ASSERT_TRUE(filler->runAll({"insert into TabPayfundBill(Code,SumMoney) with recursive n(i) as (select 1 union all select i+1 from n "
                              "where i<10000) select 'FKO'||i, 2 from n",
                              "insert into TabPayfundBillInf(LineNo,BillCode,Moneyy) select i, Code, 1 from TabPayfundBill, (select 1 as i "
                              "union all select 2) n"}));
  Writer writer(source);
  while (writer.bills < 3)
    std::this_thread::yield();
  const auto from = *Store::openMoment(source);
  const int bills = writer.bills;
  EXPECT_TRUE(Copy::rows(*from, target));
  EXPECT_EQ(differing(*from, target), QStringList());
  EXPECT_GT(writer.bills, bills) << "the copying holds nobody off";
  writer.stop();
  EXPECT_EQ(writer.error, "");
  EXPECT_EQ(target
                .run("select (select count(*) from TabPayfundBill h where (select count(*) from TabPayfundBillInf l where "
                     "l.BillCode=h.Code)<>2)+(select count(*) from TabPayfundBillInf l where not exists (select 1 from TabPayfundBill h "
                     "where h.Code=l.BillCode))")
                ->value(0, 0)
                .toInteger(),
            0);
}

} // namespace

TEST_F(CopyTest, ThereAndBackIsTheSame)
{
  const auto source = file("a.mdb", SampleFirm::write);
  // Easily lost on the way: quotes, null, an empty text, bytes, long fractions, a space before a date.
  ASSERT_TRUE(source->runAll({"insert into TabClient(Code,Name,Address) values('Z''1','a\\b''\"?{}',''),('Z2',null,'😀')",
                              "insert into TabExcelTable values('模板','付款单',1,x'00ff27275c')",
                              "insert into TabSFKHeXiao values(' 2022-06-08','A','B',0.1,'2022-6-8',null)",
                              "insert into TabMoneyType values('ZZ',6.831249,'否')"}));
  const TestServer::Database server("copy_test");
  ASSERT_EQ(errorOf(server.made), "");
  const auto middle = *Store::open(server.administrator);
  ASSERT_TRUE(Copy::rows(*source, *middle));
  const auto target = file("b.mdb");
  ASSERT_TRUE(Copy::rows(*middle, *target));
  EXPECT_EQ(differing(*source, *middle), QStringList());
  EXPECT_EQ(differing(*source, *target), QStringList());
  for (const char* sql : {"select * from TabClient order by Code", "select TabName, hex(TabInf) from TabExcelTable order by TabName",
                          "select * from TabSFKHeXiao order by InOutBillCode", "select * from TabWarrantInf order by BillCode, LineNum"}) {
    EXPECT_EQ(texts(*source, sql), texts(*target, sql));
  }

  // A database with rows is not written over, and a lost cent is seen.
  EXPECT_FALSE(Copy::rows(*source, *middle));
  ASSERT_TRUE(middle->runAll(
      {"update TabFeeInf set Moneyy=Moneyy+0.01 where LineNo=1 and Code=(select min(Code) from TabFeeInf)", "delete from TabTurn"}));
  EXPECT_EQ(differing(*source, *middle), QStringList({"TabTurn", "TabFeeInf"}));
}

TEST_F(CopyTest, ARowThatDoesNotFitLeavesNothingBehind)
{
  const auto source = file("a.mdb", SampleFirm::write);
  ASSERT_TRUE(source->runAll({"update TabFee set SumMoney='abc'"}));
  const TestServer::Database server("copy_test");
  const auto target = *Store::open(server.administrator);
  EXPECT_TRUE(errorOf(Copy::rows(*source, *target)).startsWith("TabFee: "));
  EXPECT_EQ(target->run("select count(*) from TabClient")->value(0, 0).toInteger(), 0);
}

TEST_F(CopyTest, ALiveAccountSetIsCopiedAsItIsAtOneMoment)
{
  const AccountSetLocation source{folder.filePath("a.mdb"), {}};
  ASSERT_TRUE(AccountSet::create(source.file));
  copyUnderWay(source, *file("b.mdb"));
  const TestServer::Database server("copy_test");
  copyUnderWay(server.clerk, *file("c.mdb"));
}
