#pragma once

#include <QAbstractItemModel>
#include <QStringList>

// The texts of all nodes of a tree from top to bottom, with `indent` before them for each level.
inline QStringList nodeTexts(const QAbstractItemModel& model, const QString& indent, const QModelIndex& above = {})
{
  QStringList texts;
  for (int row = 0; row < model.rowCount(above); ++row) {
    const QModelIndex node = model.index(row, 0, above);
    texts.append(node.data().toString());
    for (const QString& below : nodeTexts(model, indent, node))
      texts.append(indent + below);
  }
  return texts;
}
