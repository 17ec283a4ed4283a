#pragma once

#include <array>
#include <span>
#include <vector>

// The tables of an account set, described once. From this description the SQL of each engine is made;
// nothing in it is an engine's own word.
//
// The tables belong to the whole program family. The bills, vouchers, write-off links and grid layouts
// are written by position, so the order of their columns is fixed. Only the columns by which a row is
// found again are required: rows come from many programs, and a row may leave out what its writer does
// not know.
namespace Schema {

enum class ColumnType {
  Text,    // compared without regard to the case of Latin letters
  Date,    // a day, compared as a day however it is written
  Money,   // an amount or a quantity, kept as it was entered
  Single,  // single precision: an exchange rate, the size of a font
  Integer, // counts, line numbers, flags (1 is on)
  Binary,
};

enum class Presence {
  Optional,
  Required,
  ZeroIfLeftOut, // an amount, or a flag, that a writer need not know: comparing with nothing would hide the row
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
  // The columns that no two rows share, separated by ", "; empty if a row may occur twice. A row that
  // leaves out its line number clashes with no other.
  const char* key;
  // Further indexes, each a list of columns like the key, led by the column that is asked by. Unused
  // places are null.
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
