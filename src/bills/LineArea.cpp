#include "bills/LineArea.h"

#include "bills/BillScreen.h"
#include "database/Recordset.h"
#include "layouts/GridLayout.h"
#include "ledger/Money.h"
#include "pickers/TreePicker.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"

using namespace Qt::StringLiterals;
using namespace ModFuntion;

namespace {

QString lineKeys(const BillScreen& screen)
{
  const QString keys = u"Ctrl+Enter 下一行　Shift+Enter 下一行的金额　Ctrl+' 抄上一行"_s;
  return screen.balance ? keys + u"　Ctrl+= 填入尚欠的余额"_s : keys;
}

int firstShown(const Grid& grid)
{
  int col = 1;
  while (col < grid.cols() - 1 && grid.colWidth(col) == 0)
    ++col;
  return col;
}

} // namespace

LineArea::LineArea(BillScreen& screen, const LineTraits& traits)
    : LabAttention(&screen.Pic, "LabAttention"), LabLineKeys(&screen.Pic, "LabLineKeys"), Text2(&screen.Pic, screen.MSH),
      FrameTotal(&screen.Pic, "FrameTotal"), LabTotalMoney(&FrameTotal, "LabTotalMoney"), m_screen(screen), m_grid(screen.MSH)
{
  LabAttention.setCaption(QString::fromUtf16(traits.attention));
  FrameTotal.setCaption(u"合计信息"_s);
  m_grid.setTakesText(true);
  m_grid.onClick = [this] { OpenCellEditor(); };
  m_grid.onKey = [this](const Key& key) { return gridTab(key); };
  m_grid.onKeyDown = [this](const Key& key) { gridKeyDown(key); };
  m_grid.onMouseDown = [this] { Text2.hide(); };
  m_grid.onDoubleClick = [this] { pickAccountOfCell(); };
  Text2.onKey = [this](const Key& key) { return editorKey(key); };
  Text2.onChange = [this] { editorChanged(); };
  Text2.onDoubleClick = [this] { pickAccountOfCell(); };
  Text2.onCtrlKey = [this](const Key& key) { return quickKey(key); };
  LabLineKeys.setEnabled(false);
  LabLineKeys.setCaption(QString(u' '));
  QObject::connect(&Text2, &Control::changed, &Text2,
                   [this] { LabLineKeys.setCaption(Text2.isVisible() ? lineKeys(m_screen) : QString(u' ')); });
}

void LineArea::InitLineGrid()
{
  const LineTraits& lines = *m_screen.traits().lines;
  const int col = Text2.isVisible() ? m_grid.col() : int(AccountCode);
  const GridLayout::Column columns[ColumnCount] = {
      {u"", 300}, {lines.accountCodeHeading, 2000}, {lines.accountNameHeading, 3000}, {u"金额", 2000}, {u"备注", 3000}};
  m_grid.clear();
  m_grid.setRows(2);
  m_grid.setCols(ColumnCount);
  m_grid.setHoldsCodes(AccountCode);
  for (const Column column : {AccountCode, Amount})
    m_grid.setLatin(column);
  m_grid.setCurrent(1, col);
  GridLayout::apply(m_screen.session, m_grid, m_screen.billName(), columns);
  // What was typed belongs to the lines that are gone.
  if (Text2.isVisible())
    Text2.follow({});
}

void LineArea::show(Recordset& lines)
{
  const BillLines& columns = *m_screen.traits().kind.lines;
  QList<QStringList> rows;
  Currency total;
  for (; !lines.eof(); lines.moveNext()) {
    const QString amount = lines.text("Moneyy");
    rows.append({QString(), lines.text(columns.accountCode), lines.text(columns.accountName),
                 FormatDotText(amount, m_screen.session.DotSet.DotMoney), lines.text("Remark")});
    total += Currency::ofText(amount);
    if (m_screen.traits().lines->decideCurrency)
      m_screen.currency.show(lines);
  }
  rows.append(QStringList(ColumnCount));
  m_grid.setBlock(1, rows);
  m_grid.setCurrent(1, AccountCode);
  LabTotalMoney.setCaption(FormatDotText(total, m_screen.session.DotSet.DotMoney));
}

void LineArea::addTo(BillRecord& record) const
{
  record.sum = total();
  for (int row = 1; row <= lineCount(); ++row)
    record.lines.append({{text(row, AccountCode), text(row, AccountName)}, amount(row), text(row, Remark)});
}

QList<QStringList> LineArea::rows() const
{
  QList<QStringList> rows;
  for (int row = 1; row < m_grid.rows(); ++row) {
    rows.append(QStringList());
    for (int col = 0; col < ColumnCount; ++col)
      rows.last().append(m_grid.text(row, col));
  }
  return rows;
}

