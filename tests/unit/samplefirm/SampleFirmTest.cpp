#include "accountset/AccountSet.h"

#include "samplefirm/SampleFirm.h"
#include "support/Printing.h"
#include "support/RawDatabase.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

// Beside what the check of an account set knows, which CheckTest runs over the sample firm.
TEST(SampleFirmTest, TheBooksAddUpAndReferencesLeadSomewhere)
{
  const QTemporaryDir folder;
  const QString path = folder.filePath("demo.mdb");
  ASSERT_TRUE(AccountSet::create(path, SampleFirm::write));
  RawDatabase database(path);
  const std::pair<const char*, const char*> contradictions[] = {
      {"an expense or income not paid in full", "select Code from TabFee where abs(SumMoney-Cash-Credit)>0.001"
                                                " union all select Code from TabElseIncome where abs(SumMoney-Cash-Credit)>0.001"},
      {"a link between two partners",
       "select x.SFKBillCode from TabSFKHeXiao x"
       " join (select Code,UnitCode from TabInBill union all select Code,UnitCode from TabOutBill) g on g.Code=x.InOutBillCode"
       " join (select Code,UnitCode from TabPayfundBill union all select Code,UnitCode from TabGathefundBill) f on f.Code=x.SFKBillCode"
       " where f.UnitCode<>g.UnitCode"},
      {"a money line on an account that is not a leaf",
       "select l.AccountantCode from (select AccountantCode from TabPayfundBillInf union select AccountantCode from TabGathefundBillInf"
       " union select AccountCode from TabFeeInf union select AccountCode from TabElseIncomeInf union select AccountantCode from"
       " TabSustainInf union select AccountCodeC from TabKeepTake union select AccountCodeR from TabKeepTake) l"
       " where not exists (select 1 from TabAccountantType a where a.Code=l.AccountantCode)"
       " or exists (select 1 from TabAccountantType a where a.ParentCode=l.AccountantCode)"},
      {"a bill of an unknown partner",
       "select b.Code from (select Code,UnitCode,UnitName from TabInBill union all select Code,UnitCode,UnitName from TabOutBill"
       " union all select Code,UnitCode,UnitName from TabPayfundBill union all select Code,UnitCode,UnitName from TabGathefundBill"
       " union all select Code,UnitCode,UnitName from TabSustain) b"
       " where not exists (select 1 from TabClient c where c.Code=b.UnitCode and c.Name=b.UnitName)"},
  };
  for (const auto& [what, sql] : contradictions)
    EXPECT_EQ(database.rows(sql), "") << what;
}
