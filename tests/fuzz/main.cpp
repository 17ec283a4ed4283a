#include "Script.h"
#include "database/ConnectionText.h"
#include "database/DialectTranslator.h"
#include "database/SqliteArithmetic.h"
#include "drafts/Draft.h"
#include "platform/Currency.h"
#include "platform/DateText.h"
#include "platform/NumberText.h"
#include "platform/RunTimeError.h"
#include "startup/ModChangeStr.h"
#include "startup/ModReadWriteParameters.h"
#include "support/FixedMachine.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <cmath>
#include <cstring>
#include <random>
#include <sqlite3.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

// Feeds the readers of outside texts: fuzz. The corpus of the tree is replayed, and mutations of it; with ZORVEK_LONG in the
// environment these go on for minutes. `fuzz TARGET FILE` reads one file, such as a crash that was kept. Always built
// with the sanitizers.

namespace {

// A reader of texts that come from outside.
struct Target {
  const char* name;
  // Must return for any bytes. What must hold of the result is required here.
  void (*read)(const QByteArray& bytes);
  QList<QByteArray> corpus;
};

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

// One entry a line.
QList<QByteArray> lines(const char* name)
{
  return contentOf(QString(CORPUS_FOLDER "/") + name).split('\n');
}

void readParameters(const QByteArray& bytes)
{
  static const QTemporaryDir Folder;
  const FixedMachine machine(Folder.path());
  SessionParams params;
  if (ModReadWriteParameters::writeFile(Folder.path(), bytes))
    std::ignore = ModReadWriteParameters::ReadSystemParameters(machine, params);
}

// Whole files, separated by a line "--"; a file is scrambled line by line, as its writer does it.
QList<QByteArray> parameterFiles()
{
  QList<QByteArray> files = {{}};
  for (const QByteArray& line : lines("parameters.txt"))
    if (line == "--")
      files.append(QByteArray());
    else
      files.last() += ModChangeStr::ChangeStrEncode(line) + "\r\n";
  return files;
}

// Its result does not matter: the functions that compute must take any number.
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
  const QString sql = bytes;
  for (const Target target : {Target::Embedded, Target::PostgreSql, Target::SqlServer}) {
    const auto translation = DialectTranslator::translate(sql, target);
    if (translation && target == Target::Embedded)
      run(translation->sql);
    // What was accepted is still one statement.
    if (translation && target != Target::PostgreSql)
      require(DialectTranslator::translate(translation->sql, target).has_value(), "a translation may be run");
  }
  ConnectionText(sql).server();
}

void readAmount(const QByteArray& bytes)
{
  const QString text = bytes;
  const double value = NumberText::numericPrefix(text);
  require(std::isfinite(value), "an amount is finite");
  NumberText::isNumeric(text);
  NumberText::fixedOfDecimal(NumberText::ofDouble(value), 2, true);
  NumberText::plain(value);
  try {
    const Currency money = Currency::ofText(text);
    require(Currency::ofText(money.toText()) == money, "money survives its text");
  } catch (const RunTimeError& error) {
    require(error.number() == RunTimeError::Overflow, "no error but for too large an amount");
  }
}

void readDate(const QByteArray& bytes)
{
  if (const auto date = DateText::parse(QString(bytes)))
    require(DateText::parse(DateText::shortForm(*date)) == date, "a date survives its text");
}

// As it is, and with the check sum that lets it through to the parser.
void readDraft(const QByteArray& bytes)
{
  Draft::ofBytes(bytes);
  const QByteArray sum = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
  if (const auto draft = Draft::ofBytes("ZORVEK draft 1 " + sum + '\n' + bytes))
    require(Draft::ofBytes(draft->toBytes()).has_value(), "what was read can be kept");
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
  for (const char* folder : {TESTS_FOLDER "/scripts", TESTS_FOLDER "/operator/selftest"})
    for (QDirIterator files(folder, {"*.op"}, QDir::Files, QDirIterator::Subdirectories); files.hasNext();)
      all.append(contentOf(files.next()));
  return all;
}

