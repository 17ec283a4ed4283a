#include "database/Recordset.h"

#include "platform/RunTimeError.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

Recordset threeCodes()
{
  RowSet rows({"Code", "Num"});
  for (const char* code : {" a ", "b", "c\n"}) {
    rows.appendText(code, qsizetype(qstrlen(code)));
    rows.appendNull();
  }
  return Recordset(std::move(rows));
}

// The number of the run-time error that an access raises; 0 if it raises none.
int errorOf(const std::function<void()>& access)
{
  try {
    access();
    return 0;
  } catch (const RunTimeError& error) {
    return error.number();
  }
}

} // namespace

TEST(Recordset, OneThatDidNotOpenNeverReadsAsNothing)
{
  Recordset closed;
  const std::function<void()> accesses[] = {[&] { closed.eof(); },         [&] { closed.text("Code"); }, [&] { closed.number("Num"); },
                                            [&] { closed.recordCount(); }, [&] { closed.moveNext(); },   [&] { closed.rows(); }};
  for (const auto& access : accesses)
    EXPECT_EQ(errorOf(access), RunTimeError::Closed);
}

TEST(Recordset, FieldsAreFoundByNameInAnyCaseUpToItsEnd)
{
  Recordset rs = threeCodes();
  EXPECT_EQ(rs.recordCount(), 3);
  EXPECT_EQ(rs.trimmed("CODE"), "a");
  EXPECT_EQ(rs.text("code"), " a ");
  EXPECT_TRUE(rs.field("Num").isNull());
  EXPECT_EQ(errorOf([&] { rs.field("Name"); }), RunTimeError::NoSuchField);
  rs.moveNext();
  rs.moveNext();
  EXPECT_EQ(rs.trimmed("Code"), "c\n") << "only spaces are trimmed";
  rs.moveNext();
  EXPECT_TRUE(rs.eof());
  EXPECT_EQ(errorOf([&] { rs.field("Code"); }), RunTimeError::NoCurrentRecord);
}

TEST(Value, ReadsAsTextNumberAndWholeNumber)
{
  EXPECT_EQ(Value(12.50).toText(), "12.5");
  EXPECT_EQ(Value(1e20).toText(), "100000000000000000000");
  EXPECT_EQ(Value(std::int64_t(-7)).toText(), "-7");
  EXPECT_EQ(Value("12abc").toNumber(), 12);
  EXPECT_EQ(Value().toNumber(), 0);
  EXPECT_EQ(Value(2.5).toInteger(), 2);
  EXPECT_EQ(Value(3.5).toInteger(), 4);
  EXPECT_EQ(Value("1e300").toInteger(), 0);
}
