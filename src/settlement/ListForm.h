#pragma once

#include "database/Statement.h"
#include "layouts/GridLayout.h"
#include "screen/EntryBox.h"
#include "screen/Form.h"
#include "screen/Grid.h"
#include "session/Session.h"
#include "settlement/OwnConditions.h"
#include "startup/Screen.h"

#include <span>

struct PickedRecord;

using ListColumn = GridLayout::Column;

// What a list screen has of its own, as data.
struct ListTraits {
  struct Tool {
    const char* name;
    QStringView caption;
  };
  // Which conditions come before those that all list screens have.
  enum class Lists { WriteOffs, GoodsLines };

  const char* form;
  QStringView caption;      // of the form, and of LabTabName until it is changed
  QStringView queryCaption; // of CmdQuery
  QStringView hint;         // Label16
  QStringView dateFormat;   // as the message about a wrong date writes it
  std::span<const Tool> tools;
  Lists lists;
};

// The base class of the list screens: conditions above, a list below, a toolbar and two menus. Nothing is listed
// until the user has set conditions and queries. A list is laid out as stored under the caption of LabTabName, or
// else by the screen's own columns. Its members are in tab order.
//
// Always holds: the grid has at least the heading row and one row; after a fill its last row holds the
// totals.
class ListForm : public Form, public Screen {
  Q_OBJECT

public:
  Form& form() final { return *this; }
  // Lists what the conditions find. After a refused condition and its message a second message follows.
  void CmdQuery_Click();

  Session& session;

  Label LabTabName; // set by the entry, another screen or a bill before the query
  Container FrameCondition;
  std::unique_ptr<WriteOffConditions> writeOffs;
  std::unique_ptr<GoodsLineConditions> goodsLines;
  EntryBox TxtDateeFrom;
  EntryBox TxtDateeTo;
  EntryBox TxtBillCode;
  EntryBox TxtUnitCode;
  PickButton ImgUnitCode;
  EntryBox TxtUnitName;
  PickButton ImgUnitName;
  Button CmdQuery;
  Label Label16;
  Grid MSH;
  Container Toolbar1;
  Menu MFile;
  Menu MPrint;

protected:
  ListForm(Session& ofSession, const ListTraits& traits);

  // The statement of the list; empty after a refusal, whose message has been shown.
  virtual Statement BuildQuerySql() = 0;
  // Runs the query and shows its rows, or a message that there are none.
  virtual void FillMSH(const Statement& list) = 0;
  // The columns of the list; empty if the screen is not to be laid out at all.
  virtual std::span<const ListColumn> columns() const = 0;
  // The lines above the list on a printout.
  virtual QStringList printHead() const { return {}; }
  // False if the buttons beside the partner's boxes open nothing.
  virtual bool offersPartners() const { return true; }
  // A partner was picked with the button beside one of the partner's boxes.
  enum class PartnerBox { Code, Name };
  virtual void takePartner(const PickedRecord& picked, PartnerBox box) = 0;

  void onUnload() override;

  void onTool(const char* name, std::function<void()> press) { find<ToolButton>(name)->onClick = std::move(press); }

  // Lays the grid out: columns, fixed places, widths, headings. The data are kept.
  void SetGridHead();
  // Removes all rows but the headings and one empty row.
  void emptyGrid();
  // False, after a message, if a date box holds something that is not a date.
  bool datesAreDates();
  // The date of a box, in the SQL dialect.
  Statement dateOf(const TextBox& box) const;
  // The text of the current row in the column of this heading; empty if no column has it.
  QString textUnder(const QString& heading) const;
  // True if the current row shows a bill, or a partner: it is not a heading and column 1 is not empty.
  bool isOnRow() const;
  void tellNoData();

private:
  void buildFileMenu();
  void addItem(Menu& menu, const char* name, const QString& caption, std::function<void()> press);
  void addPrintItem(Menu& menu, const char* name, const QString& operation);
  void pickPartner(PartnerBox box);
  bool isEmptyOrDate(const TextBox& box, const QString& label);
  void FDeleteMSHFormat_Click();
  void PrintGrid(const QString& operation);

  const ListTraits& m_traits;
};