using Random = std::mt19937;
using Clock = std::chrono::steady_clock;

constexpr qsizetype MostBytes = 1 << 16;

// What is being read, for the parent of a process that dies of it.
struct Shared {
  qsizetype size;
  long long count;
  char bytes[MostBytes];
};

Shared* shared = nullptr;

qsizetype below(Random& random, qsizetype end)
{
  return end <= 0 ? 0 : std::uniform_int_distribution<qsizetype>(0, end - 1)(random);
}

void edit(QByteArray& bytes, const QByteArray& other, Random& random)
{
  const qsizetype at = below(random, bytes.size() + 1);
  switch (below(random, 6)) {
  case 0: bytes.insert(at, char(below(random, 256))); break;
  case 1: bytes.remove(at, below(random, 8) + 1); break;
  case 2: bytes.insert(at, bytes.mid(below(random, bytes.size()), below(random, 40))); break;
  case 3: bytes.replace(at, below(random, 20), other.mid(below(random, other.size()), below(random, 40))); break;
  case 4: bytes.insert(at, "'\"#[]{}();\\\0\r\n-"[below(random, 15)]); break;
  default:
    if (at < bytes.size())
      bytes[at] = char(bytes[at] ^ (1 << below(random, 8)));
  }
}

void feed(const Target& target, const QByteArray& bytes)
{
  shared->size = qMin(bytes.size(), MostBytes);
  std::memcpy(shared->bytes, bytes.constData(), std::size_t(shared->size));
  ++shared->count;
  alarm(10);
  target.read(bytes.first(shared->size));
}

void feedAll(const Target& target, std::chrono::seconds howLong)
{
  for (const QByteArray& bytes : target.corpus)
    feed(target, bytes);
  Random random(unsigned(Clock::now().time_since_epoch().count()));
  const auto any = [&] { return target.corpus[below(random, target.corpus.size())]; };
  for (const auto end = Clock::now() + howLong; Clock::now() < end;) {
    QByteArray bytes = any();
    for (qsizetype edits = below(random, 8); edits >= 0; --edits)
      edit(bytes, any(), random);
    feed(target, bytes);
  }
}

// In a process of its own. True if it survived.
bool survives(const Target& target, std::chrono::seconds howLong)
{
  shared->count = 0;
  std::fflush(nullptr);
  if (fork() == 0) {
    feedAll(target, howLong);
    _exit(0);
  }
  int status = 0;
  wait(&status);
  std::printf("%s: %lld texts\n", target.name, shared->count);
  if (status == 0)
    return true;
  QFile kept(QString("crash-") + target.name);
  if (kept.open(QIODevice::WriteOnly))
    kept.write(shared->bytes, shared->size);
  std::printf("FAILED %s: status %d, the text is in %s\n", target.name, status, qPrintable(kept.fileName()));
  return false;
}

} // namespace

int main(int count, char** texts)
{
  const Target targets[] = {{"parameters", readParameters, parameterFiles()}, {"sql", translate, lines("sql.txt")},
                            {"amounts", readAmount, lines("amounts.txt")},    {"dates", readDate, lines("dates.txt")},
                            {"drafts", readDraft, lines("drafts.txt")},       {"scripts", readScript, scripts()}};
  if (count == 3) {
    for (const Target& target : targets)
      if (std::strcmp(target.name, texts[1]) == 0)
        target.read(contentOf(texts[2]));
    return 0;
  }
  void* const memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED)
    return 1;
  shared = new (memory) Shared;
  const std::chrono::seconds howLong(qEnvironmentVariableIsSet("ZORVEK_LONG") ? 120 : 2);
  int failed = 0;
  for (const Target& target : targets)
    failed += !survives(target, howLong);
  std::printf("%d passed, %d failed\n", int(std::size(targets)) - failed, failed);
  return failed == 0 ? 0 : 1;
}
