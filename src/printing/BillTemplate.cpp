#include "printing/BillTemplate.h"

#include "platform/RunTimeError.h"
#include "platform/SafeFile.h"
#include "platform/Trim.h"
#include "screen/Grid.h"
#include "session/ModuleADO.h"
#include "session/Session.h"

#include <QFile>

#include <algorithm>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

namespace BillTemplate {

namespace {

constexpr int SearchedRows = 40;
constexpr int SearchedColumns = 40;
constexpr std::chrono::milliseconds PreviewPoll{50};
constexpr int FirstLineRow = 17; // this row and the next are replaced by the lines
const QString Page = u"sheet1"_s;
const QString LayoutSheet = u"样式分类设置"_s;
const QString FixedLayout = u"特殊格式设定"_s;

QString stampOf(const QDateTime& now)
{
  return now.toString(u"yyyyMdHHmmss"_s);
}

// A cell that holds only the word of an amount: the template may sum it. Anything else that looks like a number, such
// as a rate, a telephone number or a remark, is a text.
bool isAmount(const QString& cellText, const QList<Placeholder>& placeholders)
{
  return std::any_of(placeholders.begin(), placeholders.end(),
                     [&](const Placeholder& one) { return one.isAmount && one.word == cellText; });
}

void fillPage(Workbook& workbook, const QList<Placeholder>& placeholders)
{
  const QList<QStringList> page = orThrow(workbook.texts(Page, SearchedRows, SearchedColumns));
  for (int row = 0; row < page.size(); ++row)
    for (int column = 0; column < page[row].size(); ++column) {
      const QString& text = page[row][column];
      const QString filled = ReplacePlaceholders(text, placeholders);
      if (filled == text)
        continue;
      if (isAmount(text, placeholders))
        orThrow(workbook.enterAmounts(Page, row + 1, column + 1, {filled}));
      else
        orThrow(workbook.enterTexts(Page, row + 1, column + 1, {{filled}}));
    }
}

// Only the last sheet can choose the layout: later sheets override earlier ones.
bool isFixedLayout(Workbook& workbook)
{
  const QStringList names = orThrow(workbook.sheetNames());
  return !names.isEmpty() && names.last() == LayoutSheet && orThrow(workbook.texts(LayoutSheet, 1, 2))[0][1] == FixedLayout;
}

// The texts of the lines, from the grid's first column on.
QList<QStringList> linesOf(const Grid& grid)
{
  QList<QStringList> lines;
  for (int row = 1; row < grid.rows(); ++row) {
    if (Trim(grid.text(row, 1)).isEmpty())
      continue;
    QStringList& line = lines.emplaceBack();
    for (int column = 1; column < grid.cols(); ++column)
      line.append(Trim(grid.text(row, column)));
  }
  return lines;
}

// The lines begin in row 17 once the two rows of the template are deleted.
void fillLines(Workbook& workbook, const Grid& grid, int amountColumn)
{
  QList<QStringList> lines = isFixedLayout(workbook) ? QList<QStringList>() : linesOf(grid);
  if (!lines.isEmpty()) {
    // A cell that was entered as text no longer takes a number.
    QStringList amounts;
    for (QStringList& line : lines)
      amounts.append(std::exchange(line[amountColumn - 1], QString()));
    orThrow(workbook.insertRows(Page, FirstLineRow + 1, int(lines.size())));
    orThrow(workbook.enterTexts(Page, FirstLineRow + 1, 1, lines));
    orThrow(workbook.enterAmounts(Page, FirstLineRow + 1, amountColumn, amounts));
  }
  orThrow(workbook.deleteRow(Page, FirstLineRow));
  orThrow(workbook.deleteRow(Page, FirstLineRow + int(lines.size())));
}

void finish(Workbook& workbook, Finish how, Desk& desk)
{
  orThrow(workbook.finish(Page, how, how == Finish::Preview ? u"打印"_s : u"输出...."_s));
  while (how == Finish::Preview && workbook.isInPreview()) {
    desk.breathe();
    std::this_thread::sleep_for(PreviewPoll);
  }
}

void printFile(Session& session, const Job& job, const QString& path)
{
  const std::unique_ptr<Workbook> workbook = orThrow(session.spreadsheet.open(path));
  fillPage(*workbook, job.placeholders());
  fillLines(*workbook, *job.lines, job.amountColumn);
  finish(*workbook, job.finish, session.desk);
}

bool isStored(Session& session, const Job& job)
{
  return !OpenRecordset(session, {u"select * from {} where Code='{}'", SqlName(job.headerTable), Trim(job.billCode)}).eof();
}

} // namespace

QStringList namesOf(Session& session, const QString& templateType)
{
  Recordset rs =
      OpenRecordset(session, {u"select TabName from TabExcelTable where TabType= '{}'  order by  OrderBy,TabName ", Trim(templateType)});
  QStringList names;
  for (; !rs.eof(); rs.moveNext())
    names.append(rs.trimmed("TabName"));
  return names;
}

QString ReplacePlaceholders(QString cellText, const QList<Placeholder>& placeholders)
{
  for (const Placeholder& placeholder : placeholders)
    cellText.replace(placeholder.word, placeholder.value);
  return cellText;
}

std::int64_t RestoreFileFromDb(Session& session, const QString& filePath, const QString& tabName)
{
  Recordset rs = OpenRecordsetForUpdate(session, {u"SELECT * FROM TabExcelTable where TabName = '{}' ", tabName});
  if (rs.recordCount() <= 0) {
    session.desk.ask({tabName + u"  不存在！."_s, Desk::Icon::Warning, Desk::Buttons::Ok, u"错误"_s});
    return 0;
  }
  if (!SafeFile::write(filePath, rs.bytes("TabInf")))
    throw RunTimeError(RunTimeError::PathFileAccess, u"路径/文件访问错误"_s);
  return rs.recordCount();
}

void PrintBill_Excel(Session& session, const Job& job)
{
  const QString name = Trim(job.templateName);
  if (name.isEmpty() || name == u"暂无"_s)
    return session.desk.inform(u"未传递打印模版名，打印终止！"_s);
  QString workPath;
  bool stays = false;
  try {
    if (!isStored(session, job))
      return session.desk.inform(u"尚未保存数据，请先保存数据后重新执行打印！"_s);
    // Names come from the database: one with a separator in it would lead out of the two folders.
    const QString workName = stampOf(session.machine.now()) + name;
    if (!SafeFile::isName(workName))
      throw RunTimeError(RunTimeError::PathFileAccess, u"路径/文件访问错误"_s);
    const QString unpacked = session.machine.inProgramFolder(u"PrintTemp/"_s + workName);
    if (RestoreFileFromDb(session, unpacked, name) <= 0)
      return session.desk.inform(u"打开报表模版失败，请重新操作！"_s);
    if (!QFile::exists(unpacked))
      return session.desk.inform(u"打印模版文件不存在，打印终止！"_s);
    workPath = session.machine.inProgramFolder(u"TempFile/"_s + workName);
    QFile::remove(workPath);
    if (!QFile::copy(unpacked, workPath))
      throw RunTimeError(RunTimeError::PathFileAccess, u"路径/文件访问错误"_s);
    printFile(session, job, workPath);
    stays = job.finish == Finish::HandOver;
  } catch (const RunTimeError&) {
    session.desk.inform(u"操作发生不可预测性错误！请退出软件重启电脑后再操作！"_s);
  }
  if (!stays && !workPath.isEmpty())
    QFile::remove(workPath);
}

} // namespace BillTemplate
