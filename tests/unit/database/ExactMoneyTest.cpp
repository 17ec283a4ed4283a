#include "database/EmbeddedEngine.h"
#include "database/ServerEngine.h"
#include "ledger/Balance.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"
#include "support/TestServer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

// The same random bills in a file and on a server, and the same queries to both: PostgreSQL's numbers are decimals of any
// length, so its results are right. With ZORVEK_LONG it is 200,000 bills.

namespace {

constexpr const char* Tables[] = {"TabOutBill", "TabOutCancleBill", "TabInBill", "TabInCancleBill"};
constexpr int BillsAStatement = 500;

// An amount, counted in ten-thousandths.
QString text(qint64 count)
{
  const qint64 size = qAbs(count);
  return QString("%1%2.%3").arg(count < 0 ? "-" : QString()).arg(size / 10000).arg(size % 10000, 4, 10, QChar(u'0'));
}

class Bills {
public:
  QString next()
  {
    const qint64 sum = amount();
    const qint64 cash = paid(sum);
    const qint64 credit = paid(sum - cash);
    const qint64 due = sum - cash - credit;
    ++m_count;
    return QString("('B%1','K%2','2022-06-01','正常','%3',%4,%5,%6,%7,%8,%9)")
        .arg(m_count, 6, 10, QChar(u'0'))
        .arg(m_count % partners())
        .arg(below(3) == 0 ? "美元" : "人民币", rate(), text(sum), text(paid(sum)), text(cash), text(credit), text(settled(due)));
  }

  static bool isLong() { return qEnvironmentVariableIsSet("ZORVEK_LONG"); }
  static int count() { return isLong() ? 200'000 : 2'000; }
  static int partners() { return isLong() ? 200 : 4; }
  qint64 below(qint64 end) { return std::uniform_int_distribution<qint64>(0, end - 1)(m_random); }

private:
  // From cents to ten billions, with up to four decimals.
  qint64 amount()
  {
    static constexpr qint64 Units[] = {10'000, 1'000, 100, 100, 100, 10, 1};
    const qint64 unit = Units[below(std::size(Units))];
    const qint64 most = qint64(1e6 * std::pow(10, double(below(9))));
    return (below(10) == 0 ? -1 : 1) * (below(most / unit) * unit);
  }
  // Nothing, all or a part, to the cent or finer.
  qint64 paid(qint64 of)
  {
    const qint64 unit = below(4) == 0 ? 1 : 100;
    const qint64 part = (of < 0 ? -1 : 1) * (below(qAbs(of) + 1) / unit * unit);
    const qint64 choices[] = {0, below(8) == 0 ? of : 0, part, part};
    return choices[below(4)];
  }
  qint64 settled(qint64 due)
  {
    const qint64 choices[] = {0, due + 1, due - 100, amount()};
    const qint64 choice = below(10);
    return choice < 4 ? choices[choice] : due;
  }
  QString rate()
  {
    static constexpr const char* Known[] = {"1", "6.8523", "0.0548", "7.12345678", "0.000145321"};
    return below(2) == 0 ? Known[below(std::size(Known))] : QString("%1.%2").arg(below(12)).arg(below(1'000'000), 6, 10, QChar('0'));
  }

  std::mt19937_64 m_random{20220608};
  int m_count = 0;
};

struct ExactMoneyTest : testing::Test, AccountSetFixture {
  static inline std::unique_ptr<TestServer::Database> database;
  std::unique_ptr<Engine> engines[2];
  Bills bills;

  static void SetUpTestSuite()
  {
    if (TestServer::administrator())
      database = std::make_unique<TestServer::Database>("exact_money");
  }
  static void TearDownTestSuite() { database.reset(); }

  void SetUp() override
  {
    if (!database)
      GTEST_SKIP() << "tools/with-server runs these tests";
    ASSERT_EQ(errorOf(database->made), "");
    engines[0] = *EmbeddedEngine::open(accountSetPath());
    engines[1] = *ServerEngine::open(database->clerk.server);
    for (const char* const table : Tables)
      ASSERT_TRUE(engines[1]->execute(QString("delete from ") + table));
  }

  void fill(int count)
  {
    for (int done = 0; done < count; done += BillsAStatement) {
      QStringList some;
      for (int i = 0; i < BillsAStatement; ++i)
        some.append(bills.next());
      const QString sql =
          QString("insert into %1(Code,UnitCode,Datee,State,MoneyName,MoneyRate,SumMoney,AllDiscount,Cash,Credit,HXMoney) values")
              .arg(QLatin1String(Tables[std::size_t(done / BillsAStatement) % std::size(Tables)])) +
          some.join(u',');
      for (const auto& engine : engines)
        ASSERT_TRUE(engine->execute(sql));
    }
  }

  // The same rows, and the same numbers to the last bit.
  void compare(const QString& sql)
  {
    const auto ours = engines[0]->execute(sql);
    const auto theirs = engines[1]->execute(sql);
    ASSERT_EQ(errorOf(ours), "") << shown(sql);
    ASSERT_EQ(errorOf(theirs), "") << shown(sql);
    ASSERT_EQ(ours->rows(), theirs->rows()) << shown(sql);
    for (qint64 row = 0; row < ours->rows(); ++row)
      for (int i = 0; i < ours->names().size(); ++i) {
        const Value here = ours->value(row, i);
        const Value there = theirs->value(row, i);
        ASSERT_TRUE(here.isNull() == there.isNull() && here.toNumber() == there.toNumber() &&
                    (!here.is<QString>() || here.toText() == there.toText()))
            << shown(sql) << ": row " << row << ", " << shown(here.toText()) << " is " << shown(there.toText());
      }
  }
};

// An expression of random shape over the columns of a bill, not too long for its value to be exact in
// other functions.
class Expressions {
public:
  explicit Expressions(Bills& bills) : m_bills(bills) {}

