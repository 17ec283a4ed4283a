#pragma once

#include "accountset/SchemaSql.h"
#include "support/SessionFixture.h"

// The session of SessionFixture on an account set with all its tables and no rows.
struct AccountSetFixture : SessionFixture {
  AccountSetFixture()
  {
    file.run(QStringLiteral("pragma synchronous=off; begin;") + SchemaSql::statements(Schema::allTables(), SchemaSql::Embedded).join(u';') +
             QStringLiteral(";commit"));
  }
};
