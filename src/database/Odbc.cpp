#include "database/Odbc.h"

#include "database/ServerWatch.h"

#include <QStringList>

#include <charconv>
#include <optional>
#include <sql.h>
#include <sqlext.h>
#include <tuple>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// The error number if the driver reports none.
constexpr int Unnumbered = -2147467259;

SQLCHAR* bytesOf(const QByteArray& text)
{
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.constData()));
}

// An ODBC handle, freed with its owner.
template <SQLSMALLINT Type> class Handle {
public:
  explicit Handle(SQLHANDLE parent)
  {
    if (!SQL_SUCCEEDED(SQLAllocHandle(Type, parent, &m_handle)))
      m_handle = SQL_NULL_HANDLE;
  }
  ~Handle()
  {
    if (m_handle != SQL_NULL_HANDLE)
      SQLFreeHandle(Type, m_handle);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  SQLHANDLE get() const { return m_handle; }

private:
  SQLHANDLE m_handle = SQL_NULL_HANDLE;
};

struct Diagnosis {
  DatabaseError error{Unnumbered, u"ODBC 驱动程序没有说明原因"_s};
  QByteArray state;
};

Diagnosis diagnosisOf(SQLSMALLINT type, SQLHANDLE handle)
{
  SQLCHAR state[6] = {};
  SQLCHAR words[2048] = {};
  SQLINTEGER number = 0;
  SQLSMALLINT size = 0;
  Diagnosis diagnosis;
  if (!SQL_SUCCEEDED(SQLGetDiagRec(type, handle, 1, state, &number, words, sizeof words, &size)))
    return diagnosis;
  diagnosis.state = QByteArray(reinterpret_cast<const char*>(state));
  diagnosis.error.description = QString::fromUtf8(reinterpret_cast<const char*>(words)).trimmed();
  if (number != 0)
    diagnosis.error.number = number;
  return diagnosis;
}

// A deadlock, a serialization failure, a full or failing disk: the server ends the transaction, or nothing of it can
// be saved.
bool tellsOfEndedTransaction(const QByteArray& state)
{
  return state.startsWith("40") || state == "53100" || state.startsWith("58");
}

// A server that ends the connection itself reports a state of its own.
bool tellsOfLoss(const QByteArray& state)
{
  return state.startsWith("08") || state == "57P01" || state == "57P02" || state == "57P03" || state == "HYT01";
}

enum class Reading { Integer, Real, Text, Bytes };

Reading readingOf(SQLSMALLINT type)
{
  switch (type) {
  case SQL_BIT:
  case SQL_TINYINT:
  case SQL_SMALLINT:
  case SQL_INTEGER:
  case SQL_BIGINT: return Reading::Integer;
  case SQL_NUMERIC:
  case SQL_DECIMAL:
  case SQL_REAL:
  case SQL_FLOAT:
  case SQL_DOUBLE: return Reading::Real;
  case SQL_BINARY:
  case SQL_VARBINARY:
  case SQL_LONGVARBINARY: return Reading::Bytes;
  default: return Reading::Text;
  }
}

template <typename Number> Number numberOf(QByteArrayView text)
{
  Number number{};
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// Reads the rows of a statement that has been run.
class RowReader {
public:
  explicit RowReader(SQLHSTMT statement) : m_statement(statement) {}

  // Nothing if the driver failed meanwhile.
  std::optional<RowSet> readAll()
  {
    if (!describe())
      return std::nullopt;
    RowSet rows(m_names);
    SQLRETURN code = SQL_SUCCESS;
    while (SQL_SUCCEEDED(code = SQLFetch(m_statement)))
      for (std::size_t i = 0; i < m_readings.size(); ++i)
        if (!readValue(rows, SQLUSMALLINT(i + 1), m_readings[i]))
          return std::nullopt;
    return code == SQL_NO_DATA ? std::optional(std::move(rows)) : std::nullopt;
  }

private:
  bool describe()
  {
    SQLSMALLINT columns = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(m_statement, &columns)))
      return false;
    for (SQLSMALLINT i = 1; i <= columns; ++i) {
      SQLCHAR name[256] = {};
      SQLSMALLINT size = 0;
      SQLSMALLINT type = 0;
      if (!SQL_SUCCEEDED(SQLDescribeCol(m_statement, SQLUSMALLINT(i), name, sizeof name, &size, &type, nullptr, nullptr, nullptr)))
        return false;
      m_names.append(QString::fromUtf8(reinterpret_cast<const char*>(name)));
      m_readings.push_back(readingOf(type));
    }
    return true;
  }

  bool readValue(RowSet& rows, SQLUSMALLINT column, Reading reading)
  {
    if (!fetchBytes(column, reading == Reading::Bytes ? SQL_C_BINARY : SQL_C_CHAR))
      return false;
    if (!m_value)
      rows.appendNull();
    else if (reading == Reading::Integer)
      rows.appendInteger(numberOf<std::int64_t>(*m_value));
    else if (reading == Reading::Real)
      rows.appendReal(numberOf<double>(*m_value));
    else
      rows.appendText(m_value->data(), m_value->size());
    return true;
  }

  // Leaves the value in m_value. Nearly all fit into one piece; a long one is put together.
  bool fetchBytes(SQLUSMALLINT column, SQLSMALLINT type)
  {
    const SQLLEN capacity = SQLLEN(sizeof m_piece) - (type == SQL_C_CHAR ? 1 : 0);
    m_value.reset();
    m_long.resize(0);
    while (true) {
      SQLLEN size = 0;
      const SQLRETURN code = SQLGetData(m_statement, column, type, m_piece, sizeof m_piece, &size);
      if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA)
        return false;
      if (code != SQL_NO_DATA && size == SQL_NULL_DATA)
        return true;
      const bool isLast = code == SQL_NO_DATA || (size != SQL_NO_TOTAL && size <= capacity);
      const SQLLEN got = code == SQL_NO_DATA ? 0 : isLast ? size : capacity;
      if (isLast && m_long.isEmpty()) {
        m_value = QByteArrayView(m_piece, got);
        return true;
      }
      m_long.append(m_piece, got);
      m_value = m_long;
      if (isLast)
        return true;
    }
  }

  SQLHSTMT m_statement;
  QStringList m_names;
  std::vector<Reading> m_readings;
  std::optional<QByteArrayView> m_value; // of m_piece or m_long; nothing for null
  QByteArray m_long;
  char m_piece[4096];
};

