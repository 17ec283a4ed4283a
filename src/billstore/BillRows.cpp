#include "billstore/BillRows.h"

#include "ledger/BillKinds.h"
#include "platform/DateText.h"
#include "platform/NumberText.h"

namespace BillRows {
namespace {

using Values = QList<Statement>;

Statement money(Currency amount)
{
  return sqlNumber(SqlNumber(amount));
}

Statement date(const BillRecord& record)
{
  return sqlText(DateText::shortForm(record.date));
}

Values account(const BillAccount& account)
{
  return {sqlText(account.code), sqlText(account.name)};
}

// The columns that end every row.
Values closing(const BillRecord& record)
{
  return {sqlText(record.currency), sqlNumber(SqlNumber(NumberText::ofDouble(record.rate))), sqlText(record.auditor)};
}

// The columns between the date and the remark.
Values ownColumns(const BillKind& kind, const BillRecord& record)
{
  const Statement operatorName = sqlText(record.operatorName);
  if (kind.hasPartner)
    return account(record.partner) + Values{operatorName, money(record.sum)};
  if (!kind.lines)
    return Values{money(record.sum)} + account(record.cashOrOutgoing) + account(record.bankOrIncoming) + Values{operatorName};
  return {money(record.sum),
          money(record.cash),
          money(record.bank),
          sqlText(record.cashOrOutgoing.code),
          sqlText(record.bankOrIncoming.code),
          sqlText(record.cashOrOutgoing.name),
          sqlText(record.bankOrIncoming.name),
          operatorName};
}

} // namespace

Statement header(const BillKind& kind, const BillRecord& record)
{
  Values values{sqlText(record.code), date(record)};
  values += ownColumns(kind, record);
  values += {sqlText(record.remark), sqlText(record.type), sqlText(record.state)};
  if (!record.offsetType.isEmpty())
    values += sqlText(record.offsetType);
  values += {sqlText(record.report), sqlText(record.saleMan)};
  return Statement::joined(values + closing(record), u",");
}

Statement line(const BillKind& kind, const BillRecord& record, int number)
{
  const BillLine& line = record.lines[number - 1];
  Values values{sqlNumber(SqlNumber(number)), date(record), sqlText(record.code)};
  if (kind.hasPartner)
    values += account(record.partner);
  values += account(line.account);
  values += {money(line.amount), sqlText(line.remark), sqlText(record.state)};
  return Statement::joined(values + closing(record), u",");
}

} // namespace BillRows
