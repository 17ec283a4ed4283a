#include "spreadsheet/office/OfficeWorkbook.h"

#include "spreadsheet/office/EnteredText.h"
#include "spreadsheet/office/Office.h"
#include "spreadsheet/office/Properties.h"

#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/frame/XDispatchHelper.hpp>
#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XTitle.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XPrintAreas.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/util/NumberFormat.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>
#include <com/sun/star/view/XPrintable.hpp>

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

void put(const Reference<star::table::XCellRange>& range, const QList<QStringList>& block,
         const std::function<Any(qsizetype, const QString&)>& value)
{
  Sequence<Sequence<Any>> rows{sal_Int32(block.size())};
  Sequence<Any>* row = rows.getArray();
  for (const QStringList& texts : block) {
    row->realloc(sal_Int32(texts.size()));
    Any* cell = (row++)->getArray();
    for (qsizetype column = 0; column < texts.size(); ++column)
      cell[column] = value(column, texts[column]);
  }
  Reference<star::sheet::XCellRangeData>(range, UNO_QUERY_THROW)->setDataArray(rows);
}

} // namespace

OfficeWorkbook::OfficeWorkbook(Office& office, const Reference<star::sheet::XSpreadsheetDocument>& document)
    : m_office(office), m_document(document)
{
}

OfficeWorkbook::~OfficeWorkbook()
{
  if (m_isHandedOver)
    return;
  try {
    m_office.call([this] { Reference<star::util::XCloseable>(m_document, UNO_QUERY_THROW)->close(true); });
  } catch (const RunTimeError&) {
    // An office that is gone has closed it.
  }
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
      throw RunTimeError(RunTimeError::OutOfBounds, QStringLiteral("下标越界"));
  }
  return sheet;
}

Reference<star::table::XCellRange> OfficeWorkbook::range(const QString& sheet, int row, int column, qsizetype rows, qsizetype columns)
{
  return sheetCalled(sheet)->getCellRangeByPosition(column - 1, row - 1, sal_Int32(column + columns - 2), sal_Int32(row + rows - 2));
}

QStringList OfficeWorkbook::sheetNames()
{
  return m_office.call([&] {
    QStringList names;
    for (const rtl::OUString& name : m_document->getSheets()->getElementNames())
      names.append(programText(name));
    return names;
  });
}

QList<QStringList> OfficeWorkbook::texts(const QString& sheet, int rows, int columns)
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

