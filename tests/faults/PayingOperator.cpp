#include "PayingOperator.h"

#include "screen/CellEditor.h"
#include "screen/Controls.h"
#include "screen/Grid.h"

PayingOperator::PayingOperator(const QString& folder, const SessionParams& params) : m_machine(folder)
{
  m_session.params = params;
  m_session.DotSet = LoadDotSet(m_session);
  m_screen = m_screens.screen(QStringLiteral("frmPayfund"));
  m_screen->load();
  m_desk.show(*m_screen);
  m_screen->frm_Initialize(false);
}

SessionParams PayingOperator::onFile()
{
  SessionParams params;
  params.DatabaseType = QStringLiteral("Access");
  params.IsAccessSQL = true;
  params.ConDataName = QStringLiteral("A001.mdb");
  params.UserName = QStringLiteral("系统管理员");
  params.OperateDate = QStringLiteral("2022-06-08");
  params.IsJXC = true;
  return params;
}

void PayingOperator::beginBill()
{
  control<ToolButton>("ToolBuild").click();
}

void PayingOperator::fillIn(const QList<int>& amounts)
{
  TextBox& name = control<TextBox>("TxtName");
  name.typed(QStringLiteral("清泉饮料公司"));
  name.press({Key::Enter, {}, false});
  for (int row = 1; row <= amounts.size(); ++row) {
    typeIntoCell(row, 1, QStringLiteral("100201"));
    typeIntoCell(row, 3, QString::number(amounts[row - 1]));
  }
}

void PayingOperator::typeIntoCell(int row, int column, const QString& text)
{
  control<Grid>("MSH").clickCell(row, column);
  TextBox& editor = control<TextBox>("Text2");
  editor.typed(text);
  editor.press({Key::Enter, {}, false});
}

QStringList PayingOperator::save()
{
  m_desk.boxes.clear();
  control<ToolButton>("ToolSave").click();
  QStringList said;
  for (const Desk::Box& box : m_desk.boxes)
    said.append(box.text);
  return said;
}
