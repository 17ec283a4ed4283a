#include "database/Connection.h"

#include "database/ConnectionText.h"
#include "database/EmbeddedEngine.h"
#include "database/ServerEngine.h"

using namespace Qt::StringLiterals;

namespace {

// The error number of a connection that cannot be made.
constexpr int CannotConnect = -2147467259;

} // namespace

DatabaseResult<void> Connection::open(const QString& connectionText)
{
  close();
  m_text = connectionText;
  const ConnectionText text(connectionText);
  if (!text.isJet() && !text.isDriver())
    return databaseError(CannotConnect, connectionText.isEmpty() ? u"没有连接字符串"_s : u"未找到数据源名称并且未指定默认驱动程序"_s);
  auto engine = text.isJet() ? EmbeddedEngine::open(text.filePath()) : ServerEngine::open(text.server());
  if (!engine)
    return tl::unexpected(engine.error());
  m_engine = *std::move(engine);
  return {};
}

DatabaseResult<Recordset> Connection::run(const QString& sql)
{
  if (!isOpen())
    return databaseError(CannotConnect, u"连接没有打开"_s);
  auto rows = m_engine->execute(sql);
  if (!rows && rows.error().isRepeatable && !m_isInTransaction) {
    if (const auto opened = open(m_text); !opened)
      return tl::unexpected(opened.error());
    rows = m_engine->execute(sql);
  }
  return std::move(rows).map([](RowSet&& read) { return Recordset(std::move(read)); });
}

DatabaseResult<void> Connection::begin()
{
  if (!isOpen())
    return databaseError(CannotConnect, u"连接没有打开"_s);
  auto begun = m_engine->begin();
  if (!begun && begun.error().isRepeatable) {
    if (const auto opened = open(m_text); !opened)
      return opened;
    begun = m_engine->begin();
  }
  m_isInTransaction = begun.has_value();
  return begun;
}

DatabaseResult<void> Connection::commit()
{
  m_isInTransaction = false;
  if (!isOpen())
    return databaseError(CannotConnect, u"连接没有打开"_s);
  return m_engine->commit();
}

void Connection::rollback()
{
  m_isInTransaction = false;
  if (isOpen())
    m_engine->rollback();
}
