#include "database/Recordset.h"

#include "platform/RunTimeError.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

Recordset threeCodes()
{
  RowSet rows({u"Code"_s, u"Num"_s});
  for (const char* code : {" a ", "b", "c\n"}) {
    rows.appendText(code, qsizetype(qstrlen(code)));
    rows.appendNull();
  }
  return Recordset(std::move(rows));
}

// The number of the run-time error that an access raises; 0 if it raises none.
int numberOf(const std::function<void()>& access)
{
  try {
    access();
  } catch (const RunTimeError& error) {
    return error.number();
  }
  return 0;
}

} // namespace

TEST(Recordset, OneThatDidNotOpenNeverReadsAsNothing)
{
  Recordset closed;
  for (const std::function<void()>& access : std::initializer_list<std::function<void()>>{
           [&] { closed.eof(); }, [&] { closed.text(u"Code"_s); }, [&] { closed.number(u"Num"_s); }, [&] { closed.recordCount(); },
           [&] { closed.moveNext(); }, [&] { closed.rows(); }})
    EXPECT_EQ(numberOf(access), RunTimeError::Closed);
}

TEST(Recordset, FieldsAreFoundByNameInAnyCase)
{
  const Recordset rs = threeCodes();
  EXPECT_EQ(rs.trimmed(u"CODE"_s), u"a"_s);
  EXPECT_EQ(rs.text(u"code"_s), u" a "_s);
  EXPECT_TRUE(rs.field(u"Num"_s).isNull());
  EXPECT_EQ(numberOf([&] { rs.field(u"Name"_s); }), RunTimeError::NoSuchField);
}

TEST(Recordset, MovesToItsEnd)
{
  Recordset rs = threeCodes();
  EXPECT_EQ(rs.recordCount(), 3);
  rs.moveNext();
  rs.moveNext();
  EXPECT_EQ(rs.trimmed(u"Code"_s), u"c\n"_s) << "only blanks are trimmed";
  rs.moveNext();
  EXPECT_TRUE(rs.eof());
  EXPECT_EQ(numberOf([&] { rs.field(u"Code"_s); }), RunTimeError::NoCurrentRecord);
}

TEST(Value, ReadsAsTextNumberAndWholeNumber)
{
  EXPECT_EQ(Value(12.50).toText(), u"12.5"_s);
  EXPECT_EQ(Value(1e20).toText(), u"100000000000000000000"_s);
  EXPECT_EQ(Value(std::int64_t(-7)).toText(), u"-7"_s);
  EXPECT_EQ(Value(u"12abc"_s).toNumber(), 12);
  EXPECT_EQ(Value().toNumber(), 0);
  EXPECT_EQ(Value(2.5).toInteger(), 2);
  EXPECT_EQ(Value(3.5).toInteger(), 4);
  EXPECT_EQ(Value(u"1e300"_s).toInteger(), 0);
}
