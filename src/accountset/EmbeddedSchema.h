#pragma once

#include "accountset/Schema.h"

#include <QString>

// The description of the tables in the words of the embedded engine.
namespace EmbeddedSchema {

// All "create table" and "create index" statements, each ended by a ";".
QString sql(std::span<const Schema::Table> tables);

} // namespace EmbeddedSchema
