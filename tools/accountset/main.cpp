#include "Complaint.h"
#include "Password.h"
#include "accountset/AccountSet.h"
#include "accountset/Check.h"
#include "accountset/Copy.h"
#include "accountset/ServerAccountSet.h"
#include "platform/MemoryImage.h"
#include "samplefirm/SampleFirm.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QTextStream>

// Makes, copies and checks account sets from the shell.

namespace {

// It speaks the language of the rules that it reports, which people read who keep accounts.
constexpr char Help[] = R"(建立、复制和检查账套。

  accountset create 文件 [--demo]
  accountset create --server 服务器 --login 用户 [--demo]
  accountset copy 来源 目标 [--login 用户]
  accountset check [--repair] 文件或服务器

  --demo     写入示例公司的数据；否则所有数据表为空
  --repair   先备份，再更正只有一种正确结果的不符之处；其余各项说明如何处理
  --server   在服务器上建立
  --login    程序登录服务器的用户，只能查询、插入、更新和删除
  --help     显示本说明
  --version  显示版本

服务器写作 server://用户@主机:端口/数据库；建立和复制时，该用户须是 PostgreSQL 服务器的管理员。
其密码取自 ACCOUNTSET_PASSWORD，否则在终端上询问；--login 用户的密码取自 ACCOUNTSET_LOGIN_PASSWORD。
参数中不接受密码：本机的所有人都能看到。
已有的账套不会被覆盖：要建立的和复制的目标必须尚不存在。
复制时可以继续操作账套：副本是某一时刻的内容。
退出状态：0 完成，或全部相符；1 未完成，或有不符；2 用法不正确。)";

struct Orders {
  QStringList words;
  bool demo = false;
  bool server = false;
  bool repair = false;
  ServerAccountSet::Login login;

  AccountSet::Fill fill() const { return demo ? AccountSet::Fill(SampleFirm::write) : AccountSet::Fill(); }
};

QTextStream& out()
{
  static QTextStream stream(stdout);
  return stream;
}

tl::expected<void, QString> create(const AccountSetLocation& location, const Orders& orders)
{
  if (!location.isServer())
    return AccountSet::create(location.file, orders.fill());
  if (orders.login.name.isEmpty())
    return tl::unexpected(QStringLiteral("缺少 --login 用户"));
  return ServerAccountSet::create(location, orders.login, orders.fill());
}

int create(const Orders& orders)
{
  auto location = AccountSetLocation::read(orders.words.value(1));
  if (orders.words.size() != 2 || !location || location->isServer() != orders.server)
    return complain(QStringLiteral("用法：accountset create 文件 | --server 服务器 --login 用户 [--demo]"), WrongUse);
  if (const auto done = Password::supply(*location); !done)
    return complain(done.error(), WrongUse);
  if (const auto done = create(*location, orders); !done)
    return complain(done.error(), Failed);
  out() << location->text() << "\n";
  return Done;
}

// One line a table that holds rows on either side. True if both hold the same.
bool print(const Copy::Proof& proof)
{
  const bool isSame = proof.from == proof.to;
  if (proof.from.rows == 0 && isSame)
    return true;
  const auto decimal = [](const QString& millionths) {
    const QString digits = QString(millionths).remove(u'-').rightJustified(7, u'0');
    QString text = digits.chopped(6) + u'.' + digits.right(6);
    while (text.endsWith(u'0'))
      text.chop(1);
    return (millionths.startsWith(u'-') ? QStringLiteral("-") : QString()) + (text.endsWith(u'.') ? text.chopped(1) : text);
  };
  out() << (isSame ? "相同" : "不同") << ' ' << proof.table << "：行数 " << proof.from.rows << " = " << proof.to.rows;
  for (int i = 0; i < proof.columns.size(); ++i)
    out() << "，" << proof.columns[i] << ' ' << decimal(proof.from.sums[i]) << " = " << decimal(proof.to.sums[i]);
  out() << "\n";
  return isSame;
}

int prove(Store& from, Store& to)
{
  const auto proofs = Copy::prove(from, to);
  if (!proofs)
    return complain(proofs.error(), Failed);
  qsizetype same = 0;
  for (const Copy::Proof& proof : *proofs)
    same += print(proof);
  out() << proofs->size() << " 个数据表中 " << same << " 个相同\n";
  return same == proofs->size() ? Done : Failed;
}