void LineArea::takeBack(const QList<QStringList>& rows)
{
  m_grid.setBlock(1, rows);
  RecalcTotal();
}

Currency LineArea::total() const
{
  return MoneyOf(LabTotalMoney.caption());
}

bool LineArea::isEditable() const
{
  return m_screen.FrameProvide.isUsable();
}

bool LineArea::isOnLine() const
{
  return m_grid.row() >= 1 && m_grid.col() >= 1;
}

void LineArea::OpenCellEditor()
{
  if (!isEditable() || !isOnLine())
    return;
  const QString text = m_grid.text(m_grid.row(), m_grid.col());
  Text2.open(m_grid.col() == Amount ? StripMoneyText(text) : text);
}

// Every key opens the editor on the cell that it has moved to; a character is typed into it.
void LineArea::gridKeyDown(const Key& key)
{
  OpenCellEditor();
  if (key.code == Key::Character && Text2.isVisible())
    Text2.press(key);
}

// Tab continues from the cell that Enter has moved to. At the ends of a row it leaves the grid, so that the keyboard
// can leave it.
bool LineArea::gridTab(const Key& key)
{
  const int col = m_grid.col();
  if (key.code != Key::Tab || !isEditable() || !isOnLine() || col >= m_grid.cols() - 1 || (key.shift && col == AccountCode))
    return false;
  OpenCellEditor();
  editorTab(key.shift);
  return true;
}

bool LineArea::editorKey(const Key& key)
{
  if (key.isArrow()) {
    Text2.passToGrid(key);
    return true;
  }
  switch (key.code) {
  case Key::Tab: editorTab(key.shift); return true;
  case Key::Enter:
    if (key.shift)
      enterAndGoDown(Amount);
    else
      editorEnter();
    return true;
  case Key::Escape: Text2.returnToGrid(); return true;
  default: return false;
  }
}

void LineArea::editorTab(bool backwards)
{
  if (m_grid.moveToShownColumn(backwards ? -1 : 1))
    ReenterCell();
  else
    Text2.leave(backwards);
}

void LineArea::ReenterCell()
{
  if (!m_grid.isShown())
    return;
  Text2.returnToGrid();
  OpenCellEditor();
}

void LineArea::editorEnter()
{
  const int row = m_grid.row();
  const int col = m_grid.col();
  const QString typed = Trim(Text2.text());
  Statement account;
  if (col == AccountCode)
    account = {u"select * from TabAccountantType where Code='{}'", typed};
  else if (col == AccountName)
    account = {u"select * from TabAccountantType where Name='{}'", typed};
  m_grid.setText(row, col, col == Amount ? FormatDotText(Text2.text(), m_screen.session.DotSet.DotMoney) : typed);
  Text2.hide();
  Txt2ToMSH(account);
  Text2.returnToGrid();
}

bool LineArea::quickKey(const Key& key)
{
  if (key.code == Key::Enter)
    enterAndGoDown(AccountCode);
  else if (key.text == u"'")
    copyCellAbove();
  else if (key.text == u"=" && m_screen.balance)
    takeRestOfBalance();
  else
    return false;
  return true;
}

// What Enter does, which may have shown the picker, and then the next row, if there is one.
void LineArea::enterAndGoDown(Column column)
{
  const int row = m_grid.row();
  editorEnter();
  if (row + 1 >= m_grid.rows())
    return;
  m_grid.setCurrent(row + 1, m_grid.colWidth(column) > 0 ? column : firstShown(m_grid));
  OpenCellEditor();
}

// As if it were typed: an account is looked up by Enter.
void LineArea::copyCellAbove()
{
  const QString above = m_grid.row() > 1 ? m_grid.text(m_grid.row() - 1, m_grid.col()) : QString();
  if (above.isEmpty())
    return m_screen.desk().beep();
  Text2.typed(m_grid.col() == Amount ? StripMoneyText(above) : above);
  Text2.moveCaretToEnd();
}

// The amount that is still open to the partner, less the other lines.
void LineArea::takeRestOfBalance()
{
  const auto balance = m_screen.balance->balance();
  const int row = m_grid.row();
  const Currency rest = balance.value_or(Currency()) - (total() - amount(row));
  if (!balance || rest <= Currency())
    return m_screen.desk().beep();
  const QString text = FormatDotText(rest, m_screen.session.DotSet.DotMoney);
  if (m_grid.col() == Amount) {
    Text2.typed(StripMoneyText(text));
    Text2.moveCaretToEnd();
    return;
  }
  m_grid.setText(row, Amount, text);
  RecalcTotal();
}

