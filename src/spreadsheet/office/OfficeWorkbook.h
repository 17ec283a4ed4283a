#pragma once

#include "spreadsheet/Spreadsheet.h"

#include <QHash>

#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/util/XNumberFormats.hpp>

class Office;

// A workbook loaded into the office, hidden until it is shown. Each range is passed in one call.
class OfficeWorkbook : public Workbook {
public:
  OfficeWorkbook(Office& office, const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetDocument>& document);
  ~OfficeWorkbook() override;

  SpreadsheetResult<QStringList> sheetNames() override;
  SpreadsheetResult<QList<QStringList>> texts(const QString& sheet, int rows, int columns) override;
  SpreadsheetResult<void> enterTexts(const QString& sheet, int row, int column, const QList<QStringList>& block) override;
  SpreadsheetResult<void> enterAmounts(const QString& sheet, int row, int column, const QStringList& amounts) override;
  SpreadsheetResult<void> setSizes(const QString& sheet, int rows, int rowHeight, const QList<int>& columnWidths) override;
  SpreadsheetResult<void> showWhole(const QString& sheet, const QList<Cell>& cells) override;
  SpreadsheetResult<void> insertRows(const QString& sheet, int row, int count) override;
  SpreadsheetResult<void> deleteRow(const QString& sheet, int row) override;
  SpreadsheetResult<void> finish(const QString& sheet, Finish how, const QString& caption) override;
  bool isInPreview() override;

private:
  template <typename Interface> using Reference = com::sun::star::uno::Reference<Interface>;

  SpreadsheetResult<void> print(const QString& sheet);
  SpreadsheetResult<void> preview(const QString& sheet, const QString& caption);
  SpreadsheetResult<void> handOver(const QString& sheet, const QString& caption);
  Reference<com::sun::star::sheet::XSpreadsheet> sheetCalled(const QString& name);
  Reference<com::sun::star::table::XCellRange> range(const QString& sheet, int row, int column, qsizetype rows, qsizetype columns);
  // None is the default format of a cell.
  enum class CellFormat { None, Text, Own };
  CellFormat formatOf(const Reference<com::sun::star::table::XCellRange>& cells);
  void formatLike(const Reference<com::sun::star::table::XCellRange>& cell, const QString& amount);
  Reference<com::sun::star::util::XNumberFormats> numberFormats() const;
  void printOnly(const QString& sheet);
  Reference<com::sun::star::frame::XController> controller();
  Reference<com::sun::star::frame::XController> previewController();
  // The sheet in front, in a window with this caption; its own title without one.
  void show(const QString& sheet, const QString& caption);

  Office& m_office;
  Reference<com::sun::star::sheet::XSpreadsheetDocument> m_document;
  Reference<com::sun::star::frame::XController> m_preview;
  QHash<QString, Reference<com::sun::star::sheet::XSpreadsheet>> m_sheets; // those asked for so far
  QHash<sal_Int32, CellFormat> m_formats;                                  // those asked for so far, by their keys
  bool m_isHandedOver = false;
};