qint64 seconds(std::chrono::milliseconds wait)
{
  return std::chrono::ceil<std::chrono::seconds>(wait).count();
}

QString inBraces(const QString& value)
{
  static const QString Special = u"[]{}(),;?*=!@"_s;
  const bool plain = std::none_of(value.begin(), value.end(), [](QChar c) { return Special.contains(c) || c.isSpace(); });
  return plain ? value : u'{' + QString(value).replace(u'}', u"}}"_s) + u'}';
}

QString noAnswerWithin(std::chrono::milliseconds limit)
{
  return u"服务器在 %1 秒内没有应答，连接已断开"_s.arg(seconds(limit));
}

// The library file of a driver, from the registry.
QString libraryOf(SQLHENV environment, const QString& driver)
{
  SQLCHAR name[256];
  SQLCHAR attributes[2048];
  SQLSMALLINT size = 0;
  for (SQLUSMALLINT direction = SQL_FETCH_FIRST;
       SQL_SUCCEEDED(SQLDrivers(environment, direction, name, sizeof name, &size, attributes, sizeof attributes, &size));
       direction = SQL_FETCH_NEXT) {
    if (driver.compare(QString::fromUtf8(reinterpret_cast<const char*>(name)), Qt::CaseInsensitive) != 0)
      continue;
    // A list of NUL-terminated strings.
    for (const char* word = reinterpret_cast<const char*>(attributes); *word; word += qstrlen(word) + 1)
      if (qstrnicmp(word, "driver=", 7) == 0)
        return QString::fromUtf8(word + 7);
  }
  return {};
}

} // namespace

struct Odbc::Handles {
  Handle<SQL_HANDLE_ENV> environment{SQL_NULL_HANDLE};
  std::unique_ptr<Handle<SQL_HANDLE_DBC>> connection;
  ServerWatch watch;
  ServerWaits waits;
  bool connected = false;
  bool inTransaction = false;
  bool lost = false;

  Kind kind = Kind::Unknown;

