#pragma once

#include "accountset/Schema.h"
#include "accountset/Store.h"

#include <QCryptographicHash>

#include <algorithm>

// What all tables of an account set hold, in whatever order, as a digest.
namespace RowDigest {

inline QByteArray of(Store& store)
{
  QCryptographicHash hash(QCryptographicHash::Md5);
  for (const Schema::Table& table : Schema::allTables()) {
    hash.addData(table.name);
    // A script may have dropped a table.
    const auto rows = store.run(QString("select * from %1").arg(table.name));
    QByteArrayList lines;
    for (qint64 row = 0; rows && row < rows->rows(); ++row) {
      QByteArray line;
      for (int column = 0; column < rows->names().size(); ++column) {
        const Value value = rows->value(row, column);
        line += (value.isNull() ? 'N' : 'V') + value.toText().toUtf8() + '\0';
      }
      lines.append(line);
    }
    std::sort(lines.begin(), lines.end());
    hash.addData(lines.join('\1'));
  }
  return hash.result();
}

} // namespace RowDigest