// On a bill that may not be changed the click opens no editor and the double click picks nothing.
void LineArea::pickAccountOfCell()
{
  if (Text2.isVisible() && (m_grid.col() == AccountCode || m_grid.col() == AccountName))
    pickAccount();
}

void LineArea::pickAccount()
{
  const LineTraits& lines = *m_screen.traits().lines;
  const TreePickerCall call{.TreeWhere = lines.accountFilter,
                            .TreeKind = QString::fromUtf16(lines.accountPickerTitle),
                            .TreeTarget = QString::fromUtf16(lines.accountPickerTarget)};
  if (const auto picked = TreePicker::pick(m_screen.session, call))
    m_screen.takeAccount(*picked);
}

void LineArea::takeAccount(const PickedNode& account)
{
  Txt2ToMSH({u"select * from TabAccountantType where Code='{}'", account.code});
}

void LineArea::editorChanged()
{
  if (!Text2.isVisible())
    return;
  m_grid.setText(m_grid.row(), m_grid.col(), Trim(Text2.text()));
  if (m_grid.col() == Amount || m_grid.col() == Remark)
    Txt2ToMSH({});
}

void LineArea::Txt2ToMSH(const Statement& account)
{
  const int row = m_grid.row();
  const int col = m_grid.col();
  if (col == AccountCode || col == AccountName) {
    const Recordset rs = OpenRecordset(m_screen.session, account);
    if (rs.eof()) {
      pickAccount();
    } else {
      setAccount(row, rs.text("Code"), rs.text("Name"));
      reopenIfOpen();
    }
  } else if (col == Amount) {
    m_grid.setText(row, Amount, FormatDotText(Text2.text(), m_screen.session.DotSet.DotMoney));
  } else if (col == Remark) {
    m_grid.setText(row, Remark, Trim(Text2.text()));
  }
  RecalcTotal();
}

void LineArea::RecalcTotal()
{
  // Includes the empty last row: what is typed there shows in the total though it is not a line yet.
  Currency total;
  for (int row = 1; row < m_grid.rows(); ++row)
    total += amount(row);
  m_grid.setColAlignment(AccountCode, Grid::AlignLeft);
  if (!text(m_grid.rows() - 1, AccountCode).isEmpty())
    m_grid.addRow();
  LabTotalMoney.setCaption(FormatDotText(total, m_screen.session.DotSet.DotMoney));
}

void LineArea::InsertLineRow()
{
  if (isOffLines())
    return;
  const int row = m_grid.row();
  m_grid.addRow();
  for (int to = m_grid.rows() - 1; to > row; --to)
    copyRow(to, to - 1);
  for (int col = 0; col < m_grid.cols(); ++col)
    m_grid.setText(row, col, {});
  reopenIfOpen();
}

void LineArea::DeleteLineRow()
{
  if (isOffLines())
    return;
  const int row = m_grid.row();
  const QString question = u"确定删除第"_s + QString::number(row) + u"行吗？（删除掉将不可恢复）"_s;
  if (!m_screen.desk().confirmDestruction(question, Desk::Icon::Question))
    return;
  for (int to = row; to < m_grid.rows() - 1; ++to)
    copyRow(to, to + 1);
  m_grid.setRows(m_grid.rows() - 1);
  RecalcTotal();
  reopenIfOpen();
}

// True, after the message, if the current row is not a line.
bool LineArea::isOffLines()
{
  if (m_grid.row() != 0 && m_grid.row() != m_grid.rows() - 1)
    return false;
  m_screen.desk().inform(u"请选择正确的位置！"_s);
  return true;
}

void LineArea::copyRow(int to, int from)
{
  for (int col = 0; col < m_grid.cols(); ++col)
    m_grid.setText(to, col, col == Marker ? QString() : m_grid.text(from, col));
}

// Works on the live grid; a new layout would delete typed lines.
void LineArea::FMSHFormat_Click()
{
  Text2.hide();
  GridLayout::FMSHFormat_Click(m_screen.session, m_grid, m_screen.billName());
}

// An open editor moves to the current cell.
void LineArea::reopenIfOpen()
{
  if (Text2.isVisible())
    OpenCellEditor();
}

QString LineArea::text(int row, Column column) const
{
  return Trim(m_grid.text(row, column));
}

Currency LineArea::amount(int row) const
{
  return MoneyOf(m_grid.text(row, Amount));
}

void LineArea::setAccount(int row, const QString& code, const QString& name)
{
  m_grid.setText(row, AccountCode, code);
  m_grid.setText(row, AccountName, name);
}