  Kind askKind() const;
  SQLRETURN connect(const QByteArray& text);
  // A driver applies its timeout to each address of a server, and not to the statements that it begins with.
  std::chrono::milliseconds connectWait() const { return 2 * waits.connect; }
  ~Handles()
  {
    const ServerWatch::Call call(watch, waits.connect);
    if (connected)
      SQLDisconnect(connection->get());
  }
};

SQLRETURN Odbc::Handles::connect(const QByteArray& text)
{
  watch.expectSockets();
  const ServerWatch::Call call(watch, connectWait());
  const SQLRETURN code =
      SQLDriverConnect(connection->get(), nullptr, bytesOf(text), SQLSMALLINT(text.size()), nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  watch.keepSockets();
  connected = SQL_SUCCEEDED(code);
  if (connected)
    kind = askKind();
  return code;
}

Odbc::Odbc(std::unique_ptr<Handles> handles) : m_handles(std::move(handles)) {}

Odbc::~Odbc() = default;

QString Odbc::driverText(const ServerAddress& server, const ServerWaits& waits, const QString& library)
{
  QStringList words = {u"Driver={"_s + server.driver + u'}'};
  if (library.contains(u"psqlodbc"_s)) {
    words << u"Server="_s + inBraces(server.host);
    if (!server.port.isEmpty())
      words << u"Port="_s + server.port;
    // Line breaks and binary columns unchanged; a server that does not respond is given up.
    // In a transaction a failed statement is undone alone, by a savepoint that the driver sends along with the statement: one of
    // our own around each write would cost a round trip more.
    words << u"LFConversion=0;ByteaAsLongVarBinary=1;Protocol=7.4-2;"
             u"pqopt={connect_timeout=%1 keepalives_idle=10 keepalives_interval=5 keepalives_count=3 "
             u"tcp_user_timeout=20000 client_encoding=UTF8}"_s.arg(seconds(waits.connect));
  } else if (library.contains(u"tdsodbc"_s)) {
    words << u"Server="_s + inBraces(server.host) << u"Port="_s + server.port << u"TDS_Version=7.4;ClientCharset=UTF-8"_s;
  } else {
    words << u"Server="_s + server.host + (server.port.isEmpty() ? QString() : u',' + server.port);
  }
  words << u"Database="_s + inBraces(server.database) << u"UID="_s + inBraces(server.user) << u"PWD="_s + inBraces(server.password);
  return words.join(u';') + u';';
}

DatabaseResult<std::unique_ptr<Odbc>> Odbc::open(const ServerAddress& server, const ServerWaits& waits)
{
  auto handles = std::make_unique<Handles>();
  handles->waits = waits;
  SQLHENV environment = handles->environment.get();
  SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  handles->connection = std::make_unique<Handle<SQL_HANDLE_DBC>>(environment);
  SQLHDBC connection = handles->connection->get();
  if (connection == SQL_NULL_HANDLE)
    return databaseError(Unnumbered, u"ODBC 驱动程序管理器不可用"_s);
  SQLSetConnectAttr(connection, SQL_ATTR_LOGIN_TIMEOUT, reinterpret_cast<SQLPOINTER>(seconds(waits.connect)), 0);
  const QByteArray text = driverText(server, waits, libraryOf(environment, server.driver)).toUtf8();
  if (!SQL_SUCCEEDED(handles->connect(text))) {
    DatabaseError error = diagnosisOf(SQL_HANDLE_DBC, connection).error;
    if (handles->watch.hasEndedACall())
      error.description = noAnswerWithin(handles->connectWait());
    return tl::unexpected(error);
  }
  std::unique_ptr<Odbc> odbc(new Odbc(std::move(handles)));
  if (const auto set = odbc->setUp(waits); !set)
    return databaseError(Unnumbered, set.error().description);
  return odbc;
}

// The timeouts, and quotes as in the SQL standard.
DatabaseResult<void> Odbc::setUp(const ServerWaits& waits)
{
  const auto number = [](std::chrono::milliseconds wait) { return QByteArray::number(qint64(wait.count())); };
  QList<QByteArray> settings;
  if (kind() == Kind::PostgreSql)
    settings = {"set client_encoding to 'UTF8'", "set standard_conforming_strings to on", "set lock_timeout to " + number(waits.lock),
                "set statement_timeout to " + number(waits.statement)};
  else if (kind() == Kind::SqlServer)
    settings = {"set lock_timeout " + number(waits.lock)};
  for (const QByteArray& setting : settings)
    if (const auto result = runWithin(setting, waits.connect); !result)
      return tl::unexpected(result.error());
  return {};
}

Odbc::Kind Odbc::Handles::askKind() const
{
  SQLCHAR name[128] = {};
  SQLSMALLINT size = 0;
  SQLGetInfo(connection->get(), SQL_DBMS_NAME, name, sizeof name, &size);
  const QByteArray text(reinterpret_cast<const char*>(name));
  if (text.contains("PostgreSQL"))
    return Kind::PostgreSql;
  return text.contains("SQL Server") ? Kind::SqlServer : Kind::Unknown;
}

Odbc::Kind Odbc::kind() const
{
  return m_handles->kind;
}

DatabaseResult<RowSet> Odbc::run(const QByteArray& utf8)
{
  // After its timeout a statement is ended by the server, whose answer takes a while.
  return runWithin(utf8, m_handles->waits.statement + m_handles->waits.connect);
}

void Odbc::begin()
{
  SQLSetConnectAttr(m_handles->connection->get(), SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0);
  m_handles->inTransaction = true;
}

DatabaseResult<void> Odbc::commit()
{
  return end(SQL_COMMIT);
}

void Odbc::rollback()
{
  if (isInTransaction())
    std::ignore = end(SQL_ROLLBACK);
}

bool Odbc::isInTransaction() const
{
  return m_handles->inTransaction && !isLost();
}

DatabaseResult<void> Odbc::end(SQLSMALLINT completion)
{
  const ServerWatch::Call call(m_handles->watch, m_handles->waits.statement + m_handles->waits.connect);
  SQLHDBC connection = m_handles->connection->get();
  m_handles->inTransaction = false;
  const bool isDone = SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection, completion));
  const Diagnosis diagnosis = isDone ? Diagnosis() : diagnosisOf(SQL_HANDLE_DBC, connection);
  if (!isDone)
    noteLoss(diagnosis.state);
  if (!isLost())
    SQLSetConnectAttr(connection, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_ON), 0);
  if (!isDone)
    return tl::unexpected(diagnosis.error);
  return {};
}

