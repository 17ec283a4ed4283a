#pragma once

#include <QList>
#include <QString>

#include <com/sun/star/bridge/XBridge.hpp>
#include <com/sun/star/connection/XConnection.hpp>
#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

// A connection to an office process that listens on a pipe. Calls over it throw the office's exceptions.
class OfficeConnection {
public:
  // The office's program folder, which this side's libraries are loaded from, too.
  explicit OfficeConnection(const QString& programFolder);
  ~OfficeConnection();

  // Whether an office listens on a pipe; sends nothing, and so never waits.
  bool isListening(const QString& pipe) const;
  // False if nobody listens, or if the connection was lost before the office answered, as can happen on a busy
  // machine: a caller who knows that it runs tries again.
  bool connect(const QString& pipe);
  void disconnect();
  bool isConnected() const { return m_remote.is(); }

  com::sun::star::uno::Reference<com::sun::star::frame::XDesktop> desktop() const { return m_desktop; }
  // Drops the connection from another thread, so that a waiting call fails.
  void abandon();
  // The documents open in the office.
  QList<com::sun::star::uno::Reference<com::sun::star::frame::XModel>> documents() const;
  // A service of the office by its name.
  com::sun::star::uno::Reference<com::sun::star::uno::XInterface> service(const char* name) const;

private:
  com::sun::star::uno::Reference<com::sun::star::connection::XConnection> lineTo(const QString& pipe) const;

  com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> m_local;
  com::sun::star::uno::Reference<com::sun::star::bridge::XBridge> m_bridge;
  com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> m_remote;
  com::sun::star::uno::Reference<com::sun::star::frame::XDesktop> m_desktop;
};
