#include "database/DialectTranslator.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

namespace {

// The translated statement with its spaces normalized: they have no meaning.
QString translated(const QString& sql)
{
  QString text = DialectTranslator::forEmbedded(sql)->sql.simplified();
  text.replace(QRegularExpression(" ?([(),]) ?"), "\\1");
  return text;
}

} // namespace

TEST(DialectTranslator, RewritesBothDialects)
{
  const TextRow rows[] = {
      {"select * from B where Datee>=#2022-06-08#", "select * from B where Datee>='2022-06-08'"},
      {"select * from B where Datee>=#2022/6/8 9:00#", "select * from B where Datee>='2022-06-08'"},
      {"select cint(DateeY) from A", "select cast(DateeY as integer)from A"},
      {"select convert(int,DateeY) from A", "select cast(DateeY as integer)from A"},
      {"select Convert ( INT , DateeY ) from A", "select cast(DateeY as integer)from A"},
      {"select max(cint(DateeY)) as DateeY from A ", "select max(cast(DateeY as integer))as DateeY from A"},
      {"select * from W where (J='' or isnull(J))  ", "select * from W where(J='' or((J)is null))"},
      {"select top 1 a from B order by  cint(Y) desc", "select a from B order by cast(Y as integer)desc limit 1"},
      // "top" ends its own select.
      {"select * from (select top 2 a from B) t where a>1", "select * from(select a from B limit 2)t where a>1"},
      {"select top 1 * from (select top 2 a from (select b from C) u) t",
       "select * from(select a from(select b from C)u limit 2)t limit 1"},
      {"select a from B where cint((select top 1 b from C))=isnull(d)",
       "select a from B where cast((select b from C limit 1)as integer)=((d)is null)"},
      {"select top 1 a from B;", "select a from B limit 1 ;"},
  };
  for (const auto& [sql, expected] : rows)
    EXPECT_EQ(translated(sql), expected);
}

TEST(DialectTranslator, ArithmeticIsLeftToTheFunctionsForIt)
{
  const TextRow rows[] = {
      {"select * from B where (B.a-B.b-B.c> B.d) ", "select * from B where(exact_value('vv-v-',B.a,B.b,B.c)> B.d)"},
      {"select -(a-b)*c as x,-a,a.*,count(*) from B a", "select exact_value('vv-nv*',a,b,c)as x,-a,a.*,count(*)from B a"},
      {"select(a+b)*(c-[d e])from B", "select exact_value('vv+vv-*',a,b,c,[d e])from B"},
      {"select 1 where a in (b-1) or (not a-1>2)", "select 1 where a in(exact_value('vv-',b,1))or(not exact_value('vv-',a,1)>2)"},
      {"update B set a=a+1,b=-1,c=b*-1 where cint(a)-1 between 1-2 and 3",
       "update B set a= exact_value('vv+',a,1),b=-1,c= exact_value('vvn*',b,1)where exact_value('vv-',cast(a as integer),1)between "
       "exact_value('vv-',1,2)and 3"},
      {"insert into B(a) values(1-2),((3)-isnull(a-b))",
       "insert into B(a)values(exact_value('vv-',1,2)),(exact_value('vv-',(3),((exact_value('vv-',a,b))is null)))"},
      {"select top 2 -a,case when a-b>1 then(a-b)*2 else -1 end-c from B",
       "select -a,exact_value('vv-',case when exact_value('vv-',a,b)>1 then exact_value('vv-v*',a,b,2)else -1 end,c)from B limit "
       "2"},
      {"select a-x'00' 'b' from B", "select exact_value('vv-',a,x'00')'b' from B"},
      {"select sum((a-b)*c),sum(a),sum(distinct a-b) from B",
       "select exact_sum('vv-v*',a,b,c),sum(a),sum(distinct exact_value('vv-',a,b))from B"},
      {"select sum(x) as x from (select sum(-a) as x from B union all select a*b as x from C) t",
       "select sum(x)as x from(select exact_part_sum('vn',a)as x from B union all select exact_part('vv*',a,b)as x from C)t"},
      {"select sum(x),max(x) from (select a*b as x from C) t", "select sum(x),max(x)from(select exact_value('vv*',a,b)as x from C)t"},
      {"select sum(x) from (select a*b as x from C order by x) t",
       "select sum(x)from(select exact_value('vv*',a,b)as x from C order by x)t"},
      {"select sum(x) from (select a*b as x from C) t where x>1", "select sum(x)from(select exact_value('vv*',a,b)as x from C)t where x>1"},
  };
  for (const auto& [sql, expected] : rows)
    EXPECT_EQ(translated(sql), expected);
  for (const QString sql :
       {"select * from B where a=-1 and b<>+2 or c>=1e-5", "select a||b-1, 'a-b', a/b*c, ~a-b, a-b collate nocase from B",
        "select a- from B where -b", "select distinct * , count ( * ) , -1.5 , x'00' from B"})
    EXPECT_EQ(DialectTranslator::forEmbedded(sql)->sql, sql);
}

