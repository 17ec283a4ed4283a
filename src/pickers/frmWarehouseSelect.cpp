#include "pickers/frmWarehouseSelect.h"

#include "platform/Trim.h"
#include "session/ModuleADO.h"
#include "session/Session.h"
#include "startup/Launcher.h"

namespace {

constexpr char16_t ChartOfAccounts[] = u"TabAccountantType";

} // namespace

frmWarehouseSelect::frmWarehouseSelect(Session& ofSession, const TreePickerCall& call)
    : Form(ofSession.desk, "frmWarehouseSelect"), session(ofSession), SelectedCode(ofSession.kept<LastPickedNode>().code),
      TreeTable(call.TreeTable), TreeWhere(call.TreeWhere), TreeKind(call.TreeKind), TreeTarget(call.TreeTarget)
{
  setCaption(QStringLiteral("选择会计科目"));
  File.setCaption(QStringLiteral("文件(&S)"));
  FEixt.setCaption(QStringLiteral("退出(&E)"));
  ToolSelect.setCaption(QStringLiteral("选择"));
  ToolAdd.setCaption(QStringLiteral("增加"));
  ToolRefresh.setCaption(QStringLiteral("刷新"));
  ToolExit.setCaption(QStringLiteral("退出"));
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
    setCaption(QStringLiteral("选择仓库"));
  desk().setBusy(true);
  const QString current = TreeView.current();
  // A row whose parent is not there ends the load with a box; the nodes loaded by then can be taken.
  if (const auto error = TreeView.fill([this] { loadNodes(); })) {
    desk().setBusy(false);
    desk().stop(error->text());
  }
  TreeView.sortChildren(TreeView.firstKey());
  TreeView.setExpanded(TreeView.firstKey(), true);
  TreeView.setCurrent(TreeView.contains(current) ? current : TreeView.firstKey());
  desk().setBusy(false);
}

// FC=1 marks accounts that are out of use. The plain "and" binds to the last alternative of a WHERE
// text that has no brackets, so that the lists of the line grids may show such accounts.
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
  for (Recordset rs = OpenRecordset(session, listStatement()); !rs.eof(); rs.moveNext()) {
    const QString key = rs.text("Code") + "_";
    const QString shown = rs.text("Code") + "{" + rs.text("Name") + "}";
    const QString parent = rs.text("ParentCode");
    if (parent == u"0") {
      TreeView.addTop(key, shown, Tree::Image::ParentPic);
      continue;
    }
    if (TreeView.isEmpty())
      addRoot(parent);
    TreeView.addChild(parent + "_", key, shown, Tree::Image::ChildPic);
  }
}

// Synthetic root for a partial tree. Its label doubles as the target, so that a choice from cash or bank accounts
// goes to the boxes of its kind.
void frmWarehouseSelect::addRoot(const QString& code)
{
  if (code == u"1001")
    TreeTarget = QStringLiteral("现金");
  else if (code == u"1002")
    TreeTarget = QStringLiteral("银行存款");
  TreeView.addTop(code + "_", code + "{" + TreeTarget + "}", Tree::Image::ParentPic);
}

void frmWarehouseSelect::Select()
{
  const QString code = Trim(SelectedCode);
  if (SelectedCode.isEmpty()) {
    desk().inform(QStringLiteral("请选择名称！"));
    return;
  }
  if (code.size() <= 1) {
    desk().inform(QStringLiteral("不允许选择根目录！"));
    return;
  }
  const Recordset rs = OpenRecordset(session, {u"select Name from {} where Code='{}'", SqlName(TreeTable), code});
  m_choice = {code, rs.eof() ? QString() : rs.text("Name"), TreeTarget};
  close();
}

void frmWarehouseSelect::ToolAdd_Click()
{
  if (TreeTable == ChartOfAccounts)
    Mod_ZORVEKMain::RunSiblingProgram(session, QStringLiteral("现金银行资料"), {QStringLiteral("现金银行设置")});
  else if (TreeTable == u"TabWarehouseType")
    Mod_ZORVEKMain::RunSiblingProgram(session, QStringLiteral("仓库资料"), {QStringLiteral("仓库分类设置")});
}
