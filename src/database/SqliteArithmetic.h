#pragma once

struct sqlite3;

// The functions that add up and multiply amounts as decimals, so that 0.3-0.1 is 0.2: SQLite stores and computes
// binary numbers. They must be registered before a statement of DialectTranslator is run.
//
// Value and Part take the operations in postfix notation, then the operands: "vv-v*" with a, b and c
// is (a-b)*c, "n" changes a sign. A number counts as the decimal that it was entered as, a text as the
// number at its start; with a null among them the result is null. Sum and PartSum add such values up over the
// rows, and the engine's own "sum" is replaced by one that is exact too.
//
// The result is the nearest number of the engine, an integer if all operands were. Part and PartSum return a text
// that keeps all digits, meant only for a sum over it. A number beyond the largest is an error.
namespace SqliteArithmetic {

constexpr char Value[] = "exact_value";
constexpr char Part[] = "exact_part";
constexpr char Sum[] = "exact_sum";
constexpr char PartSum[] = "exact_part_sum";

// Returns SQLite's result code.
int registerAll(sqlite3* database);

} // namespace SqliteArithmetic
