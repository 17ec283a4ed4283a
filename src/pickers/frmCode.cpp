#include "pickers/frmCode.h"

#include "database/Recordset.h"
#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/OperateRight.h"
#include "session/Session.h"
#include "startup/Launcher.h"

using namespace Qt::StringLiterals;

namespace {

// What differs between the master tables. A table that is not listed has no categories, and nothing can be added to
// it.
struct MasterTable {
  const char16_t* name;
  SqlLiteral columns;
  const char16_t* categories;
  const char16_t* treeTitle;
  const char16_t* categoryColumn;
  const char16_t* right; // also the first directive to the program that adds
  const char16_t* operation;
};

constexpr MasterTable MasterTables[] = {
    {u"TabProvide", u"Code,Name", u"TabClientType", u"往来单位分类列表", u"TypeCode", u"往来单位信息录入", u"往来单位资料"},
    {u"TabClient", u"Code,Name", u"TabClientType", u"往来单位分类列表", u"TypeCode", u"往来单位信息录入", u"往来单位资料"},
    {u"TabStuff", u"Code,Name", u"TabDepartmentType", u"人员所在部门列表", u"DepartmentCode", u"员工信息录入", u"员工资料"},
};

QString text(const char16_t* literal)
{
  return QString::fromUtf16(literal);
}

const MasterTable* masterTable(const QString& name)
{
  for (const MasterTable& table : MasterTables)
    if (name == QStringView(table.name))
      return &table;
  return nullptr;
}

struct Column {
  const char16_t* heading;
  int width;
};

constexpr Column Columns[] = {{u"序号", 500}, {u"编号", 1500}, {u"名称", 3000}};

} // namespace

frmCode::frmCode(Session& ofSession, const CodePickerCall& call)
    : Form(ofSession.desk, "frmCode"), m_session(ofSession), CodeTable(call.CodeTable)
{
  setCaption(call.title);
  LabName.setCaption(call.title);
  TreeView_Type.setToolTip(u"双击类别则按类别过滤"_s);
  LabCode.setCaption(u"编号"_s);
  LabTxtName.setCaption(u"名称"_s);
  LabZJF.setCaption(u"助记符"_s);
  Label3.setCaption(u"注意：在编号或名称或助记符中输入相应值击回车键可快速查询（支持模糊查询）。"_s);
  CmdAdd.setCaption(u"增 加"_s);
  CmdAdd.setVisible(call.offersAdd);
  CmdRefresh.setCaption(u"刷  新"_s);
  CmdOK.setCaption(u"确  定"_s);
  CmdExit.setCaption(u"退  出"_s);
  wire();
  setFocus(MSH);
}

void frmCode::wire()
{
  wireGrid();
  TreeView_Type.onNodeClick = [this](const QString& key) { TreeView_Type_NodeClick(key); };
  TreeView_Type.onNodeDoubleClick = [this](const QString&) { TreeView_Type_DblClick(); };
  const auto searchOnEnter = [this](TextBox& box, const char* column, const QString& wildcard) {
    box.onKey = [this, &box, column, wildcard](const Key& key) {
      if (key.code != Key::Enter)
        return false;
      search({u"  where {}  like '{}{}%'", SqlName(column), wildcard, Trim(box.text())});
      return true;
    };
  };
  searchOnEnter(TxtCode, "Code", QString());
  searchOnEnter(TxtName, "Name", u"%"_s);
  searchOnEnter(TxtZJF, "ZJF", u"%"_s);
  CmdOK.onClick = [this] { CmdOK_Click(); };
  CmdAdd.onClick = [this] { CmdAdd_Click(); };
  CmdRefresh.onClick = [this] { RefreshList({}); };
  CmdExit.onClick = [this] { close(); };
  closeOnEscape();
}

void frmCode::wireGrid()
{
  MSH.setRowList(true);
  MSH.setTakesText(true);
  MSH.onClick = [this] { MSH_Click(); };
  MSH.onDoubleClick = [this] { CmdOK_Click(); };
  MSH.onKey = [this](const Key& key) { return keyOfGrid(key); };
}

bool frmCode::keyOfGrid(const Key& key)
{
  if (key.code == Key::Enter) {
    MSH_Click();
    CmdOK_Click();
    return true;
  }
  if (key.code != Key::Character || Trim(key.text).isEmpty())
    return false;
  setFocus(TxtName);
  TxtName.selectAll();
  TxtName.press(key);
  return true;
}

