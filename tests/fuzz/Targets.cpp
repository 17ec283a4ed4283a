#include "Targets.h"

#include "Script.h"
#include "database/ConnectionText.h"
#include "database/DialectTranslator.h"
#include "database/SqliteArithmetic.h"
#include "platform/AnsiText.h"
#include "platform/Currency.h"
#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/RunTimeError.h"
#include "startup/ModChangeStr.h"
#include "startup/ModReadWriteParameters.h"
#include "support/FixedMachine.h"

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <cstdlib>
#include <sqlite3.h>

namespace {

void require(bool holds, const char* what)
{
  if (holds)
    return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

QByteArray contentOf(const QString& path)
{
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray corpusFile(const char* name)
{
  return contentOf(QStringLiteral(CORPUS_FOLDER "/") + name);
}

// One entry a line.
template <const char* Name> QList<QByteArray> lines()
{
  return corpusFile(Name).split('\n');
}

void readParameters(const QByteArray& bytes)
{
  static const QTemporaryDir Folder;
  const FixedMachine machine(Folder.path());
  QFile file(Folder.filePath(ModReadWriteParameters::FileName));
  if (file.open(QIODevice::WriteOnly))
    file.write(bytes);
  file.close();
  SessionParams params;
  std::ignore = ModReadWriteParameters::ReadSystemParameters(machine, params);
}

// Whole files, parted by a line "--"; a file is scrambled line by line, as its writer does it.
QList<QByteArray> parameterFiles()
{
  QList<QByteArray> files = {{}};
  for (const QByteArray& line : corpusFile("parameters.txt").split('\n')) {
    if (line == "--")
      files.append(QByteArray());
    else
      files.last() += ModChangeStr::ChangeStrEncode(QString::fromUtf8(line)) + "\r\n";
  }
  return files;
}

// Whatever becomes of it: the functions that compute must take any number.
void run(const QString& sql)
{
  static sqlite3* const Database = [] {
    sqlite3* opened = nullptr;
    sqlite3_open(":memory:", &opened);
    SqliteArithmetic::registerAll(opened);
    sqlite3_limit(opened, SQLITE_LIMIT_LENGTH, 1 << 20);
    sqlite3_exec(opened, "create table T(a,b,c); insert into T values(1.25,'1e300',-3),(1e308,9223372036854775807,null)", nullptr, nullptr,
                 nullptr);
    return opened;
  }();
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(Database, sql.toUtf8().constData(), -1, &statement, nullptr);
  if (sqlite3_stmt_readonly(statement) != 0)
    while (sqlite3_step(statement) == SQLITE_ROW)
      continue;
  sqlite3_finalize(statement);
}

void translate(const QByteArray& bytes)
{
  using DialectTranslator::Target;
  const QString sql = QString::fromUtf8(bytes);
  for (const Target target : {Target::Embedded, Target::PostgreSql, Target::SqlServer}) {
    const auto translation = DialectTranslator::translate(sql, target);
    if (translation && target == Target::Embedded)
      run(translation->sql);
    // What was let through is one statement still.
    if (translation && target != Target::PostgreSql)
      require(DialectTranslator::translate(translation->sql, target).has_value(), "a translation may be run");
  }
  ConnectionText(sql).server();
}

void readAmount(const QByteArray& bytes)
{
  const QString text = QString::fromUtf8(bytes);
  const double value = NumberText::numericPrefix(text);
  require(std::isfinite(value), "an amount is finite");
  NumberText::isNumeric(text);
  NumberText::fixedOfDecimal(NumberText::ofDouble(value), 2, true);
  NumberText::plain(value);
  try {
    const Currency money = Currency::ofText(text);
    require(Currency::ofText(money.toText()) == money, "money survives its text");
  } catch (const RunTimeError&) {
    // Too large an amount.
  }
}

void readDate(const QByteArray& bytes)
{
  const auto date = DateText::parse(QString::fromUtf8(bytes));
  if (date)
    require(DateText::parse(DateText::shortForm(*date)) == date, "a date survives its text");
}

void readScript(const QByteArray& bytes)
{
  try {
    Script::read(bytes);
  } catch (const ScriptError& error) {
    require(error.line > 0, "an error has its line");
  }
}

// The scripts of the tree, and those that must fail.
QList<QByteArray> scripts()
{
  QList<QByteArray> all;
  for (const char* folder : {"/scripts", "/operator/selftest"})
    for (QDirIterator files(QStringLiteral(TESTS_FOLDER) + folder, {QStringLiteral("*.op")}, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();)
      all.append(contentOf(files.next()));
  return all;
}

constexpr char SqlFile[] = "sql.txt";
constexpr char AmountFile[] = "amounts.txt";
constexpr char DateFile[] = "dates.txt";

} // namespace

const QList<Target>& targets()
{
  static const QList<Target> All = {
      {"parameters", readParameters, parameterFiles}, {"sql", translate, lines<SqlFile>}, {"amounts", readAmount, lines<AmountFile>},
      {"dates", readDate, lines<DateFile>},           {"scripts", readScript, scripts},
  };
  return All;
}
