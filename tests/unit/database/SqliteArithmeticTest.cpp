#include "database/EmbeddedEngine.h"
#include "support/Printing.h"
#include "support/RawDatabase.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

struct SqliteArithmeticTest : testing::Test {
  QTemporaryDir folder;
  QString path = folder.filePath(u"set.mdb"_s);
  std::unique_ptr<Engine> engine;

  SqliteArithmeticTest()
  {
    RawDatabase file(path);
    file.run(
        u"create table T(a numeric, b numeric, c numeric, n numeric, t text, whole numeric);"
        "insert into T values(200.02,120.05,79.97,null,'12.5x',3),(0.1,0.2,0.3,1.5,'',4),(1234567.8912,0.0001,6.8523,null,'abc',-5)"_s);
    engine = *EmbeddedEngine::open(path);
  }

  // All digits of the rows' values: "1" is a whole number, "1." is not; or the error.
  QString answer(const QString& sql)
  {
    const auto rows = engine->execute(sql);
    if (!rows)
      return u"error: "_s + rows.error().description;
    QStringList values;
    for (qint64 row = 0; row < rows->rows(); ++row) {
      const Value value = rows->value(row, 0);
      QString text = value.is<double>() ? QString::number(value.toNumber(), 'g', QLocale::FloatingPointShortest) : value.toText();
      if (value.is<double>() && !text.contains(u'.') && !text.contains(u'e'))
        text += u'.';
      values.append(value.isNull() ? u"NULL"_s : text);
    }
    return values.join(u' ');
  }
};

} // namespace

TEST_F(SqliteArithmeticTest, ComputesWithDecimals)
{
  struct Row {
    const char* what;
    const char* expected;
  };
  for (const auto& [what, expected] : {
           Row{"a-b-c", "0. -0.4 1234561.0388"},
           Row{"a-b-c=0", "1 0 0"},
           Row{"a+b=c", "0 1 0"},
           Row{"(a-b)*c", "6395.2009 -0.03 8459629.56018453"},
           Row{"-(a-b)*-2", "159.94 -0.2 2469135.7822"},
           Row{"a - -b", "320.07 0.3 1234567.8913"},
           Row{"a+b*c", "9800.4185 0.16 1234567.89188523"},
           Row{"whole*2-1", "5 7 -11"},
           Row{"whole-1.0", "2. 3. -6."},
           Row{"a+n", "NULL 1.6 NULL"},
           Row{"a+coalesce(n,0)", "200.02 1.6 1234567.8912"},
           Row{"a+t", "212.52 0.1 1234567.8912"},
           Row{"case when a-b=c+0 then a-b else c-b end", "79.97 0.1 6.8522"},
           Row{"(select max(x.b) from T x)-b", "0. 119.85 120.0499"},
           Row{"1e-5+1E+1-.5", "9.50001 9.50001 9.50001"},
           Row{"cast((a-b)*100 as integer)", "7997 -10 123456789"},
           Row{"whole*1e15+0.25-1e15*whole", "0.25 0.25 0.25"},
           // The engine reads this one bit too low.
           Row{"8.637683*1000000=8637683", "1 1 1"},
           Row{"123456789012.3456-123456789012", "0.3456 0.3456 0.3456"},
           // Left to the engine.
           Row{"(a-b)/2", "39.985 -0.05 617283.94555"},
           Row{"7%4", "3 3 3"},
           Row{"(a-b)||'x'", "79.97x -0.1x 1234567.8911x"},
       })
    EXPECT_EQ(answer(u"select %1 from T"_s.arg(QLatin1String(what))), QLatin1String(expected)) << what;
}

TEST_F(SqliteArithmeticTest, AddsUpDecimals)
{
  struct Row {
    const char* sql;
    const char* expected;
  };
  for (const auto& [sql, expected] : {
           Row{"select sum(a) from T", "1234768.0112"},
           Row{"select sum(a-b-c) from T", "1234560.6388"},
           Row{"select sum(-whole) from T", "-2"},
           Row{"select sum(n) from T where n is null", "NULL"},
           Row{"select sum(distinct c)-1 from T", "86.1223"},
           Row{"select sum(a) from T group by whole>0 order by 1", "200.12 1234567.8912"},
           Row{"select sum(a)-sum(b)-sum(t) from T", "1234635.2611"},
           // Of each product twenty digits are needed, and two of their sum.
           Row{"select sum(s) as s from (select a*1e-15+1e6 as s from T where whole=4 union all select sum(-1e6*b*5) as s from T where "
               "whole=4) x",
               "1e-16"},
           // A column that is not only added up is a number, rounded as one.
           Row{"select s from (select sum(a*c) as s from T) x where s>8475000", "8475625.19026976"},
           Row{"select sum(s) from (select a-b as s from T) x where s<1", "-0.1"},
           Row{"select count(*) from T having sum(a)=1234768.0112", "3"},
       })
    EXPECT_EQ(answer(QLatin1String(sql)), QLatin1String(expected)) << sql;
}

// What cannot be computed is an error of its statement.
TEST_F(SqliteArithmeticTest, HostileNumbersEndInAnError)
{
  for (const char* sql :
       {"select 1e308*10+1", "select sum(x) from (select 1e308 as x union all select 1e308) y", "select 9e999-1", "select exact_value('+')",
        "select exact_value('vv',1,2)", "select exact_value('v',1,2)", "select exact_value(null)", "select exact_value('v/',1)",
        "select exact_value()", "select exact_sum('vvvv*',1)", "select sum(9e999)", "select exact_value('vvx',1,2)"})
    EXPECT_TRUE(answer(QLatin1String(sql)).startsWith(u"error: "_s)) << sql;
  const QString open(60'000, u'(');
  for (const QString& sql : {u"select "_s + open, u"select "_s + open + u'1' + QString(60'000, u')'),
                             u"select 1"_s + u"-(1"_s.repeated(40) + QString(40, u')'), u"select 1"_s + u"-1"_s.repeated(5'000)})
    EXPECT_TRUE(answer(sql).startsWith(u"error: "_s)) << shown(sql.left(60));

  struct Row {
    const char* what;
    const char* expected;
  };
  for (const auto& [what, expected] : {
           Row{"1e300+0.01", "1e+300"},
           Row{"1e300-1e300+0.01", "0.01"},
           Row{"1e-300*1e-300+1", "1."},
           Row{"9223372036854775807+1", "9223372036854776000."},
           Row{"9223372036854775806+1", "9223372036854775807"},
           Row{"-9223372036854775808-1+2.5", "-9223372036854776000."},
           Row{"123456789012345678*123456789012345678*1e-20", "152415787532388.38"},
           Row{"1.2345678901234567*1.2345678901234567*1.2345678901234567", "1.8816763723536574"},
           Row{"0-'1e999999999999'*0", "0."},
           Row{"x'3132'+1", "13"},
       })
    EXPECT_EQ(answer(u"select "_s + QLatin1String(what)), QLatin1String(expected)) << what;
}
