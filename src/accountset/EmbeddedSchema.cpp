#include "accountset/EmbeddedSchema.h"

#include "accountset/SchemaSql.h"

namespace EmbeddedSchema {

QString sql(std::span<const Schema::Table> tables)
{
  return SchemaSql::statements(tables, SchemaSql::Embedded).join(QStringLiteral(";\n")) + QStringLiteral(";\n");
}

} // namespace EmbeddedSchema
