#include "database/EmbeddedEngine.h"
#include "database/ServerEngine.h"
#include "ledger/Balance.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"
#include "support/TestServer.h"

#include <gtest/gtest.h>

#include <random>

// The same random bills in a file and on a server, and the same questions to both: PostgreSQL's numbers
// are decimals of any length, so what it answers is right. With ZORVEK_LONG it is 200,000 bills.

using namespace Qt::StringLiterals;

namespace {

constexpr const char* Tables[] = {"TabOutBill", "TabOutCancleBill", "TabInBill", "TabInCancleBill"};
constexpr int BillsAStatement = 500;

// An amount, counted in ten-thousandths.
QString text(qint64 count)
{
  const qint64 size = qAbs(count);
  return u"%1%2.%3"_s.arg(count < 0 ? u"-"_s : QString()).arg(size / 10000).arg(size % 10000, 4, 10, QChar(u'0'));
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
    return u"('B%1','K%2','2022-06-01','正常','%3',%4,%5,%6,%7,%8,%9)"_s.arg(m_count, 6, 10, QChar(u'0'))
        .arg(m_count % partners())
        .arg(below(3) == 0 ? u"美元"_s : u"人民币"_s, rate(), text(sum), text(paid(sum)), text(cash), text(credit), text(settled(due)));
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
    qint64 most = 1'000'000;
    for (qint64 digits = below(9); digits > 0; --digits)
      most *= 10;
    const qint64 count = below(most / unit) * unit;
    return below(10) == 0 ? -count : count;
  }
  // Nothing, all or a part, to the cent or finer.
  qint64 paid(qint64 of)
  {
    const qint64 unit = below(4) == 0 ? 1 : 100;
    switch (below(4)) {
    case 0: return 0;
    case 1: return below(8) == 0 ? of : 0;
    default: return (of < 0 ? -1 : 1) * (below(qAbs(of) + 1) / unit * unit);
    }
  }
  qint64 settled(qint64 due)
  {
    switch (below(10)) {
    case 0: return 0;
    case 1: return due + 1;
    case 2: return due - 100;
    case 3: return amount();
    default: return due;
    }
  }
  QString rate()
  {
    static constexpr const char* Known[] = {"1", "6.8523", "0.0548", "7.12345678", "0.000145321"};
    return below(2) == 0 ? QString::fromLatin1(Known[below(std::size(Known))])
                         : u"%1.%2"_s.arg(below(12)).arg(below(1'000'000), 6, 10, QChar(u'0'));
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
      database = std::make_unique<TestServer::Database>(u"exact_money"_s);
  }
  static void TearDownTestSuite() { database.reset(); }

  void SetUp() override
  {
    if (!database)
      GTEST_SKIP() << "tools/with-server runs these tests";
    ASSERT_EQ(errorOf(database->made), u""_s);
    engines[0] = *EmbeddedEngine::open(accountSetPath());
    engines[1] = *ServerEngine::open(database->clerk.server);
    for (const char* const table : Tables)
      ASSERT_TRUE(engines[1]->execute(u"delete from "_s + QLatin1String(table)));
  }

