#pragma once

#include "database/Statement.h"

#include <span>

// What differs between the bill screens, one row a bill. A routine that all bills share reads its
// texts and tables here; what is more than a text is an overridden step of the bill's own form.

// Of a bill with lines.
struct LineTraits {
  const char* table;
  const char* linkColumn; // holds the bill's code
  const char* accountCodeColumn;
  const char* accountNameColumn;
  const char16_t* accountCodeHeading;
  const char16_t* accountNameHeading;
  const char16_t* attention; // caption of LabAttention

  // What the tree picker offers for a line, its title and where its choice goes.
  SqlLiteral accountFilter;
  const char16_t* accountPickerTitle;
  const char16_t* accountPickerTarget;

  // Refusals of a save.
  const char16_t* noLines;
  const char16_t* wrongAccount; // led by this, then the account's name
};

// Of a bill with a trading partner.
struct PartnerTraits {
  const char16_t* unknown; // refusal of a name that is no partner's
  SqlLiteral pickerSql;
  const char16_t* pickerTitle;
  const char* infoTool; // the button that opens the partner's own record
  const char16_t* infoToolTip;
};

// A line of a printout: its label, and the control whose text stands behind it.
struct PrintLine {
  const char16_t* label;
  const char* control;
};

// A word of a workbook template, and what stands there on a printout of the bill.
struct TemplateWord {
  enum class Source {
    Text,      // the text of the control
    Amount,    // the same, an amount
    IfVisible, // the same, blank while it is hidden
    Partner,   // this column of the partner's row
    Company,   // this column of the firm's own row
    BillDate,
    Today,
    Capitals,    // the amount of the control in capital numerals
    Balance,     // what stands behind the heading of the balance
    PaidTogether // cash and bank amounts together
  };
  const char16_t* word;
  Source source;
  const char* name = nullptr; // of the control or the column

  // A number on the page, where everything else is a text.
  constexpr bool isAmount() const { return source == Source::Amount || source == Source::Balance || source == Source::PaidTogether; }
};

struct BillTraits {
  const char* form;
  const char16_t* billName; // designed caption of LabBillName
  const char16_t* formCaption;
  const char* headerTable;
  const char* prefix; // of the bill's code
  const char16_t* rightFunction;
  const char16_t* billType;  // what column BillType says
  const char16_t* headFrame; // caption of FrameProvide
  const char16_t* saleManPickerTitle = u"选择业务员";
  // New partners and staff can be added from the pickers.
  bool pickersOfferAdd = false;
  const LineTraits* lines = nullptr;
  const PartnerTraits* partner = nullptr;
  std::span<const PrintLine> printHead;
  std::span<const PrintLine> printFoot = {};
  std::span<const TemplateWord> templateWords;

  const char16_t* duplicateCode;
  const char16_t* missingAtVoid;
  bool asksRightAtVoid = true;
  // Edits and deletes of the bill drop its write-off links.
  bool isWrittenOff = false;
  // The screen is ready for the next bill before the operator hears that this one is saved.
  bool tellsSavedLast = false;
  // Fields that a delete leaves blank; a bill without any starts a new one instead.
  std::span<const char* const> blankAfterDelete = {};
};

extern const BillTraits PaymentTraits;
extern const BillTraits ReceiptTraits;
extern const BillTraits BankTraits;
extern const BillTraits ExpenseTraits;
extern const BillTraits OtherIncomeTraits;
extern const BillTraits FeeOffsetTraits;
