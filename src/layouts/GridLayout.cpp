#include "layouts/GridLayout.h"

#include "layouts/frmOption_Bill.h"
#include "platform/Trim.h"
#include "screen/Grid.h"
#include "session/ModuleADO.h"
#include "session/OperateRight.h"
#include "session/Session.h"

using namespace Qt::StringLiterals;

namespace GridLayout {
namespace {

bool maySetLayouts(Session& session)
{
  return CheckOperateRight(session, session.params.UserName, u"界面列表格式设置"_s, RightKind::Edit);
}

// A cell's alignment, font and colour as columns of the table. The grids have one font.
Statement looks(int alignment, int color)
{
  return {u"{},'宋体',9,'否','否','否',{}", SqlNumber(alignment), SqlNumber(color)};
}

// The name under which the layout of a screen with this title is stored.
QString keyOf(const QString& screenTitle)
{
  return Trim(screenTitle) + u"界面"_s;
}

} // namespace

void apply(Session& session, Grid& grid, const QString& screenTitle, std::span<const Column> columns)
{
  Recordset stored = OpenRecordset(session, {u"select * from TabPrintMSHSet where TabName='{}' order by ColOrder ", keyOf(screenTitle)});
  const bool isStored = !stored.eof();
  grid.setCols(int(columns.size()));
  for (int col = 0; col < grid.cols(); ++col) {
    const Column& column = columns[std::size_t(col)];
    grid.setColWidth(col, isStored ? int(stored.field("ColWidth").toInteger()) : column.width);
    grid.setText(0, col, isStored ? stored.text("ColElseName") : QString::fromUtf16(column.caption));
    if (isStored) {
      grid.setColAlignment(col, int(stored.field("ContentAlign").toInteger()));
      stored.moveNext();
    }
  }
}

void FMSHFormat_Click(Session& session, Grid& grid, const QString& screenTitle)
{
  if (!maySetLayouts(session))
    return;
  frmOption_Bill dialog(session);
  dialog.LoadMSHHead(grid, keyOf(screenTitle));
  session.desk.showModal(dialog);
}

bool FDeleteMSHFormat_Click(Session& session, const QString& screenTitle)
{
  if (!maySetLayouts(session) || !session.desk.confirm(u"删除当前界面格式设置吗？"_s, Desk::Icon::Question))
    return false;
  Execute(session, {u"delete from TabPrintMSHSet where TabName='{}'", keyOf(screenTitle)});
  session.desk.inform(u"删除成功！"_s);
  return true;
}

// The first cell of a column represents its whole content.
void SaveGridLayout(Session& session, Grid& grid, const QString& name)
{
  const int contentRow = grid.rows() > 1 ? 1 : 0;
  inOneTransaction(session, [&] {
    Execute(session, {u"delete from TabPrintMSHSet where TabName='{}'", name});
    for (int col = 0; col < grid.cols(); ++col) {
      grid.setCurrent(contentRow, col);
      Execute(session, {u"insert into  TabPrintMSHSet values ('{}',{},{},'{}',{},{})", name, SqlNumber(col), SqlNumber(grid.colWidth(col)),
                        grid.text(0, col), looks(grid.colAlignment(col), grid.cellColor(0, col)),
                        looks(grid.colAlignment(col), grid.cellColor(contentRow, col))});
    }
  });
  session.desk.inform(u"保存成功！"_s);
}

} // namespace GridLayout
