#include "bills/CurrencyArea.h"

#include "bills/BillScreen.h"
#include "ledger/Money.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"

using namespace Qt::StringLiterals;

CurrencyArea::CurrencyArea(BillScreen& screen)
    : FrameMoneyType(&screen.Pic, "FrameMoneyType"), TxtMoneyName(&FrameMoneyType, "TxtMoneyName"),
      TxtMoneyRate(&FrameMoneyType, "TxtMoneyRate", u".0123456789"_s), m_screen(screen)
{
  TxtMoneyName.setEditable(true);
  TxtMoneyName.setText(u"人民币"_s);
  TxtMoneyName.onKey = [this](const Key& key) { return moveOnAtEnter(TxtMoneyName, key); };
  TxtMoneyName.onChange = TxtMoneyName.onClick = [this] { TxtMoneyName_Change(); };
  TxtMoneyRate.setText(u"1"_s);
}

void CurrencyArea::load()
{
  QStringList names;
  for (Recordset rs = OpenRecordset(m_screen.session, {u"select Name from TabMoneyType order by  IsBWB desc "}); !rs.eof(); rs.moveNext())
    names.append(rs.trimmed("Name"));
  TxtMoneyName.setItems(names);
  if (!names.isEmpty()) {
    TxtMoneyName.setIndex(0);
    TxtMoneyName_Change();
  }
  FrameMoneyType.setVisible(m_screen.session.params.IsLotMoney);
  if (!m_screen.session.params.IsLotMoney)
    TxtMoneyName.setText({});
}

void CurrencyArea::show(const Recordset& row)
{
  TxtMoneyName.setText(row.text("MoneyName"));
  TxtMoneyRate.setText(NumberText::ofSingle(float(row.number("MoneyRate"))));
}

void CurrencyArea::clear()
{
  if (m_screen.session.params.IsLotMoney)
    return;
  TxtMoneyName.setText({});
  TxtMoneyRate.setText(u"1"_s);
}

void CurrencyArea::addTo(BillRecord& record) const
{
  record.currency = Trim(TxtMoneyName.text());
  record.rate = NumberText::numericPrefix(TxtMoneyRate.text());
}

void CurrencyArea::TxtMoneyName_Change()
{
  TxtMoneyRate.setText(NumberText::ofSingle(ModFuntion::GetMoneyRate(m_screen.session, TxtMoneyName.text())));
}