TEST(DialectTranslator, QuotedTextsAndNamesStayAsTheyAre)
{
  for (const QString sql : {
           "select * from A where Name='#2022-06-08#'",
           "select * from A where Name='select top 1 cint(x)'",
           "insert into A values('a''#b','isnull(x)')",
           "select [top], \"cint(x)\", top, cint from A",
           "select '  two   blanks ;--'  from   A",
           "update A set Name='drop table A; delete from A'",
       })
    EXPECT_EQ(DialectTranslator::forEmbedded(sql)->sql, sql);
}

TEST(DialectTranslator, RefusesAllButOneWholeStatementOnRows)
{
  for (const QString& sql : QStringList{
           "", "drop table A", "pragma journal_mode=wal", "with x as (select 1) select * from x", "'select' 1", "select 1; delete from A",
           "select * from A where Name='x", "select * from A where Datee=#2022-06-08", "select [a from A",
           "select * from A where Name='x' --' and Code='1'", "select top 1 a cint(b cint(c-b)*d as x)", "select /* a comment */ 1",
           QString("select 'a%1b'").arg(QChar(0)), QString("select 'a%1'").arg(QChar(0xD83D)), QString("select 'a%1'").arg(QChar(0xDE00))})
    EXPECT_FALSE(DialectTranslator::forEmbedded(sql)) << shown(sql);
  EXPECT_TRUE(DialectTranslator::forEmbedded(" SELECT 'a😀b' ;  "));
}

TEST(DialectTranslator, APostgreSqlServerGetsItsOwnDialect)
{
  using DialectTranslator::Target;
  const TextRow rows[] = {
      {"select top 1 [Code] from B order by cint(Y) desc,cint(M) desc",
       "select \"code\" from B order by cast(Y as integer) desc nulls last ,cast(M as integer) desc nulls last limit 1"},
      {"select * from (select a from B order by f(a,b), a) t where t.a<#2022-06-08#",
       "select * from (select a from B order by f(a,b) nulls first , a nulls first ) t where t.a<'2022-06-08'"},
      {"select [a\"b] from B", "select \"a\"\"b\" from B"},
      {"select a from B where a like 'x\\%' and b='x\\'", "select a from B where a like 'x\\\\%' and b='x\\'"},
  };
  for (const auto& [sql, expected] : rows)
    EXPECT_EQ(DialectTranslator::translate(sql, Target::PostgreSql)->sql.simplified(), QString(expected).simplified());

  // Characters by which the server or the driver would end a quote elsewhere than we do.
  for (const char* sql :
       {"select $$'$$ from B", "select a$b$'$b$ from B", "select a$b from B", "select E'\\'' from B", "select {fn x} from B"})
    EXPECT_FALSE(DialectTranslator::translate(sql, Target::PostgreSql)) << sql;
  const QString asWritten = "select top 1 a from B where convert(int,b)>1 and c='$1{x}'";
  EXPECT_EQ(DialectTranslator::translate(asWritten, Target::SqlServer)->sql, asWritten);
}
