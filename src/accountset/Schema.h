#pragma once

#include <array>
#include <span>
#include <vector>

// The tables of an account set, described once. From this description the SQL of each engine is made; nothing in it
// is specific to an engine.
//
// The tables belong to the whole suite. The bills, vouchers, write-off links and grid layouts are written by
// position, so the order of their columns is fixed. Only the columns that identify a row are required: rows come from
// many programs, and a row may leave out what its writer does not know.
namespace Schema {

enum class ColumnType {
  Text,    // compared without regard to the case of Latin letters
  Date,    // a date, compared by day however it is written
  Money,   // an amount or a quantity, stored as it was entered
  Single,  // single precision: an exchange rate, a font size
  Integer, // counts, line numbers, flags (1 is on)
  Binary,
};

enum class Presence {
  Optional,
  Required,
  ZeroIfLeftOut, // an amount or a flag that a writer need not know: a comparison with null would hide the row
};

struct Column {
  const char* name;
  ColumnType type;
  Presence presence = Presence::Optional;
};

constexpr int MaxIndexes = 4;

struct Table {
  const char* name;
  std::span<const Column> columns;
  // The columns of the unique key, separated by ", "; empty if a row may occur twice. Rows without a line number
  // never conflict.
  const char* key;
  // Further indexes, each a list of columns like the key, starting with the column that is searched. Unused entries
  // are null.
  std::array<const char*, MaxIndexes> indexes = {};
};

// The tables by subject.
std::span<const Table> settingTables();
std::span<const Table> masterTables();
std::span<const Table> cashBillTables();
std::span<const Table> goodsBillTables();
std::span<const Table> voucherTables();

// All of them.
std::vector<Table> allTables();

} // namespace Schema
