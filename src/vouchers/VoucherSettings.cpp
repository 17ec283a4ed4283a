#include "vouchers/VoucherSettings.h"

#include "ledger/AccountingCalendar.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"

using namespace Qt::StringLiterals;

namespace Vouchers {
namespace {

// Allocates the next voucher number of a period for each book (1 to 3).
struct NumberSource {
  Session& session;
  QDate start;
  QDate end;

  qint16 next(int book) const { return ModFuntion::GetNextWarrantNum(session, start, end, book); }
};

int mainBook(Session& session)
{
  const Recordset rs = OpenRecordset(session, {u"select Code from TabAccountantNameSet where Main=1 "});
  const auto code = rs.eof() ? 0 : rs.field("Code").toInteger();
  return code >= 1 && code <= BookCount ? int(code) : 1;
}

// The flag is always that of the first book, whatever the book.
VoucherBooks onlyBook(int book, const NumberSource& numbers)
{
  VoucherBooks books;
  books.AccountBook[book - 1] = 1;
  books.WarrantNum[book - 1] = numbers.next(book);
  books.AffixNum[0] = 1;
  return books;
}

VoucherBooks settledBooks(const Recordset& settings, const NumberSource& numbers)
{
  VoucherBooks books;
  for (int book = 1; book <= BookCount; ++book) {
    const auto membership = qint16(settings.field(u"AccountBook"_s + QString::number(book)).toInteger());
    books.AccountBook[book - 1] = membership;
    if (membership != 1)
      continue;
    books.WarrantNum[book - 1] = numbers.next(book);
    books.AffixNum[book - 1] = 1;
  }
  return books;
}

void nameType(Session& session, VoucherSettings& settings)
{
  const Recordset rs = OpenRecordset(session, {u"select * from TabWarrantTypeSet where Name='{}' ", Trim(settings.WarrantType)});
  if (!rs.eof())
    settings.Zi = rs.text("Zi");
  if (Trim(settings.WarrantType).isEmpty())
    settings.WarrantType = u"记账凭证"_s;
  if (Trim(settings.Zi).isEmpty())
    settings.Zi = u"记"_s;
}

} // namespace

bool declinesVoucher(const Recordset& settings)
{
  const Value wanted = settings.field("IsWarrant");
  return !wanted.isNull() && wanted.toNumber() == 0;
}

std::optional<VoucherSettings> drawVoucherSettings(Session& session, const QString& JXCTabName, const QDate& periodStart,
                                                   const QDate& periodEnd)
{
  const NumberSource numbers{session, periodStart, periodEnd};
  VoucherSettings settings;
  const Recordset rs = OpenRecordset(session, {u"select * from TabJXCAccount where JXCTabName='{}'", Trim(JXCTabName)});
  if (rs.eof()) {
    settings.books = onlyBook(mainBook(session), numbers);
  } else {
    if (declinesVoucher(rs))
      return std::nullopt;
    settings.books = settledBooks(rs, numbers);
    settings.WarrantType = rs.text("WarrantType");
  }
  nameType(session, settings);
  return settings;
}

} // namespace Vouchers
