#pragma once

#include <QStringList>

// What a PostgreSQL database needs so that texts and dates compare there as they do in the file of an
// account set: text without regard to the case of Latin letters, dates by the day.
namespace PostgreSqlTypes {

// Column types, to be used by whoever makes tables.
constexpr char Text[] = "citext";
constexpr char Date[] = "zdate";

// How a new database is made: with it, "citext" folds Latin letters only and sorts by code, as the file does.
constexpr char DatabaseOptions[] = "encoding 'UTF8' lc_collate 'C' lc_ctype 'C' template template0";

// The statements that make the types in a new database, one at a time, by an administrator of the server.
QStringList definitions();

} // namespace PostgreSqlTypes
