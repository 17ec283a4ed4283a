#include "vouchers/VoucherHeader.h"

#include "ledger/BillCode.h"
#include "platform/DateText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

#include <QStringList>

namespace Vouchers {
namespace {

QString quoted(const QString& text)
{
  return "'" + text + "'";
}

QString maker(const Session& session)
{
  return quoted(Trim(session.params.UserName));
}

void updateHeader(Session& session, const SourceBill& bill, const VoucherSettings& settings)
{
  const VoucherBooks& books = settings.books;
  const auto flags = [](const char* column, const std::array<qint16, BookCount>& values) {
    QString text;
    for (int book = 1; book <= BookCount; ++book)
      text += column + QString::number(book) + "=" + QString::number(values[book - 1]) + ",";
    return text;
  };
  OpenRecordset(session, QString("update TabWarrant set ") + " Datee=" + quoted(DateText::shortForm(bill.Datee)) + " ," + " DateeY=" +
                             quoted(bill.DateeY) + " ," + " DateeM=" + quoted(bill.DateeM) + " ," + flags("AffixNum", books.AffixNum) +
                             flags("AccountBook", books.AccountBook) + " WriteWarrant=" + maker(session) + "," + " Auditing=''," +
                             " RecordAccountant=''," + " ZG=''," + " State='未审核'," + " SumDebtor=" + bill.SumMoney + "," +
                             "SumLender= " + bill.SumMoney + ", " + "Type=" + quoted(settings.WarrantType) + ", " +
                             "ZD=" + quoted(settings.Zi) + ", " + "IsLoss=0 " + " where JXCBillCode=" + quoted(bill.Code));
}

// The numbers that a stored voucher has.
std::array<qint16, BookCount> storedNumbers(Session& session, const QString& voucherCode)
{
  const Recordset rs = OpenRecordset(session, "select * from TabWarrant where Code='" + voucherCode + "' ");
  std::array<qint16, BookCount> numbers = {};
  for (int book = 1; book <= BookCount; ++book)
    numbers[book - 1] = qint16(rs.field("WarrantNum" + QString::number(book)).toInteger());
  return numbers;
}

// The values stand in the order of the table's columns. The first affix is 1 whichever the books are.
void insertHeader(Session& session, const SourceBill& bill, const VoucherSettings& settings, const QString& voucherCode)
{
  const VoucherBooks& books = settings.books;
  const QString blank = quoted({});
  const auto number = [](qint16 value) { return QString::number(value); };
  const QStringList values = {
      quoted(voucherCode),
      quoted(DateText::shortForm(bill.Datee)),
      quoted(bill.DateeY),
      quoted(bill.DateeM),
      number(books.WarrantNum[0]),
      number(1),
      maker(session),
      blank, // Auditing
      blank, // RecordAccountant
      quoted(QStringLiteral("记账凭证")),
      quoted(QStringLiteral("未审核")),
      bill.SumMoney,
      bill.SumMoney,
      quoted(bill.Code),
      number(books.WarrantNum[1]),
      number(books.AffixNum[1]),
      number(books.WarrantNum[2]),
      number(books.AffixNum[2]),
      number(books.AccountBook[0]),
      number(books.AccountBook[1]),
      number(books.AccountBook[2]),
      quoted(settings.WarrantType),
      blank, // ZG
      quoted(settings.Zi),
      number(0), // IsLoss
  };
  OpenRecordset(session, "insert into TabWarrant values(" + values.join(",") + ")");
}

} // namespace

VoucherEntry writeVoucherHeader(Session& session, const SourceBill& bill, const VoucherSettings& settings)
{
  const Recordset stored = OpenRecordset(session, "select Code from TabWarrant Where JXCBillCode='" + bill.Code + "' ");
  VoucherEntry entry{.WarrantNum = settings.books.WarrantNum, .AccountBook = settings.books.AccountBook, .ZD = settings.Zi};
  if (stored.eof()) {
    entry.Code = ModFuntion::GetNextBillCode(session, "PZD", "TabWarrant");
    insertHeader(session, bill, settings, entry.Code);
    return entry;
  }
  entry.Code = stored.text("Code");
  updateHeader(session, bill, settings);
  entry.WarrantNum = storedNumbers(session, entry.Code);
  return entry;
}

} // namespace Vouchers
