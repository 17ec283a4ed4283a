#pragma once

#include <QList>
#include <QString>

#include <com/sun/star/bridge/XBridge.hpp>
#include <com/sun/star/connection/XConnection.hpp>
#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

// A line to an office program that listens on a pipe. Calls over it throw exceptions of the office.
class OfficeConnection {
public:
  // The office's program folder, from which this side of the line comes too.
  explicit OfficeConnection(const QString& programFolder);
  ~OfficeConnection();

  // Whether an office listens on a pipe; asks it nothing, and so never waits for it.
  bool isListening(const QString& pipe) const;
  // False if nobody listens, or if the line was lost before the office had answered, as now and then happens
  // on a busy machine: whoever knows that it runs tries again.
  bool connect(const QString& pipe);
  void disconnect();
  bool isConnected() const { return m_remote.is(); }

  com::sun::star::uno::Reference<com::sun::star::frame::XDesktop> desktop() const { return m_desktop; }
  // Loses the line from another thread, so that a call that waits for its answer fails.
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
