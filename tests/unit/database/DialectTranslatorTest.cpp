#include "database/DialectTranslator.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// The translated statement with its blanks evened out; where they stand has no meaning.
QString translated(const QString& sql)
{
  QString text = DialectTranslator::forEmbedded(sql)->sql.simplified();
  text.replace(QRegularExpression(u" ?([(),]) ?"_s), u"\\1"_s);
  return text;
}

bool isRefused(const QString& sql)
{
  return !DialectTranslator::forEmbedded(sql);
}

} // namespace

TEST(DialectTranslator, RewritesBothColumnsOfTheDialectRule)
{
  struct Row {
    QString sql;
    QString expected;
  };
  for (const auto& [sql, expected] : {
           Row{u"select * from B where Datee>=#2022-06-08#"_s, u"select * from B where Datee>='2022-06-08'"_s},
           Row{u"select * from B where Datee>=#2022/6/8 9:00#"_s, u"select * from B where Datee>='2022-06-08'"_s},
           Row{u"select cint(DateeY) from A"_s, u"select cast(DateeY as integer)from A"_s},
           Row{u"select convert(int,DateeY) from A"_s, u"select cast(DateeY as integer)from A"_s},
           Row{u"select Convert ( INT , DateeY ) from A"_s, u"select cast(DateeY as integer)from A"_s},
           Row{u"select max(cint(DateeY)) as DateeY from A "_s, u"select max(cast(DateeY as integer))as DateeY from A"_s},
           Row{u"select * from W where (J='' or isnull(J))  "_s, u"select * from W where(J='' or((J)is null))"_s},
           Row{u"select top 1 a from B order by  cint(Y) desc"_s, u"select a from B order by cast(Y as integer)desc limit 1"_s},
       })
    EXPECT_EQ(translated(sql), expected);
}

TEST(DialectTranslator, TopEndsItsOwnSelect)
{
  struct Row {
    QString sql;
    QString expected;
  };
  for (const auto& [sql, expected] : {
           Row{u"select * from (select top 2 a from B) t where a>1"_s, u"select * from(select a from B limit 2)t where a>1"_s},
           Row{u"select top 1 * from (select top 2 a from (select b from C) u) t"_s,
               u"select * from(select a from(select b from C)u limit 2)t limit 1"_s},
           Row{u"select a from B where cint((select top 1 b from C))=isnull(d)"_s,
               u"select a from B where cast((select b from C limit 1)as integer)=((d)is null)"_s},
           Row{u"select top 1 a from B;"_s, u"select a from B limit 1 ;"_s},
       })
    EXPECT_EQ(translated(sql), expected);
}

TEST(DialectTranslator, ArithmeticIsLeftToTheFunctionsForIt)
{
  struct Row {
    QString sql;
    QString expected;
  };
  for (
      const auto& [sql, expected] : {
          Row{u"select * from B where (B.a-B.b-B.c> B.d) "_s, u"select * from B where(exact_value('vv-v-',B.a,B.b,B.c)> B.d)"_s},
          Row{u"select -(a-b)*c as x,-a,a.*,count(*) from B a"_s, u"select exact_value('vv-nv*',a,b,c)as x,-a,a.*,count(*)from B a"_s},
          Row{u"select(a+b)*(c-[d e])from B"_s, u"select exact_value('vv+vv-*',a,b,c,[d e])from B"_s},
          Row{u"select 1 where a in (b-1) or (not a-1>2)"_s,
              u"select 1 where a in(exact_value('vv-',b,1))or(not exact_value('vv-',a,1)>2)"_s},
          Row{u"update B set a=a+1,b=-1,c=b*-1 where cint(a)-1 between 1-2 and 3"_s,
              u"update B set a= exact_value('vv+',a,1),b=-1,c= exact_value('vvn*',b,1)where exact_value('vv-',cast(a as integer),1)between "
              "exact_value('vv-',1,2)and 3"_s},
          Row{u"insert into B(a) values(1-2),((3)-isnull(a-b))"_s,
              u"insert into B(a)values(exact_value('vv-',1,2)),(exact_value('vv-',(3),((exact_value('vv-',a,b))is null)))"_s},
          Row{u"select top 2 -a,case when a-b>1 then(a-b)*2 else -1 end-c from B"_s,
              u"select -a,exact_value('vv-',case when exact_value('vv-',a,b)>1 then exact_value('vv-v*',a,b,2)else -1 end,c)from B limit 2"_s},
          Row{u"select a-x'00' 'b' from B"_s, u"select exact_value('vv-',a,x'00')'b' from B"_s},
          Row{u"select sum((a-b)*c),sum(a),sum(distinct a-b) from B"_s,
              u"select exact_sum('vv-v*',a,b,c),sum(a),sum(distinct exact_value('vv-',a,b))from B"_s},
          Row{u"select sum(x) as x from (select sum(-a) as x from B union all select a*b as x from C) t"_s,
              u"select sum(x)as x from(select exact_part_sum('vn',a)as x from B union all select exact_part('vv*',a,b)as x from C)t"_s},
          Row{u"select sum(x),max(x) from (select a*b as x from C) t"_s,
              u"select sum(x),max(x)from(select exact_value('vv*',a,b)as x from C)t"_s},
          Row{u"select sum(x) from (select a*b as x from C order by x) t"_s,
              u"select sum(x)from(select exact_value('vv*',a,b)as x from C order by x)t"_s},
          Row{u"select sum(x) from (select a*b as x from C) t where x>1"_s,
              u"select sum(x)from(select exact_value('vv*',a,b)as x from C)t where x>1"_s},
      })
    EXPECT_EQ(translated(sql), expected);
  for (const QString& sql :
       {u"select * from B where a=-1 and b<>+2 or c>=1e-5"_s, u"select a||b-1, 'a-b', a/b*c, ~a-b, a-b collate nocase from B"_s,
        u"select a- from B where -b"_s, u"select distinct * , count ( * ) , -1.5 , x'00' from B"_s})
    EXPECT_EQ(DialectTranslator::forEmbedded(sql)->sql, sql);
}

