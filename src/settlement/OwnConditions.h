#pragma once

#include "screen/Controls.h"

#include <array>

// The conditions that only some list screens have. They come first in FrameCondition, in tab order.

// A drop-down that shows its first item until another is chosen.
class ConditionBox : public ComboBox {
  Q_OBJECT

public:
  ConditionBox(Container& conditions, QAnyStringView name, const QStringList& items);
};

// Which write-offs are listed: those of receipts or of payments, and in which state.
struct WriteOffConditions {
  explicit WriteOffConditions(Container& conditions);

  ConditionBox CombHXType;
  ConditionBox CombHXState;
};

// Which lines of goods bills are listed: of bills of one kind, matched or not, by the invoice of their bills.
struct GoodsLineConditions {
  explicit GoodsLineConditions(Container& conditions);

  // The kinds of invoice, each captioned by its name.
  std::array<const CheckBox*, 3> invoices() const { return {&ChZZSFP, &ChPTFP, &ChSJ}; }

  ConditionBox CombBillType;
  ConditionBox CombShowType;
  Container Frame1;
  CheckBox ChZZSFP;
  CheckBox ChPTFP;
  CheckBox ChSJ;
};

// The items of the drop-downs that screens compare with.
namespace ConditionTexts {
inline constexpr QStringView Unsettled = u"未核销";
inline constexpr QStringView Settled = u"已核销";
inline constexpr QStringView Unmatched = u"未勾对数据";
inline constexpr QStringView Matched = u"已勾对数据";
} // namespace ConditionTexts
