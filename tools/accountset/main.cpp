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
#include <QFile>
#include <QTextStream>

// Makes, copies and checks account sets from the shell.

namespace {

constexpr char Description[] = "Makes, copies and checks account sets.\n\n"
                               "  accountset create FILE [--demo]\n"
                               "  accountset create --server SERVER --login NAME [--demo]\n"
                               "  accountset copy FROM TO [--login NAME]\n"
                               "  accountset check FILE-OR-SERVER\n\n"
                               "SERVER is server://user@host:port/database; to create and copy, the user is an administrator of a\n"
                               "PostgreSQL server. The password is read from ACCOUNTSET_PASSWORD, or asked for on the terminal.\n"
                               "--login is who the program will be: he may select, insert, update and delete. His password is read from\n"
                               "ACCOUNTSET_LOGIN_PASSWORD. A password in an argument is refused: everybody on the machine could read it.\n"
                               "Nothing that exists is written over: what is created or copied to must not be there yet.\n"
                               "Operators may work while an account set is copied: the copy is what it held at one moment.\n"
                               "Exit status: 0 done, or all adds up; 1 not done, or not all adds up; 2 wrong use.";

struct Orders {
  QStringList words;
  bool demo = false;
  bool server = false;
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
    return tl::unexpected(QStringLiteral("--login NAME is missing"));
  return ServerAccountSet::create(location, orders.login, orders.fill());
}

int create(const Orders& orders)
{
  auto location = AccountSetLocation::read(orders.words.value(1));
  if (orders.words.size() != 2 || !location || location->isServer() != orders.server)
    return complain(QStringLiteral("usage: accountset create FILE | --server SERVER --login NAME [--demo]"), WrongUse);
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
  out() << (isSame ? "same   " : "DIFFERS") << ' ' << proof.table << ": rows " << proof.from.rows << " = " << proof.to.rows;
  for (int i = 0; i < proof.columns.size(); ++i)
    out() << ", " << proof.columns[i] << ' ' << decimal(proof.from.sums[i]) << " = " << decimal(proof.to.sums[i]);
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
  out() << same << " of " << proofs->size() << " tables the same\n";
  return same == proofs->size() ? Done : Failed;
}

int copy(const Orders& orders)
{
  auto source = AccountSetLocation::read(orders.words.value(1));
  auto target = AccountSetLocation::read(orders.words.value(2));
  if (orders.words.size() != 3 || !source || !target)
    return complain(QStringLiteral("usage: accountset copy FROM TO [--login NAME]"), WrongUse);
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

int check(const Orders& orders)
{
  auto location = AccountSetLocation::read(orders.words.value(1));
  if (orders.words.size() != 2 || !location)
    return complain(QStringLiteral("usage: accountset check FILE-OR-SERVER"), WrongUse);
  if (const auto done = Password::supply(*location); !done)
    return complain(done.error(), WrongUse);
  int broken = 0;
  const auto checked = Check::run(*location, [&broken](const Check::Finding& finding) {
    ++broken;
    out() << finding.what << "\n";
    for (const QString& row : finding.rows)
      out() << "  " << row << "\n";
  });
  if (!checked)
    return complain(checked.error(), Failed);
  out() << (broken == 0 ? QStringLiteral("all adds up\n") : QStringLiteral("%1 rules do not hold\n").arg(broken));
  return broken == 0 ? Done : Failed;
}

} // namespace

int main(int argc, char* argv[])
{
  forbidMemoryImages();
  QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("accountset"));

  QCommandLineParser parser;
  parser.setApplicationDescription(QString::fromUtf8(Description));
  const QCommandLineOption demo(QStringLiteral("demo"),
                                QStringLiteral("Fill it with a small sample firm; otherwise all tables are empty."));
  const QCommandLineOption server(QStringLiteral("server"), QStringLiteral("Make it on a server."));
  const QCommandLineOption login(QStringLiteral("login"), QStringLiteral("Who the program will be on the server."), QStringLiteral("NAME"));
  const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this."));
  const QCommandLineOption version(QStringLiteral("version"), QStringLiteral("Shows the version."));
  parser.addOptions({demo, server, login, help, version});
  parser.addPositionalArgument(QStringLiteral("create|copy|check"), QStringLiteral("The command."));
  if (!parser.parse(QCoreApplication::arguments()))
    return complain(parser.errorText(), WrongUse);
  if (parser.isSet(version))
    return *answerOf({QStringLiteral("--version")}, nullptr);
  if (parser.isSet(help))
    parser.showHelp(Done);

  const Orders orders{parser.positionalArguments(),
                      parser.isSet(demo),
                      parser.isSet(server),
                      {parser.value(login), qEnvironmentVariable("ACCOUNTSET_LOGIN_PASSWORD")}};
  const QString command = orders.words.value(0);
  if (command == QStringLiteral("create"))
    return create(orders);
  if (command == QStringLiteral("copy"))
    return copy(orders);
  if (command == QStringLiteral("check"))
    return check(orders);
  return complain(QStringLiteral("no such command; see accountset --help"), WrongUse);
}
