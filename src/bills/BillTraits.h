#pragma once

#include "bills/PrintedFields.h"
#include "bills/SaveChecks.h"
#include "database/Statement.h"
#include "ledger/BillKinds.h"

#include <span>

// What a bill screen is made of: which areas it has, the checks of its save in their order, and its texts. Each
// screen defines its own in its source file.

// Of a bill with lines.
struct LineTraits {
  const char16_t* accountCodeHeading;
  const char16_t* accountNameHeading;
  const char16_t* attention; // caption of LabAttention

  // The rows that the account picker lists for a line, its title and the target of its choice.
  SqlLiteral accountFilter;
  const char16_t* accountPickerTitle = u"";
  const char16_t* accountPickerTarget = u"";

  // Messages that refuse a save.
  const char16_t* noLines;
  const char16_t* wrongAccount; // followed by the account's name
  // The currency shown is that of the last line, not of the header.
  bool decideCurrency = false;
};

// Of a bill with a trading partner.
struct PartnerTraits {
  const char16_t* unknown; // message for an unknown partner
  const char16_t* notChosen = u"";
  SqlLiteral pickerSql;
  const char16_t* pickerTitle;
  const char* infoTool; // the button that opens the partner's own record
  const char16_t* infoToolTip;
};

struct BillTraits {
  const BillKind& kind;
  const char16_t* formCaption;
  const char16_t* headFrame; // caption of FrameProvide
  const char16_t* saleManPickerTitle = u"选择业务员";
  // New partners and staff can be added from the pickers.
  bool pickersOfferAdd = false;
  std::span<const SaveCheck> checks;

  // The areas.
  const PartnerTraits* partner = nullptr;
  const LineTraits* lines = nullptr;
  bool hasTransfer = false; // the outgoing and the incoming account
  bool hasPaid = false;     // the cash and the bank part of the total
  int balanceSign = 0;      // -1 shows the balance as what we owe, 1 as what is owed to us; 0 has none

  std::span<const PrintLine> printHead;
  std::span<const PrintLine> printFoot = {};

  const char16_t* duplicateCode;
  const char16_t* missingAtVoid;
  bool asksRightAtVoid = true;
  // The screen is reset for the next bill before the "saved" box appears.
  bool tellsSavedLast = false;
  bool newClosesEditor = false;
  // The stored bill determines the kind, and with it the templates.
  bool isTurnedByBill = false;
  // Fields that a delete clears; without any, a delete starts a new bill.
  std::span<const char* const> emptyAfterDelete = {};

  constexpr bool has(BillArea area) const
  {
    switch (area) {
    case BillArea::Head: return true;
    case BillArea::Partner: return partner;
    case BillArea::Lines: return lines;
    case BillArea::Transfer: return hasTransfer;
    case BillArea::Paid: return hasPaid;
    case BillArea::Balance: return balanceSign != 0;
    case BillArea::WriteOff: return kind.writeOff;
    }
    return false;
  }
};
