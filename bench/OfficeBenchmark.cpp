#include "PaymentScreen.h"

#include "printing/BillTemplate.h"
#include "printing/frmExport.h"
#include "screen/Controls.h"
#include "screen/Grid.h"
#include "spreadsheet/office/OfficeConnection.h"
#include "spreadsheet/office/OfficeInstance.h"
#include "spreadsheet/office/OfficeProcess.h"
#include "spreadsheet/office/Properties.h"
#include "spreadsheet/office/Text.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QUrl>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/view/XPrintable.hpp>

// The office: the longest grid exported into a live workbook, and a payment printed through its template,
// beside the bare calls that the same takes. The office's profile is the benchmarks' own, and has a printer
// whose paper is a file.

namespace {

namespace star = com::sun::star;
using star::uno::Any;
using star::uno::Reference;
using star::uno::Sequence;
using star::uno::UNO_QUERY_THROW;

constexpr int Rows = 32767;
constexpr int Columns = 25;
constexpr int RowsInBlock = 512;
constexpr int LinesOfBill = 5;
constexpr int FirstLineRow = 17;

void takeInstance()
{
  static const QTemporaryDir Cache;
  qputenv("XDG_CACHE_HOME", QFile::encodeName(Cache.path()));
  qunsetenv("DISPLAY");
  qunsetenv("WAYLAND_DISPLAY");
  const QString folder = OfficeInstance::numbered(1).profileFolder + "/profile/user/psprint";
  QFile printers(folder + "/psprint.conf");
  if (!QDir().mkpath(folder) || !printers.open(QIODevice::WriteOnly))
    qFatal("no printer can be installed");
  printers.write("[__Global_Printer_Defaults__]\nDisableCUPS=true\n\n"
                 "[Paper]\nPrinter=SGENPRT/Paper\nDefaultPrinter=1\nCommand=cat > " +
                 QFile::encodeName(Cache.filePath("paper")) + "\n");
}

QString cellText(int row, int column)
{
  return QStringLiteral("%1-%2").arg(row).arg(column);
}

// A stored payment with its first template.
class PrintedPayment : public PaymentScreen {
public:
  PrintedPayment()
  {
    fillIn(LinesOfBill);
    save();
    orThrow(session().spreadsheet.create());
  }

  void print()
  {
    control<MenuItemArray>("MPDirect_Excel_D_Inf").clickItem(0);
    if (const QString texts = desk().takeTexts(); !texts.isEmpty())
      qFatal("the payment was not printed: %s", qPrintable(texts));
  }

  QString templateFile()
  {
    const QString path = folder().filePath("template.xlsx");
    BillTemplate::RestoreFileFromDb(session(), path, control<MenuItemArray>("MPDirect_Excel_D_Inf").captions().first());
    return path;
  }
};

// The office that the measured program has started, used without the program.
class BareOffice {
public:
  using Document = Reference<star::sheet::XSpreadsheetDocument>;

  BareOffice()
  {
    if (!m_connection.connect(OfficeInstance::numbered(1).pipe))
      qFatal("no office listens");
  }

  Document load(const QString& url)
  {
    const Reference<star::frame::XComponentLoader> loader(m_connection.desktop(), UNO_QUERY_THROW);
    return {loader->loadComponentFromURL(officeText(url), officeText(u"_blank"), 0, properties({{"Hidden", true}})), UNO_QUERY_THROW};
  }

