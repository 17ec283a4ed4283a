#include "Scene.h"

#include "Unmet.h"
#include "platform/DateText.h"
#include "startup/ModChangeStr.h"
#include "startup/ModReadWriteParameters.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr int DirectiveCount = 5;

QString directiveKey(int index)
{
  return index == 0 ? QStringLiteral("OperationsDirective") : QStringLiteral("OperationsDirective%1").arg(index + 1);
}

void require(bool done, const QString& what)
{
  if (!done)
    throw Unmet(QStringLiteral("cannot %1").arg(what));
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
  for (int i = 0; i < DirectiveCount; ++i)
    directives.append(values.value(directiveKey(i)));
  return directives;
}

} // namespace

// Notes down what was started, and then starts it as the program's own machine does.
class Scene::RecordingMachine : public FixedMachine {
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

Scene::Scene(const QString& folder, std::unique_ptr<AccountSetGround> ground)
    : m_folder(folder), m_ground(std::move(ground)), m_machine(std::make_unique<RecordingMachine>(folder))
{
  for (const char* name : {"Data", "PrintTemp", "TempFile"})
    require(QDir(folder).mkpath(QString::fromLatin1(name)), QStringLiteral("make the folder %1").arg(file(name)));
}

Scene::~Scene() = default;

Machine& Scene::machine()
{
  return *m_machine;
}

QString Scene::file(const QString& name) const
{
  return QDir(m_folder).filePath(QString(name).replace(u'\\', u'/'));
}

void Scene::makeAccountSet(AccountSetGround::Content content)
{
  m_ground->make(content);
}

QList<QStringList> Scene::runSql(const QString& sql)
{
  if (!m_ground->stands())
    makeAccountSet(AccountSetGround::Content::Empty);
  return m_ground->run(sql);
}

void Scene::setClock(const QDateTime& now)
{
  m_machine->clock = now;
}

void Scene::setSession(const QString& key, const QString& value)
{
  if (!ModReadWriteParameters::keys().contains(key))
    throw Unmet(QStringLiteral("the parameter file has no key \"%1\"").arg(key));
  m_session.insert(key, value);
}

void Scene::placeSiblings(const QStringList& names)
{
  for (const QString& name : names) {
    QFile standIn(file(name));
    require(standIn.open(QIODevice::WriteOnly) && standIn.write("#!/bin/sh\n") > 0, QStringLiteral("place %1").arg(name));
    standIn.close();
    standIn.setPermissions(standIn.permissions() | QFile::ExeOwner | QFile::ExeUser);
  }
}

QString Scene::valueOf(const QString& key, const QStringList& directives) const
{
  for (int i = 0; i < DirectiveCount; ++i)
    if (key == directiveKey(i))
      return directives.value(i);
  QHash<QString, QString> unlessTold = m_ground->sessionKeys();
  unlessTold.insert("UserName", "系统管理员");
  unlessTold.insert("OperateDate", DateText::shortForm(m_machine->today()));
  return m_session.value(key, unlessTold.value(key));
}

void Scene::writeParameters(const QStringList& directives)
{
  if (!m_ground->stands())
    makeAccountSet(AccountSetGround::Content::Empty);
  QByteArray content;
  for (const QString& key : ModReadWriteParameters::keys())
    content += ModChangeStr::ChangeStrEncode(key + u'=' + valueOf(key, directives)) + "\r\n";
  QFile parameters(file(ModReadWriteParameters::FileName));
  require(parameters.open(QIODevice::WriteOnly) && parameters.write(content) == content.size(), "write the parameter file");
}

void Scene::removeParameters()
{
  QFile::remove(file(ModReadWriteParameters::FileName));
}

QList<Scene::StartedProgram>& Scene::started()
{
  return m_machine->programs;
}
