#include "bills/BillFooter.h"

using namespace Qt::StringLiterals;

BillFooter::BillFooter(Control* screen, Control* panel)
    : TxtOperator(panel, "TxtOperator"), TxtAuditing(panel, "TxtAuditing"), ChAutoAuditing(panel, "ChAutoAuditing"),
      ChAutoAdd(panel, "ChAutoAdd"), LoadingPic(panel, "LoadingPic"), Animation1(&LoadingPic, "Animation1"),
      LabLoading(&LoadingPic, "LabLoading"), VS(screen, "VS"), HS(screen, "HS")
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
