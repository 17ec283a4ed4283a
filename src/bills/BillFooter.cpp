#include "bills/BillFooter.h"

using namespace Qt::StringLiterals;

BillFooter::BillFooter(Control* screen, Control* panel)
    : TxtOperator(panel, u"TxtOperator"_s), TxtAuditing(panel, u"TxtAuditing"_s), ChAutoAuditing(panel, u"ChAutoAuditing"_s),
      ChAutoAdd(panel, u"ChAutoAdd"_s), LoadingPic(panel, u"LoadingPic"_s), Animation1(&LoadingPic, u"Animation1"_s),
      LabLoading(&LoadingPic, u"LabLoading"_s), VS(screen, u"VS"_s), HS(screen, u"HS"_s)
{
  for (TextBox* const box : {&TxtOperator, &TxtAuditing}) {
    box->setReadOnly(true);
    box->setTabStop(false);
  }
  ChAutoAuditing.setCaption(u"保存时自动审核单据"_s);
  ChAutoAdd.setCaption(u"保存后自动新建下一单"_s);
  LabLoading.setCaption(u"数据读写中,请稍等....."_s);
  LoadingPic.setVisible(false);
}
