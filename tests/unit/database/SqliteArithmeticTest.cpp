#include "database/EmbeddedEngine.h"
#include "support/Printing.h"
#include "support/RawDatabase.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace {

struct SqliteArithmeticTest : testing::Test {
  QTemporaryDir folder;
  QString path = folder.filePath("set.mdb");
  std::unique_ptr<Engine> engine;

  SqliteArithmeticTest()
  {
    RawDatabase file(path);
    file.run("create table T(a numeric, b numeric, c numeric, n numeric, t text, whole numeric);"
             "insert into T values(200.02,120.05,79.97,null,'12.5x',3),(0.1,0.2,0.3,1.5,'',4),(1234567.8912,0.0001,6.8523,null,'abc',-5)");
    engine = *EmbeddedEngine::open(path);
  }

  // All digits of the rows' values: "1" is a whole number, "1." is not; or the error.
  QString answer(const QString& sql)
  {
    const auto rows = engine->execute(sql);
    if (!rows)
      return answerOf(rows);
    QStringList values;
    for (qint64 row = 0; row < rows->rows(); ++row) {
      const Value value = rows->value(row, 0);
      QString text = value.is<double>() ? QString::number(value.toNumber(), 'g', QLocale::FloatingPointShortest) : value.toText();
      if (value.is<double>() && !text.contains(u'.') && !text.contains(u'e'))
        text += u'.';
      values.append(value.isNull() ? "NULL" : text);
    }
    return values.join(u' ');
  }
};

} // namespace

TEST_F(SqliteArithmeticTest, ComputesWithDecimals)
{
  const TextRow rows[] = {
      {"a-b-c", "0. -0.4 1234561.0388"},
      {"a-b-c=0", "1 0 0"},
      {"a+b=c", "0 1 0"},
      {"(a-b)*c", "6395.2009 -0.03 8459629.56018453"},
      {"-(a-b)*-2", "159.94 -0.2 2469135.7822"},
      {"a - -b", "320.07 0.3 1234567.8913"},
      {"a+b*c", "9800.4185 0.16 1234567.89188523"},
      {"whole*2-1", "5 7 -11"},
      {"whole-1.0", "2. 3. -6."},
      {"a+n", "NULL 1.6 NULL"},
      {"a+coalesce(n,0)", "200.02 1.6 1234567.8912"},
      {"a+t", "212.52 0.1 1234567.8912"},
      {"case when a-b=c+0 then a-b else c-b end", "79.97 0.1 6.8522"},
      {"(select max(x.b) from T x)-b", "0. 119.85 120.0499"},
      {"1e-5+1E+1-.5", "9.50001 9.50001 9.50001"},
      {"cast((a-b)*100 as integer)", "7997 -10 123456789"},
      {"whole*1e15+0.25-1e15*whole", "0.25 0.25 0.25"},
      // The 39th digit is rounded.
      {"1e37+0.5-1e37", "1. 1. 1."},
      // The engine reads this one bit too low.
      {"8.637683*1000000=8637683", "1 1 1"},
      {"123456789012.3456-123456789012", "0.3456 0.3456 0.3456"},
      // Left to the engine.
      {"(a-b)/2", "39.985 -0.05 617283.94555"},
      {"7%4", "3 3 3"},
      {"(a-b)||'x'", "79.97x -0.1x 1234567.8911x"},
  };
  for (const auto& [what, expected] : rows)
    EXPECT_EQ(answer(QString("select %1 from T").arg(what)), expected) << what;
}

TEST_F(SqliteArithmeticTest, AddsUpDecimals)
{
  const TextRow rows[] = {
      {"select sum(a) from T", "1234768.0112"},
      {"select sum(a-b-c) from T", "1234560.6388"},
      {"select sum(-whole) from T", "-2"},
      {"select sum(n) from T where n is null", "NULL"},
      {"select sum(distinct c)-1 from T", "86.1223"},
      {"select sum(a) from T group by whole>0 order by 1", "200.12 1234567.8912"},
      {"select sum(a)-sum(b)-sum(t) from T", "1234635.2611"},
      // Of each product twenty digits are needed, and two of their sum.
      {"select sum(s) as s from (select a*1e-15+1e6 as s from T where whole=4 union all select sum(-1e6*b*5) as s from T where "
       "whole=4) x",
       "1e-16"},
      // A column that is not only added up is a number, rounded as one.
      {"select s from (select sum(a*c) as s from T) x where s>8475000", "8475625.19026976"},
      {"select sum(s) from (select a-b as s from T) x where s<1", "-0.1"},
      {"select count(*) from T having sum(a)=1234768.0112", "3"},
  };
  for (const auto& [sql, expected] : rows)
    EXPECT_EQ(answer(sql), expected) << sql;
}

TEST_F(SqliteArithmeticTest, HostileNumbersEndInAnError)
{
  for (const char* sql :
       {"select 1e308*10+1", "select sum(x) from (select 1e308 as x union all select 1e308) y", "select 9e999-1", "select exact_value('+')",
        "select exact_value('vv',1,2)", "select exact_value('v',1,2)", "select exact_value(null)", "select exact_value('v/',1)",
        "select exact_value()", "select exact_sum('vvvv*',1)", "select sum(9e999)", "select exact_value('vvx',1,2)"})
    EXPECT_TRUE(answer(sql).startsWith("error: ")) << sql;
  const auto nested = [](const QString& open, int depth) { return "select 1" + open.repeated(depth) + QString(depth, ')'); };
  for (const QString& sql :
       {"select " + QString(60'000, '('), nested("-(", 60'000), nested("-(1", 40), "select 1" + QString("-1").repeated(5'000)})
    EXPECT_TRUE(answer(sql).startsWith("error: ")) << shown(sql.left(60));

  const TextRow rows[] = {
      {"1e300+0.01", "1e+300"},
      {"1e300-1e300+0.01", "0.01"},
      {"1e-300*1e-300+1", "1."},
      {"9223372036854775807+1", "9223372036854776000."},
      {"9223372036854775806+1", "9223372036854775807"},
      {"-9223372036854775808-1+2.5", "-9223372036854776000."},
      {"123456789012345678*123456789012345678*1e-20", "152415787532388.38"},
      {"1.2345678901234567*1.2345678901234567*1.2345678901234567", "1.8816763723536574"},
      {"0-'1e999999999999'*0", "0."},
      {"x'3132'+1", "13"},
  };
  for (const auto& [what, expected] : rows)
    EXPECT_EQ(answer(QString("select ") + what), expected) << what;
}
