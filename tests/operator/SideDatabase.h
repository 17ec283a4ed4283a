#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// The account set's file as it is reached beside the program: with every right, and closed again
// after each statement, so that the program is never blocked.
namespace SideDatabase {

// Runs one statement. Gives its rows as texts, NULL as "NULL" and numbers in their shortest form.
// Unmet with the engine's words if it fails, or if there is a second statement behind it.
QList<QStringList> run(const QString& path, const QString& sql);

} // namespace SideDatabase
