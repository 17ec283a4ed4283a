#pragma once

#include "spreadsheet/office/OfficeConnection.h"

#include <QHash>
#include <QStringList>

#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>

// A second client of the office that the program under test runs: it makes workbooks for it, and looks at those open
// there, cell by cell. Rows and columns count from 1.
class OfficeClient {
public:
  // Of the office that was started first; it must be running.
  OfficeClient();

  // A workbook open in the office.
  class Book {
  public:
    using Document = com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetDocument>;
    explicit Book(const Document& document) : m_document(document) {}

    QStringList sheetNames() const;
    void addSheet(const QString& name);
    // The sheet that the workbook opens on once it is stored.
    void activate(const QString& sheet);
    QString activeSheet() const;
    // A red picture of 3 cm on the first sheet, this far from the upper edge in hundredths of a millimetre.
    void addSeal(int top);
    void rename(const QString& sheet, const QString& name);

    // As a user types it: "=A1" is a formula, "'1" a text.
    void type(const QString& sheet, int row, int column, const QString& text);
    void setProperty(const QString& sheet, int row, int column, const char* name, const com::sun::star::uno::Any& value);
    // The first rows and columns.
    void setPrintArea(const QString& sheet, int rows, int columns);
    void setRowHeight(const QString& sheet, int row, int hundredthsOfMillimetre);

    // As the user sees it.
    QString shown(const QString& sheet, int row, int column) const;
    // The shown texts of a row, "|" between them.
    QString row(const QString& sheet, int row, int columns) const;
    // With the "=" of a formula, and a "'" before a text that looks like a number.
    QString formula(const QString& sheet, int row, int column) const;
    com::sun::star::uno::Any property(const QString& sheet, int row, int column, const char* name) const;
    // In hundredths of a millimetre.
    int rowHeight(const QString& sheet, int row) const;
    int columnWidth(const QString& sheet, int column) const;
    QString title() const;
    bool isVisible() const;
    bool isInPreview() const;

    // In the format of the file's extension: xls, xlsx or pdf.
    void store(const QString& path) const;
    void close();

  private:
    com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetView> view() const;
    com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet> sheet(const QString& name) const;
    com::sun::star::uno::Reference<com::sun::star::table::XCell> cell(const QString& sheet, int row, int column) const;

    Document m_document;
  };

  // Not hidden: only then a workbook has an active sheet to be stored.
  Book create();
  // Replaces texts in a part of a stored workbook, which the office itself would not write so.
  void edit(const QString& path, const QString& part, const QList<std::pair<QByteArray, QByteArray>>& replacements);
  // Those open now. A workbook being made by the program is among them.
  QList<Book> open() const;
  // Ends the office, or stops it from answering, from outside. A stopped one does nothing any more on return.
  static void kill(int signal);
  // The processes of an office by its number, without its watch; none when it has ended.
  static QList<pid_t> processes(int number = 1);

private:
  OfficeConnection m_connection;
};
