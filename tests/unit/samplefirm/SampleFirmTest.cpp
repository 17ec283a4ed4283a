#include "accountset/AccountSet.h"

#include "samplefirm/SampleFirm.h"
#include "support/Printing.h"
#include "support/RawDatabase.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

struct SampleFirmTest : testing::Test {
  // All tests look at one firm; none changes it.
  static void SetUpTestSuite()
  {
    folder = std::make_unique<QTemporaryDir>();
    const QString path = folder->filePath(u"demo.mdb"_s);
    ASSERT_TRUE(AccountSet::create(path, SampleFirm::write));
    database = std::make_unique<RawDatabase>(path);
  }
  static void TearDownTestSuite()
  {
    database.reset();
    folder.reset();
  }

  static inline std::unique_ptr<QTemporaryDir> folder;
  static inline std::unique_ptr<RawDatabase> database;
};

TEST_F(SampleFirmTest, TheBooksAddUp)
{
  const std::pair<const char*, const char*> contradictions[] = {
      {"an expense or income not paid in full", "select Code from TabFee where abs(SumMoney-Cash-Credit)>0.001"
                                                " union all select Code from TabElseIncome where abs(SumMoney-Cash-Credit)>0.001"},
      {"a goods bill settled for more than is due",
       "select Code from (select * from TabInBill union all select * from TabOutBill) where HXMoney-(SumMoney-Cash-Credit)>0.001"},
      {"a money bill not linked in full",
       "select f.Code from (select Code,SumMoney from TabPayfundBill union all select Code,SumMoney from TabGathefundBill) f"
       " join TabSFKHeXiao x on x.SFKBillCode=f.Code group by f.Code having abs(f.SumMoney-sum(x.HXMoney))>0.001"},
      {"a link between two partners",
       "select x.SFKBillCode from TabSFKHeXiao x"
       " join (select Code,UnitCode from TabInBill union all select Code,UnitCode from TabOutBill) g on g.Code=x.InOutBillCode"
       " join (select Code,UnitCode from TabPayfundBill union all select Code,UnitCode from TabGathefundBill) f on f.Code=x.SFKBillCode"
       " where f.UnitCode<>g.UnitCode"},
      {"a void bill with a voucher, or a good one without",
       "select b.Code from (select Code,State from TabPayfundBill union all select Code,State from TabGathefundBill"
       " union all select Code,State from TabKeepTake union all select Code,State from TabFee"
       " union all select Code,State from TabElseIncome union all select Code,State from TabSustain) b"
       " left join TabWarrant w on w.JXCBillCode=b.Code where (b.State='正常')<>(w.Code is not null)"},
  };
  for (const auto& [what, sql] : contradictions)
    EXPECT_EQ(database->rows(QString::fromUtf8(sql)), u""_s) << what;
}

TEST_F(SampleFirmTest, EveryReferenceLeadsSomewhere)
{
  const std::pair<const char*, const char*> danglers[] = {
      {"a node ahead of its parent or without one",
       "select c.Code from (select Code,ParentCode from TabAccountantType union all select "
       "'p'||Code,iif(ParentCode='0','0','p'||ParentCode)"
       " from TabClientType) c where ParentCode<>'0' and not exists (select 1 from (select Code from TabAccountantType"
       " union all select 'p'||Code from TabClientType) p where p.Code=c.ParentCode and p.Code<c.Code)"},
      {"a money line on an account that is no leaf",
       "select l.AccountantCode from (select AccountantCode from TabPayfundBillInf union select AccountantCode from TabGathefundBillInf"
       " union select AccountCode from TabFeeInf union select AccountCode from TabElseIncomeInf union select AccountantCode from"
       " TabSustainInf union select AccountCodeC from TabKeepTake union select AccountCodeR from TabKeepTake) l"
       " where not exists (select 1 from TabAccountantType a where a.Code=l.AccountantCode)"
       " or exists (select 1 from TabAccountantType a where a.ParentCode=l.AccountantCode)"},
      {"a partner in no category, or served by nobody on the staff",
       "select c.Code from TabClient c where not exists (select 1 from TabClientType t where t.Code=c.TypeCode)"
       " or (c.SaleMan<>'' and not exists (select 1 from TabStuff s where s.Name=c.SaleMan))"},
      {"a bill of an unknown partner",
       "select b.Code from (select Code,UnitCode,UnitName from TabInBill union all select Code,UnitCode,UnitName from TabOutBill"
       " union all select Code,UnitCode,UnitName from TabPayfundBill union all select Code,UnitCode,UnitName from TabGathefundBill"
       " union all select Code,UnitCode,UnitName from TabSustain) b"
       " where not exists (select 1 from TabClient c where c.Code=b.UnitCode and c.Name=b.UnitName)"},
      {"a person in no department", "select s.Code from TabStuff s where not exists"
                                    " (select 1 from TabDepartmentType d where d.Code=s.DepartmentCode)"},
  };
  for (const auto& [what, sql] : danglers)
    EXPECT_EQ(database->rows(QString::fromUtf8(sql)), u""_s) << what;
}

} // namespace
