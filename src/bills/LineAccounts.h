#pragma once

#include "database/Statement.h"

// What the account pickers of the lines offer.

// Cash and bank. Without brackets: the picker's own condition, which follows, holds for the last part only.
inline constexpr SqlLiteral CashBankFilter = u"  where Code = '1' or    Code  ='1001' or Code= '1002' "
                                             u" or ParentCode like '1001%' or ParentCode like '1002%'";
inline constexpr SqlLiteral FeeAccountFilter = u"  where Code like  '5%'  or Code like  '6%'  ";
