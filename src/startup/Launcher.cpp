#include "startup/Launcher.h"

#include "ledger/BillKinds.h"
#include "platform/Trim.h"
#include "session/Session.h"
#include "startup/ModReadWriteParameters.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace Mod_ZORVEKMain {
namespace {

// The programs of the suite; `called` is its name in the two messages.
struct Sibling {
  const char* executable;
  const char16_t* called;
};

constexpr Sibling PrintManager{"TALMIR.exe", u"打印管理"};
constexpr Sibling ReportManager{"BENQOS.exe", u"外部报表管理"};
constexpr Sibling MasterData{"MIRVAL.exe", u"基础管理"};
constexpr Sibling Accounting{"GOSTEN.exe", u"会计事务"};
constexpr Sibling Purchase{"FENDRO.exe", u"采购管理"};
constexpr Sibling Sales{"HULVIK.exe", u"销售管理"};
constexpr Sibling CashAndBank{"ZORVEK.exe", u"ZORVEK"};
constexpr Sibling ImageManager{"DRAMOT.exe", u"图片管理"};

struct Operation {
  const char16_t* name;
  const Sibling& sibling;
};

// These spellings and no other are accepted, beside those of the bills.
constexpr Operation Operations[] = {
    {u"打印", PrintManager},         {u"外部报表管理", ReportManager},
    {u"供应商资料", MasterData},     {u"客户资料", MasterData},
    {u"往来单位资料", MasterData},   {u"员工资料", MasterData},
    {u"商品资料", MasterData},       {u"自动生成会计凭证对应科目设置", MasterData},
    {u"现金银行资料", MasterData},   {u"仓库资料", MasterData},
    {u"查看会计凭证", Accounting},   {u"购买入库原单查看", Purchase},
    {u"其他入库原单查看", Purchase}, {u"商品入库原单查看", Purchase},
    {u"采购入库原单查看", Purchase}, {u"销售出库原单查看", Sales},
    {u"其他出库原单查看", Sales},    {u"商品出库原单查看", Sales},
};

const Sibling* siblingFor(const QString& operation)
{
  for (const Operation& known : Operations)
    if (operation == QStringView(known.name))
      return &known.sibling;
  for (const BillKind* const kind : BillKinds::All)
    if (kind->writeOff && operation == QString::fromUtf16(kind->name) + u"原单查看"_s)
      return &CashAndBank;
  const bool isOfImages = operation.endsWith(u"图片") && BillKinds::first(&BillKind::hasImagesCalled, QStringView(operation).chopped(2));
  return isOfImages ? &ImageManager : nullptr;
}

} // namespace

bool RunSiblingProgram(Session& session, const QString& operation, const Directives& directives)
{
  const Sibling* const sibling = siblingFor(Trim(operation));
  if (!sibling) {
    session.desk.inform(u"未传递操作指令，操作中断！"_s);
    return false;
  }
  if (!ModReadWriteParameters::WriteSystemParameters(session, directives))
    return false;
  const QString called = QString::fromUtf16(sibling->called);
  const QString path = session.machine.inProgramFolder(QString::fromLatin1(sibling->executable));
  if (!QFileInfo(path).isFile()) {
    session.desk.stop(called + u"程序不存在，请确定您程序安装是否完整！"_s);
    return false;
  }
  if (!session.machine.startProgram(path)) {
    session.desk.stop(u"启动"_s + called + u"程序意外终止！"_s);
    return false;
  }
  return true;
}

} // namespace Mod_ZORVEKMain
