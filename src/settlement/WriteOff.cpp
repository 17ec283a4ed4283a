#include "settlement/WriteOff.h"

#include "ledger/BillKinds.h"
#include "ledger/Money.h"
#include "platform/NumberText.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "settlement/SingleMoney.h"
#include "settlement/frmSFKHeXiao.h"

using namespace Qt::StringLiterals;

namespace WriteOff {
namespace {

// Nothing if the bill is not stored.
std::optional<float> storedTotal(Session& session, const BillKind& kind, const QString& code)
{
  const Recordset rs = OpenRecordset(session, {u"select * from {} where Code='{}'", SqlName(kind.headerTable), Trim(code)});
  return rs.eof() ? std::nullopt : std::optional(SingleMoney::of(rs.text("SumMoney")));
}

// The partner and the kind are the bill's; dates, state and the goods bill's code remain free.
void handOver(frmSFKHeXiao& screen, const Bill& bill, float total)
{
  screen.TxtUnitCode.setText(bill.unitCode);
  screen.TxtUnitName.setText(bill.unitName);
  screen.SFKMoney = total;
  screen.SFKBillCode = bill.code;
  screen.SFKBillDatee = bill.datee;
  for (Control* const control : std::initializer_list<Control*>{&screen.TxtUnitCode, &screen.TxtUnitName, &screen.ImgUnitCode,
                                                                &screen.ImgUnitName, &screen.writeOffs->CombHXType})
    control->setEnabled(false);
  screen.LabSFKMoney.setCaption(u"核销金额："_s + NumberText::ofSingle(total));
  screen.LabSFKMoney.setVisible(true);
}

} // namespace

void open(Session& session, const BillKind& kind, const Bill& bill)
{
  const std::optional<float> stored = storedTotal(session, kind, bill.code);
  if (!stored) {
    session.desk.inform(u"尚未保存数据，请先保存数据后重新执行核销！"_s);
    return;
  }
  const float total = SingleMoney::of(ModFuntion::StripMoneyText(bill.total));
  if (total == 0) {
    session.desk.inform(QString::fromUtf16(kind.operation) + u"金额为0不能执行核销！"_s);
    return;
  }
  frmSFKHeXiao screen(session, kind.writeOff->mode);
  screen.Form_Load();
  handOver(screen, bill, total);
  screen.isUnchanged = [&] { return storedTotal(session, kind, bill.code) == stored; };
  screen.CmdQuery_Click();
  screen.goToFirstAmount();
  session.desk.showModal(screen);
}

} // namespace WriteOff
