#include "Complaint.h"
#include "platform/MemoryImage.h"
#include "startup/ModReadWriteParameters.h"

#include <QCoreApplication>

#include <algorithm>

// Writes the parameter file with which the next program in a folder starts:
// order FOLDER [KEY=VALUE ...] [ORDER [ORDER2 ... ORDER5]]. The two passwords come from environment
// variables of their names, because everybody on the machine can read arguments.

namespace {

constexpr char Help[] = "order FOLDER [KEY=VALUE ...] [ORDER [ORDER2 ... ORDER5]]\n\n"
                        "Writes the parameter file with which the next program in the folder starts: order firm ConDataName=firm.mdb\n"
                        "OperateDate=2022-06-08 付款. UserName is 系统管理员 and DatabaseType Access if they are not given. The passwords\n"
                        "ConDataBasePWD and UserPSW are read from environment variables of these names.";

constexpr int MostOrders = 5;
constexpr const char* Passwords[] = {"ConDataBasePWD", "UserPSW"};

QString orderKey(qsizetype index)
{
  return QStringLiteral("OperationsDirective") + (index > 0 ? QString::number(index + 1) : QString());
}

} // namespace

int main(int argc, char* argv[])
{
  forbidMemoryImages();
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments().mid(1);
  if (const auto status = answerOf(arguments, Help))
    return *status;
  if (arguments.isEmpty() || arguments[0].startsWith(u'-'))
    return complain(QStringLiteral("usage: order FOLDER [KEY=VALUE ...] [ORDER [ORDER2 ... ORDER5]]"), WrongUse);

  QHash<QString, QString> values{{QStringLiteral("DatabaseType"), QStringLiteral("Access")},
                                 {QStringLiteral("UserName"), QStringLiteral("系统管理员")}};
  for (const char* password : Passwords)
    values.insert(QString::fromLatin1(password), qEnvironmentVariable(password));
  qsizetype orders = 0;
  for (const QString& argument : arguments.mid(1)) {
    const QString key = argument.section(u'=', 0, 0);
    if (argument.contains(u'=') && !ModReadWriteParameters::keys().contains(key))
      return complain(QStringLiteral("the parameter file has no key \"%1\"").arg(key), WrongUse);
    if (std::find(std::begin(Passwords), std::end(Passwords), key) != std::end(Passwords))
      return complain(QStringLiteral("%1 is read from the environment variable %1, not from an argument").arg(key), WrongUse);
    if (argument.contains(u'='))
      values.insert(key, argument.section(u'=', 1));
    else if (orders < MostOrders)
      values.insert(orderKey(orders++), argument);
    else
      return complain(QStringLiteral("there are five orders at most"), WrongUse);
  }

  const auto content = ModReadWriteParameters::fileContent(values);
  if (!content)
    return complain(QStringLiteral("a value holds what the file cannot"), Failed);
  if (!ModReadWriteParameters::writeFile(arguments[0], *content))
    return complain(QStringLiteral("cannot write the parameter file into %1").arg(arguments[0]), Failed);
  return Done;
}
