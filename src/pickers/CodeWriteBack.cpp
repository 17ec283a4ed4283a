#include "pickers/CodeWriteBack.h"

#include "platform/Trim.h"
#include "screen/Controls.h"
#include "screen/Form.h"
#include "session/ModuleADO.h"

namespace CodeWriteBack {
namespace {

enum class Place {
  Partner,  // TxtCode, TxtName, and the partner's own salesman
  SaleMan,  // TxtSaleMan
  UnitBoxes // TxtUnitCode or TxtUnitName, as the caller asked
};

struct Rule {
  const char16_t* caller;
  const char16_t* table;
  Place place;
};

constexpr Rule Rules[] = {
    {u"frmGathefund", u"TabClient", Place::Partner},   {u"frmGathefund", u"TabStuff", Place::SaleMan},
    {u"frmPayfund", u"TabClient", Place::Partner},     {u"frmPayfund", u"TabStuff", Place::SaleMan},
    {u"frmFeeSustain", u"TabClient", Place::Partner},  {u"frmFeeSustain", u"TabStuff", Place::SaleMan},
    {u"frmBankKeepTake", u"TabStuff", Place::SaleMan}, {u"frmFeeElseIncome", u"TabStuff", Place::SaleMan},
    {u"frmGouDui", u"TabClient", Place::UnitBoxes},    {u"frmGouDuiTogather", u"TabClient", Place::UnitBoxes},
};

void put(Form& caller, const char* name, const QString& text)
{
  if (TextBox* const box = caller.find<TextBox>(QString::fromLatin1(name)))
    box->setText(text);
}

QString saleManOf(Session& session, const QString& code)
{
  const Recordset rs = OpenRecordset(session, {u"select SaleMan from TabClient  where Code = '{}' ", Trim(code)});
  return rs.eof() ? QString() : rs.text("SaleMan");
}

// The code first: the change of the name sets off the caller's work on the partner, also when the name
// has been typed in full or is that of another partner.
void writePartner(Session& session, Form& caller, const Choice& choice)
{
  put(caller, "TxtCode", choice.code);
  if (TextBox* const box = caller.find<TextBox>("TxtName"))
    box->assign(choice.name);
  put(caller, "TxtSaleMan", saleManOf(session, choice.code));
}

} // namespace

void write(Session& session, Form& caller, const Choice& choice)
{
  for (const Rule& rule : Rules) {
    if (caller.name() != QStringView(rule.caller) || choice.CodeTable != QStringView(rule.table))
      continue;
    switch (rule.place) {
    case Place::Partner: return writePartner(session, caller, choice);
    case Place::SaleMan: return put(caller, "TxtSaleMan", choice.name);
    case Place::UnitBoxes:
      return choice.ReturnField == u"Code" ? put(caller, "TxtUnitCode", choice.code) : put(caller, "TxtUnitName", choice.name);
    }
  }
}

} // namespace CodeWriteBack
