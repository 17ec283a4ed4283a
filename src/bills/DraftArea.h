#pragma once

#include "drafts/DraftFile.h"
#include "screen/Controls.h"

class BillScreen;

// What was typed and not saved, kept in a file: two seconds after the last change, when the screen closes, and when another
// bill takes its place. When the screen opens the next time, a strip above the title offers it.
//
// There are at most two drafts: that of the bill shown, and that of the bill before. The file holds the first, or the
// second if there is nothing unsaved on the screen.
class DraftArea {
public:
  explicit DraftArea(BillScreen& screen);

  // The bill on the screen is about to be replaced by another one. Its draft remains.
  void leave();
  // The bill on the screen is as it was read, or new, or saved. The first call offers the draft of the last time.
  void begin();
  // The bill on the screen, which has this code, was saved, voided or deleted: its draft goes. Called as soon as
  // that is stored, so that hardly any death leaves the draft of a bill that is saved already.
  void end(const QString& code);
  // Writes the draft if the user has changed the bill since `begin`. Never throws, and shows nothing.
  void keep();

  // Puts the texts of a draft into their fields and lines, which are empty.
  void fill(const Draft& draft) const;

private:
  void restore();
  void discard();
  void showStrip();
  void cleanUp();
  Draft draft() const;
  QStringList typed() const;
  QList<Control*> fields() const;
  QString about(const Draft& draft) const;

  BillScreen& m_screen;
  DraftFile m_file;
  bool m_hasBegun = false;
  QStringList m_unchanged;      // what `begin` found in the fields and lines; after a restore nothing, which differs from all
  QStringList m_kept;           // the same of the draft written last
  std::optional<Draft> m_shown; // of the bill shown
  std::optional<Draft> m_other; // of the bill before

  Container FrameDraft;
  Label LabDraft;
  Container ToolbarDraft;
  ToolButton ToolRestore;
  ToolButton ToolDiscard;
};
