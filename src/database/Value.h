#pragma once

#include <QString>

#include <cstdint>
#include <variant>

// One value of a row as the database returned it: null, a whole number, a number, or a text.
class Value {
public:
  using Content = std::variant<std::monostate, std::int64_t, double, QString>;

  Value() = default;
  explicit Value(Content content) : m_content(std::move(content)) {}

  template <typename Kind> bool is() const { return std::holds_alternative<Kind>(m_content); }
  bool isNull() const { return is<std::monostate>(); }
  // Empty for null; numbers in their shortest plain form.
  QString toText() const;
  // The numeric prefix of a text; 0 for null.
  double toNumber() const;
  // The same as a whole number, rounded half to even; what does not fit is 0.
  std::int64_t toInteger() const;

private:
  Content m_content;
};
