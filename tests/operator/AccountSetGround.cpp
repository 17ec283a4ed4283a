#include "AccountSetGround.h"

#include "Unmet.h"
#include "accountset/Store.h"
#include "database/SqlTokens.h"
#include "samplefirm/SampleFirm.h"

AccountSet::Fill AccountSetGround::fillOf(Content content)
{
  return content == Content::Demo ? AccountSet::Fill(SampleFirm::write) : AccountSet::Fill();
}

QList<QStringList> AccountSetGround::rowsOf(Store& store, const QString& sql)
{
  const std::vector<SqlToken> tokens = SqlTokens::read(sql);
  for (std::size_t i = 0; i + 1 < tokens.size(); ++i)
    if (tokens[i].isSymbol(u';'))
      throw Unmet(QStringLiteral("there is a second statement: %1").arg(sql.sliced(tokens[i + 1].text.data() - sql.data())));
  const auto found = store.run(sql);
  if (!found)
    throw Unmet(QStringLiteral("the statement fails: %1").arg(found.error()));
  QList<QStringList> rows;
  for (qint64 row = 0; row < found->rows(); ++row) {
    rows.append(QStringList());
    for (int i = 0; i < found->names().size(); ++i) {
      const Value value = found->value(row, i);
      rows.last().append(value.isNull() ? QStringLiteral("NULL") : value.toText());
    }
  }
  return rows;
}
