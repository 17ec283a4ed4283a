#pragma once

#include "billstore/BillRecord.h"
#include "screen/Desk.h"
#include "screen/EntryBox.h"

#include <optional>

struct Session;

// An account of a bill's head: its code, its name and the button that picks it.
struct AccountBoxes {
  EntryBox code;
  TextBox name;
  PickButton pick;

  // From now on Enter and Tab in the code box fill in the name if the chart has such a leaf.
  void completeNames(Session& session);
  void set(const QString& newCode, const QString& newName);
  BillAccount account() const;
  // Looks the account up by its code, or by its name if the code is empty, and completes both boxes. A box with `text`
  // if the chart has no such leaf.
  std::optional<Desk::Box> refusalUnlessLeaf(Session& session, const QString& text);
};
