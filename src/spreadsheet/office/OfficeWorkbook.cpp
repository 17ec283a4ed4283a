#include "spreadsheet/office/OfficeWorkbook.h"

#include "spreadsheet/office/EnteredText.h"
#include "spreadsheet/office/Office.h"
#include "spreadsheet/office/Properties.h"

#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/frame/XDispatchHelper.hpp>
#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XTitle.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XPrintAreas.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/util/NumberFormat.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>
#include <com/sun/star/view/XPrintable.hpp>

using namespace Qt::StringLiterals;

namespace star = com::sun::star;
using star::uno::Any;
using star::uno::Sequence;
using star::uno::UNO_QUERY;
using star::uno::UNO_QUERY_THROW;
template <typename Interface> using Reference = star::uno::Reference<Interface>;

namespace {

QString textOf(const Any& value)
{
  rtl::OUString text;
  return (value >>= text) ? programText(text) : QString();
}

Reference<star::beans::XPropertySet> propertiesOf(const Reference<star::uno::XInterface>& object)
{
  return Reference<star::beans::XPropertySet>(object, UNO_QUERY_THROW);
}

template <typename Items> Reference<star::uno::XInterface> itemOf(const Reference<Items>& items, sal_Int32 index)
{
  return Reference<star::uno::XInterface>(items->getByIndex(index), UNO_QUERY_THROW);
}

// The office counts in hundredths of a millimetre.
Any lengthOf(int twips)
{
  return Any(sal_Int32(qint64(twips) * 2540 / 1440));
}

Sequence<Sequence<Any>> cellsOf(const QList<QStringList>& block)
{
  Sequence<Sequence<Any>> rows{sal_Int32(block.size())};
  std::transform(block.begin(), block.end(), rows.getArray(), [](const QStringList& texts) {
    Sequence<Any> row{sal_Int32(texts.size())};
    std::transform(texts.begin(), texts.end(), row.getArray(), [](const QString& text) { return Any(officeText(text)); });
    return row;
  });
  return rows;
}

// "#,##0.00" for "1,234.50"; nothing for an amount that every format shows as it is.
QString patternOf(const QString& amount)
{
  const qsizetype point = amount.indexOf(u'.');
  if (point < 0)
    return amount.contains(u',') ? u"#,##0"_s : QString();
  return u"#,##0."_s + QString(amount.size() - point - 1, u'0');
}

} // namespace

OfficeWorkbook::OfficeWorkbook(Office& office, const Reference<star::sheet::XSpreadsheetDocument>& document)
    : m_office(office), m_document(document)
{
}

OfficeWorkbook::~OfficeWorkbook()
{
  if (!m_isHandedOver)
    m_office.close(Reference<star::frame::XModel>(m_document, UNO_QUERY));
}

Reference<star::sheet::XSpreadsheet> OfficeWorkbook::sheetCalled(const QString& name)
{
  Reference<star::sheet::XSpreadsheet>& sheet = m_sheets[name];
  if (!sheet.is()) {
    const auto sheets = m_document->getSheets();
    for (const rtl::OUString& one : sheets->getElementNames())
      if (programText(one).compare(name, Qt::CaseInsensitive) == 0)
        sheet.set(sheets->getByName(one), UNO_QUERY_THROW);
    if (!sheet.is())
      throw RunTimeError(RunTimeError::OutOfBounds, u"下标越界"_s);
  }
  return sheet;
}

Reference<star::table::XCellRange> OfficeWorkbook::range(const QString& sheet, int row, int column, qsizetype rows, qsizetype columns)
{
  return sheetCalled(sheet)->getCellRangeByPosition(column - 1, row - 1, sal_Int32(column + columns - 2), sal_Int32(row + rows - 2));
}

SpreadsheetResult<QStringList> OfficeWorkbook::sheetNames()
{
  return m_office.call([&] {
    QStringList names;
    for (const rtl::OUString& name : m_document->getSheets()->getElementNames())
      names.append(programText(name));
    return names;
  });
}

SpreadsheetResult<QList<QStringList>> OfficeWorkbook::texts(const QString& sheet, int rows, int columns)
{
  return m_office.call([&] {
    QList<QStringList> all;
    const Reference<star::sheet::XCellRangeData> data(range(sheet, 1, 1, rows, columns), UNO_QUERY_THROW);
    for (const Sequence<Any>& row : data->getDataArray()) {
      QStringList& texts = all.emplaceBack();
      std::transform(row.begin(), row.end(), std::back_inserter(texts), textOf);
    }
    return all;
  });
}