TEST(DialectTranslator, QuotedTextsAndNamesStayAsTheyAre)
{
  for (const QString& sql : {
           u"select * from A where Name='#2022-06-08#'"_s,
           u"select * from A where Name='select top 1 cint(x)'"_s,
           u"insert into A values('a''#b','isnull(x)')"_s,
           u"select [top], \"cint(x)\", top, cint from A"_s,
           u"select '  two   blanks ;--'  from   A"_s,
           u"update A set Name='drop table A; delete from A'"_s,
       })
    EXPECT_EQ(DialectTranslator::forEmbedded(sql)->sql, sql);
}

TEST(DialectTranslator, RefusesAllButOneWholeStatementOnRows)
{
  for (const QString& sql : {
           u""_s,
           u"drop table A"_s,
           u"pragma journal_mode=wal"_s,
           u"with x as (select 1) select * from x"_s,
           u"'select' 1"_s,
           u"select 1; delete from A"_s,
           u"select * from A where Name='x"_s,
           u"select * from A where Datee=#2022-06-08"_s,
           u"select [a from A"_s,
           u"select * from A where Name='x' --' and Code='1'"_s,
           u"select /* a comment */ 1"_s,
           u"select 'a"_s + QChar(0) + u"b'"_s,
           u"select 'a"_s + QChar(0xD83D) + u"'"_s,
           u"select 'a"_s + QChar(0xDE00) + u"'"_s,
       })
    EXPECT_TRUE(isRefused(sql)) << shown(sql);
  EXPECT_FALSE(isRefused(u" SELECT 'a😀b' ;  "_s));
}

TEST(DialectTranslator, APostgreSqlServerGetsItsOwnDialect)
{
  using DialectTranslator::Target;
  struct Row {
    QString sql;
    QString expected;
  };
  for (const auto& [sql, expected] : {
           Row{u"select top 1 [Code] from B order by cint(Y) desc,cint(M) desc"_s,
               u"select \"code\" from B order by cast(Y as integer) desc nulls last ,cast(M as integer) desc nulls last limit 1"_s},
           Row{u"select * from (select a from B order by f(a,b), a) t where t.a<#2022-06-08#"_s,
               u"select * from (select a from B order by f(a,b) nulls first , a nulls first ) t where t.a<'2022-06-08'"_s},
           Row{u"select [a\"b] from B"_s, u"select \"a\"\"b\" from B"_s},
           Row{u"select a from B where a like 'x\\%' and b='x\\'"_s, u"select a from B where a like 'x\\\\%' and b='x\\'"_s},
       })
    EXPECT_EQ(DialectTranslator::translate(sql, Target::PostgreSql)->sql.simplified(), expected.simplified());

  // Signs by which the server or the driver would end a quote elsewhere than we do.
  for (const QString& sql : {u"select $$'$$ from B"_s, u"select a$b$'$b$ from B"_s, u"select a$b from B"_s, u"select E'\\'' from B"_s, u"select {fn x} from B"_s})
    EXPECT_FALSE(DialectTranslator::translate(sql, Target::PostgreSql)) << shown(sql);
  const QString asWritten = u"select top 1 a from B where convert(int,b)>1 and c='$1{x}'"_s;
  EXPECT_EQ(DialectTranslator::translate(asWritten, Target::SqlServer)->sql, asWritten);
}
