#include "session/ModuleADO.h"

#include "platform/DateText.h"
#include "platform/RunTimeError.h"
#include "platform/Trim.h"
#include "session/Session.h"

using namespace Qt::StringLiterals;

namespace {

// All file account sets of the suite share it.
constexpr QLatin1String FilePassword("qp7ezm4tw2hx9c");

// The error number of a statement whose shape a value would have changed.
constexpr int ChangedShape = -2147217900;

QString serverText(const SessionParams& params)
{
  const QString port = Trim(params.ConPortNum).isEmpty() ? u"1433"_s : params.ConPortNum;
  return u"Driver={SQL Server};Server="_s + params.ConServerIP + u',' + port + u';' + u"DataBase="_s + params.ConDataName + u";UID="_s +
         params.ConDataBaseUID + u";PWD="_s + params.ConDataBasePWD + u"; "_s;
}

QString fileText(const QString& folder, const SessionParams& params)
{
  return u"Provider = Microsoft.Jet.OLEDB.4.0;Data Source = "_s + folder + u"\\Data\\"_s + params.ConDataName +
         u";Jet OLEDB:Database Password='"_s + FilePassword + u'\'';
}

// As fileText, but a root folder gets no second separator.
QString fileText2(const QString& folder, const SessionParams& params)
{
  const bool isRoot = folder.endsWith(u'\\') || folder.endsWith(u'/');
  return u"Provider = Microsoft.Jet.OLEDB.4.0;Data Source = "_s + folder + (isRoot ? u"Data\\"_s : u"\\Data\\"_s) + params.ConDataName +
         u"; "_s + u" Jet OLEDB:Database Password='"_s + FilePassword + u'\'';
}

void showError(Session& session, const DatabaseError& error)
{
  session.desk.ask(
      {u"Error:"_s + QString::number(error.number) + u"\r\n"_s + error.description, Desk::Icon::None, Desk::Buttons::Ok, QString()});
}

DatabaseResult<void> requireConnection(Session& session)
{
  if (session.connection.isOpen() || session.connection.isInTransaction())
    return {};
  return session.connection.open(GetConnectionString(session));
}

// The statement's result; errors are not shown.
DatabaseResult<Recordset> run(Session& session, const Statement& statement)
{
  if (const auto opened = requireConnection(session); !opened)
    return tl::unexpected(opened.error());
  if (const auto value = statement.violation())
    return databaseError(ChangedShape, u"语句中的值不是一个完整的文字或数字："_s + value->left(60));
  return session.connection.run(statement.sql());
}

// Nothing of the transaction is stored: the error is all that there is to say.
[[noreturn]] void loseAction(Session& session, const DatabaseError& error)
{
  session.connection.rollback();
  session.desk.dropHeldBoxes();
  showError(session, error);
  throw ActionLost();
}

// The same, but errors are shown.
DatabaseResult<Recordset> runAndShow(Session& session, const Statement& statement)
{
  auto result = run(session, statement);
  if (result)
    return result;
  if (session.connection.hasLostTransaction())
    loseAction(session, result.error());
  showError(session, result.error());
  return result;
}

void commit(Session& session, const std::function<void()>& committed)
{
  if (const auto done = session.connection.commit(); !done)
    loseAction(session, done.error());
  committed();
  session.desk.showHeldBoxes();
}

} // namespace

QString GetConnectionString(Session& session)
{
  const SessionParams& params = session.params;
  const QString unknown = u"不能确定当前操作账套，请重新登陆系统！"_s;
  if (params.ConDataName.isEmpty())
    session.desk.stop(unknown);
  if (params.DatabaseType == u"SQL" && (params.ConDataBaseUID.isEmpty() || params.ConServerIP.isEmpty()))
    session.desk.stop(unknown);
  if (params.demoData)
    return {};
  const QString folder = session.machine.programFolder();
  if (params.DatabaseType == u"SQL")
    return serverText(params);
  if (params.DatabaseType == u"Access")
    return fileText(folder, params);
  if (params.DatabaseType == u"Access2")
    return fileText2(folder, params);
  return {};
}

Recordset OpenRecordset(Session& session, const Statement& statement)
{
  return runAndShow(session, statement).value_or(Recordset());
}

bool Execute(Session& session, const Statement& statement)
{
  return runAndShow(session, statement).has_value();
}

Recordset OpenRecordsetForUpdate(Session& session, const Statement& statement)
{
  auto result = run(session, statement);
  if (!result)
    throw RunTimeError(RunTimeError::Automation, result.error().description);
  return *std::move(result);
}

Recordset LookUp(Session& session, const Statement& statement)
{
  return run(session, statement).value_or(Recordset(RowSet()));
}

void inOneTransaction(Session& session, const std::function<void()>& writes, const std::function<void()>& committed)
{
  if (session.connection.isInTransaction())
    return writes();
  const auto begun = requireConnection(session).and_then([&session] { return session.connection.begin(); });
  if (!begun)
    loseAction(session, begun.error());
  session.desk.holdBoxes();
  try {
    writes();
  } catch (const RunTimeError&) {
    commit(session, committed);
    throw;
  }
  commit(session, committed);
}

void CloseConnection(Session& session)
{
  session.connection.close();
}

namespace SqlDialect {

Statement date(const Session& session, const QDate& date)
{
  return SqlDialect::date(session, DateText::shortForm(date));
}

Statement date(const Session& session, const QString& dateText)
{
  return session.params.IsAccessSQL ? Statement(u"#{}#", dateText) : Statement(u"'{}'", dateText);
}

Statement integer(const Session& session, SqlLiteral column)
{
  return session.params.IsAccessSQL ? Statement(u"cint({})", Statement(column)) : Statement(u"convert(int,{})", Statement(column));
}

Statement isNull(const Session& session, SqlLiteral column)
{
  return session.params.IsAccessSQL ? Statement(u"isnull({})", Statement(column)) : Statement(u"{} is null", Statement(column));
}

} // namespace SqlDialect
