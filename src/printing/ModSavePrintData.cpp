#include "printing/ModSavePrintData.h"

#include "platform/AnsiText.h"
#include "platform/RunTimeError.h"
#include "platform/SafeFile.h"
#include "platform/Trim.h"
#include "screen/Grid.h"
#include "session/Session.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ModSavePrintData {
namespace {

constexpr int LastLine = 20;
// Counted from 1; index 0 is not used.
using Lines = std::array<QString, LastLine + 1>;

// The lines above and below the grid of a printout. They are kept between the print jobs of a run: a later job that
// sets fewer of them keeps the older ones after its own.
struct PrintStrings {
  Lines head = {};
  Lines foot = {};
};

// The lines of the file: headers end in a colon, values follow an equals sign.
class PrintFile {
public:
  void header(const QString& key) { m_text += key + u":\r\n"_s; }
  void value(const QString& key, const QString& value) { m_text += key + u'=' + value + u"\r\n"_s; }
  void value(const QString& key, int number) { value(key, QString::number(number)); }
  QString text() const { return m_text; }

private:
  QString m_text;
};

// Counts the non-empty strings and writes as many from the first on: after a gap the last one is lost.
void writeStrings(PrintFile& file, const QString& which, const Lines& lines)
{
  const auto count = std::count_if(lines.begin() + 1, lines.end(), [](const QString& line) { return !line.isEmpty(); });
  file.header(which + u"count"_s);
  file.value(u"count"_s, int(count));
  if (count == 0)
    return;
  file.header(which + u"content"_s);
  for (int i = 1; i <= int(count); ++i)
    file.value(u"string"_s, lines[std::size_t(i)]);
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
      file.header(u"cell"_s);
      file.value(u"row"_s, row);
      file.value(u"col"_s, ++col);
      file.value(u"rowheight"_s, Grid::RowHeight);
      file.value(u"colwidth"_s, grid.colWidth(c));
      file.value(u"string"_s, oneLine(grid.text(printed.topSkip + row, c)));
    }
  }
}

void writeGrid(PrintFile& file, const PrintGrid& printed)
{
  file.header(u"msh"_s);
  file.value(u"mshrows"_s, printed.mshrows());
  file.value(u"mshcols"_s, printed.mshcols());
  if (printed.mshrows() == 0 || printed.mshcols() == 0)
    return;
  file.header(u"mshcontent"_s);
  writeCells(file, printed);
}

void setString(Lines& lines, const QString& text, int index)
{
  if (index < 0 || index > LastLine)
    throw RunTimeError(RunTimeError::OutOfBounds, u"下标越界"_s);
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
  content.header(u"打印表表名"_s);
  content.value(u"printtablename"_s, Trim(printTableName));
  content.header(u"打印类别"_s);
  content.value(u"printtype"_s, Trim(printType));
  writeStrings(content, u"head"_s, session.kept<PrintStrings>().head);
  writeStrings(content, u"foot"_s, session.kept<PrintStrings>().foot);
  writeGrid(content, printed);
  content.header(u"批量连续打印"_s);
  content.value(u"accountantprintsign"_s, QString());

  const QString path = session.machine.inProgramFolder(QString::fromLatin1(FileName));
  if (!SafeFile::write(path, AnsiText::encode(content.text())))
    throw RunTimeError(RunTimeError::PathFileAccess, u"路径/文件访问错误："_s + path);
}

} // namespace ModSavePrintData
