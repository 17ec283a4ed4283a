#include "OfficeClient.h"

#include "spreadsheet/office/OfficeInstance.h"
#include "spreadsheet/office/OfficeProcess.h"
#include "spreadsheet/office/Properties.h"
#include "spreadsheet/office/Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <QUrl>
#include <unistd.h>

#include <com/sun/star/awt/XWindow2.hpp>
#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XHierarchicalNameAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/frame/XTitle.hpp>
#include <com/sun/star/io/XActiveDataSink.hpp>
#include <com/sun/star/lang/XInitialization.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XPrintAreas.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/util/XChangesBatch.hpp>
#include <com/sun/star/util/XCloseable.hpp>

#include <csignal>

namespace star = com::sun::star;
using star::uno::Any;
using star::uno::Reference;
using star::uno::UNO_QUERY;
using star::uno::UNO_QUERY_THROW;

namespace {

template <typename Interface> Reference<Interface> as(const auto& object)
{
  return Reference<Interface>(object, UNO_QUERY_THROW);
}

const char* filterOf(const QString& path)
{
  const QString suffix = QFileInfo(path).suffix();
  return suffix == "pdf" ? "calc_pdf_Export" : suffix == "xls" ? "MS Excel 97" : "Calc MS Excel 2007 XML";
}

Reference<star::frame::XFrame> frameOf(const OfficeClient::Book::Document& document)
{
  return as<star::frame::XModel>(document)->getCurrentController()->getFrame();
}

int sizeOf(const Any& rowOrColumn, QStringView name)
{
  sal_Int32 size = 0;
  as<star::beans::XPropertySet>(rowOrColumn)->getPropertyValue(officeText(name)) >>= size;
  return size;
}

bool hasRunningThread(pid_t process)
{
  const QString tasks = QStringLiteral("/proc/%1/task").arg(process);
  for (const QString& thread : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    QFile state(tasks + u'/' + thread + "/stat");
    // The state is the letter after the name in brackets, which may hold anything.
    const QByteArray words = state.open(QIODevice::ReadOnly) ? state.readAll() : QByteArray();
    if (!words.isEmpty() && words.mid(words.lastIndexOf(')') + 2, 1) != "T")
      return true;
  }
  return false;
}

} // namespace

OfficeClient::OfficeClient() : m_connection(OfficeProcess::programFolder())
{
  // An office that has just lost its program drops new connections for a moment, longer on a busy machine.
  for (int tries = 0; tries < 60; ++tries) {
    if (m_connection.connect(OfficeInstance::numbered(1).pipe))
      return;
    usleep(500000);
  }
  qFatal("no office listens");
}

OfficeClient::Book OfficeClient::create()
{
  const auto loader = as<star::frame::XComponentLoader>(m_connection.desktop());
  return Book({loader->loadComponentFromURL(officeText(u"private:factory/scalc"), officeText(u"_blank"), 0, {}), UNO_QUERY});
}

QList<OfficeClient::Book> OfficeClient::open() const
{
  QList<Book> books;
  const auto documents = m_connection.desktop()->getComponents()->createEnumeration();
  while (documents->hasMoreElements())
    if (const Book::Document document(documents->nextElement(), UNO_QUERY); document.is())
      books.append(Book(document));
  return books;
}

QList<pid_t> OfficeClient::processes(int number)
{
  QList<pid_t> all;
  const QByteArray pipe = OfficeInstance::numbered(number).pipe.toUtf8();
  for (const QString& process : QDir("/proc").entryList(QDir::Dirs)) {
    QFile command("/proc/" + process + "/cmdline");
    if (!command.open(QIODevice::ReadOnly))
      continue;
    // Its watch has the same words after its own name.
    if (const QByteArray words = command.readAll(); words.contains(pipe) && words.first(words.indexOf('\0')).endsWith("soffice.bin"))
      all.append(process.toInt());
  }
  return all;
}

void OfficeClient::kill(int signal)
{
  const QList<pid_t> ids = processes();
  for (const pid_t process : ids)
    ::kill(process, signal);
  // A stopped process goes on answering until the signal has reached each of its threads.
  for (const pid_t process : ids)
    while (signal == SIGSTOP && hasRunningThread(process))
      usleep(1000);
}

void OfficeClient::edit(const QString& path, const QString& part, const QList<std::pair<QByteArray, QByteArray>>& replacements)
{
  const auto service = [this](const char* name, std::initializer_list<Any> arguments) {
    const auto object = m_connection.service(name);
    as<star::lang::XInitialization>(object)->initialize({arguments.begin(), sal_Int32(arguments.size())});
    return object;
  };
  const Any url(officeText(QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded())));
  const Any format(star::beans::NamedValue(officeText(u"StorageFormat"), Any(officeText(u"ZipFormat"))));
  const auto package = service("com.sun.star.packages.Package", {url, format});
  const Reference<star::io::XActiveDataSink> stream(
      as<star::container::XHierarchicalNameAccess>(package)->getByHierarchicalName(officeText(part)), UNO_QUERY_THROW);
  star::uno::Sequence<sal_Int8> bytes;
  stream->getInputStream()->readBytes(bytes, 1 << 20);
  QByteArray content(reinterpret_cast<const char*>(bytes.getConstArray()), bytes.getLength());
  for (const auto& [from, to] : replacements)
    content.replace(from, to);
  bytes = {reinterpret_cast<const sal_Int8*>(content.constData()), sal_Int32(content.size())};
  stream->setInputStream(as<star::io::XInputStream>(service("com.sun.star.io.SequenceInputStream", {Any(bytes)})));
  as<star::util::XChangesBatch>(package)->commitChanges();
}

