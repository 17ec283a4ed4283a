#include "settlement/MatchingLines.h"

#include "ledger/Money.h"
#include "platform/RunTimeError.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

using namespace Qt::StringLiterals;

namespace {

enum class Look { Plain, OfBill, Attribute, Number, Money, Tick };

struct Field {
  const char* name;
  Look look = Look::Plain;
};

constexpr int AttributeCode = 11;
// By the columns of the list. The unit prices are formatted like quantities, which users rely on.
constexpr Field Fields[MatchingLines::ColumnCount] = {
    {nullptr},
    {"BillCode", Look::OfBill},
    {"BillType", Look::OfBill},
    {"Datee", Look::OfBill},
    {"UnitCode", Look::OfBill},
    {"UnitName", Look::OfBill},
    {"InvoiceType", Look::OfBill},
    {"Num"},
    {"WareCode"},
    {"WareName"},
    {"WareSpec"},
    {"AttributeCode", Look::Attribute},
    {"Unite"},
    {"Amount", Look::Number},
    {"Price", Look::Number},
    {"Moneyy", Look::Money},
    {"DisCount", Look::Number},
    {"Price_Discount", Look::Number},
    {"Moneyy_Discount", Look::Money},
    {"TaxLu", Look::Number},
    {"Tax", Look::Money},
    {"Price_Tax", Look::Number},
    {"Moneyy_Tax", Look::Money},
    {"Remark"},
    {"GouDui", Look::Tick},
};

} // namespace

MatchingLines::MatchingLines(Session& session, RowSet rows) : m_rows(std::move(rows)), m_decimals(session.DotSet)
{
  findColumns();
  markFirstLines();
  nameAttributes(session);
}

void MatchingLines::findColumns()
{
  for (int column = 1; column < ColumnCount; ++column) {
    m_places[column] = m_rows.column(QString::fromLatin1(Fields[column].name));
    if (m_places[column] < 0)
      throw RunTimeError(RunTimeError::NoSuchField, u"没有字段 "_s + QString::fromLatin1(Fields[column].name));
  }
}

void MatchingLines::markFirstLines()
{
  m_isFirst.resize(std::size_t(count()));
  QString bill;
  for (int line = 0; line < count(); ++line) {
    const QString code = m_rows.value(line, m_places[BillCode]).toText();
    m_isFirst[std::size_t(line)] = code != bill;
    bill = code;
  }
}

void MatchingLines::nameAttributes(Session& session)
{
  for (int line = 0; line < count(); ++line) {
    const QString code = m_rows.value(line, m_places[AttributeCode]).toText();
    if (code.isEmpty() || m_attributes.contains(code))
      continue;
    const Recordset rs = OpenRecordset(session, {u"select Name from TabAttribute where Code='{}' ", code});
    m_attributes.insert(code, rs.eof() ? QString() : rs.text("Name"));
  }
}

QString MatchingLines::text(int line, int column) const
{
  if (column < 1 || column >= ColumnCount)
    return {};
  const Value value = m_rows.value(line, m_places[column]);
  switch (Fields[column].look) {
  case Look::Plain: break;
  case Look::OfBill: return m_isFirst[std::size_t(line)] ? value.toText() : QString();
  case Look::Attribute: return m_attributes.value(value.toText());
  case Look::Number: return ModFuntion::FormatDotText(value, m_decimals.DotNumber);
  case Look::Money: return ModFuntion::FormatDotText(value, m_decimals.DotMoney);
  case Look::Tick: return value.toInteger() == 1 ? u"√"_s : QString();
  }
  return value.toText();
}