// How a column of a block takes numbers: not at all in cells formatted as text. Cells that differ in their
// format count as formatted by someone.
OfficeWorkbook::CellFormat OfficeWorkbook::formatOf(const Reference<star::table::XCellRange>& cells)
{
  sal_Int32 key = 0;
  if (!(propertiesOf(cells)->getPropertyValue(officeText(u"NumberFormat")) >>= key))
    return CellFormat::Own;
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

// Where nobody chose a format, amounts look as they were entered, with two decimals and commas.
void OfficeWorkbook::formatAsAmounts(const Reference<star::table::XCellRange>& cells)
{
  const star::lang::Locale english(officeText(u"en"), officeText(u"US"), {});
  const sal_Int32 key = numberFormats()->queryKey(officeText(u"#,##0.00"), english, false);
  if (key >= 0)
    propertiesOf(cells)->setPropertyValue(officeText(u"NumberFormat"), Any(key));
}

void OfficeWorkbook::enter(const QString& sheet, int row, int column, const QList<QStringList>& block)
{
  m_office.call([&] {
    QHash<qsizetype, bool> takesNumbers; // asked only where there is a number
    const auto takes = [&](qsizetype at, const QString& text) {
      if (!takesNumbers.contains(at)) {
        const auto cells = range(sheet, row, column + int(at), block.size(), 1);
        const CellFormat format = formatOf(cells);
        takesNumbers[at] = format != CellFormat::Text;
        if (format == CellFormat::None && text.contains(u'.'))
          formatAsAmounts(cells);
      }
      return takesNumbers[at];
    };
    put(range(sheet, row, column, block.size(), block.first().size()), block, [&](qsizetype at, const QString& text) {
      const std::optional<double> number = enteredNumber(text);
      return number && takes(at, text) ? Any(*number) : Any(officeText(text));
    });
  });
}

void OfficeWorkbook::enterTexts(const QString& sheet, int row, int column, const QList<QStringList>& block)
{
  m_office.call([&] {
    put(range(sheet, row, column, block.size(), block.first().size()), block,
        [](qsizetype, const QString& text) { return Any(officeText(text)); });
  });
}

void OfficeWorkbook::setSizes(const QString& sheet, int rows, int rowHeight, const QList<int>& columnWidths)
{
  m_office.call([&] {
    const Reference<star::table::XColumnRowRange> sized(range(sheet, 1, 1, rows, columnWidths.size()), UNO_QUERY_THROW);
    propertiesOf(sized->getRows())->setPropertyValue(officeText(u"Height"), lengthOf(rowHeight));
    const auto columns = sized->getColumns();
    for (int column = 0; column < columnWidths.size(); ++column)
      if (columnWidths[column] > 0)
        propertiesOf(itemOf(columns, column))->setPropertyValue(officeText(u"Width"), lengthOf(columnWidths[column]));
  });
}

// The formats of the row above come along by themselves, a height that somebody gave it does not.
void OfficeWorkbook::insertRows(const QString& sheet, int row, int count)
{
  m_office.call([&] {
    const auto rows = Reference<star::table::XColumnRowRange>(sheetCalled(sheet), UNO_QUERY_THROW)->getRows();
    const auto above = propertiesOf(itemOf(rows, row - 2));
    rows->insertByIndex(row - 1, count);
    if (above->getPropertyValue(officeText(u"OptimalHeight")) == Any(true))
      return;
    const Reference<star::table::XColumnRowRange> inserted(range(sheet, row, 1, count, 1), UNO_QUERY_THROW);
    propertiesOf(inserted->getRows())->setPropertyValue(officeText(u"Height"), above->getPropertyValue(officeText(u"Height")));
  });
}

void OfficeWorkbook::deleteRow(const QString& sheet, int row)
{
  m_office.call(
      [&] { Reference<star::table::XColumnRowRange>(sheetCalled(sheet), UNO_QUERY_THROW)->getRows()->removeByIndex(row - 1, 1); });
}

// The office prints every sheet that has something to print; a sheet with no print area has nothing as
// soon as another one has one.
void OfficeWorkbook::printOnly(const QString& name)
{
  const auto page = sheetCalled(name);
  const auto sheets = m_document->getSheets();
  for (const rtl::OUString& one : sheets->getElementNames())
    if (const Reference<star::sheet::XPrintAreas> sheet(sheets->getByName(one), UNO_QUERY_THROW); sheet != page)
      sheet->setPrintAreas({});
  const Reference<star::sheet::XPrintAreas> areas(page, UNO_QUERY_THROW);
  if (areas->getPrintAreas().hasElements())
    return;
  const auto used = page->createCursor();
  Reference<star::sheet::XUsedAreaCursor>(used, UNO_QUERY_THROW)->gotoEndOfUsedArea(true);
  const auto area = Reference<star::sheet::XCellRangeAddressable>(used, UNO_QUERY_THROW)->getRangeAddress();
  areas->setPrintAreas(Sequence<star::table::CellRangeAddress>(&area, 1));
}

void OfficeWorkbook::print(const QString& sheet)
{
  m_office.call([&] {
    // Without one the office would say nothing, and print nothing.
    if (!m_office.hasPrinter())
      throw RunTimeError(RunTimeError::Automation, QStringLiteral("没有安装打印机"));
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
  Reference<star::sheet::XSpreadsheetView>(view, UNO_QUERY_THROW)->setActiveSheet(sheetCalled(sheet));
  const auto frame = view->getFrame();
  if (!caption.isEmpty())
    Reference<star::frame::XTitle>(frame, UNO_QUERY_THROW)->setTitle(officeText(caption));
  const auto window = frame->getContainerWindow();
  window->setVisible(true);
  Reference<star::awt::XTopWindow>(window, UNO_QUERY_THROW)->toFront();
  frame->activate();
}

void OfficeWorkbook::preview(const QString& sheet, const QString& caption)
{
  m_office.call([&] {
    printOnly(sheet);
    show(sheet, caption);
    const Reference<star::frame::XDispatchHelper> helper(m_office.connection().service("com.sun.star.frame.DispatchHelper"),
                                                         UNO_QUERY_THROW);
    const Reference<star::frame::XDispatchProvider> frame(controller()->getFrame(), UNO_QUERY_THROW);
    helper->executeDispatch(frame, officeText(u".uno:PrintPreview"), {}, 0, {});
    m_preview = controller();
    // Nobody wants to be asked whether to save the work copy.
    Reference<star::util::XModifiable>(m_document, UNO_QUERY_THROW)->setModified(false);
  });
}

// Who closes the window of the preview closes the workbook with it, and the office with its last window.
bool OfficeWorkbook::isInPreview()
{
  try {
    return OfficeProcess::hasDisplay() && m_office.call([&] { return controller() == m_preview; });
  } catch (const RunTimeError&) {
    return false;
  }
}

void OfficeWorkbook::handOver(const QString& sheet, const QString& caption)
{
  m_office.call([&] { show(sheet, caption); });
  m_isHandedOver = true;
  m_office.handOver();
}