  // Unsaved.
  void closeAll()
  {
    for (const auto& document : m_connection.documents())
      Reference<star::util::XCloseable>(document, UNO_QUERY_THROW)->close(true);
  }

private:
  OfficeConnection m_connection{OfficeProcess::programFolder()};
};

Reference<star::sheet::XSpreadsheet> firstSheet(const BareOffice::Document& document)
{
  return {Reference<star::container::XIndexAccess>(document->getSheets(), UNO_QUERY_THROW)->getByIndex(0), UNO_QUERY_THROW};
}

Reference<star::sheet::XCellRangeData> range(const Reference<star::sheet::XSpreadsheet>& sheet, int row, int column, int rows, int columns)
{
  return {sheet->getCellRangeByPosition(column, row, column + columns - 1, row + rows - 1), UNO_QUERY_THROW};
}

Sequence<Sequence<Any>> block(int firstRow, int rows, int columns)
{
  Sequence<Sequence<Any>> all{rows};
  for (int row = 0; row < rows; ++row) {
    Sequence<Any> cells{columns};
    for (int column = 0; column < columns; ++column)
      cells.getArray()[column] <<= officeText(cellText(firstRow + row, column));
    all.getArray()[row] = cells;
  }
  return all;
}

void exportGrid(benchmark::State& state)
{
  takeInstance();
  PaymentScreen screen;
  Form form{screen.desk(), QStringLiteral("frmSFKHeXiao")};
  Grid grid{&form, QStringLiteral("MSH")};
  grid.setRows(Rows);
  grid.setCols(Columns);
  for (int row = 0; row < Rows; ++row)
    for (int column = 0; column < Columns; ++column)
      grid.setText(row, column, cellText(row, column));
  orThrow(screen.session().spreadsheet.create());
  BareOffice office;
  for ([[maybe_unused]] auto _ : state) {
    frmExport(screen.session()).Export2Excel(grid);
    state.PauseTiming();
    office.closeAll();
    state.ResumeTiming();
  }
}

void exportBare(benchmark::State& state)
{
  takeInstance();
  PaymentScreen screen;
  orThrow(screen.session().spreadsheet.create());
  BareOffice office;
  std::vector<Sequence<Sequence<Any>>> blocks;
  for (int row = 0; row < Rows; row += RowsInBlock)
    blocks.push_back(block(row, std::min(RowsInBlock, Rows - row), Columns));
  for ([[maybe_unused]] auto _ : state) {
    const auto sheet = firstSheet(office.load(QStringLiteral("private:factory/scalc")));
    const Reference<star::table::XColumnRowRange> all(sheet->getCellRangeByPosition(0, 0, 0, Rows - 1), UNO_QUERY_THROW);
    Reference<star::beans::XPropertySet>(all->getRows(), UNO_QUERY_THROW)->setPropertyValue(officeText(u"OptimalHeight"), Any(false));
    int row = 0;
    for (const Sequence<Sequence<Any>>& one : blocks) {
      range(sheet, row, 0, one.getLength(), Columns)->setDataArray(one);
      row += one.getLength();
    }
    state.PauseTiming();
    office.closeAll();
    state.ResumeTiming();
  }
}

void printTemplate(benchmark::State& state)
{
  takeInstance();
  PrintedPayment payment;
  payment.print();
  for ([[maybe_unused]] auto _ : state)
    payment.print();
}

// The same page from the calls that it needs: read, write what changes, insert, write, delete, print.
void printBare(benchmark::State& state)
{
  constexpr int Searched = 40;
  takeInstance();
  PrintedPayment payment;
  BareOffice office;
  const QString url = QString::fromLatin1(QUrl::fromLocalFile(payment.templateFile()).toEncoded());
  const auto lines = block(0, LinesOfBill, 4);
  for ([[maybe_unused]] auto _ : state) {
    const auto document = office.load(url);
    const auto sheet = firstSheet(document);
    const Sequence<Sequence<Any>> texts = range(sheet, 0, 0, Searched, Searched)->getDataArray();
    for (int row = 0; row < Searched; ++row)
      for (int column = 0; column < Searched; ++column)
        if (rtl::OUString text; (texts[row][column] >>= text) && text.indexOf(u'?') >= 0)
          range(sheet, row, column, 1, 1)->setDataArray(block(row, 1, 1));
    const auto rows = Reference<star::table::XColumnRowRange>(sheet, UNO_QUERY_THROW)->getRows();
    rows->insertByIndex(FirstLineRow, LinesOfBill);
    range(sheet, FirstLineRow, 0, LinesOfBill, 4)->setDataArray(lines);
    rows->removeByIndex(FirstLineRow - 1, 1);
    rows->removeByIndex(FirstLineRow - 1 + LinesOfBill, 1);
    Reference<star::view::XPrintable>(document, UNO_QUERY_THROW)->print(properties({{"Wait", true}}));
    Reference<star::util::XCloseable>(document, UNO_QUERY_THROW)->close(true);
  }
}

// From a program that has printed nothing yet.
void printFirstTemplate(benchmark::State& state)
{
  takeInstance();
  {
    PrintedPayment().print();
  } // the profile is made
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    auto payment = std::make_unique<PaymentScreen>();
    payment->fillIn(LinesOfBill);
    payment->save();
    state.ResumeTiming();
    payment->control<MenuItemArray>("MPDirect_Excel_D_Inf").clickItem(0);
    state.PauseTiming();
    payment.reset();
    state.ResumeTiming();
  }
}

void convertFirst(benchmark::State& state)
{
  takeInstance();
  QTemporaryDir profile;
  PrintedPayment payment;
  const QStringList arguments{"-env:UserInstallation=file://" + profile.path(),
                              "--headless",
                              "--convert-to",
                              "pdf",
                              "--outdir",
                              payment.folder().path(),
                              payment.templateFile()};
  for (int i = 0; i < 2; ++i)
    QProcess::execute("soffice", arguments); // the profile is made
  for ([[maybe_unused]] auto _ : state) {
    QProcess office;
    office.start("soffice", arguments);
    if (!office.waitForFinished(60000) || office.exitCode() != 0)
      qFatal("the office converts nothing");
  }
}

BENCHMARK(exportGrid)->Name("Export/program")->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(exportBare)->Name("Export/baseline")->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(printTemplate)->Name("Template/program")->Iterations(5)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(printBare)->Name("Template/baseline")->Iterations(5)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(printFirstTemplate)->Name("FirstTemplate/program")->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(convertFirst)->Name("FirstTemplate/baseline")->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
