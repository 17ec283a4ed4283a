#include "settlement/OwnConditions.h"

using namespace Qt::StringLiterals;

ConditionBox::ConditionBox(Container& conditions, QAnyStringView name, const QStringList& items) : ComboBox(&conditions, name)
{
  setItems(items);
  setIndex(0);
}

WriteOffConditions::WriteOffConditions(Container& conditions)
    : CombHXType(conditions, "CombHXType", {u"收款核销"_s, u"付款核销"_s}),
      CombHXState(conditions, "CombHXState", {QString(), ConditionTexts::Unsettled.toString(), ConditionTexts::Settled.toString()})
{
}

GoodsLineConditions::GoodsLineConditions(Container& conditions)
    : CombBillType(conditions, "CombBillType", {u"采购入库单"_s, u"销售出库单"_s, u"其他入库单"_s, u"其他出库单"_s}),
      CombShowType(conditions, "CombShowType", {ConditionTexts::Unmatched.toString(), ConditionTexts::Matched.toString(), u"全部数据"_s}),
      Frame1(&conditions, "Frame1"), ChZZSFP(&Frame1, "ChZZSFP"), ChPTFP(&Frame1, "ChPTFP"), ChSJ(&Frame1, "ChSJ")
{
  Frame1.setCaption(u"发票类型"_s);
  ChZZSFP.setCaption(u"增值税发票"_s);
  ChPTFP.setCaption(u"普通发票"_s);
  ChSJ.setCaption(u"收据"_s);
  for (CheckBox* const box : {&ChZZSFP, &ChPTFP, &ChSJ})
    box->setChecked(true);
}
