#pragma once

#include <QString>

#include <optional>

// The number that a text typed into a cell means: an amount, with commas at its thousands or without. None for a text
// whose digits a number would not keep, such as "0012" or an account number of 20.
std::optional<double> enteredNumber(const QString& text);
