#pragma once

#include "screen/Desk.h"

#include <optional>

class BillScreen;

// A check of a save: the box that refuses it, or nothing. It may complete what was typed: an account's name from its
// code, a partner's code from the name. Each bill lists its checks in its own order, and the first refusal ends the
// save.
using SaveCheck = std::optional<Desk::Box> (*)(BillScreen& screen);

// The checks that several bills share.
namespace SaveChecks {

std::optional<Desk::Box> operatorMayEdit(BillScreen& screen);
std::optional<Desk::Box> dateIsOpen(BillScreen& screen);
// Throws RunTimeError if an amount is too large to be stored.
std::optional<Desk::Box> amountsFit(BillScreen& screen);
std::optional<Desk::Box> totalIsNotZero(BillScreen& screen);
std::optional<Desk::Box> currencyIsGiven(BillScreen& screen);

std::optional<Desk::Box> partnerIsNamed(BillScreen& screen);
std::optional<Desk::Box> partnerIsKnown(BillScreen& screen);

std::optional<Desk::Box> hasLines(BillScreen& screen);
std::optional<Desk::Box> lineAccountsAreLeaves(BillScreen& screen);
std::optional<Desk::Box> noLineIsNegative(BillScreen& screen);

// Assigns a new bill its code.
std::optional<Desk::Box> numberNewBill(BillScreen& screen);
std::optional<Desk::Box> codeHasPrefix(BillScreen& screen);
std::optional<Desk::Box> codeIsGiven(BillScreen& screen);

} // namespace SaveChecks