  QString sum(int depth)
  {
    switch (depth > 0 ? m_bills.below(9) : 0) {
    case 0: return leaf();
    case 1: return QString("- ") + leaf();
    case 2: return QString("(") + sum(depth - 1) + ")";
    case 3: return QString(" - (") + sum(depth - 1) + " )";
    case 4: return QString("coalesce(HXMoney - %1,%2)").arg(leaf(), sum(depth - 1));
    case 5: return QString("case when %1>%2 then %3 else %4 end").arg(sum(depth - 1), leaf(), sum(depth - 1), leaf());
    case 6: return sum(depth - 1) + QString("+") + sum(depth - 1);
    default: return sum(depth - 1) + QString(" - ") + sum(depth - 1);
    }
  }

  QString any(int depth)
  {
    switch (depth > 0 ? m_bills.below(6) : 0) {
    case 0: return sum(1);
    case 1: return QString("(") + any(depth - 1) + ")*MoneyRate";
    case 2: return any(depth - 1) + QString("*") + leaf();
    case 3: return QString("(%1)*( - %2)").arg(any(depth - 1), leaf());
    default: return any(depth - 1) + (m_bills.below(2) == 0 ? "+" : " - ") + any(depth - 1);
    }
  }

private:
  QString leaf()
  {
    static const QStringList Leaves = QString("SumMoney|Cash|Credit|TabInBill.HXMoney|AllDiscount|0.07|12.5|-3.001|"
                                              "(select max(c.Cash) from TabInBill c)")
                                          .split('|');
    return Leaves[m_bills.below(Leaves.size())];
  }

  Bills& m_bills;
};

} // namespace

TEST_F(ExactMoneyTest, ConditionsSumsAndBalancesAreThoseOfTheServer)
{
  fill(Bills::count());
  for (const char* const table : Tables) {
    const auto ask = [&](const QString& sql) { compare(QString(sql).replace(u'@', table)); };
    for (const char* const sign : {">", "=", "<>", "<", "<=", ">="})
      ask(QString("select Code from @ where  (@.SumMoney-@.Cash-@.Credit%1 @.HXMoney)  order by Code").arg(sign));
    ask("select Code from @ where  (@.SumMoney-@.Cash-@.Credit<> @.HXMoney   and @.SumMoney-@.Cash-@.Credit>  0 )  order by Code");
    ask("select Code,(SumMoney-Cash-Credit) as D,(SumMoney-AllDiscount)*MoneyRate as P,HXMoney+0.0001-(SumMoney-Cash) as Q from @ "
        "order by Code");
    ask("select UnitCode,sum(SumMoney) as S,sum(SumMoney-Cash-Credit-HXMoney) as D,sum(-(SumMoney-AllDiscount)*MoneyRate) as P,"
        "sum(HXMoney)-sum(Cash) as H from @ group by UnitCode order by UnitCode");
  }
  compare("select sum(S) as S,sum(T) as T from (select sum(SumMoney*MoneyRate) as S,Sum(Cash) as T from TabInBill union all "
          "select sum(-SumMoney*MoneyRate) as S,sum(-Credit*MoneyRate) as T from TabOutBill union all select Cash*MoneyRate as S,0 as T "
          "from TabInCancleBill) t");
  Session server{desk, machine};
  server.params = session.params;
  database->use(server.params);
  for (int partner = 0; partner < Bills::partners(); ++partner)
    for (const char* const currency : {"人民币", "综合本位币", ""}) {
      const auto balance = [&](Session& of) {
        return ModFuntion::GetOutstandingBalance(of, QString("K%1").arg(partner), QDate(2022, 6, 8), QString::fromUtf8(currency), false)
            .toText();
      };
      ASSERT_EQ(balance(session), balance(server)) << partner << currency;
    }
  EXPECT_EQ(desk.takeTexts(), "");
}

TEST_F(ExactMoneyTest, ExpressionsOfAnyShapeAreThoseOfTheServer)
{
  QStringList rows;
  for (int i = 0; i < 12; ++i)
    rows.append(QString("('%1',%2.35,%3.1,0.07,%4.0001,%5,6.8523)")
                    .arg(i)
                    .arg(i * 1999)
                    .arg(i * i)
                    .arg(i)
                    .arg(i % 3 == 0 ? "null" : QString("%1.3").arg(i - 5)));
  for (const auto& engine : engines)
    ASSERT_TRUE(engine->execute(QString("insert into TabInBill(Code,SumMoney,Cash,Credit,AllDiscount,HXMoney,MoneyRate) values") +
                                rows.join(u',')));
  Expressions expressions(bills);
  for (int i = 0; i < (Bills::isLong() ? 20'000 : 150) && !HasFatalFailure(); ++i) {
    compare(QString("select %1 as X from TabInBill order by Code").arg(expressions.any(4)));
    compare(QString("select sum(%1) as X from TabInBill group by HXMoney>0 order by 1").arg(expressions.any(3)));
    compare(QString("select Code from TabInBill where %1>%2 or not %3<=12.5 order by Code")
                .arg(expressions.sum(3), expressions.sum(2), expressions.any(2)));
  }
}
