#include "drafts/DraftFile.h"

#include "platform/SafeFile.h"
#include "session/Session.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <cerrno>
#include <sys/file.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MostBytes = 8 << 20;

// Where the rows are; not how the program came to them, so that a moved program folder keeps its drafts.
QStringList identityOf(const SessionParams& params)
{
  if (params.DatabaseType == u"SQL")
    return {params.ConServerIP, params.ConPortNum, params.ConDataName};
  return {params.ConDataName};
}

// Names of account sets and people stay out of the file's name.
QString nameOf(const Session& session, const QString& screen)
{
  QCryptographicHash hash(QCryptographicHash::Sha256);
  for (const QString& part : identityOf(session.params) + QStringList{session.params.UserName, screen})
    hash.addData(part.toUtf8() + '\0');
  return QString::fromLatin1(hash.result().toHex().first(32)) + u".draft"_s;
}

} // namespace

void DraftFile::open(const Session& session, const QString& screen)
{
  m_path = session.machine.inProgramFolder(u"TempFile/"_s + nameOf(session, screen));
}

std::optional<Draft> DraftFile::read() const
{
  const auto bytes = SafeFile::read(m_path, MostBytes + 1);
  const auto draft = bytes && bytes->size() <= MostBytes ? Draft::ofBytes(*bytes) : std::nullopt;
  if (!draft)
    return std::nullopt;
  QFile file(m_path);
  const bool isHeld = file.open(QIODevice::ReadOnly) && flock(file.handle(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  return isHeld ? std::nullopt : draft;
}

bool DraftFile::write(const Draft& draft)
{
  const QByteArray bytes = draft.toBytes();
  if (m_path.isEmpty() || bytes.size() > MostBytes || !QFileInfo(QFileInfo(m_path).path()).isDir())
    return false;
  if (!SafeFile::replace(m_path, bytes, SafeFile::ForThisUser)) {
    if (!std::exchange(m_hasFailed, true))
      qWarning("The bill being typed cannot be kept in %s.", qUtf8Printable(m_path));
    return false;
  }
  m_held.close();
  m_held.setFileName(m_path);
  if (m_held.open(QIODevice::ReadOnly))
    flock(m_held.handle(), LOCK_SH | LOCK_NB);
  return true;
}

void DraftFile::remove(const Draft& draft) const
{
  if (SafeFile::read(m_path, MostBytes) == draft.toBytes())
    QFile::remove(m_path);
}
