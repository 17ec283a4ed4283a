#include "OfficeFixture.h"

#include "accountset/AccountSet.h"
#include "ledger/BillKinds.h"
#include "program/ProgramScreens.h"
#include "samplefirm/SampleFirm.h"
#include "screen/Controls.h"
#include "session/ModuleADO.h"

#include <QFile>

// Every bill of the sample firm through its own template, from the menu to the page.

namespace {

struct PrintedBill {
  const char* picture;
  const char* directive; // that opens its screen
  const char* code;
  const char* templateName;
  QStringList cells; // row, column and text
};

void PrintTo(const PrintedBill& bill, std::ostream* out)
{
  *out << bill.code;
}

const PrintedBill Bills[] = {
    {"payment",
     "付款",
     "FKD202206080001",
     "付款单.xlsx",
     {"2|1|付款单", "6|2|G005", "6|4|永安日用品厂", "17|1|1001", "17|3|1,200.00", "18|2|壹仟贰佰元整", "19|2|82,282.40元"}},
    {"receipt", "收款", "SKD202206060005", "收款单.xlsx", {"2|1|收款单", "6|4|市人民医院"}},
    {"bank",
     "银行存取",
     "CQD202206060001",
     "银行存取款单.xls",
     {"2|1|银行存取款单", "7|2|基本存款户", "8|2|纳税专户", "9|2|玖仟元整", "10|2|9,000.00"}},
    {"expense",
     "费用开支",
     "FYD202206060001",
     "费用开支单.xls",
     {"2|1|费用开支单", "6|2|库存现金", "6|4|1,020.00", "8|2|人民币 / 1", "8|4|7,020.00"}},
    {"other-income", "其他收入", "QSD202206070001", "其他收入单.xlsx", {"2|1|其他收入单"}},
    {"fee-offset", "费用抵冲(客户)", "DCD202206060001", "客户费用抵冲单.xlsx", {"2|1|费用抵冲单--客户"}},
    {"", "费用抵冲(供应商)", "DCD202206030001", "供应商费用抵冲单.xlsx", {"2|1|费用抵冲单--供应商"}},
};

struct SampleTemplates : OfficeFixture, testing::WithParamInterface<PrintedBill> {
  const BillKind& kind = *BillKinds::first(&BillKind::opensNew, QString(GetParam().directive));
  std::unique_ptr<Screen> opened = makeProgramScreen(session, kind.screen);
  Form* screen = &opened->form();

  SampleTemplates()
  {
    QFile::remove(accountSetPath());
    EXPECT_TRUE(AccountSet::create(accountSetPath(), SampleFirm::write));
    session.DotSet = LoadDotSet(session);
    session.params.OperateType = GetParam().directive;
    opened->Form_Load();
    opened->FillBill(kind.headerTable, GetParam().code);
    desk.show(*screen);
    opened->frm_Initialize(true);
    EXPECT_EQ(desk.takeTexts(), "");
  }

  void printBy(const char* menu)
  {
    MenuItemArray* const items = screen->find<MenuItemArray>(menu);
    ASSERT_EQ(items->captions(), QStringList{GetParam().templateName});
    items->clickItem(0);
    EXPECT_EQ(desk.takeTexts(), "");
  }
};

} // namespace

TEST_P(SampleTemplates, TheScreenIsOnThePage)
{
  printBy("FIntoExcel_Inf");
  const OfficeClient::Book book = openBook();
  const QString page = book.sheetNames().first();
  for (const QString& cell : GetParam().cells)
    EXPECT_EQ(book.shown(page, cell.section('|', 0, 0).toInt(), cell.section('|', 1, 1).toInt()), cell.section('|', 2));
  EXPECT_EQ(book.shown(page, 1, 1), "示例商贸有限公司");
  EXPECT_EQ(book.shown(page, 5, 1), QString("单据编号：") + GetParam().code);
  for (int row = 1; row <= 30; ++row)
    EXPECT_FALSE(book.row(page, row, 4).contains(u'?')) << shown(book.row(page, row, 4));

  const Grid& lines = *screen->find<Grid>("MSH");
  for (int row = 1; row < lines.rows() && !lines.text(row, 1).isEmpty(); ++row)
    EXPECT_EQ(book.row(page, 16 + row, 4),
              QStringList({lines.text(row, 1), lines.text(row, 2), lines.text(row, 3), lines.text(row, 4)}).join(u'|'));
}

// Of the words that fill a cell, only those of amounts become numbers: a rate of 1 and a code do not. A word that this bill
// does not know keeps its place.
TEST_P(SampleTemplates, OnlyItsAmountsAreNumbers)
{
  const QStringList amounts{"?合计金额", "?现金额", "?银行额", "?现金银行合计", "?金额"};
  const QStringList words = amounts + QStringList{"?截止当日尚欠", "?汇率",     "?单位编号", "?联系电话",    "?税号",
                                                  "?开户行账号",   "?单据编号", "?备注",     "?合计金额大写"};
  OfficeClient::Book book = newBook("sheet1");
  for (int row = 1; row <= words.size(); ++row)
    book.type("sheet1", row, 1, words[row - 1]);
  putTemplate(GetParam().templateName, book);
  printBy("FIntoExcel_Inf");
  const OfficeClient::Book printed = openBook();
  for (int row = 1; row <= words.size(); ++row) {
    const QString content = printed.formula("sheet1", row, 1);
    bool isNumber = false;
    content.toDouble(&isNumber);
    EXPECT_EQ(isNumber, amounts.contains(words[row - 1]) && !content.isEmpty() && content != words[row - 1])
        << shown(words[row - 1] + content);
  }
}

// ZORVEK_PAGES names a folder where the pages are kept, for the pictures.
TEST_P(SampleTemplates, OnePageComesOutOfThePrinter)
{
  installPrinter();
  printBy("MPDirect_Excel_D_Inf");
  EXPECT_EQ(printedPages(), 1);
  const QString pages = qEnvironmentVariable("ZORVEK_PAGES");
  if (!pages.isEmpty() && *GetParam().picture) {
    EXPECT_TRUE(QFile::copy(paper(), QStringLiteral("%1/template-%2.pdf").arg(pages, GetParam().picture)));
  }
}

INSTANTIATE_TEST_SUITE_P(Bills, SampleTemplates, testing::ValuesIn(Bills), [](const auto& bill) { return std::string(bill.param.code); });