void frmCode::FillMSH(const Statement& left, const Statement& right)
{
  BaseSql = left;
  desk().setBusy(true);
  MSH.setRows(2);
  MSH.clear();
  layOutGrid();
  showRows(OpenRecordset(m_session, left + right));
  loadTree();
  desk().setBusy(false);
}

void frmCode::layOutGrid()
{
  MSH.setCols(int(std::size(Columns)));
  for (int col = 0; col < MSH.cols(); ++col) {
    MSH.setText(0, col, text(Columns[col].heading));
    MSH.setColWidth(col, Columns[col].width);
  }
}

void frmCode::showRows(const Recordset& rs)
{
  const RowSet& rows = rs.rows();
  const int fields = qMin(int(rows.names().size()), MSH.cols() - 1);
  QList<QStringList> texts;
  texts.reserve(rows.rows());
  for (std::int64_t row = 0; row < rows.rows(); ++row) {
    QStringList line;
    line.reserve(MSH.cols());
    line.append(QString::number(row + 1));
    for (int field = 0; field < fields; ++field)
      line.append(rows.value(row, field).toText());
    line.resize(MSH.cols());
    texts.append(std::move(line));
  }
  // An empty list has one empty row.
  if (texts.isEmpty())
    texts.append({u"1"_s});
  MSH.setBlock(1, std::move(texts));
}

// A category without its parent ends the load with a box; the dialog goes on with those loaded so far.
void frmCode::loadTree()
{
  const MasterTable* const table = masterTable(CodeTable);
  LabListAttention.setCaption(table ? text(table->treeTitle) : QString());
  const QString current = TreeView_Type.current();
  const auto error = TreeView_Type.fill([&] {
    if (table)
      loadCategories(text(table->categories));
  });
  if (error) {
    desk().setBusy(false);
    desk().stop(error->text());
  }
  TreeView_Type.setExpanded(TreeView_Type.firstKey(), true);
  TreeView_Type.setCurrent(current);
}

void frmCode::loadCategories(const QString& table)
{
  for (Recordset rs = OpenRecordset(m_session, {u"select * from {} order by Code ", SqlName(table)}); !rs.eof(); rs.moveNext()) {
    const QString key = Trim(rs.text("Code")) + u'_';
    const QString shown = Trim(rs.text("Code")) + u'{' + Trim(rs.text("Name")) + u'}';
    if (rs.text("ParentCode") == u"0")
      TreeView_Type.addTop(key, shown, Tree::Image::ParentPic);
    else
      TreeView_Type.addChild(rs.text("ParentCode") + u'_', key, shown, Tree::Image::ChildPic);
  }
}

void frmCode::TreeView_Type_NodeClick(const QString& key)
{
  TreeCode = key.chopped(1);
}

void frmCode::TreeView_Type_DblClick()
{
  const MasterTable* const table = masterTable(CodeTable);
  if (!table)
    return;
  Statement left(u"select {} from {}  ", Statement(table->columns), SqlName(CodeTable));
  // The top category "1" means all records.
  if (!TreeCode.isEmpty() && TreeCode != u"1")
    left += Statement(u" where {} like '{}%' ", SqlName(text(table->categoryColumn)), TreeCode);
  FillMSH(left, {u"order by Code "});
}

void frmCode::RefreshList(const Statement& filter)
{
  if (!CodeTable.isEmpty())
    FillMSH({u"select Code,Name from {}  ", SqlName(CodeTable)}, {u"  {}order by Code  ", filter});
  else
    FillMSH(BaseSql, {u"  {}  order by code ", filter});
}

void frmCode::search(const Statement& filter)
{
  RefreshList(filter);
  setFocus(MSH);
}

void frmCode::MSH_Click()
{
  if (MSH.row() == 0)
    return;
  TxtCode.setText(Trim(MSH.text(MSH.row(), 1)));
  TxtName.setText(Trim(MSH.text(MSH.row(), 2)));
}

void frmCode::CmdOK_Click()
{
  if (Trim(TxtCode.text()).isEmpty()) {
    desk().inform(u"请选择名称！"_s);
    return;
  }
  m_choice = {TxtCode.text(), TxtName.text()};
  close();
}

void frmCode::CmdAdd_Click()
{
  const MasterTable* const table = masterTable(CodeTable);
  if (table && CheckOperateRight(m_session, m_session.params.UserName, text(table->right), RightKind::Read))
    Mod_ZORVEKMain::RunSiblingProgram(m_session, text(table->operation), {text(table->right), u"临时增加"_s});
}
