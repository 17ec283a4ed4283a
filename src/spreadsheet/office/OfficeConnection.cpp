#include "spreadsheet/office/OfficeConnection.h"

#include "spreadsheet/office/Text.h"

#include <QUrl>

#include <com/sun/star/bridge/BridgeFactory.hpp>
#include <com/sun/star/connection/Connector.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <rtl/bootstrap.hxx>

#include <csignal>

using namespace Qt::StringLiterals;

namespace star = com::sun::star;
using star::uno::Reference;
using star::uno::UNO_QUERY;
using star::uno::UNO_QUERY_THROW;

namespace {

// Breaks the reference cycle.
void dispose(const Reference<star::uno::XInterface>& object)
{
  if (const Reference<star::lang::XComponent> component(object, UNO_QUERY); component.is())
    component->dispose();
}

} // namespace

OfficeConnection::OfficeConnection(const QString& programFolder)
{
  // Writing to a dead office must return an error, not kill this process.
  std::signal(SIGPIPE, SIG_IGN);
  // Without it this side does not know the types of documents.
  rtl::Bootstrap::set(officeText(u"URE_BOOTSTRAP"), officeText(u"vnd.sun.star.pathname:"_s + programFolder + u"/fundamentalrc"_s));
  const QUrl types = QUrl::fromLocalFile(programFolder + u"/unorc"_s);
  m_local = cppu::defaultBootstrap_InitialComponentContext(officeText(QString::fromLatin1(types.toEncoded())));
}

OfficeConnection::~OfficeConnection()
{
  disconnect();
  dispose(m_local);
}

// Null if nobody listens.
Reference<star::connection::XConnection> OfficeConnection::lineTo(const QString& pipe) const
{
  try {
    return star::connection::Connector::create(m_local)->connect(officeText(u"pipe,name="_s + pipe));
  } catch (const star::connection::NoConnectException&) {
    return {};
  }
}

bool OfficeConnection::isListening(const QString& pipe) const
{
  const auto line = lineTo(pipe);
  if (line.is())
    line->close();
  return line.is();
}

bool OfficeConnection::connect(const QString& pipe)
{
  const auto line = lineTo(pipe);
  if (!line.is())
    return false;
  m_bridge = star::bridge::BridgeFactory::create(m_local)->createBridge({}, officeText(u"urp"), line, {});
  try {
    m_remote.set(m_bridge->getInstance(officeText(u"StarOffice.ComponentContext")), UNO_QUERY_THROW);
    m_desktop.set(service("com.sun.star.frame.Desktop"), UNO_QUERY_THROW);
  } catch (const star::lang::DisposedException&) {
    disconnect();
    return false;
  }
  return true;
}

void OfficeConnection::disconnect()
{
  m_desktop.clear();
  m_remote.clear();
  dispose(m_bridge);
  m_bridge.clear();
}

void OfficeConnection::abandon()
{
  dispose(m_bridge);
}

QList<Reference<star::frame::XModel>> OfficeConnection::documents() const
{
  QList<Reference<star::frame::XModel>> all;
  const auto components = m_desktop->getComponents()->createEnumeration();
  while (components->hasMoreElements())
    if (const Reference<star::frame::XModel> document(components->nextElement(), UNO_QUERY); document.is())
      all.append(document);
  return all;
}

Reference<star::uno::XInterface> OfficeConnection::service(const char* name) const
{
  return m_remote->getServiceManager()->createInstanceWithContext(rtl::OUString::createFromAscii(name), m_remote);
}
