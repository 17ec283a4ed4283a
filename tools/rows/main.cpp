#include "Complaint.h"
#include "database/EmbeddedEngine.h"

#include <QCoreApplication>
#include <QTextStream>

// Shows what an account set holds: rows FILE "select ...". The statement may be in either dialect;
// one that writes is carried out.

namespace {

constexpr char Help[] = "rows FILE STATEMENT\n\n"
                        "Shows what an account set holds: rows firm.mdb 'select * from TabPayfundBill'. The first line has the\n"
                        "names of the columns. A statement that writes is carried out.";

QString line(const RowSet& rows, std::int64_t row)
{
  QStringList values;
  for (int column = 0; column < rows.names().size(); ++column) {
    const Value value = rows.value(row, column);
    values.append(value.isNull() ? QStringLiteral("NULL") : value.toText());
  }
  return values.join(QStringLiteral(" | "));
}

} // namespace

int main(int argc, char* argv[])
{
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (const auto status = answerOf(arguments.mid(1), Help))
    return *status;
  if (arguments.size() != 3)
    return complain(QStringLiteral("usage: rows FILE STATEMENT"), WrongUse);
  const auto engine = EmbeddedEngine::open(arguments[1]);
  if (!engine)
    return complain(engine.error().description, Failed);
  const auto rows = (*engine)->execute(arguments[2]);
  if (!rows)
    return complain(rows.error().description, Failed);
  QTextStream out(stdout);
  out << rows->names().join(QStringLiteral(" | ")) << "\n";
  for (std::int64_t row = 0; row < rows->rows(); ++row)
    out << line(*rows, row) << "\n";
  return Done;
}
