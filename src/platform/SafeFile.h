#pragma once

#include <QFile>
#include <QString>

#include <optional>

// Files at names that others can predict and may have prepared: with a link or a pipe in place of the file, or a name
// that leads out of the folder.
namespace SafeFile {

constexpr QFile::Permissions ForEverybody =
    QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther; // minus the umask
constexpr QFile::Permissions ForThisUser = QFile::ReadOwner | QFile::WriteOwner;

// Creates a file. What was at its name is removed, never written to, and a link is not followed. False if that fails;
// no half-written file is left then.
[[nodiscard]] bool write(const QString& path, const QByteArray& content, QFile::Permissions permissions = ForEverybody);

// The same, but at every moment, that of a death too, the name has all of the old content or all of the new. After a power
// cut it may have neither: nothing waits for the disk.
[[nodiscard]] bool replace(const QString& path, const QByteArray& content, QFile::Permissions permissions);

// Reads up to `most` bytes of a file. Nothing if it is not a plain file of this user or of the system's administrator, or
// can't be read. Never waits.
[[nodiscard]] std::optional<QByteArray> read(const QString& path, qint64 most);

// The same, and deletes it; nothing if that fails.
[[nodiscard]] std::optional<QByteArray> take(const QString& path, qint64 most);

// Whether a text is the name of one file in a folder.
bool isName(const QString& text);

} // namespace SafeFile
