#include "spreadsheet/office/Office.h"

#include "spreadsheet/office/Archive.h"
#include "spreadsheet/office/OfficeWorkbook.h"
#include "spreadsheet/office/Properties.h"

#include <QDir>
#include <QLockFile>
#include <QRegularExpression>
#include <QUrl>

#include <com/sun/star/awt/XPrinterServer.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/document/XTypeDetection.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/util/XCloseable.hpp>

using namespace Qt::StringLiterals;

namespace star = com::sun::star;
using namespace std::chrono_literals;
using star::uno::Reference;
using star::uno::UNO_QUERY;
using star::uno::UNO_QUERY_THROW;

namespace {

constexpr int MostInstances = 100;
constexpr qint64 MostUnpacked = qint64(1) << 27; // a thousand times what a template takes
constexpr auto PollEvery = 5ms;

RunTimeError notThere()
{
  return {RunTimeError::NoSpreadsheet, u"ActiveX 部件不能创建对象"_s};
}

RunTimeError noWorkbook()
{
  return {RunTimeError::Automation, u"不是工作簿"_s};
}

QString installedFolder()
{
  const QString folder = OfficeProcess::programFolder();
  return folder.isEmpty() ? throw notThere() : folder;
}

} // namespace

Office::Office(std::chrono::milliseconds limit) : m_connection(installedFolder()), m_patience(limit, [this] { giveUp(); }) {}

// The operator's office is left alone.
void Office::giveUp()
{
  m_process.kill();
  if (m_isOperators)
    m_connection.abandon();
}

Office::~Office()
{
  end();
}

// The first free instance, since a new profile is slow to make.
void Office::takeInstance()
{
  clearInstances();
  for (int number = 1; number <= MostInstances; ++number)
    if (takeInstance(OfficeInstance::numbered(number)))
      return;
  throw notThere();
}

// An instance whose office still listens has a workbook of the operator in it. A lock without its program was left by
// one that was killed, and so was everything else.
bool Office::takeInstance(const OfficeInstance& instance)
{
  QDir().mkpath(instance.profileFolder);
  const bool isLeft = QFile::exists(instance.lockFile());
  m_instance = instance;
  m_instanceLock = std::make_unique<QLockFile>(instance.lockFile());
  m_instanceLock->setStaleLockTime(0);
  const bool isFree = m_instanceLock->tryLock(0) && !m_connection.isListening(instance.pipe);
  if (isFree && isLeft)
    instance.clear();
  return isFree;
}

void Office::clearInstances()
{
  for (int number = 1; number <= MostInstances; ++number)
    if (const OfficeInstance instance = OfficeInstance::numbered(number); QFile::exists(instance.lockFile()))
      takeInstance(instance);
  m_instanceLock.reset();
}

// An office that could not open a file may still hold parts of it.
SpreadsheetResult<std::unique_ptr<Workbook>> Office::open(const QString& path)
{
  const QString url = QString::fromLatin1(QUrl::fromLocalFile(QDir(path).absolutePath()).toEncoded());
  if (unpackedSize(path) > MostUnpacked)
    return tl::unexpected(noWorkbook());
  if (const auto ready = require(); !ready)
    return tl::unexpected(ready.error());
  auto workbook = call([&] { return isExcel(url) ? load(url) : throw noWorkbook(); });
  if (!workbook)
    kill();
  return workbook;
}

SpreadsheetResult<std::unique_ptr<Workbook>> Office::create()
{
  return require().and_then([this] { return call([this] { return load(u"private:factory/scalc"_s); }); });
}

// Decided by the content: templates come from a database that others write, and web pages or text documents can do
// things that workbooks can't.
bool Office::isExcel(const QString& url) const
{
  static const QRegularExpression excel(u"^(calc_MS_Excel_(40|5095|97)|MS Excel 2007)"_s);
  const Reference<star::document::XTypeDetection> detection(m_connection.service("com.sun.star.document.TypeDetection"), UNO_QUERY_THROW);
  auto file = properties({{"URL", officeText(url)}});
  return excel.match(programText(detection->queryTypeByDescriptor(file, true))).hasMatch();
}

