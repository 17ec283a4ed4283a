#include "vouchers/VoucherHeader.h"

#include "ledger/BillCode.h"
#include "platform/DateText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

using namespace Qt::StringLiterals;

namespace Vouchers {
namespace {

void updateHeader(Session& session, const SourceBill& bill, const VoucherSettings& settings)
{
  const VoucherBooks& books = settings.books;
  const auto number = [](qint16 value) { return SqlNumber(value); };
  const SqlNumber sum(bill.SumMoney);
  Execute(session, {u"update TabWarrant set  Datee='{}' , DateeY='{}' , DateeM='{}' ,"
                    u"AffixNum1={},AffixNum2={},AffixNum3={},AccountBook1={},AccountBook2={},AccountBook3={},"
                    u" WriteWarrant='{}', Auditing='', RecordAccountant='', ZG='', State='未审核',"
                    u" SumDebtor={},SumLender= {}, Type='{}', ZD='{}', IsLoss=0  where JXCBillCode='{}'",
                    DateText::shortForm(bill.Datee), QString::number(bill.DateeY), QString::number(bill.DateeM), number(books.AffixNum[0]),
                    number(books.AffixNum[1]), number(books.AffixNum[2]), number(books.AccountBook[0]), number(books.AccountBook[1]),
                    number(books.AccountBook[2]), Trim(session.params.UserName), sum, sum, settings.WarrantType, settings.Zi, bill.Code});
}

// The numbers that a stored voucher has.
std::array<qint16, BookCount> storedNumbers(Session& session, const QString& voucherCode)
{
  const Recordset rs = OpenRecordset(session, {u"select * from TabWarrant where Code='{}' ", voucherCode});
  std::array<qint16, BookCount> numbers = {};
  for (int book = 1; book <= BookCount; ++book)
    numbers[book - 1] = qint16(rs.field(u"WarrantNum"_s + QString::number(book)).toInteger());
  return numbers;
}

// The values are in the order of the table's columns. The first affix is always 1, whatever the books.
void insertRow(Session& session, const SourceBill& bill, const VoucherSettings& settings, const QString& voucherCode)
{
  const VoucherBooks& books = settings.books;
  const auto number = [](qint16 value) { return SqlNumber(value); };
  const SqlNumber sum(bill.SumMoney);
  Execute(session, {u"insert into TabWarrant values('{}','{}','{}','{}',{},1,'{}','','','记账凭证','未审核',{},{},'{}',"
                    u"{},{},{},{},{},{},{},'{}','','{}',0)",
                    voucherCode, DateText::shortForm(bill.Datee), QString::number(bill.DateeY), QString::number(bill.DateeM),
                    number(books.WarrantNum[0]), Trim(session.params.UserName), sum, sum, bill.Code, number(books.WarrantNum[1]),
                    number(books.AffixNum[1]), number(books.WarrantNum[2]), number(books.AffixNum[2]), number(books.AccountBook[0]),
                    number(books.AccountBook[1]), number(books.AccountBook[2]), settings.WarrantType, settings.Zi});
}

bool isOfAnotherBill(Session& session, const QString& voucherCode, const QString& billCode)
{
  const Recordset rs = OpenRecordset(session, {u"select JXCBillCode from TabWarrant where Code='{}'", voucherCode});
  return !rs.eof() && rs.trimmed("JXCBillCode") != Trim(billCode);
}

// Inserts the header under the next code and returns the code. Two operators can get the same code: the second header
// is refused and retried with another. Empty if the next code is the same, as after the last code of a day.
QString insertHeader(Session& session, const SourceBill& bill, const VoucherSettings& settings)
{
  for (QString last;;) {
    QString code = ModFuntion::GetNextBillCode(session, u"PZD"_s, u"TabWarrant"_s);
    if (code == last)
      return {};
    insertRow(session, bill, settings, code);
    if (!isOfAnotherBill(session, code, bill.Code))
      return code;
    last = code;
  }
}

} // namespace

std::optional<VoucherEntry> writeVoucherHeader(Session& session, const SourceBill& bill, const VoucherSettings& settings)
{
  const Recordset stored = OpenRecordset(session, {u"select Code from TabWarrant Where JXCBillCode='{}' ", bill.Code});
  VoucherEntry entry{.WarrantNum = settings.books.WarrantNum, .AccountBook = settings.books.AccountBook, .ZD = settings.Zi};
  if (stored.eof()) {
    entry.Code = insertHeader(session, bill, settings);
    return entry.Code.isEmpty() ? std::nullopt : std::optional(entry);
  }
  entry.Code = stored.text("Code");
  updateHeader(session, bill, settings);
  entry.WarrantNum = storedNumbers(session, entry.Code);
  return entry;
}

} // namespace Vouchers
