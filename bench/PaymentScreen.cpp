#include "PaymentScreen.h"

#include "accountset/AccountSet.h"
#include "samplefirm/SampleFirm.h"
#include "screen/CellEditor.h"
#include "screen/Controls.h"
#include "screen/Form.h"
#include "screen/Grid.h"

#include <QDir>
#include <QFile>

namespace {

// The sample firm is made once.
const QString& sampleFirm()
{
  static const QTemporaryDir Folder{"benchmarks-XXXXXX"};
  static const QString Path = [] {
    QString path = Folder.filePath(QStringLiteral("sample.mdb"));
    if (const auto made = AccountSet::create(path, SampleFirm::write); !made)
      qFatal("%s", qPrintable(made.error()));
    return path;
  }();
  return Path;
}

} // namespace

QString PaymentScreen::freshAccountSet(const QTemporaryDir& folder)
{
  const QString path = folder.filePath(QStringLiteral("Data/A001.mdb"));
  for (const char* name : {"Data", "PrintTemp", "TempFile"})
    QDir(folder.path()).mkpath(QString::fromLatin1(name));
  QFile::remove(path);
  if (!QFile::copy(sampleFirm(), path))
    qFatal("cannot copy the sample firm to %s", qPrintable(path));
  return path;
}

PaymentScreen::PaymentScreen()
{
  freshAccountSet(m_folder);
  m_session.params.DatabaseType = QStringLiteral("Access");
  m_session.params.IsAccessSQL = true;
  m_session.params.ConDataName = QStringLiteral("A001.mdb");
  m_session.params.UserName = QStringLiteral("系统管理员");
  m_session.params.OperateDate = QDate(2022, 6, 8);
  m_session.DotSet = LoadDotSet(m_session);
  m_opened = makeProgramScreen(m_session, QStringLiteral("frmPayfund"));
  if (!m_opened)
    qFatal("there is no payment screen");
  m_screen = &m_opened->form();
  m_opened->Form_Load();
  m_desk.show(*m_screen);
  m_opened->frm_Initialize(false);
}

void PaymentScreen::fillIn(int lines)
{
  TextBox& name = control<TextBox>("TxtName");
  name.typed(QStringLiteral("清泉饮料公司"));
  name.press({Key::Enter, {}, false});
  for (int row = 1; row <= lines; ++row) {
    typeIntoCell(row, 1, QStringLiteral("100201"));
    control<TextBox>("Text2").press({Key::Enter, {}, false});
    typeIntoCell(row, 3, QString::number(100 + row));
    control<TextBox>("Text2").press({Key::Enter, {}, false});
  }
}

void PaymentScreen::typeIntoCell(int row, int column, const QString& text)
{
  control<Grid>("MSH").clickCell(row, column);
  control<TextBox>("Text2").typed(text);
}

void PaymentScreen::save()
{
  m_desk.boxes.clear();
  control<ToolButton>("ToolSave").click();
  if (m_desk.takeTexts() != QStringLiteral("保存成功！"))
    qFatal("the payment was not saved");
}
