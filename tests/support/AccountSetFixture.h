#pragma once

#include "accountset/EmbeddedSchema.h"
#include "support/SessionFixture.h"

// The session of SessionFixture over an account set with all its tables and no rows.
struct AccountSetFixture : SessionFixture {
  AccountSetFixture()
  {
    file.run(QStringLiteral("pragma synchronous=off; begin;") + EmbeddedSchema::sql(Schema::allTables()) + QStringLiteral("commit;"));
  }
};
