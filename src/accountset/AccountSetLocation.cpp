#include "accountset/AccountSetLocation.h"

#include <QUrl>

QString AccountSetLocation::text() const
{
  return isServer() ? QStringLiteral("server://%1:%2/%3").arg(server.host, server.port, server.database) : file;
}

std::optional<AccountSetLocation> AccountSetLocation::read(const QString& text)
{
  if (!text.startsWith(QStringLiteral("server://")))
    return text.isEmpty() ? std::nullopt : std::optional(AccountSetLocation{text, {}});
  const QUrl url(text, QUrl::StrictMode);
  const QString database = url.path(QUrl::FullyDecoded).mid(1);
  if (!url.isValid() || url.host().isEmpty() || url.userName().isEmpty() || database.isEmpty())
    return std::nullopt;
  // The name under which the program family asks for its server.
  return AccountSetLocation{{},
                            {.driver = QStringLiteral("SQL Server"),
                             .host = url.host(),
                             .port = QString::number(url.port(5432)),
                             .database = database,
                             .user = url.userName(QUrl::FullyDecoded),
                             .password = url.password(QUrl::FullyDecoded)}};
}
