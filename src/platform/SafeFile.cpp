#include "platform/SafeFile.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace SafeFile {
namespace {

bool isPlainFileOfOurs(int descriptor)
{
  struct stat status = {};
  return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && (status.st_uid == geteuid() || status.st_uid == 0);
}

} // namespace

bool write(const QString& path, const QByteArray& content, QFile::Permissions permissions)
{
  QFile::remove(path);
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, permissions))
    return false;
  if (file.write(content) == content.size() && file.flush())
    return true;
  file.remove();
  return false;
}

bool replace(const QString& path, const QByteArray& content, QFile::Permissions permissions)
{
  const QString fresh = path + QStringLiteral(".new");
  if (!write(fresh, content, permissions))
    return false;
  if (std::rename(QFile::encodeName(fresh).constData(), QFile::encodeName(path).constData()) == 0)
    return true;
  QFile::remove(fresh);
  return false;
}

std::optional<QByteArray> read(const QString& path, qint64 most)
{
  // Without O_NONBLOCK the opening of a pipe waits for its writer.
  const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC);
  QFile file;
  if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle) || !isPlainFileOfOurs(descriptor))
    return std::nullopt;
  QByteArray content = file.read(most);
  return file.error() == QFile::NoError ? std::optional(content) : std::nullopt;
}

std::optional<QByteArray> take(const QString& path, qint64 most)
{
  auto content = read(path, most);
  return content && QFile::remove(path) ? content : std::nullopt;
}

bool isName(const QString& text)
{
  return !text.isEmpty() && text != u"." && text != u".." && !text.contains(u'/') && !text.contains(QChar(0));
}

} // namespace SafeFile
