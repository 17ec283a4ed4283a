#pragma once

#include <QStringList>

// What a PostgreSQL database needs so that texts and dates compare as they do in an account set's file: text without
// regard to the case of Latin letters, dates by the day.
namespace PostgreSqlTypes {

// The types of columns.
constexpr char Text[] = "citext";
constexpr char Date[] = "zdate";

// The options of a new database: with them "citext" folds Latin letters only and sorts by code, as the file does.
constexpr char DatabaseOptions[] = "encoding 'UTF8' lc_collate 'C' lc_ctype 'C' template template0";

// The statements that create the types in a new database, to be run one by one by an administrator of the server.
QStringList definitions();

} // namespace PostgreSqlTypes
