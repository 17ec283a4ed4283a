#include "session/ModuleADO.h"

#include "platform/DateText.h"
#include "platform/RunTimeError.h"
#include "platform/Trim.h"
#include "session/Session.h"

namespace {

// All account sets of the family that are files share it.
constexpr char FilePassword[] = "qp7ezm4tw2hx9c";

// The number under which a statement is reported that a value would have changed.
constexpr int ChangedShape = -2147217900;

QString serverText(const SessionParams& params)
{
  const QString port = Trim(params.ConPortNum).isEmpty() ? QStringLiteral("1433") : params.ConPortNum;
  return "Driver={SQL Server};Server=" + params.ConServerIP + "," + port + ";" + "DataBase=" + params.ConDataName +
         ";UID=" + params.ConDataBaseUID + ";PWD=" + params.ConDataBasePWD + "; ";
}

QString fileText(const QString& folder, const SessionParams& params)
{
  return "Provider = Microsoft.Jet.OLEDB.4.0;Data Source = " + folder + "\\Data\\" + params.ConDataName + ";Jet OLEDB:Database Password='" +
         FilePassword + "'";
}

// As fileText, but a root folder gets no second separator.
QString fileText2(const QString& folder, const SessionParams& params)
{
  const bool isRoot = folder.endsWith(u'\\') || folder.endsWith(u'/');
  return "Provider = Microsoft.Jet.OLEDB.4.0;Data Source = " + folder + (isRoot ? "Data\\" : "\\Data\\") + params.ConDataName + "; " +
         " Jet OLEDB:Database Password='" + FilePassword + "'";
}

void showError(Session& session, const DatabaseError& error)
{
  session.desk.ask({"Error:" + QString::number(error.number) + "\r\n" + error.description, Desk::Icon::None, Desk::Buttons::Ok, QString()});
}

// The statement's result; an error has not been shown.
DatabaseResult<Recordset> run(Session& session, const Statement& statement)
{
  if (!session.connection.isOpen())
    if (const auto opened = session.connection.open(GetConnectionString(session)); !opened)
      return tl::unexpected(opened.error());
  if (const auto value = statement.violation())
    return databaseError(ChangedShape, QStringLiteral("语句中的值不是一个完整的文字或数字：") + value->left(60));
  return session.connection.run(statement.sql());
}

// The same with the error shown.
DatabaseResult<Recordset> runAndShow(Session& session, const Statement& statement)
{
  auto result = run(session, statement);
  if (!result)
    showError(session, result.error());
  return result;
}

} // namespace

QString GetConnectionString(Session& session)
{
  const SessionParams& params = session.params;
  const QString unknown = QStringLiteral("不能确定当前操作账套，请重新登陆系统！");
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
