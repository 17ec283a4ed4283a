#include "printing/ModSavePrintData.h"

#include "platform/AnsiText.h"
#include "platform/RunTimeError.h"
#include "platform/SafeFile.h"
#include "platform/Trim.h"
#include "screen/Grid.h"
#include "session/Session.h"

#include <algorithm>
#include <array>

namespace ModSavePrintData {
namespace {

constexpr int LastLine = 20;
// Counted from 1; index 0 is not used.
using Lines = std::array<QString, LastLine + 1>;

// The lines above and below the grid of a printout. They stay between the print jobs of a run: a later
// job that sets fewer of them keeps the older ones beyond its own.
struct PrintStrings {
  Lines head = {};
  Lines foot = {};
};

// The lines of the file: headers end in a colon, values stand behind an equals sign.
class PrintFile {
public:
  void header(const QString& key) { m_text += key + ":\r\n"; }
  void value(const QString& key, const QString& value) { m_text += key + "=" + value + "\r\n"; }
  void value(const QString& key, int number) { value(key, QString::number(number)); }
  QString text() const { return m_text; }

private:
  QString m_text;
};

// Counts the strings that hold something and writes as many from the first on: behind a gap the last
// one is lost.
void writeStrings(PrintFile& file, const QString& which, const Lines& lines)
{
  const auto count = std::count_if(lines.begin() + 1, lines.end(), [](const QString& line) { return !line.isEmpty(); });
  file.header(which + "count");
  file.value("count", int(count));
  if (count == 0)
    return;
  file.header(which + "content");
  for (int i = 1; i <= int(count); ++i)
    file.value("string", lines[std::size_t(i)]);
}

// Line ends would end the line of the file.
QString oneLine(QString text)
{
  return text.replace(u'\r', u'|').replace(u'\n', u'|');
}

void writeCells(PrintFile& file, const PrintGrid& printed)
{
  const Grid& grid = *printed.grid;
  for (int row = 0; row < grid.rows() - printed.bottomSkip - printed.topSkip; ++row) {
    int col = -1;
    for (int c = printed.leftSkip; c < grid.cols(); ++c) {
      if (grid.colWidth(c) < 1)
        continue;
      file.header("cell");
      file.value("row", row);
      file.value("col", ++col);
      file.value("rowheight", Grid::RowHeight);
      file.value("colwidth", grid.colWidth(c));
      file.value("string", oneLine(grid.text(printed.topSkip + row, c)));
    }
  }
}

void writeGrid(PrintFile& file, const PrintGrid& printed)
{
  file.header("msh");
  file.value("mshrows", printed.mshrows());
  file.value("mshcols", printed.mshcols());
  if (printed.mshrows() == 0 || printed.mshcols() == 0)
    return;
  file.header("mshcontent");
  writeCells(file, printed);
}

void setString(Lines& lines, const QString& text, int index)
{
  if (index < 0 || index > LastLine)
    throw RunTimeError(RunTimeError::OutOfBounds, QStringLiteral("下标越界"));
  lines[std::size_t(index)] = text;
}

} // namespace

int PrintGrid::mshrows() const
{
  return grid ? grid->rows() - bottomSkip - topSkip : 0;
}

int PrintGrid::mshcols() const
{
  int visible = 0;
  for (int col = 0; grid && col < grid->cols(); ++col)
    visible += grid->colWidth(col) >= 1 ? 1 : 0;
  return grid ? visible - rightSkip - leftSkip : 0;
}

void SetPrintHeadString(Session& session, const QString& text, int index)
{
  setString(session.kept<PrintStrings>().head, text, index);
}

void SetPrintFootString(Session& session, const QString& text, int index)
{
  setString(session.kept<PrintStrings>().foot, text, index);
}

void WritePrintFile(Session& session, const PrintGrid& printed, const QString& printTableName, const QString& printType)
{
  PrintFile content;
  content.header("打印表表名");
  content.value("printtablename", Trim(printTableName));
  content.header("打印类别");
  content.value("printtype", Trim(printType));
  writeStrings(content, "head", session.kept<PrintStrings>().head);
  writeStrings(content, "foot", session.kept<PrintStrings>().foot);
  writeGrid(content, printed);
  content.header("批量连续打印");
  content.value("accountantprintsign", QString());

  const QString path = session.machine.inProgramFolder(QString::fromLatin1(FileName));
  if (!SafeFile::write(path, AnsiText::encode(content.text())))
    throw RunTimeError(RunTimeError::PathFileAccess, QStringLiteral("路径/文件访问错误：") + path);
}

} // namespace ModSavePrintData
