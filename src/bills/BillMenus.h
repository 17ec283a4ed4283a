#pragma once

#include "printing/BillTemplate.h"
#include "screen/Controls.h"

class BillScreen;
struct BillTraits;

// The toolbar and the menus of a bill screen. Items of areas that a bill does not have are omitted.
class BillMenus {
public:
  BillMenus(BillScreen& screen, const BillTraits& traits);

  // Offers the workbook templates of the bill shown.
  void fillTemplateMenus();
  void enablePrinting(bool on);

  Container Toolbar1;
  Menu File;
  Menu MPrint;

private:
  void buildToolbar(const BillTraits& traits);
  void buildFileMenu(const BillTraits& traits);
  void buildPrintMenu();
  void addTemplateMenu(Menu& parent, const char* name, const char16_t* caption, const char* items, BillTemplate::Finish finish);

  BillScreen& m_screen;
  QList<MenuItemArray*> m_templates;
};
