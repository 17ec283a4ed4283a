#include "settlement/WriteOff.h"

#include "ledger/BillKinds.h"
#include "screen/CellEditor.h"
#include "settlement/frmSFKHeXiao.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

namespace {

struct WriteOffTest : testing::Test, AccountSetFixture {
  WriteOff::Bill bill{"SKD1", "", "K001", "华联商厦", QDate(2022, 6, 8)};

  WriteOffTest() { file.run("insert into TabGathefundBill(Code) values('SKD1')"); }

  void addGoodsBill(int number, const QString& sum)
  {
    file.run(QString("insert into TabOutBill(Code,Datee,BillType,UnitCode,UnitName,SumMoney) "
                     "values('XSD%1','2022-06-01','销售出库','K001','华联商厦',%2)")
                 .arg(number)
                 .arg(sum));
  }

  // Opens the write-off of a receipt with this total; `operate` acts as the user.
  void open(const QString& total, const std::function<void(frmSFKHeXiao&)>& operate)
  {
    bool ran = false;
    desk.inDialog = [&](Form& form) {
      ran = true;
      operate(static_cast<frmSFKHeXiao&>(form));
      form.close();
    };
    bill.total = total;
    WriteOff::open(session, BillKinds::Receipt, bill);
    EXPECT_TRUE(ran);
  }

  static void allocate(Form& screen, int row, const QString& amount)
  {
    screen.find<Grid>("MSH")->clickCell(row, 10);
    auto* const editor = screen.find<CellEditor>("Text2");
    editor->typed(amount);
    editor->press(Key{Key::Enter, {}});
  }

  QString links() { return file.rows("select InOutBillCode, HXMoney from TabSFKHeXiao order by InOutBillCode"); }
};

// The money bill must be used up to the last digit, and the digits are those of single precision, row by row.
TEST_F(WriteOffTest, TheCommitComparesInSinglePrecision)
{
  const struct {
    const char* total;
    QStringList amounts;
    bool isEqual;
  } rows[] = {
      {"100.00", {"33.3", "33.3", "33.4"}, true},    {"8,600.30", {"1200.1", "7400.2"}, true},
      {"100.00", {"33.3", "33.3", "33.39"}, false},  {"1,234,567.89", {"1234567.9"}, true}, // the same seven digits and a bit
      {"16,777,218", {"16777216", "1", "1"}, false},                                        // one by one, the last two are lost
      {"16,777,218", {"1", "1", "16777216"}, true},  {"-50.00", {"50", "-100"}, true},
  };
  for (int number = 1; number <= 3; ++number)
    addGoodsBill(number, "20000000");
  for (const auto& row : rows) {
    file.run("delete from TabSFKHeXiao; update TabOutBill set HXMoney=0");
    open(row.total, [&](frmSFKHeXiao& screen) {
      for (int at = 0; at < row.amounts.size(); ++at)
        allocate(screen, at + 1, row.amounts[at]);
      screen.find<ToolButton>("ToolHX")->click();
    });
    EXPECT_EQ(desk.takeTexts(), row.isEqual ? "核销成功！" : "设置的核销金额与收付款单金额不相等，请检查！") << row.total;
    EXPECT_EQ(links().isEmpty(), !row.isEqual) << row.total;
  }
}

// A commit that fails half-way leaves what it had written, and the next one completes it.
TEST_F(WriteOffTest, ACommitIsRepeatedWithoutDoublingItsLinks)
{
  addGoodsBill(1, "100");
  addGoodsBill(2, "50");
  file.run("create unique index broken on TabSFKHeXiao(HXDatee)");
  open("150.00", [this](frmSFKHeXiao& screen) {
    allocate(screen, 1, "100");
    allocate(screen, 2, "50");
    screen.find<ToolButton>("ToolHX")->click();
    EXPECT_TRUE(desk.takeTexts().startsWith("Error:"));
    EXPECT_EQ(links(), "XSD1|100");
    file.run("drop index broken");
    screen.find<ToolButton>("ToolHX")->click();
    EXPECT_EQ(desk.takeTexts(), "核销成功！");
  });
  EXPECT_EQ(links(), "XSD1|100\nXSD2|50");
  EXPECT_EQ(file.rows("select distinct HXDatee||'|'||SFKBillDatee from TabSFKHeXiao"), " 2022-06-08|2022-06-08");
  EXPECT_EQ(file.rows("select HXMoney from TabOutBill order by Code"), "100\n50");
}

} // namespace
