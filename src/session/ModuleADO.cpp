#include "session/ModuleADO.h"

#include "platform/DateText.h"
#include "platform/Trim.h"
#include "session/Session.h"

namespace {

// All account sets of the family that are files share it.
constexpr char FilePassword[] = "qp7ezm4tw2hx9c";

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

Recordset OpenRecordset(Session& session, const QString& sql)
{
  if (!session.connection.isOpen()) {
    if (const auto error = session.connection.open(GetConnectionString(session))) {
      showError(session, *error);
      return {};
    }
  }
  Connection::Outcome outcome = session.connection.run(sql);
  if (outcome.error)
    showError(session, *outcome.error);
  return std::move(outcome.recordset);
}

void CloseConnection(Session& session)
{
  session.connection.close();
}

namespace SqlDialect {

QString date(const Session& session, const QDate& date)
{
  return SqlDialect::date(session, DateText::shortForm(date));
}

QString date(const Session& session, const QString& dateText)
{
  return session.params.IsAccessSQL ? "#" + dateText + "#" : "'" + dateText + "'";
}

QString integer(const Session& session, const QString& column)
{
  return session.params.IsAccessSQL ? "cint(" + column + ")" : "convert(int," + column + ")";
}

QString isNull(const Session& session, const QString& column)
{
  return session.params.IsAccessSQL ? "isnull(" + column + ")" : column + " is null";
}

} // namespace SqlDialect