  void fill(int count)
  {
    for (int done = 0; done < count; done += BillsAStatement) {
      QStringList some;
      for (int i = 0; i < BillsAStatement; ++i)
        some.append(bills.next());
      const QString sql =
          u"insert into %1(Code,UnitCode,Datee,State,MoneyName,MoneyRate,SumMoney,AllDiscount,Cash,Credit,HXMoney) values"_s.arg(
              QLatin1String(Tables[std::size_t(done / BillsAStatement) % std::size(Tables)])) +
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
    ASSERT_EQ(errorOf(ours), u""_s) << shown(sql);
    ASSERT_EQ(errorOf(theirs), u""_s) << shown(sql);
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

  void useServer(SessionParams& params) const
  {
    const ServerAddress& server = database->clerk.server;
    params.DatabaseType = u"SQL"_s;
    params.IsAccessSQL = false;
    params.ConServerIP = server.host;
    params.ConPortNum = server.port;
    params.ConDataName = server.database;
    params.ConDataBaseUID = server.user;
    params.ConDataBasePWD = u"{p;w}}x y}"_s;
  }
};

// An expression of random shape over the columns of a bill, not too long for its value to be exact in
// the midst of other functions.
class Expressions {
public:
  explicit Expressions(Bills& bills) : m_bills(bills) {}

  QString sum(int depth)
  {
    switch (depth > 0 ? m_bills.below(9) : 0) {
    case 0: return leaf();
    case 1: return u"- "_s + leaf();
    case 2: return u"("_s + sum(depth - 1) + u")"_s;
    case 3: return u" - ("_s + sum(depth - 1) + u" )"_s;
    case 4: return u"coalesce(HXMoney - %1,%2)"_s.arg(leaf(), sum(depth - 1));
    case 5: return u"case when %1>%2 then %3 else %4 end"_s.arg(sum(depth - 1), leaf(), sum(depth - 1), leaf());
    case 6: return sum(depth - 1) + u"+"_s + sum(depth - 1);
    default: return sum(depth - 1) + u" - "_s + sum(depth - 1);
    }
  }

  QString any(int depth)
  {
    switch (depth > 0 ? m_bills.below(6) : 0) {
    case 0: return sum(1);
    case 1: return u"("_s + any(depth - 1) + u")*MoneyRate"_s;
    case 2: return any(depth - 1) + u"*"_s + leaf();
    case 3: return u"(%1)*( - %2)"_s.arg(any(depth - 1), leaf());
    default: return any(depth - 1) + (m_bills.below(2) == 0 ? u"+"_s : u" - "_s) + any(depth - 1);
    }
  }

private:
  QString leaf()
  {
    static constexpr const char* Leaves[] = {"SumMoney",
                                             "Cash",
                                             "Credit",
                                             "TabInBill.HXMoney",
                                             "AllDiscount",
                                             "0.07",
                                             "12.5",
                                             "-3.001",
                                             "(select max(c.Cash) from TabInBill c)"};
    return QString::fromLatin1(Leaves[m_bills.below(std::size(Leaves))]);
  }

  Bills& m_bills;
};

} // namespace

TEST_F(ExactMoneyTest, ConditionsSumsAndBalancesAreThoseOfTheServer)
{
  fill(Bills::count());
  for (const char* const table : Tables) {
    const auto ask = [&](const QString& sql) { compare(QString(sql).replace(u'@', QLatin1String(table))); };
    for (const char* const sign : {">", "=", "<>", "<", "<=", ">="})
      ask(u"select Code from @ where  (@.SumMoney-@.Cash-@.Credit%1 @.HXMoney)  order by Code"_s.arg(QLatin1String(sign)));
    ask(u"select Code from @ where  (@.SumMoney-@.Cash-@.Credit<> @.HXMoney   and @.SumMoney-@.Cash-@.Credit>  0 )  order by Code"_s);
    ask(u"select Code,(SumMoney-Cash-Credit) as D,(SumMoney-AllDiscount)*MoneyRate as P,HXMoney+0.0001-(SumMoney-Cash) as Q from @ "
        "order by Code"_s);
    ask(u"select UnitCode,sum(SumMoney) as S,sum(SumMoney-Cash-Credit-HXMoney) as D,sum(-(SumMoney-AllDiscount)*MoneyRate) as P,"
        "sum(HXMoney)-sum(Cash) as H from @ group by UnitCode order by UnitCode"_s);
  }
  compare(u"select sum(S) as S,sum(T) as T from (select sum(SumMoney*MoneyRate) as S,Sum(Cash) as T from TabInBill union all "
          "select -sum(SumMoney*MoneyRate) as S,sum(-Credit*MoneyRate) as T from TabOutBill union all select Cash*MoneyRate as S,0 as T "
          "from TabInCancleBill) t"_s);
  Session server{desk, machine};
  server.params = session.params;
  useServer(server.params);
  for (int partner = 0; partner < Bills::partners(); ++partner)
    for (const char* const currency : {"人民币", "综合本位币", ""}) {
      const auto figures = [&](Session& of) {
        return ModFuntion::GetOutstandingBalance(of, u"K%1"_s.arg(partner), QDate(2022, 6, 8), QString::fromUtf8(currency), false).toText();
      };
      ASSERT_EQ(figures(session), figures(server)) << partner << currency;
    }
  EXPECT_EQ(desk.takeTexts(), u""_s);
}

TEST_F(ExactMoneyTest, ExpressionsOfAnyShapeAreThoseOfTheServer)
{
  QStringList rows;
  for (int i = 0; i < 12; ++i)
    rows.append(u"('%1',%2.35,%3.1,0.07,%4.0001,%5,6.8523)"_s.arg(i).arg(i * 1999).arg(i * i).arg(i).arg(
        i % 3 == 0 ? u"null"_s : u"%1.3"_s.arg(i - 5)));
  for (const auto& engine : engines)
    ASSERT_TRUE(
        engine->execute(u"insert into TabInBill(Code,SumMoney,Cash,Credit,AllDiscount,HXMoney,MoneyRate) values"_s + rows.join(u',')));
  Expressions expressions(bills);
  for (int i = 0; i < (Bills::isLong() ? 20'000 : 150) && !HasFatalFailure(); ++i) {
    compare(u"select %1 as X from TabInBill order by Code"_s.arg(expressions.any(4)));
    compare(u"select sum(%1) as X from TabInBill group by HXMoney>0 order by 1"_s.arg(expressions.any(3)));
    compare(u"select Code from TabInBill where %1>%2 or not %3<=12.5 order by Code"_s.arg(expressions.sum(3), expressions.sum(2),
                                                                                          expressions.any(2)));
  }
}
