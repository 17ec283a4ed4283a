#include "database/Connection.h"

#include "database/ConnectionText.h"
#include "database/EmbeddedEngine.h"
#include "database/ServerEngine.h"

namespace {

// The number under which a connection that cannot be made is reported.
constexpr int CannotConnect = -2147467259;

std::unique_ptr<DatabaseError> cannotConnect(const QString& why)
{
  return std::make_unique<DatabaseError>(DatabaseError{CannotConnect, why});
}

// An engine's way of opening, whichever it is, as the holder takes it.
template <typename Opening> std::unique_ptr<DatabaseError> take(Opening opening, std::unique_ptr<Engine>& engine)
{
  engine = std::move(opening.engine);
  return engine ? nullptr : std::make_unique<DatabaseError>(opening.error);
}

} // namespace

std::unique_ptr<DatabaseError> Connection::open(const QString& connectionText)
{
  close();
  m_text = connectionText;
  const ConnectionText text(connectionText);
  if (text.isJet())
    return take(EmbeddedEngine::open(text.filePath()), m_engine);
  if (text.isDriver())
    return take(ServerEngine::open(text.server()), m_engine);
  return cannotConnect(connectionText.isEmpty() ? QStringLiteral("没有连接字符串")
                                                : QStringLiteral("未找到数据源名称并且未指定默认驱动程序"));
}

Connection::Outcome Connection::run(const QString& sql)
{
  if (!isOpen())
    return {{}, cannotConnect(QStringLiteral("连接没有打开"))};
  StatementResult result = m_engine->execute(sql);
  if (result.isRepeatable) {
    if (auto error = open(QString(m_text)))
      return {{}, std::move(error)};
    result = m_engine->execute(sql);
  }
  if (result.error)
    return {{}, std::move(result.error)};
  return {result.isQuery ? Recordset(std::move(result.rows)) : Recordset(), nullptr};
}
