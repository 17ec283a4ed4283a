#include "spreadsheet/office/Archive.h"

#include <QFile>
#include <QtEndian>

namespace {

// The directory of an archive is found by the record at its end, followed only by a comment.
constexpr qsizetype EndRecord = 22;
constexpr qsizetype LongestComment = 0xFFFF;
constexpr qsizetype Entry = 46;

template <typename Number> Number numberAt(const QByteArray& bytes, qsizetype at)
{
  return qFromLittleEndian<Number>(bytes.constData() + at);
}

QByteArray entriesOf(QFile& file)
{
  const qint64 tailSize = std::min<qint64>(file.size(), EndRecord + LongestComment);
  file.seek(file.size() - tailSize);
  const QByteArray tail = file.read(tailSize);
  const qsizetype end = tail.lastIndexOf("PK\5\6");
  if (end < 0 || end + EndRecord > tail.size())
    return {};
  file.seek(numberAt<quint32>(tail, end + 16));
  return file.read(numberAt<quint32>(tail, end + 12));
}

} // namespace

qint64 unpackedSize(const QString& path)
{
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return 0;
  const QByteArray entries = entriesOf(file);
  qint64 size = 0;
  for (qsizetype at = 0; at + Entry <= entries.size() && entries.sliced(at, 4) == "PK\1\2";) {
    size += numberAt<quint32>(entries, at + 24);
    at += Entry + numberAt<quint16>(entries, at + 28) + numberAt<quint16>(entries, at + 30) + numberAt<quint16>(entries, at + 32);
  }
  return size;
}
