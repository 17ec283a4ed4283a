#include "startup/Entry.h"

#include "ledger/BillKinds.h"
#include "platform/RunTimeError.h"
#include "platform/Trim.h"
#include "screen/Form.h"
#include "session/Session.h"
#include "startup/ModReadWriteParameters.h"

using namespace Qt::StringLiterals;

namespace Mod_ZORVEKMain {
namespace {

// A screen that is not a bill's, by the directive that opens it.
struct ListScreen {
  const char16_t* order;
  const char* screen;
};
constexpr ListScreen WriteOffQuery{u"收付款核销查询", "frmSFKHeXiao"};
constexpr ListScreen ListScreens[] = {{u"开票勾对", "frmGouDui"}, {u"开票金额汇总表", "frmGouDuiTogather"}, WriteOffQuery};

std::unique_ptr<Screen> loaded(Session& session, ScreenMaker make, const char* name)
{
  std::unique_ptr<Screen> screen = make(session, QString::fromLatin1(name));
  if (screen)
    screen->Form_Load();
  return screen;
}

// Once the screen is shown, errors are the screen's: the rest runs as its event.
void show(Session& session, Screen& screen, bool keepScreen)
{
  session.desk.show(screen.form());
  screen.form().handle([&] { screen.frm_Initialize(keepScreen); });
}

// A new working screen, by OperateType.
std::unique_ptr<Screen> openNewScreen(Session& session, ScreenMaker make)
{
  const QString order = Trim(session.params.OperateType);
  const BillKind* const kind = BillKinds::first(&BillKind::opensNew, order);
  const char* name = kind ? kind->screen : nullptr;
  for (const ListScreen& list : ListScreens)
    if (order == QStringView(list.order))
      name = list.screen;
  std::unique_ptr<Screen> screen = name ? loaded(session, make, name) : nullptr;
  if (screen)
    show(session, *screen, false);
  return screen;
}

bool isSourceOrder(QStringView order)
{
  for (const BillKind* const kind : BillKinds::All)
    if (kind->writeOff && order == QStringView(kind->writeOff->sourceOrder))
      return true;
  return false;
}

// A stored bill to be looked at, by OperationsDirective2. Both source bills of the write-off are shown by the
// receipt's screen: the header table in the third directive says what it reads.
std::unique_ptr<Screen> openView(Session& session, ScreenMaker make)
{
  const QString order = Trim(session.params.OperationsDirective2);
  const bool isSourceBill = isSourceOrder(order);
  const BillKind* const kind = isSourceBill ? &BillKinds::Receipt : BillKinds::first(&BillKind::opensStored, order);
  const bool isQuery = order == QStringView(WriteOffQuery.order);
  if (!kind && !isQuery)
    return nullptr;
  std::unique_ptr<Screen> screen = loaded(session, make, kind ? kind->screen : WriteOffQuery.screen);
  if (screen && isSourceBill)
    screen->hideWriteOff();
  if (screen && kind)
    screen->FillBill(Trim(session.params.OperationsDirective3), Trim(session.params.OperationsDirective4));
  if (screen && isSourceBill)
    session.desk.show(screen->form());
  else if (screen)
    show(session, *screen, true);
  return screen;
}

Start ended(Session& session, const QString& message)
{
  session.desk.stop(message);
  return {nullptr, 1};
}

} // namespace

Start Main(Session& session, ScreenMaker make)
{
  try {
    if (!ModReadWriteParameters::ReadSystemParameters(session.machine, session.params))
      return ended(session, u"读取系统参数失败，本模块启动终止！请重新操作！"_s);
    session.DotSet = LoadDotSet(session);
    std::unique_ptr<Screen> screen = openNewScreen(session, make);
    if (!screen)
      screen = openView(session, make);
    if (!screen)
      return ended(session, u"读取系统运行参数失败，本模块运行自动终止，请重新操作！"_s);
    return {std::move(screen), 0};
  } catch (const RunTimeError& error) {
    return ended(session, error.text());
  }
}

} // namespace Mod_ZORVEKMain
