#include "Environment.h"

#include "Failure.h"
#include "platform/DateText.h"
#include "startup/ModChangeStr.h"
#include "startup/ModReadWriteParameters.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

const QStringList DirectiveKeys = {"OperationsDirective", "OperationsDirective2", "OperationsDirective3", "OperationsDirective4",
                                   "OperationsDirective5"};

void require(bool done, const QString& what)
{
  if (!done)
    throw Failure(QStringLiteral("cannot %1").arg(what));
}

QStringList readDirectives(const QString& parameterFile)
{
  QHash<QString, QString> values;
  QFile file(parameterFile);
  if (file.open(QIODevice::ReadOnly))
    for (const QByteArray& line : file.readAll().split('\n')) {
      const QString text = ModChangeStr::ChangeStrDecode(line.endsWith('\r') ? line.chopped(1) : line);
      values.insert(text.section(u'=', 0, 0), text.section(u'=', 1));
    }
  QStringList directives;
  for (const QString& key : DirectiveKeys)
    directives.append(values.value(key));
  return directives;
}

} // namespace

// Records what is started, and starts it as the program's own machine does.
class Environment::RecordingMachine : public FixedMachine {
public:
  using FixedMachine::FixedMachine;

  QList<StartedProgram> programs;

  bool startProgram(const QString& path) override
  {
    programs.append({QFileInfo(path).fileName(), readDirectives(inProgramFolder(ModReadWriteParameters::FileName))});
    return m_real.startProgram(path);
  }

private:
  ThisMachine m_real;
};

Environment::Environment(const QString& folder, std::unique_ptr<ScriptAccountSet> accountSet)
    : m_folder(folder), m_accountSet(std::move(accountSet)), m_machine(std::make_unique<RecordingMachine>(folder))
{
  for (const char* name : {"Data", "PrintTemp", "TempFile"})
    require(QDir(folder).mkpath(QString::fromLatin1(name)), QStringLiteral("make the folder %1").arg(file(name)));
}

Environment::~Environment() = default;

Machine& Environment::machine()
{
  return *m_machine;
}

QString Environment::file(const QString& name) const
{
  return QDir(m_folder).filePath(QString(name).replace(u'\\', u'/'));
}

void Environment::requireAccountSet()
{
  if (!m_accountSet->exists())
    makeAccountSet(ScriptAccountSet::Content::Empty);
}

QList<QStringList> Environment::runSql(const QString& sql)
{
  requireAccountSet();
  return m_accountSet->run(sql);
}

void Environment::setClock(const QDateTime& now)
{
  m_machine->clock = now;
}

void Environment::setSession(const QString& key, const QString& value)
{
  if (!ModReadWriteParameters::keys().contains(key))
    throw Failure(QStringLiteral("the parameter file has no key \"%1\"").arg(key));
  m_session.insert(key, value);
}

void Environment::placeSiblings(const QStringList& names)
{
  for (const QString& name : names) {
    QFile dummy(file(name));
    require(dummy.open(QIODevice::WriteOnly) && dummy.write("#!/bin/sh\n") > 0, QStringLiteral("place %1").arg(name));
    dummy.close();
    dummy.setPermissions(dummy.permissions() | QFile::ExeOwner | QFile::ExeUser);
  }
}

void Environment::writeParameters(const QStringList& directives)
{
  requireAccountSet();
  QHash<QString, QString> values = m_accountSet->sessionKeys();
  values.insert({{"UserName", "系统管理员"}, {"OperateDate", DateText::shortForm(m_machine->today())}});
  values.insert(m_session);
  for (int i = 0; i < DirectiveKeys.size(); ++i)
    values.insert(DirectiveKeys[i], directives.value(i));
  QByteArray content;
  for (const QString& key : ModReadWriteParameters::keys())
    content += ModChangeStr::ChangeStrEncode(key + u'=' + values.value(key)) + "\r\n";
  QFile parameters(file(ModReadWriteParameters::FileName));
  require(parameters.open(QIODevice::WriteOnly) && parameters.write(content) == content.size(), "write the parameter file");
}

void Environment::removeParameters()
{
  QFile::remove(file(ModReadWriteParameters::FileName));
}

QList<Environment::StartedProgram>& Environment::started()
{
  return m_machine->programs;
}
