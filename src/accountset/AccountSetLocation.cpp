#include "accountset/AccountSetLocation.h"

#include <QUrl>

using namespace Qt::StringLiterals;

QString AccountSetLocation::text() const
{
  return isServer() ? u"server://%1:%2/%3"_s.arg(server.host, server.port, server.database) : file;
}

std::optional<AccountSetLocation> AccountSetLocation::read(const QString& text)
{
  if (!text.startsWith(u"server://"_s))
    return text.isEmpty() ? std::nullopt : std::optional(AccountSetLocation{text, {}});
  const QUrl url(text, QUrl::StrictMode);
  const QString database = url.path(QUrl::FullyDecoded).mid(1);
  if (!url.isValid() || url.host().isEmpty() || url.userName().isEmpty() || database.isEmpty())
    return std::nullopt;
  // The driver name that the suite uses for its server.
  return AccountSetLocation{{},
                            {.driver = u"SQL Server"_s,
                             .host = url.host(),
                             .port = QString::number(url.port(5432)),
                             .database = database,
                             .user = url.userName(QUrl::FullyDecoded),
                             .password = url.password(QUrl::FullyDecoded)}};
}
