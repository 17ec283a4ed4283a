#pragma once

struct sqlite3;

// The functions that add up and multiply amounts as decimals, so that 0.3-0.1 is 0.2: a file holds
// binary numbers, and its engine computes with them. Whoever runs a statement that DialectTranslator
// translated must register them first.
//
// Value and Part take the operations in postfix notation, then the operands: "vv-v*" with a, b and c
// is (a-b)*c, "n" changes a sign. A number counts as the decimal that it was entered as, a text as the
// number at its start; with a null among them the result is null. Sum and PartSum add such values up over the
// rows, and the engine's own "sum" is replaced by one that is exact too.
//
// What comes out is the nearest number that the engine knows, and whole if all operands were. Of Part
// and PartSum it is a text that keeps all digits, for nothing but a sum over it. A number beyond the
// largest is an error.
namespace SqliteArithmetic {

constexpr char Value[] = "exact_value";
constexpr char Part[] = "exact_part";
constexpr char Sum[] = "exact_sum";
constexpr char PartSum[] = "exact_part_sum";

// Returns SQLite's result code.
int registerAll(sqlite3* database);

} // namespace SqliteArithmetic