Reference<star::sheet::XSpreadsheet> OfficeClient::Book::sheet(const QString& name) const
{
  return {m_document->getSheets()->getByName(officeText(name)), UNO_QUERY_THROW};
}

Reference<star::table::XCell> OfficeClient::Book::cell(const QString& name, int row, int column) const
{
  return sheet(name)->getCellByPosition(column - 1, row - 1);
}

QStringList OfficeClient::Book::sheetNames() const
{
  QStringList names;
  for (const rtl::OUString& name : m_document->getSheets()->getElementNames())
    names.append(programText(name));
  return names;
}

void OfficeClient::Book::addSheet(const QString& name)
{
  m_document->getSheets()->insertNewByName(officeText(name), 100);
}

Reference<star::sheet::XSpreadsheetView> OfficeClient::Book::view() const
{
  return {as<star::frame::XModel>(m_document)->getCurrentController(), UNO_QUERY_THROW};
}

void OfficeClient::Book::activate(const QString& name)
{
  view()->setActiveSheet(sheet(name));
}

QString OfficeClient::Book::activeSheet() const
{
  return programText(as<star::container::XNamed>(view()->getActiveSheet())->getName());
}

void OfficeClient::Book::addSeal(int top)
{
  const auto factory = as<star::lang::XMultiServiceFactory>(m_document);
  const Reference<star::drawing::XShape> seal(factory->createInstance(officeText(u"com.sun.star.drawing.GraphicObjectShape")),
                                              UNO_QUERY_THROW);
  seal->setPosition({2000, top});
  seal->setSize({3000, 3000});
  QTemporaryFile red;
  if (!red.open() || red.write(QByteArray("P6 1 1 255 \xff\0\0", 14)) < 0 || !red.flush())
    qFatal("no picture can be made");
  as<star::beans::XPropertySet>(seal)->setPropertyValue(officeText(u"GraphicURL"),
                                                        Any(officeText(QUrl::fromLocalFile(red.fileName()).toString())));
  const auto pages = as<star::drawing::XDrawPagesSupplier>(m_document)->getDrawPages();
  as<star::drawing::XDrawPage>(pages->getByIndex(0))->add(seal);
}

void OfficeClient::Book::rename(const QString& name, const QString& newName)
{
  as<star::container::XNamed>(sheet(name))->setName(officeText(newName));
}

void OfficeClient::Book::type(const QString& name, int row, int column, const QString& text)
{
  cell(name, row, column)->setFormula(officeText(text));
}

void OfficeClient::Book::setProperty(const QString& name, int row, int column, const char* property, const Any& value)
{
  as<star::beans::XPropertySet>(cell(name, row, column))->setPropertyValue(rtl::OUString::createFromAscii(property), value);
}

Any OfficeClient::Book::property(const QString& name, int row, int column, const char* property) const
{
  return as<star::beans::XPropertySet>(cell(name, row, column))->getPropertyValue(rtl::OUString::createFromAscii(property));
}

void OfficeClient::Book::setPrintArea(const QString& name, int rows, int columns)
{
  const auto cells = sheet(name)->getCellRangeByPosition(0, 0, columns - 1, rows - 1);
  const auto area = as<star::sheet::XCellRangeAddressable>(cells)->getRangeAddress();
  as<star::sheet::XPrintAreas>(sheet(name))->setPrintAreas({&area, 1});
}

void OfficeClient::Book::setRowHeight(const QString& name, int row, int height)
{
  const auto rows = as<star::table::XColumnRowRange>(sheet(name))->getRows();
  as<star::beans::XPropertySet>(rows->getByIndex(row - 1))->setPropertyValue(officeText(u"Height"), Any(sal_Int32(height)));
}

int OfficeClient::Book::rowHeight(const QString& name, int row) const
{
  return sizeOf(as<star::table::XColumnRowRange>(sheet(name))->getRows()->getByIndex(row - 1), u"Height");
}

int OfficeClient::Book::columnWidth(const QString& name, int column) const
{
  return sizeOf(as<star::table::XColumnRowRange>(sheet(name))->getColumns()->getByIndex(column - 1), u"Width");
}

QString OfficeClient::Book::shown(const QString& name, int row, int column) const
{
  return programText(as<star::text::XTextRange>(cell(name, row, column))->getString());
}

QString OfficeClient::Book::row(const QString& name, int row, int columns) const
{
  QStringList texts;
  for (int column = 1; column <= columns; ++column)
    texts.append(shown(name, row, column));
  return texts.join(u'|');
}

QString OfficeClient::Book::formula(const QString& name, int row, int column) const
{
  return programText(cell(name, row, column)->getFormula());
}

QString OfficeClient::Book::title() const
{
  return programText(as<star::frame::XTitle>(frameOf(m_document))->getTitle());
}

bool OfficeClient::Book::isVisible() const
{
  return as<star::awt::XWindow2>(frameOf(m_document)->getContainerWindow())->isVisible();
}

// A preview has no sheet that could be worked on.
bool OfficeClient::Book::isInPreview() const
{
  return !Reference<star::sheet::XSpreadsheetView>(as<star::frame::XModel>(m_document)->getCurrentController(), UNO_QUERY).is();
}

void OfficeClient::Book::store(const QString& path) const
{
  as<star::frame::XStorable>(m_document)
      ->storeToURL(officeText(QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded())),
                   properties({{"FilterName", rtl::OUString::createFromAscii(filterOf(path))}}));
}

void OfficeClient::Book::close()
{
  as<star::util::XCloseable>(m_document)->close(true);
}
