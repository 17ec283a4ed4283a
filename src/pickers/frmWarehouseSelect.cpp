#include "pickers/frmWarehouseSelect.h"

#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"
#include "startup/Launcher.h"

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t ChartOfAccounts[] = u"TabAccountantType";

} // namespace

frmWarehouseSelect::frmWarehouseSelect(Session& ofSession, const TreePickerCall& call)
    : Form(ofSession.desk, "frmWarehouseSelect"), m_session(ofSession), SelectedCode(ofSession.kept<LastPickedNode>().code),
      TreeTable(call.TreeTable), TreeWhere(call.TreeWhere), TreeKind(call.TreeKind), TreeTarget(call.TreeTarget)
{
  setCaption(u"选择会计科目"_s);
  File.setCaption(u"文件(&S)"_s);
  FEixt.setCaption(u"退出(&E)"_s);
  ToolSelect.setCaption(u"选择"_s);
  ToolAdd.setCaption(u"增加"_s);
  ToolRefresh.setCaption(u"刷新"_s);
  ToolExit.setCaption(u"退出"_s);
  wire();
  setFocus(TreeView);
}

void frmWarehouseSelect::wire()
{
  FEixt.onClick = ToolExit.onClick = [this] { close(); };
  ToolSelect.onClick = [this] { Select(); };
  ToolAdd.onClick = [this] { ToolAdd_Click(); };
  ToolRefresh.onClick = [this] { cmdLoad_Click(); };
  TreeView.onNodeClick = [this](const QString& key) { SelectedCode = key.chopped(1); };
  TreeView.onNodeDoubleClick = [this](const QString&) { Select(); };
  closeOnEscape();
}

void frmWarehouseSelect::cmdLoad_Click()
{
  if (TreeKind == u"收入科目" || TreeKind == u"费用科目")
    ToolAdd.setVisible(false);
  if (TreeTable != ChartOfAccounts)
    setCaption(u"选择仓库"_s);
  desk().setBusy(true);
  const QString current = TreeView.current();
  // A row without its parent ends the load with a box; the nodes loaded so far can be taken.
  if (const auto error = TreeView.fill([this] { loadNodes(); })) {
    desk().setBusy(false);
    desk().stop(error->text());
  }
  TreeView.sortChildren(TreeView.firstKey());
  TreeView.setExpanded(TreeView.firstKey(), true);
  TreeView.setCurrent(TreeView.contains(current) ? current : TreeView.firstKey());
  desk().setBusy(false);
}

// FC=1 marks disabled accounts. The plain "and" binds to the last alternative of a WHERE text that has no brackets,
// so that the lists of the line grids may show such accounts.
Statement frmWarehouseSelect::listStatement() const
{
  const SqlName table(TreeTable);
  if (TreeTable != ChartOfAccounts)
    return {u"select * from {}  {}  order by Code ", table, TreeWhere};
  if (TreeWhere.isEmpty())
    return {u"select * from {} where FC<>1   order by Code ", table};
  return {u"select * from {} {} and  FC<>1   order by Code ", table, TreeWhere};
}

void frmWarehouseSelect::loadNodes()
{
  for (Recordset rs = OpenRecordset(m_session, listStatement()); !rs.eof(); rs.moveNext()) {
    const QString key = rs.text("Code") + u'_';
    const QString shown = rs.text("Code") + u'{' + rs.text("Name") + u'}';
    const QString parent = rs.text("ParentCode");
    if (parent == u"0") {
      TreeView.addTop(key, shown, Tree::Image::ParentPic);
      continue;
    }
    if (TreeView.isEmpty())
      addRoot(parent);
    TreeView.addChild(parent + u'_', key, shown, Tree::Image::ChildPic);
  }
}

// Synthetic root for a partial tree. Its label doubles as the target, so that a choice from cash or bank accounts
// goes to the boxes of its kind.
void frmWarehouseSelect::addRoot(const QString& code)
{
  if (code == u"1001")
    TreeTarget = u"现金"_s;
  else if (code == u"1002")
    TreeTarget = u"银行存款"_s;
  TreeView.addTop(code + u'_', code + u'{' + TreeTarget + u'}', Tree::Image::ParentPic);
}

void frmWarehouseSelect::Select()
{
  const QString code = Trim(SelectedCode);
  if (SelectedCode.isEmpty()) {
    desk().inform(u"请选择名称！"_s);
    return;
  }
  if (code.size() <= 1) {
    desk().inform(u"不允许选择根目录！"_s);
    return;
  }
  const Recordset rs = OpenRecordset(m_session, {u"select Name from {} where Code='{}'", SqlName(TreeTable), code});
  m_choice = {code, rs.eof() ? QString() : rs.text("Name"), TreeTarget};
  close();
}

void frmWarehouseSelect::ToolAdd_Click()
{
  if (TreeTable == ChartOfAccounts)
    Mod_ZORVEKMain::RunSiblingProgram(m_session, u"现金银行资料"_s, {u"现金银行设置"_s});
  else if (TreeTable == u"TabWarehouseType")
    Mod_ZORVEKMain::RunSiblingProgram(m_session, u"仓库资料"_s, {u"仓库分类设置"_s});
}
