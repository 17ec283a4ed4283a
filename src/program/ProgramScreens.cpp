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

// The entry names the screens; here they get their forms.
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

Screen* ProgramScreens::screen(const QString& name)
{
  if (const auto made = m_screens.find(name); made != m_screens.end())
    return made->second.get();
  for (const Maker& maker : Makers)
    if (name == QLatin1String(maker.name))
      return m_screens.emplace(name, maker.make(m_session)).first->second.get();
  return nullptr;
}
