#pragma once

#include "session/SessionParams.h"
#include "startup/Launcher.h"

#include <QHash>
#include <QStringList>

#include <optional>

class Machine;
struct Session;

// SysPar.dll in the program folder: how the programs of the suite pass a session to each other. Text in the ANSI code
// page, one scrambled "key=value" per line, CR LF, the keys in the order of SessionParams.
namespace ModReadWriteParameters {

constexpr char FileName[] = "SysPar.dll";

// The keys in the order of the file.
QStringList keys();

// Reads the file into `params` and deletes it. False, with nothing read, if there is no such file, it cannot be read
// or deleted, it is not a plain file or belongs to another user, it is too large to be one, it ends inside a line, or
// none of its lines has a key.
[[nodiscard]] bool ReadSystemParameters(const Machine& machine, SessionParams& params);

// Writes the session with these directives for the program about to be started. On any error, including a text that
// does not survive the round trip, shows "参数存取失败！", leaves no file and returns false.
bool WriteSystemParameters(Session& session, const Directives& directives);

// The bytes of a file with these values, by key; a missing value is empty. For starting the first program. Nothing if
// a reader would not get every character back.
[[nodiscard]] std::optional<QByteArray> fileContent(const QHash<QString, QString>& values);

// Writes the file with these bytes into a program folder, for this user alone: a password may be among
// them. False if it could not be written.
[[nodiscard]] bool writeFile(const QString& folder, const QByteArray& content);

} // namespace ModReadWriteParameters
