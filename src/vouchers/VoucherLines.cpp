#include "vouchers/VoucherLines.h"

#include "ledger/MasterData.h"
#include "ledger/Money.h"
#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"
#include "vouchers/VoucherBill.h"
#include "vouchers/VoucherLineRules.h"

using namespace Qt::StringLiterals;

namespace Vouchers {
namespace {

// What all lines of a voucher have in common.
struct Frame {
  QString Datee;
  QString DateeY;
  QString DateeM;
  QString Summary = {};
  QString MoneyName = {};
  SqlNumber MoneyRate = SqlNumber(0);
};

// The account and the amount of one line, as they were read.
struct Entry {
  QString account;
  QString name;
  QString allName;
  Value amount;
};

class LineWriter {
public:
  LineWriter(Session& session, const VoucherBill& bill, const VoucherRules& rules, const VoucherEntry& voucher)
      : m_session(session), m_bill(bill), m_rules(rules), m_voucher(voucher)
  {
  }

  // `accounts` are the partner's, not open for a bill without one.
  void write(const SourceBill& source, const Recordset& header, const Recordset& accounts)
  {
    m_frame = frameOf(source);
    for (const VoucherLineRule& rule : m_rules.lines)
      write(rule, header, accounts);
  }

private:
  Frame frameOf(const SourceBill& source)
  {
    Frame frame{DateText::shortForm(source.Datee), QString::number(source.DateeY), QString::number(source.DateeM),
                u"第"_s + Trim(source.Code) + QString::fromUtf16(m_rules.suffix)};
    if (m_rules.inBaseMoney) {
      frame.MoneyName = ModFuntion::GetBaseMoneyName(m_session);
      frame.MoneyRate = SqlNumber(NumberText::ofSingle(ModFuntion::GetBaseMoneyRate(m_session)));
    } else {
      frame.MoneyName = Trim(m_bill.TxtMoneyName);
      frame.MoneyRate = SqlNumber(NumberText::ofDouble(NumberText::numericPrefix(m_bill.TxtMoneyRate)));
    }
    return frame;
  }

  void write(const VoucherLineRule& rule, const Recordset& header, const Recordset& accounts)
  {
    switch (rule.source) {
    case LineSource::None: break;
    case LineSource::Partner: writeOwn(rule, header, accounts.eof() ? QString() : accounts.text(rule.account)); break;
    case LineSource::Header: writeOwn(rule, header, header.text(rule.account)); break;
    case LineSource::Rows: writeRows(rule, header.text("Code")); break;
    }
  }

  // A line whose amount is in the header.
  void writeOwn(const VoucherLineRule& rule, const Recordset& header, const QString& account)
  {
    const Value amount = header.field(rule.amount);
    if (rule.evenIfZero || amount.toNumber() != 0)
      insert(rule, {account, header.text(rule.name), ModFuntion::GetAccountPath(m_session, account, true), amount});
    else if (rule.number != NextNumber)
      m_number = rule.number;
  }

  void writeRows(const VoucherLineRule& rule, const QString& billCode)
  {
    const BillLines* const lines = m_rules.kind.lines;
    const SqlName table(lines ? lines->table : m_rules.kind.headerTable);
    const SqlName account(rule.account);
    Recordset rows = OpenRecordset(m_session, {u"select {}.{} as AccountantCode, {}.{} as AccountantName,{}.{} as Moneyy,"
                                               u" TabAccountantType.AllName as AccountantAllName  from {},TabAccountantType "
                                               u" where {}.{}='{}' and {}.{}=TabAccountantType.Code ",
                                               table, account, table, SqlName(rule.name), table, SqlName(rule.amount), table, table,
                                               SqlName(lines ? lines->billCode : "Code"), billCode, table, account});
    for (; !rows.eof(); rows.moveNext())
      if (rows.number("Moneyy") != 0)
        insert(rule, {rows.text("AccountantCode"), rows.text("AccountantName"), rows.text("AccountantAllName"), rows.field("Moneyy")});
  }

  // The partner, where the account has partner accounting. The column for 自定义核算 beside it is always empty: no account
  // has that kind.
  QString trackedPartner(const QString& account) const
  {
    return m_rules.partnerAccounts.isEmpty() ? QString()
                                             : ModFuntion::GetAuxiliaryValue(m_session, u"往来核算"_s, account, Trim(m_bill.TxtCode));
  }

  // The values are in the order of the table's columns.
  void insert(const VoucherLineRule& rule, const Entry& entry)
  {
    m_number = rule.number == NextNumber ? m_number + 1 : rule.number;
    const SqlNumber zero(0);
    const SqlNumber amount(entry.amount.toText());
    const auto number = [](int value) { return SqlNumber(value); };
    const auto& numbers = m_voucher.WarrantNum;
    const auto& books = m_voucher.AccountBook;
    Execute(m_session, {u"insert into TabWarrantInf values({},'{}','{}','{}','{}','{}','{}','{}','{}',{},{},'未审核',"
                        u"{},{},{},{},{},{},'{}','{}','','',0,0,'{}','{}',{} )",
                        number(m_number),
                        m_frame.Datee,
                        m_frame.DateeY,
                        m_frame.DateeM,
                        Trim(m_voucher.Code),
                        m_frame.Summary,
                        entry.account,
                        entry.name,
                        entry.allName,
                        rule.side == Side::Debtor ? amount : zero,
                        rule.side == Side::Lender ? amount : zero,
                        number(numbers[0]),
                        number(numbers[1]),
                        number(numbers[2]),
                        number(books[0]),
                        number(books[1]),
                        number(books[2]),
                        m_voucher.ZD,
                        trackedPartner(entry.account),
                        ModFuntion::GetAuxiliaryValue(m_session, u"自定义核算"_s, entry.account, {}),
                        m_frame.MoneyName,
                        m_frame.MoneyRate});
  }

  Session& m_session;
  const VoucherBill& m_bill;
  const VoucherRules& m_rules;
  const VoucherEntry& m_voucher;
  Frame m_frame;
  int m_number = 0;
};

} // namespace

void WriteVoucherLines(Session& session, const VoucherBill& bill, const SourceBill& source, const Recordset& header,
                       const VoucherEntry& voucher)
{
  const bool isOffset = bill.headerTable == QLatin1String(BillKinds::FeeOffset.headerTable);
  const VoucherRules* const rules = voucherRulesFor(bill.headerTable, isOffset ? header.trimmed("SustainType") : QString());
  Recordset accounts;
  if (rules && !rules->partnerAccounts.isEmpty())
    accounts =
        OpenRecordset(session, {u"select {} from TabClient where code='{}' ", Statement(rules->partnerAccounts), Trim(bill.TxtCode)});
  Execute(session, {u"delete from TabWarrantInf where BillCode='{}'", voucher.Code});
  if (rules)
    LineWriter(session, bill, *rules, voucher).write(source, header, accounts);
}

} // namespace Vouchers
