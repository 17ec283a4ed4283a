#include "spreadsheet/office/Office.h"

#include "spreadsheet/office/OfficeWorkbook.h"
#include "spreadsheet/office/Properties.h"

#include <QDir>
#include <QLockFile>
#include <QUrl>

#include <com/sun/star/awt/XPrinterServer.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/util/XCloseable.hpp>

namespace star = com::sun::star;
using namespace std::chrono_literals;
using star::uno::Reference;
using star::uno::UNO_QUERY;
using star::uno::UNO_QUERY_THROW;

namespace {

constexpr int MostPlaces = 100;
constexpr auto PollEvery = 5ms;

RunTimeError notThere()
{
  return {RunTimeError::NoSpreadsheet, QStringLiteral("ActiveX 部件不能创建对象")};
}

QString installedFolder()
{
  const QString folder = OfficeProcess::programFolder();
  return folder.isEmpty() ? throw notThere() : folder;
}

} // namespace

Office::Office(std::chrono::milliseconds limit) : m_connection(installedFolder()), m_patience(limit, [this] { m_process.kill(); }) {}

Office::~Office()
{
  end();
}

// A place whose office still listens has a workbook of the operator in it.
void Office::takePlace()
{
  for (int number = 1; number <= MostPlaces; ++number) {
    m_place = OfficePlace::numbered(number);
    QDir().mkpath(m_place.profileFolder);
    m_placeLock = std::make_unique<QLockFile>(m_place.profileFolder + "/taken");
    m_placeLock->setStaleLockTime(0);
    if (m_placeLock->tryLock(0) && !m_connection.isListening(m_place.pipe))
      return;
  }
  throw notThere();
}

std::unique_ptr<Workbook> Office::open(const QString& path)
{
  return load(QString::fromLatin1(QUrl::fromLocalFile(QDir(path).absolutePath()).toEncoded()));
}

std::unique_ptr<Workbook> Office::create()
{
  return load(QStringLiteral("private:factory/scalc"));
}

// A workbook comes from a database that others write: its macros and links stay asleep.
std::unique_ptr<Workbook> Office::load(const QString& url)
{
  require();
  return call([&] {
    const Reference<star::frame::XComponentLoader> loader(m_connection.desktop(), UNO_QUERY_THROW);
    const auto document = loader->loadComponentFromURL(officeText(url), officeText(u"_blank"), 0,
                                                       properties({{"Hidden", true},
                                                                   {"MacroExecutionMode", star::document::MacroExecMode::NEVER_EXECUTE},
                                                                   {"UpdateDocMode", star::document::UpdateDocMode::NO_UPDATE}}));
    const Reference<star::sheet::XSpreadsheetDocument> workbook(document, UNO_QUERY);
    if (!workbook.is()) {
      if (const Reference<star::util::XCloseable> other(document, UNO_QUERY); other.is())
        other->close(true);
      throw RunTimeError(RunTimeError::Automation, QStringLiteral("不是工作簿"));
    }
    return std::make_unique<OfficeWorkbook>(*this, workbook);
  });
}

bool Office::answers()
{
  try {
    return m_connection.isConnected() && call([this] { return m_connection.desktop()->getComponents().is(); });
  } catch (const RunTimeError&) {
    return false;
  }
}

void Office::require()
{
  if (answers())
    return;
  m_connection.disconnect();
  m_process.kill();
  m_process.wait();
  if (!m_placeLock)
    takePlace();
  startAndConnect();
}

// With a new profile the office ends once before it listens, and wants to be started again.
void Office::startAndConnect()
{
  call([this] {
    m_place.prepare();
    for (int starts = 0; starts < 2; ++starts)
      if (m_process.start(m_place) && connectWhileStarting())
        return;
    throw notThere();
  });
}

bool Office::connectWhileStarting()
{
  while (!m_connection.connect(m_place.pipe)) {
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
  m_connection.disconnect();
  m_process.letGo();
  m_placeLock.reset();
}

void Office::end()
{
  try {
    const bool isEnding = answers() && call([this] {
                            m_connection.closeAll();
                            return m_connection.desktop()->terminate();
                          });
    if (isEnding)
      return call([this] { m_process.wait(); });
  } catch (const RunTimeError&) {
    // An office that does not answer is ended without being asked.
  }
  m_process.kill();
  m_process.wait();
}
