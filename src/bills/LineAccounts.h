#pragma once

#include "database/Statement.h"

// The filters of the account pickers for lines.

// Cash and bank. Without brackets: the picker appends its own condition, which applies to the last part only.
inline constexpr SqlLiteral CashBankFilter = u"  where Code = '1' or    Code  ='1001' or Code= '1002' "
                                             u" or ParentCode like '1001%' or ParentCode like '1002%'";
inline constexpr SqlLiteral FeeAccountFilter = u"  where Code like  '5%'  or Code like  '6%'  ";
