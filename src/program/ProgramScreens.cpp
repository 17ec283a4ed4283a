#include "program/ProgramScreens.h"

#include "bills/frmBankKeepTake.h"
#include "bills/frmFeeElseIncome.h"
#include "bills/frmFeeSustain.h"
#include "bills/frmGathefund.h"
#include "bills/frmPayfund.h"
#include "settlement/frmGouDui.h"
#include "settlement/frmGouDuiTogather.h"
#include "settlement/frmSFKHeXiao.h"

namespace {

template <typename Form> std::unique_ptr<Screen> make(Session& session)
{
  return std::make_unique<Form>(session);
}

struct Maker {
  const char* name;
  std::unique_ptr<Screen> (*make)(Session&);
};

constexpr Maker Makers[] = {
    {"frmPayfund", make<frmPayfund>},
    {"frmGathefund", make<frmGathefund>},
    {"frmBankKeepTake", make<frmBankKeepTake>},
    {"frmFeeElseIncome", make<frmFeeElseIncome>},
    {"frmFeeSustain", make<frmFeeSustain>},
    {"frmSFKHeXiao", make<frmSFKHeXiao>},
    {"frmGouDui", make<frmGouDui>},
    {"frmGouDuiTogather", make<frmGouDuiTogather>},
};

} // namespace

std::unique_ptr<Screen> makeProgramScreen(Session& session, const QString& name)
{
  for (const Maker& maker : Makers)
    if (name == QLatin1String(maker.name))
      return maker.make(session);
  return nullptr;
}
