#pragma once

#include <QByteArray>
#include <QString>

#include <tl/expected.hpp>

// All rows of all tables of an account set's file.
namespace Content {

// A digest of them; an error if the file cannot be read or is not whole.
[[nodiscard]] tl::expected<QByteArray, QString> digest(const QString& path);

} // namespace Content
