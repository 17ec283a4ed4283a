#include "bills/LineGrid.h"

#include "ledger/Money.h"
#include "platform/Trim.h"
#include "screen/Controls.h"
#include "screen/Form.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

using namespace ModFuntion;

namespace {

constexpr int DefaultWidths[LineGrid::ColumnCount] = {300, 2000, 3000, 2000, 3000};

} // namespace

LineGrid::LineGrid(Session& session, LineGridHost& host, Grid& grid, CellEditor& editor, Label& total)
    : m_session(session), m_host(host), m_grid(grid), m_editor(editor), m_total(total)
{
  m_grid.onClick = [this] { OpenCellEditor(); };
  m_grid.onKey = [this](const Key& key) { return gridTab(key); };
  m_grid.onKeyDown = [this](const Key& key) { gridKeyDown(key); };
  m_grid.onMouseDown = [this] { m_editor.hide(); };
  m_editor.onKey = [this](const Key& key) { return editorKey(key); };
  m_editor.onChange = [this] { editorChanged(); };
  m_editor.onDoubleClick = [this] { pickAccount(); };
  m_grid.onDoubleClick = [this] { pickAccount(); };
}

void LineGrid::InitLineGrid()
{
  m_grid.clear();
  m_grid.setRows(2);
  m_grid.setCols(ColumnCount);
  m_grid.setHoldsCodes(AccountCode);
  m_grid.setCurrent(1, AccountCode);
  applyStoredLayout();
}

void LineGrid::applyStoredLayout()
{
  Recordset rs = OpenRecordset(m_session, {u"select * from TabPrintMSHSet where TabName='{}' order by ColOrder ", m_host.layoutKey()});
  if (rs.eof()) {
    applyDefaultLayout();
    return;
  }
  for (int col = 0; col < ColumnCount; ++col) {
    m_grid.setColWidth(col, int(rs.field("ColWidth").toInteger()));
    m_grid.setText(0, col, rs.text("ColElseName"));
    m_grid.setColAlignment(col, int(rs.field("ContentAlign").toInteger()));
    rs.moveNext();
  }
}

void LineGrid::applyDefaultLayout()
{
  const QStringList headings = QStringList(QString()) + m_host.accountHeadings() + QStringList{"金额", "备注"};
  for (int col = 0; col < ColumnCount; ++col) {
    m_grid.setColWidth(col, DefaultWidths[col]);
    m_grid.setText(0, col, headings[col]);
  }
}

bool LineGrid::isOnLine() const
{
  return m_grid.row() >= 1 && m_grid.col() >= 1;
}

void LineGrid::OpenCellEditor()
{
  if (!m_host.linesEditable() || !isOnLine())
    return;
  const QString text = m_grid.text(m_grid.row(), m_grid.col());
  m_editor.open(m_grid.col() == Amount ? StripMoneyText(text) : text);
}

// Every key opens the editor on the cell where the key has led; a character is typed into it.
void LineGrid::gridKeyDown(const Key& key)
{
  OpenCellEditor();
  if (key.code == Key::Character && m_editor.isVisible())
    m_editor.press(key);
}

// Tab goes on from the cell where Enter has left the operator. At the ends of a row it leaves the lines,
// so that there is a way out of them.
bool LineGrid::gridTab(const Key& key)
{
  const int col = m_grid.col();
  if (key.code != Key::Tab || !m_host.linesEditable() || !isOnLine() || col >= m_grid.cols() - 1 || (key.shift && col == AccountCode))
    return false;
  OpenCellEditor();
  editorTab(key.shift);
  return true;
}

bool LineGrid::editorKey(const Key& key)
{
  if (key.isArrow()) {
    m_editor.passToGrid(key);
    return true;
  }
  switch (key.code) {
  case Key::Tab: editorTab(key.shift); return true;
  case Key::Enter: editorEnter(); return true;
  case Key::Escape: m_editor.returnToGrid(); return true;
  default: return false;
  }
}

void LineGrid::editorTab(bool backwards)
{
  const int step = backwards ? -1 : 1;
  if (m_grid.col() >= m_grid.cols() - 1)
    return;
  int col = m_grid.col() + step;
  while (col >= 1 && col < m_grid.cols() && m_grid.colWidth(col) == 0)
    col += step;
  if (col >= 1 && col < m_grid.cols())
    m_grid.setCurrent(m_grid.row(), col);
  ReenterCell();
}

void LineGrid::ReenterCell()
{
  if (!m_grid.isShown())
    return;
  m_editor.returnToGrid();
  OpenCellEditor();
}

