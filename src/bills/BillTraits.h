#pragma once

// What differs between the bill screens, one row a bill. A routine that all bills share reads its
// texts and tables here; what is more than a text is an overridden step of the bill's own form.
struct BillTraits {
  const char* form;
  const char16_t* billName; // designed caption of LabBillName
  const char16_t* formCaption;
  const char* headerTable;
  const char* lineTable;    // empty for a bill without lines
  const char* linkColumn;   // column of the line table that holds the bill's code
  const char* prefix;       // of the bill's code
  const char16_t* billType; // what column BillType says

  const char16_t* partnerFrame; // caption of FrameProvide
  const char16_t* attention;    // caption of LabAttention
  const char16_t* accountCodeHeading;
  const char16_t* accountNameHeading;

  // Refusals and questions at save.
  const char16_t* noLines;
  const char16_t* wrongLineAccount; // led by this, then the account's name
  const char16_t* duplicateCode;

  // Void and delete.
  const char16_t* missingAtVoid;
  bool asksRightAtVoid;
  bool dropsWriteOffs; // edits and deletes of the bill drop its write-off links
};

extern const BillTraits PaymentTraits;
