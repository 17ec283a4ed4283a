#include "accountset/AccountSet.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

// Makes an account set from the shell: accountset create FILE [--demo].

namespace {

constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int WrongUse = 2;

int complain(const QString& text, int status)
{
  QTextStream(stderr) << "accountset: " << text << "\n";
  return status;
}

int make(const QString& filePath, AccountSet::Content content)
{
  const QString reason = AccountSet::create(filePath, content);
  if (!reason.isEmpty())
    return complain(reason, Failed);
  QTextStream(stdout) << filePath << "\n";
  return Done;
}

} // namespace

int main(int argc, char* argv[])
{
  QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("accountset"));

  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Makes the database file of an account set. An existing file is never written over.\n"
                                                  "Exit status: 0 made, 1 not made, 2 wrong use."));
  const QCommandLineOption demo(QStringLiteral("demo"),
                                QStringLiteral("Fill it with a small sample firm; otherwise all tables are empty."));
  parser.addOption(demo);
  const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this."));
  parser.addOption(help);
  parser.addPositionalArgument(QStringLiteral("create"), QStringLiteral("The command."));
  parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The file to make."));
  if (!parser.parse(QCoreApplication::arguments()))
    return complain(parser.errorText(), WrongUse);
  if (parser.isSet(help))
    parser.showHelp(Done);

  const QStringList words = parser.positionalArguments();
  if (words.size() != 2 || words[0] != QStringLiteral("create"))
    return complain(QStringLiteral("usage: accountset create FILE [--demo]"), WrongUse);
  return make(words[1], parser.isSet(demo) ? AccountSet::Content::Demo : AccountSet::Content::Empty);
}
