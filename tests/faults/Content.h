#pragma once

#include <QByteArray>
#include <QString>

// All rows of all tables of an account set's file.
namespace Content {

// A digest of them; empty if the file cannot be read or is not whole, which `reason` tells.
QByteArray digest(const QString& path, QString& reason);

} // namespace Content
