#include "pickers/TreeWriteBack.h"

#include "pickers/AccountReceiver.h"
#include "screen/Controls.h"
#include "screen/Form.h"

namespace TreeWriteBack {
namespace {

// One way of a choice into a caller. An empty condition holds for every choice; a rule without
// boxes hands the account to the caller's line grid.
struct Rule {
  const char16_t* caller;
  const char16_t* kind;
  const char16_t* target;
  const char16_t* table;
  const char16_t* codeBox = u"";
  const char16_t* nameBox = u"";
};

constexpr Rule Rules[] = {
    {u"frmGathefund", u"", u"", u""},
    {u"frmPayfund", u"", u"", u""},
    {u"frmFeeSustain", u"", u"", u""},
    {u"frmBankKeepTake", u"转出账户", u"", u"", u"TxtAccountCodeC", u"TxtAccountNameC"},
    {u"frmBankKeepTake", u"转入账户", u"", u"", u"TxtAccountCodeR", u"TxtAccountNameR"},
    {u"frmFeeElseIncome", u"", u"Text2", u"TabAccountantType"},
    {u"frmFeeElseIncome", u"", u"现金", u"TabAccountantType", u"TxtCashAccouCode", u"TxtCashAccouName"},
    {u"frmFeeElseIncome", u"", u"银行存款", u"TabAccountantType", u"TxtTransferCode", u"TxtTransferName"},
};

bool meets(const QString& value, const char16_t* condition)
{
  return !*condition || value == QStringView(condition);
}

void put(Form& caller, const char16_t* name, const QString& text)
{
  if (TextBox* const box = caller.find<TextBox>(QString::fromUtf16(name)))
    box->setText(text);
}

void handOver(Form& caller, const Rule& rule, const Choice& choice)
{
  if (*rule.codeBox) {
    put(caller, rule.codeBox, choice.code);
    put(caller, rule.nameBox, choice.name);
  } else if (AccountReceiver* const receiver = dynamic_cast<AccountReceiver*>(&caller)) {
    receiver->Txt2ToMSH({u"select * from TabAccountantType where Code='{}'", choice.code});
  }
}

} // namespace

void write(Form& caller, const Choice& choice)
{
  for (const Rule& rule : Rules)
    if (caller.name() == QStringView(rule.caller) && meets(choice.TreeKind, rule.kind) && meets(choice.TreeTarget, rule.target) &&
        meets(choice.TreeTable, rule.table))
      return handOver(caller, rule, choice);
}

} // namespace TreeWriteBack
