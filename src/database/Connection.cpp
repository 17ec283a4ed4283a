#include "database/Connection.h"

#include "database/ConnectionText.h"
#include "database/EmbeddedEngine.h"

namespace {

// The number under which a connection that cannot be made is reported.
constexpr int CannotConnect = -2147467259;

std::unique_ptr<DatabaseError> cannotConnect(const QString& why)
{
  return std::make_unique<DatabaseError>(DatabaseError{CannotConnect, why});
}

} // namespace

std::unique_ptr<DatabaseError> Connection::open(const QString& connectionText)
{
  close();
  const ConnectionText text(connectionText);
  if (!text.isJet())
    return cannotConnect(connectionText.isEmpty() ? QStringLiteral("没有连接字符串")
                                                  : QStringLiteral("未找到数据源名称并且未指定默认驱动程序"));
  EmbeddedEngine::Opening opening = EmbeddedEngine::open(text.filePath());
  if (!opening.engine)
    return std::make_unique<DatabaseError>(opening.error);
  m_engine = std::move(opening.engine);
  return nullptr;
}

Connection::Outcome Connection::run(const QString& sql)
{
  if (!isOpen())
    return {{}, cannotConnect(QStringLiteral("连接没有打开"))};
  StatementResult result = m_engine->execute(sql);
  if (result.error)
    return {{}, std::move(result.error)};
  return {result.isQuery ? Recordset(std::move(result.rows)) : Recordset(), nullptr};
}