int copy(const Orders& orders)
{
  auto source = AccountSetLocation::read(orders.words.value(1));
  auto target = AccountSetLocation::read(orders.words.value(2));
  if (orders.words.size() != 3 || !source || !target)
    return complain(QStringLiteral("用法：accountset copy 来源 目标 [--login 用户]"), WrongUse);
  for (AccountSetLocation* location : {&*source, &*target})
    if (const auto done = Password::supply(*location); !done)
      return complain(done.error(), WrongUse);
  if (!source->isServer() && !QFile::exists(source->file))
    return complain(QStringLiteral("找不到账套文件：%1").arg(source->file), Failed);
  const auto from = Store::openMoment(*source);
  if (!from)
    return complain(from.error(), Failed);
  if (const auto done = create(*target, orders); !done)
    return complain(done.error(), Failed);
  const auto to = Store::open(*target);
  if (!to)
    return complain(to.error(), Failed);
  if (const auto done = Copy::rows(**from, **to); !done)
    return complain(done.error(), Failed);
  return prove(**from, **to);
}

void print(const QStringList& rows, const char* before)
{
  for (const QString& row : rows)
    out() << before << row << "\n";
}

// What the account set was before a repair: beside the file, or for a server in the working folder.
QString backupPath(const AccountSetLocation& location)
{
  const QString name = location.isServer() ? location.server.database + QStringLiteral(".mdb") : location.file;
  return QStringLiteral("%1.%2.bak").arg(name, QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")));
}

int check(const AccountSetLocation& location)
{
  int broken = 0;
  const auto checked = Check::run(location, [&broken](const Check::Finding& finding) {
    ++broken;
    out() << finding.what << "\n";
    print(finding.rows, "  ");
  });
  if (!checked)
    return complain(checked.error(), Failed);
  out() << (broken == 0 ? QStringLiteral("全部相符\n") : QStringLiteral("%1 项不符\n").arg(broken));
  return broken == 0 ? Done : Failed;
}

int repair(const AccountSetLocation& location)
{
  const auto repairable = Check::isRepairable(location);
  if (!repairable)
    return complain(repairable.error(), Failed);
  if (*repairable) {
    const QString backup = backupPath(location);
    if (const auto done = Copy::toFile(location, backup); !done)
      return complain(done.error(), Failed);
    out() << "备份：" << backup << "\n";
  }
  qsizetype repaired = 0;
  int broken = 0;
  const auto report = [&](const Check::Finding& finding) {
    repaired += finding.repaired.size();
    broken += !finding.rows.isEmpty();
    out() << finding.what << "\n";
    print(finding.repaired, "  已更正 ");
    print(finding.rows, "  ");
    if (!finding.rows.isEmpty())
      out() << "  处理：" << finding.advice << "\n";
  };
  const auto done = *repairable ? Check::repair(location, report) : Check::run(location, report);
  if (!done)
    return complain(done.error(), Failed);
  out() << "已更正 " << repaired << " 处，" << (broken == 0 ? QStringLiteral("全部相符\n") : QStringLiteral("%1 项不符\n").arg(broken));
  return broken == 0 ? Done : Failed;
}

int check(const Orders& orders)
{
  auto location = AccountSetLocation::read(orders.words.value(1));
  if (orders.words.size() != 2 || !location)
    return complain(QStringLiteral("用法：accountset check [--repair] 文件或服务器"), WrongUse);
  if (const auto done = Password::supply(*location); !done)
    return complain(done.error(), WrongUse);
  return orders.repair ? repair(*location) : check(*location);
}

} // namespace

int main(int argc, char* argv[])
{
  forbidMemoryImages();
  QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("accountset"));

  QCommandLineParser parser;
  if (const auto answered = answerOf(QCoreApplication::arguments().mid(1), Help))
    return *answered;
  const QCommandLineOption demo(QStringLiteral("demo"));
  const QCommandLineOption server(QStringLiteral("server"));
  const QCommandLineOption repair(QStringLiteral("repair"));
  const QCommandLineOption login(QStringLiteral("login"), {}, QStringLiteral("NAME"));
  parser.addOptions({demo, server, repair, login});
  if (!parser.parse(QCoreApplication::arguments()))
    return complain(QStringLiteral("参数不正确；用法见 accountset --help"), WrongUse);

  const Orders orders{parser.positionalArguments(),
                      parser.isSet(demo),
                      parser.isSet(server),
                      parser.isSet(repair),
                      {parser.value(login), qEnvironmentVariable("ACCOUNTSET_LOGIN_PASSWORD")}};
  const QString command = orders.words.value(0);
  if (command == QStringLiteral("create"))
    return create(orders);
  if (command == QStringLiteral("copy"))
    return copy(orders);
  if (command == QStringLiteral("check"))
    return check(orders);
  return complain(QStringLiteral("没有这个命令；用法见 accountset --help"), WrongUse);
}