// Macros and links are disabled.
std::unique_ptr<Workbook> Office::load(const QString& url)
{
  const Reference<star::frame::XComponentLoader> loader(m_connection.desktop(), UNO_QUERY_THROW);
  const auto document = loader->loadComponentFromURL(officeText(url), officeText(u"_blank"), 0,
                                                     properties({{"Hidden", true},
                                                                 {"MacroExecutionMode", star::document::MacroExecMode::NEVER_EXECUTE},
                                                                 {"UpdateDocMode", star::document::UpdateDocMode::NO_UPDATE}}));
  const Reference<star::sheet::XSpreadsheetDocument> workbook(document, UNO_QUERY);
  if (!workbook.is())
    throw noWorkbook();
  m_workbooks.append(Reference<star::frame::XModel>(workbook, UNO_QUERY_THROW));
  return std::make_unique<OfficeWorkbook>(*this, workbook);
}

bool Office::answers()
{
  return m_connection.isConnected() && call([this] { return m_connection.desktop()->getComponents().is(); }).value_or(false);
}

void Office::kill()
{
  m_connection.disconnect();
  m_process.kill();
  m_process.wait();
  m_workbooks.clear();
}

SpreadsheetResult<void> Office::require()
{
  if (answers())
    return {};
  kill();
  return call([this] {
    if (!m_instanceLock)
      takeInstance();
    startAndConnect();
  });
}

// With a new profile the office exits once before it listens, and must be started again.
void Office::startAndConnect()
{
  m_instance.prepare();
  for (int starts = 0; starts < 2; ++starts)
    if (m_process.start(m_instance) && connectWhileStarting())
      return;
  throw notThere();
}

bool Office::connectWhileStarting()
{
  while (!m_connection.connect(m_instance.pipe)) {
    if (!m_process.isRunning())
      return false;
    std::this_thread::sleep_for(PollEvery);
  }
  return true;
}

bool Office::hasPrinter() const
{
  const Reference<star::awt::XPrinterServer> server(m_connection.service("com.sun.star.awt.PrinterServer"), UNO_QUERY_THROW);
  const auto names = server->getPrinterNames();
  return std::any_of(names.begin(), names.end(), [](const rtl::OUString& name) { return name != "Generic Printer"; });
}

void Office::handOver()
{
  if (!OfficeProcess::hasDisplay())
    return;
  // In this order: a lock left by a killed program means that nobody uses the profile.
  m_instanceLock.reset();
  m_process.letGo();
  m_connection.disconnect();
  m_workbooks.clear();
  m_isOperators = false;
}

void Office::leaveToOperator()
{
  if (m_isOperators || !OfficeProcess::hasDisplay() || !call([this] { return hasOperatorsDocuments(); }).value_or(false))
    return;
  m_isOperators = true;
  m_instanceLock.reset();
  m_process.letGo();
}

bool Office::hasOperatorsDocuments() const
{
  const auto all = m_connection.documents();
  return std::any_of(all.begin(), all.end(), [this](const auto& one) { return !m_workbooks.contains(one); });
}

void Office::close(const Reference<star::frame::XModel>& workbook)
{
  leaveToOperator();
  // An office that has exited has closed it.
  (void)call([&] { Reference<star::util::XCloseable>(workbook, UNO_QUERY_THROW)->close(true); });
  m_workbooks.removeAll(workbook);
  if (m_isOperators)
    handOver();
}

void Office::end()
{
  const bool isAlive = answers();
  if (isAlive)
    leaveToOperator();
  if (m_isOperators)
    return handOver();
  const auto endByItself = [this] {
    for (const auto& workbook : m_workbooks)
      Reference<star::util::XCloseable>(workbook, UNO_QUERY_THROW)->close(true);
    return m_connection.desktop()->terminate();
  };
  if (!isAlive || !call(endByItself).value_or(false) || !call([this] { m_process.wait(); }))
    kill();
}