// Whether a cell takes numbers, and whether it was formatted.
OfficeWorkbook::CellFormat OfficeWorkbook::formatOf(const Reference<star::table::XCellRange>& cell)
{
  sal_Int32 key = 0;
  propertiesOf(cell)->getPropertyValue(officeText(u"NumberFormat")) >>= key;
  if (!m_formats.contains(key)) {
    const auto format = numberFormats()->getByKey(key);
    sal_Int16 type = 0;
    bool isStandard = false;
    format->getPropertyValue(officeText(u"Type")) >>= type;
    format->getPropertyValue(officeText(u"StandardFormat")) >>= isStandard;
    m_formats[key] = type & star::util::NumberFormat::TEXT ? CellFormat::Text : isStandard ? CellFormat::None : CellFormat::Own;
  }
  return m_formats[key];
}

Reference<star::util::XNumberFormats> OfficeWorkbook::numberFormats() const
{
  return Reference<star::util::XNumberFormatsSupplier>(m_document, UNO_QUERY_THROW)->getNumberFormats();
}

// In an unformatted cell an amount looks as the program shows it.
void OfficeWorkbook::formatLike(const Reference<star::table::XCellRange>& cell, const QString& amount)
{
  const QString pattern = patternOf(amount);
  if (pattern.isEmpty())
    return;
  const star::lang::Locale english(officeText(u"en"), officeText(u"US"), {});
  sal_Int32 key = numberFormats()->queryKey(officeText(pattern), english, false);
  if (key < 0)
    key = numberFormats()->addNew(officeText(pattern), english);
  propertiesOf(cell)->setPropertyValue(officeText(u"NumberFormat"), Any(key));
}

SpreadsheetResult<void> OfficeWorkbook::enterTexts(const QString& sheet, int row, int column, const QList<QStringList>& block)
{
  return m_office.call([&] {
    Reference<star::sheet::XCellRangeData>(range(sheet, row, column, block.size(), block.first().size()), UNO_QUERY_THROW)
        ->setDataArray(cellsOf(block));
  });
}

SpreadsheetResult<void> OfficeWorkbook::enterAmounts(const QString& sheet, int row, int column, const QStringList& amounts)
{
  return m_office.call([&] {
    for (const QString& amount : amounts) {
      const auto cell = range(sheet, row++, column, 1, 1);
      const std::optional<double> number = enteredNumber(amount);
      const CellFormat format = number ? formatOf(cell) : CellFormat::Text;
      if (format == CellFormat::Text) {
        Reference<star::sheet::XCellRangeData>(cell, UNO_QUERY_THROW)->setDataArray(cellsOf({{amount}}));
        continue;
      }
      if (format == CellFormat::None)
        formatLike(cell, amount);
      cell->getCellByPosition(0, 0)->setValue(*number);
    }
  });
}

SpreadsheetResult<void> OfficeWorkbook::setSizes(const QString& sheet, int rows, int rowHeight, const QList<int>& columnWidths)
{
  return m_office.call([&] {
    const Reference<star::table::XColumnRowRange> sized(range(sheet, 1, 1, rows, columnWidths.size()), UNO_QUERY_THROW);
    propertiesOf(sized->getRows())->setPropertyValue(officeText(u"Height"), lengthOf(rowHeight));
    const auto columns = sized->getColumns();
    for (int column = 0; column < columnWidths.size(); ++column)
      if (columnWidths[column] > 0)
        propertiesOf(itemOf(columns, column))->setPropertyValue(officeText(u"Width"), lengthOf(columnWidths[column]));
  });
}

SpreadsheetResult<void> OfficeWorkbook::showWhole(const QString& sheet, const QList<Cell>& cells)
{
  return m_office.call([&] {
    const auto rows = Reference<star::table::XColumnRowRange>(sheetCalled(sheet), UNO_QUERY_THROW)->getRows();
    for (const Cell& cell : cells) {
      propertiesOf(range(sheet, cell.row, cell.column, 1, 1))->setPropertyValue(officeText(u"IsTextWrapped"), Any(true));
      propertiesOf(itemOf(rows, cell.row - 1))->setPropertyValue(officeText(u"OptimalHeight"), Any(true));
    }
  });
}

// The formats of the row above are copied automatically, a custom height is not.
SpreadsheetResult<void> OfficeWorkbook::insertRows(const QString& sheet, int row, int count)
{
  return m_office.call([&] {
    const auto rows = Reference<star::table::XColumnRowRange>(sheetCalled(sheet), UNO_QUERY_THROW)->getRows();
    const auto above = propertiesOf(itemOf(rows, row - 2));
    rows->insertByIndex(row - 1, count);
    if (above->getPropertyValue(officeText(u"OptimalHeight")) == Any(true))
      return;
    const Reference<star::table::XColumnRowRange> inserted(range(sheet, row, 1, count, 1), UNO_QUERY_THROW);
    propertiesOf(inserted->getRows())->setPropertyValue(officeText(u"Height"), above->getPropertyValue(officeText(u"Height")));
  });
}

