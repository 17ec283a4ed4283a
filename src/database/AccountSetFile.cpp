#include "database/AccountSetFile.h"

#include "database/SqlTokens.h"
#include "database/Sqlite.h"

#include <QFile>
#include <QFileInfo>

#include <ctime>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace AccountSetFile {
namespace {

// Steps of the engine between two looks at the clock: a few milliseconds.
constexpr int StepsBetween = 100'000;
constexpr int LongestDefinition = 1 << 20;

std::chrono::nanoseconds computed()
{
  timespec time = {};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

// Parses a stored definition and accepts only harmless ones.
class Definition {
public:
  explicit Definition(QStringView sql)
  {
    for (const SqlToken& token : SqlTokens::read(sql))
      if (token.kind != SqlToken::Comment)
        m_tokens.push_back(token);
  }

  bool isHarmless()
  {
    if (!takeWord("create"))
      return false;
    // Views and triggers are switched off.
    if (takeWord("view") || takeWord("trigger"))
      return true;
    if (takeWord("table"))
      return skipName() && takeColumns() && takeTableOptions();
    takeWord("unique");
    return takeWord("index") && skipName() && takeWord("on") && skipName() && takeNames() && isAtEnd();
  }

private:
  bool isAtEnd() const { return m_at == m_tokens.size(); }
  bool isWord(const char* lower) const { return !isAtEnd() && m_tokens[m_at].isWord(QLatin1String(lower)); }
  bool isSymbol(char16_t c) const { return !isAtEnd() && m_tokens[m_at].isSymbol(c); }
  bool is(SqlToken::Kind kind) const { return !isAtEnd() && m_tokens[m_at].kind == kind; }

  bool take(bool isThere)
  {
    m_at += isThere;
    return isThere;
  }
  bool takeWord(const char* lower) { return take(isWord(lower)); }
  bool takeSymbol(char16_t c) { return take(isSymbol(c)); }
  bool skipName() { return take(is(SqlToken::Word) || is(SqlToken::Text)); }

  // The columns of a table: words, literals, and in brackets the size of a type or the columns of a key.
  bool takeColumns()
  {
    if (!takeSymbol(u'('))
      return false;
    while (!isAtEnd() && !takeSymbol(u')')) {
      const bool isKey = isWord("unique") || isWord("key");
      const bool isReference = takeWord("references");
      const bool isPlain = isReference ? skipName()
                                       : take(is(SqlToken::Word) || is(SqlToken::Number) || is(SqlToken::Text) || isSymbol(u',') ||
                                              isSymbol(u'+') || isSymbol(u'-'));
      if (!isPlain || (isSymbol(u'(') && !(isKey || isReference ? takeNames() : takeMeasure())))
        return false;
    }
    return true;
  }

  bool takeTableOptions()
  {
    while (take(is(SqlToken::Word) || isSymbol(u',')))
      ;
    return isAtEnd();
  }

  // "(18,2)".
  bool takeMeasure()
  {
    takeSymbol(u'(');
    while (take(is(SqlToken::Number) || isSymbol(u',') || isSymbol(u'+') || isSymbol(u'-')))
      ;
    return takeSymbol(u')');
  }

  // "(Code collate nocase desc, Datee)".
  bool takeNames()
  {
    if (!takeSymbol(u'('))
      return false;
    do {
      if (!skipName() || (takeWord("collate") && !skipName()))
        return false;
      if (!takeWord("asc"))
        takeWord("desc");
    } while (takeSymbol(u','));
    return takeSymbol(u')');
  }

  std::vector<SqlToken> m_tokens;
  std::size_t m_at = 0;
};

DatabaseResult<void> readSchema(sqlite3* database)
{
  const auto statement = Sqlite::prepare(database, "select name, sql from sqlite_schema where sql is not null");
  if (!statement)
    return tl::unexpected(statement.error());
  const auto text = [&](int column) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement->get(), column)));
  };
  int step = SQLITE_ROW;
  while ((step = sqlite3_step(statement->get())) == SQLITE_ROW)
    if (!Definition(text(1)).isHarmless())
      return databaseError(SQLITE_NOTADB, u"账套文件含有不允许的定义：%1"_s.arg(text(0).left(100)));
  if (step != SQLITE_DONE)
    return tl::unexpected(Sqlite::errorOf(database));
  return {};
}

} // namespace

DatabaseResult<void> check(const QString& path)
{
  const auto refused = [](const char16_t* why, const QString& file) {
    return databaseError(SQLITE_CANTOPEN, QString::fromUtf16(why) + file);
  };
  const QFileInfo info(path);
  if (!info.exists())
    return refused(u"找不到数据库文件：", path);
  if (!info.isFile())
    return refused(u"不是数据库文件：", path);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return refused(u"不能读取数据库文件：", path);
  if (file.read(16) != QByteArray("SQLite format 3\0", 16))
    return refused(u"不可识别的数据库格式：", path);
  // The engine opens files of these names beside the database: it would wait for a pipe and write through a link.
  for (const char* suffix : {"-journal", "-wal", "-shm"}) {
    const QFileInfo beside(info.canonicalFilePath() + QLatin1String(suffix));
    if (beside.isSymLink() || (beside.exists() && !beside.isFile()))
      return refused(u"不是数据库文件：", beside.filePath());
  }
  return {};
}

int limit(sqlite3* database)
{
  sqlite3_limit(database, SQLITE_LIMIT_LENGTH, LongestValue);
  int code = sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  if (code == SQLITE_OK)
    code = sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
  return code;
}

DatabaseResult<void> checkSchema(sqlite3* database)
{
  sqlite3_limit(database, SQLITE_LIMIT_LENGTH, LongestDefinition);
  auto read = readSchema(database);
  sqlite3_limit(database, SQLITE_LIMIT_LENGTH, LongestValue);
  return read;
}

Share::Share(sqlite3* database, std::chrono::nanoseconds time) : m_database(database), m_time(time), m_end(computed() + time)
{
  sqlite3_progress_handler(database, StepsBetween, isOver, this);
}

Share::~Share()
{
  sqlite3_progress_handler(m_database, 0, nullptr, nullptr);
}

int Share::isOver(void* share)
{
  return computed() > static_cast<const Share*>(share)->m_end;
}

std::optional<DatabaseError> Share::excess(const RowSet& rows) const
{
  if (!hasRoomFor(rows))
    return DatabaseError{SQLITE_TOOBIG, u"查询结果超过 %1 MB"_s.arg(LargestResult >> 20)};
  if (sqlite3_errcode(m_database) == SQLITE_INTERRUPT)
    return DatabaseError{SQLITE_INTERRUPT, u"语句的运行时间超过 %1 秒"_s.arg(std::chrono::ceil<std::chrono::seconds>(m_time).count())};
  return std::nullopt;
}

} // namespace AccountSetFile
