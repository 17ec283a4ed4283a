#include "database/SqliteArithmetic.h"

#include "database/Decimal.h"

#include <array>
#include <cmath>
#include <new>
#include <span>
#include <sqlite3.h>

namespace SqliteArithmetic {
namespace {

// How many results may be pending: a deeper "a-(b-(c-..." is refused.
constexpr std::size_t MostDepth = 16;

using Operands = std::span<sqlite3_value*>;

struct Number {
  Decimal value;
  bool isInteger = true; // whether all its operands are
};

enum class Outcome { Number, Null, TooLarge, Malformed };

struct Accumulator {
  Decimal sum;
  bool hasRows;
  bool hasReals;
};

enum class Form { Nearest, AllDigits };

void fail(sqlite3_context* context, Outcome outcome)
{
  if (outcome == Outcome::TooLarge)
    sqlite3_result_error(context, "数值溢出", -1);
  else if (outcome == Outcome::Malformed)
    sqlite3_result_error(context, "算式无效", -1);
}

Outcome read(sqlite3_value* operand, Number& number)
{
  switch (sqlite3_value_type(operand)) {
  case SQLITE_NULL: return Outcome::Null;
  case SQLITE_INTEGER: number = {Decimal::ofInteger(sqlite3_value_int64(operand)), true}; return Outcome::Number;
  case SQLITE_FLOAT: {
    const double value = sqlite3_value_double(operand);
    if (!std::isfinite(value))
      return Outcome::TooLarge;
    number = {Decimal::ofDouble(value), false};
    return Outcome::Number;
  }
  default: {
    const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(operand));
    const auto prefix = Decimal::ofText({text ? text : "", std::size_t(sqlite3_value_bytes(operand))});
    number = {prefix.value, prefix.isInteger};
    return Outcome::Number;
  }
  }
}

// The first operand holds the operations. The result is null if any operand is.
Outcome compute(Operands operands, Number& result)
{
  if (operands.empty())
    return Outcome::Malformed;
  const auto* operation = reinterpret_cast<const char*>(sqlite3_value_text(operands[0]));
  std::array<Number, MostDepth> stack;
  std::size_t size = 0;
  std::size_t next = 1;
  for (; operation && *operation; ++operation) {
    if (*operation == 'v') {
      if (next == operands.size() || size == MostDepth)
        return Outcome::Malformed;
      if (const Outcome outcome = read(operands[next++], stack[size]); outcome != Outcome::Number)
        return outcome;
      ++size;
      continue;
    }
    if (size < (*operation == 'n' ? 1 : 2))
      return Outcome::Malformed;
    Number& last = stack[size - 1];
    if (*operation == 'n') {
      last.value = -last.value;
      continue;
    }
    Number& left = stack[--size - 1];
    switch (*operation) {
    case '+': left.value = left.value + last.value; break;
    case '-': left.value = left.value - last.value; break;
    case '*': left.value = left.value * last.value; break;
    default: return Outcome::Malformed;
    }
    left.isInteger = left.isInteger && last.isInteger;
  }
  if (size != 1 || next != operands.size())
    return Outcome::Malformed;
  result = stack[0];
  return Outcome::Number;
}

void giveBack(sqlite3_context* context, const Number& number, Form form)
{
  const auto whole = number.isInteger || form == Form::AllDigits ? number.value.toInteger() : std::nullopt;
  const auto nearest = number.value.toDouble();
  if (whole) {
    sqlite3_result_int64(context, *whole);
  } else if (!nearest) {
    fail(context, Outcome::TooLarge);
  } else if (form == Form::AllDigits) {
    const std::string text = number.value.toText();
    sqlite3_result_text(context, text.data(), int(text.size()), SQLITE_TRANSIENT);
  } else {
    sqlite3_result_double(context, *nearest);
  }
}

template <Form form> void value(sqlite3_context* context, int count, sqlite3_value** operands)
{
  Number number;
  const Outcome outcome = compute({operands, std::size_t(count)}, number);
  if (outcome == Outcome::Number)
    giveBack(context, number, form);
  else
    fail(context, outcome);
}

void add(sqlite3_context* context, Outcome outcome, const Number& number)
{
  if (outcome != Outcome::Number)
    return fail(context, outcome);
  auto* const accumulator = static_cast<Accumulator*>(sqlite3_aggregate_context(context, sizeof(Accumulator)));
  if (!accumulator)
    return sqlite3_result_error_nomem(context);
  if (!accumulator->hasRows)
    new (accumulator) Accumulator{.sum = {}, .hasRows = true, .hasReals = false};
  accumulator->sum = accumulator->sum + number.value;
  accumulator->hasReals = accumulator->hasReals || !number.isInteger;
}

void addOne(sqlite3_context* context, int, sqlite3_value** operands)
{
  Number number;
  const Outcome outcome = read(operands[0], number);
  add(context, outcome, number);
}

void addComputed(sqlite3_context* context, int count, sqlite3_value** operands)
{
  Number number;
  const Outcome outcome = compute({operands, std::size_t(count)}, number);
  add(context, outcome, number);
}

template <Form form> void total(sqlite3_context* context)
{
  const auto* const accumulator = static_cast<Accumulator*>(sqlite3_aggregate_context(context, 0));
  if (accumulator && accumulator->hasRows)
    giveBack(context, {accumulator->sum, !accumulator->hasReals}, form);
}

} // namespace

int registerAll(sqlite3* database)
{
  constexpr int Flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  const auto function = [database](const char* name, int operands, auto call, auto step, auto last) {
    return sqlite3_create_function_v2(database, name, operands, Flags, nullptr, call, step, last, nullptr);
  };
  for (const int code :
       {function(Value, -1, value<Form::Nearest>, nullptr, nullptr), function(Part, -1, value<Form::AllDigits>, nullptr, nullptr),
        function(Sum, -1, nullptr, addComputed, total<Form::Nearest>), function(PartSum, -1, nullptr, addComputed, total<Form::AllDigits>),
        function("sum", 1, nullptr, addOne, total<Form::Nearest>)})
    if (code != SQLITE_OK)
      return code;
  return SQLITE_OK;
}

} // namespace SqliteArithmetic
