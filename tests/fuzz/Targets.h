#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// The readers of texts that come from outside: what each does with any bytes, and bytes to begin with.
struct Target {
  const char* name;
  // Must come to an end, and may throw no more than the reader's contract says. What must hold of the
  // result is required here.
  void (*read)(const QByteArray& bytes);
  // The corpus of the tree.
  QList<QByteArray> (*corpus)();
};

const QList<Target>& targets();