DatabaseResult<RowSet> Odbc::tryOut()
{
  return runWithin("select 1", m_handles->waits.connect);
}

DatabaseResult<RowSet> Odbc::runWithin(const QByteArray& utf8, std::chrono::milliseconds limit)
{
  const ServerWatch::Call call(m_handles->watch, limit);
  auto result = execute(utf8);
  if (isGivenUp()) {
    m_handles->lost = true;
    if (!result)
      result.error().description = noAnswerWithin(limit);
  }
  return result;
}

DatabaseResult<RowSet> Odbc::execute(const QByteArray& utf8)
{
  const Handle<SQL_HANDLE_STMT> statement(m_handles->connection->get());
  if (kind() != Kind::PostgreSql)
    SQLSetStmtAttr(statement.get(), SQL_ATTR_QUERY_TIMEOUT, reinterpret_cast<SQLPOINTER>(seconds(m_handles->waits.statement)), 0);
  SQLRETURN code = SQLExecDirect(statement.get(), bytesOf(utf8), SQLINTEGER(utf8.size()));
  SQLSMALLINT columns = 0;
  if (SQL_SUCCEEDED(code))
    code = SQLNumResultCols(statement.get(), &columns);
  // An update or delete that affects no row returns SQL_NO_DATA.
  if (code == SQL_NO_DATA || (SQL_SUCCEEDED(code) && columns == 0))
    return RowSet();
  if (SQL_SUCCEEDED(code))
    if (auto rows = RowReader(statement.get()).readAll())
      return *std::move(rows);
  const Diagnosis diagnosis = diagnosisOf(SQL_HANDLE_STMT, statement.get());
  noteLoss(diagnosis.state);
  if (tellsOfEndedTransaction(diagnosis.state))
    rollback();
  return tl::unexpected(diagnosis.error);
}

void Odbc::noteLoss(const QByteArray& state)
{
  SQLUINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttr(m_handles->connection->get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  m_handles->lost = m_handles->lost || isGivenUp() || dead == SQL_CD_TRUE || tellsOfLoss(state);
}

bool Odbc::isLost() const
{
  return m_handles->lost;
}

bool Odbc::isGivenUp() const
{
  return m_handles->watch.hasEndedACall();
}