void LineGrid::editorEnter()
{
  const int row = m_grid.row();
  const int col = m_grid.col();
  const QString typed = Trim(m_editor.text());
  Statement account;
  if (col == AccountCode)
    account = {u"select * from TabAccountantType where Code='{}'", typed};
  else if (col == AccountName)
    account = {u"select * from TabAccountantType where Name='{}'", typed};
  m_grid.setText(row, col, col == Amount ? FormatDotText(m_editor.text(), m_session.DotSet.DotMoney) : typed);
  m_editor.hide();
  Txt2ToMSH(account);
  m_editor.returnToGrid();
}

// On a bill that may not be changed the click has opened no editor, and the double click picks nothing.
void LineGrid::pickAccount()
{
  if (m_editor.isVisible() && (m_grid.col() == AccountCode || m_grid.col() == AccountName))
    m_host.pickLineAccount();
}

void LineGrid::editorChanged()
{
  if (!m_editor.isVisible())
    return;
  m_grid.setText(m_grid.row(), m_grid.col(), Trim(m_editor.text()));
  if (m_grid.col() == Amount || m_grid.col() == Remark)
    Txt2ToMSH({});
}

void LineGrid::Txt2ToMSH(const Statement& account)
{
  const int row = m_grid.row();
  const int col = m_grid.col();
  if (col == AccountCode || col == AccountName) {
    const Recordset rs = OpenRecordset(m_session, account);
    if (rs.eof()) {
      m_host.pickLineAccount();
    } else {
      setAccount(row, rs.text("Code"), rs.text("Name"));
      reopenIfOpen();
    }
  } else if (col == Amount) {
    m_grid.setText(row, Amount, FormatDotText(m_editor.text(), m_session.DotSet.DotMoney));
  } else if (col == Remark) {
    m_grid.setText(row, Remark, Trim(m_editor.text()));
  }
  RecalcTotal();
}

void LineGrid::RecalcTotal()
{
  // The blank last row counts too: what is typed there shows in the total though it is no line yet.
  Currency total;
  for (int row = 1; row < m_grid.rows(); ++row)
    total += amount(row);
  m_grid.setColAlignment(AccountCode, Grid::AlignLeft);
  if (!text(m_grid.rows() - 1, AccountCode).isEmpty())
    m_grid.addRow();
  m_total.setCaption(FormatDotText(total, m_session.DotSet.DotMoney));
}

void LineGrid::InsertLineRow()
{
  const int row = m_grid.row();
  if (row == 0 || row == m_grid.rows() - 1) {
    m_session.desk.inform(QStringLiteral("请选择正确的位置！"));
    return;
  }
  m_grid.addRow();
  shiftRowsDown(row);
  reopenIfOpen();
}

void LineGrid::DeleteLineRow()
{
  const int row = m_grid.row();
  if (row == 0 || row == m_grid.rows() - 1) {
    m_session.desk.inform(QStringLiteral("请选择正确的位置！"));
    return;
  }
  const QString question = "确定删除第" + QString::number(row) + "行吗？（删除掉将不可恢复）";
  if (!m_session.desk.confirm(question, Desk::Icon::Question))
    return;
  shiftRowsUp(row);
  m_grid.setRows(m_grid.rows() - 1);
  RecalcTotal();
  reopenIfOpen();
}

void LineGrid::shiftRowsDown(int row)
{
  for (int to = m_grid.rows() - 1; to > row; --to)
    for (int col = 0; col < m_grid.cols(); ++col)
      m_grid.setText(to, col, col == Marker ? QString() : m_grid.text(to - 1, col));
  for (int col = 0; col < m_grid.cols(); ++col)
    m_grid.setText(row, col, {});
}

void LineGrid::shiftRowsUp(int row)
{
  for (int to = row; to < m_grid.rows() - 1; ++to)
    for (int col = 0; col < m_grid.cols(); ++col)
      m_grid.setText(to, col, col == Marker ? QString() : m_grid.text(to + 1, col));
}

// An editor that stands open shows the cell that has come under it.
void LineGrid::reopenIfOpen()
{
  if (m_editor.isVisible())
    OpenCellEditor();
}

Currency LineGrid::showLines(const QList<Line>& lines)
{
  QList<QStringList> rows;
  rows.reserve(lines.size() + 1);
  Currency total;
  for (const Line& line : lines) {
    rows.append({QString(), line.accountCode, line.accountName, FormatDotText(line.amount, m_session.DotSet.DotMoney), line.remark});
    total += Currency::ofText(line.amount);
  }
  rows.append(QStringList(ColumnCount));
  m_grid.setBlock(1, rows);
  return total;
}

QString LineGrid::text(int row, Column column) const
{
  return Trim(m_grid.text(row, column));
}

Currency LineGrid::amount(int row) const
{
  return MoneyOf(m_grid.text(row, Amount));
}

void LineGrid::setAccount(int row, const QString& code, const QString& name)
{
  m_grid.setText(row, AccountCode, code);
  m_grid.setText(row, AccountName, name);
}