SpreadsheetResult<void> OfficeWorkbook::deleteRow(const QString& sheet, int row)
{
  return m_office.call(
      [&] { Reference<star::table::XColumnRowRange>(sheetCalled(sheet), UNO_QUERY_THROW)->getRows()->removeByIndex(row - 1, 1); });
}

// The office prints the selected sheets, completely unless they have a print area. The selection of a hidden workbook
// can't be changed directly, but hiding a selected sheet moves the selection to the one that remains.
void OfficeWorkbook::printOnly(const QString& name)
{
  propertiesOf(sheetCalled(name))->setPropertyValue(officeText(u"IsVisible"), Any(true));
  for (const rtl::OUString& other : m_document->getSheets()->getElementNames()) {
    if (programText(other).compare(name, Qt::CaseInsensitive) == 0)
      continue;
    const auto sheet = sheetCalled(programText(other));
    Reference<star::sheet::XPrintAreas>(sheet, UNO_QUERY_THROW)->setPrintAreas({});
    propertiesOf(sheet)->setPropertyValue(officeText(u"IsVisible"), Any(false));
  }
}

SpreadsheetResult<void> OfficeWorkbook::finish(const QString& sheet, Finish how, const QString& caption)
{
  switch (how) {
  case Finish::Print: return print(sheet);
  case Finish::Preview: return preview(sheet, caption);
  case Finish::HandOver: break;
  }
  return handOver(sheet, caption);
}

SpreadsheetResult<void> OfficeWorkbook::print(const QString& sheet)
{
  return m_office.call([&] {
    // Without a printer the office would silently print nothing.
    if (!m_office.hasPrinter())
      throw RunTimeError(RunTimeError::Automation, u"没有安装打印机"_s);
    printOnly(sheet);
    Reference<star::view::XPrintable>(m_document, UNO_QUERY_THROW)->print(properties({{"Wait", true}}));
  });
}

Reference<star::frame::XController> OfficeWorkbook::controller()
{
  return Reference<star::frame::XModel>(m_document, UNO_QUERY_THROW)->getCurrentController();
}

void OfficeWorkbook::show(const QString& sheet, const QString& caption)
{
  const auto view = controller();
  const auto frame = view->getFrame();
  if (!caption.isEmpty())
    Reference<star::frame::XTitle>(frame, UNO_QUERY_THROW)->setTitle(officeText(caption));
  const auto window = frame->getContainerWindow();
  window->setVisible(true);
  // Only now: a new window first shows the sheet that the workbook was saved on.
  Reference<star::sheet::XSpreadsheetView>(view, UNO_QUERY_THROW)->setActiveSheet(sheetCalled(sheet));
  Reference<star::awt::XTopWindow>(window, UNO_QUERY_THROW)->toFront();
  frame->activate();
}

// The window switches to the preview asynchronously.
Reference<star::frame::XController> OfficeWorkbook::previewController()
{
  constexpr auto Moment = std::chrono::seconds(5);
  constexpr auto LookEvery = std::chrono::milliseconds(20);
  for (const auto end = std::chrono::steady_clock::now() + Moment; std::chrono::steady_clock::now() < end;
       std::this_thread::sleep_for(LookEvery))
    if (const auto now = controller(); now.is() && !Reference<star::sheet::XSpreadsheetView>(now, UNO_QUERY).is())
      return now;
  return {};
}

SpreadsheetResult<void> OfficeWorkbook::preview(const QString& sheet, const QString& caption)
{
  return m_office.call([&] {
    printOnly(sheet);
    show(sheet, caption);
    const Reference<star::frame::XDispatchHelper> helper(m_office.connection().service("com.sun.star.frame.DispatchHelper"),
                                                         UNO_QUERY_THROW);
    const Reference<star::frame::XDispatchProvider> frame(controller()->getFrame(), UNO_QUERY_THROW);
    helper->executeDispatch(frame, officeText(u".uno:PrintPreview"), {}, 0, {});
    m_preview = previewController();
    // Suppresses the question whether to save the work copy.
    Reference<star::util::XModifiable>(m_document, UNO_QUERY_THROW)->setModified(false);
  });
}

// Closing the preview window closes the workbook, and the office with its last window.
bool OfficeWorkbook::isInPreview()
{
  if (!OfficeProcess::hasDisplay())
    return false;
  m_office.leaveToOperator();
  return m_office.call([&] { return controller() == m_preview; }).value_or(false);
}

SpreadsheetResult<void> OfficeWorkbook::handOver(const QString& sheet, const QString& caption)
{
  const auto shown = m_office.call([&] { show(sheet, caption); });
  if (shown) {
    m_isHandedOver = true;
    m_office.handOver();
  }
  return shown;
}
