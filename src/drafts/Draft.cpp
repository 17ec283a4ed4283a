#include "drafts/Draft.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

// Changes with every change of what a draft holds, or means.
constexpr char Version[] = "ZORVEK draft 1 ";

QByteArray headOf(const QByteArray& content)
{
  return Version + QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex() + '\n';
}

// A draft that holds anything else than it should is no draft.
class Reader {
public:
  explicit Reader(QJsonObject object) : m_object(std::move(object)) {}

  bool isGood() const { return m_isGood; }
  QJsonValue value(QLatin1StringView name) const { return m_object.value(name); }
  QString text(QLatin1StringView name) { return text(value(name)); }

  bool truth(QLatin1StringView name)
  {
    require(value(name).isBool());
    return value(name).toBool();
  }

  QString text(const QJsonValue& value)
  {
    require(value.isString());
    return value.toString();
  }

  QStringList texts(const QJsonValue& value)
  {
    require(value.isArray());
    QStringList all;
    for (const auto& one : value.toArray())
      all.append(text(one));
    return all;
  }

  QMap<QString, QString> named(QLatin1StringView name)
  {
    require(value(name).isObject());
    const QJsonObject object = value(name).toObject();
    QMap<QString, QString> all;
    for (auto one = object.begin(); one != object.end(); ++one)
      all.insert(one.key(), text(*one));
    return all;
  }

  QList<QStringList> rows(QLatin1StringView name)
  {
    require(value(name).isArray());
    QList<QStringList> all;
    for (const auto& row : value(name).toArray())
      all.append(texts(row));
    return all;
  }

  void require(bool holds) { m_isGood = m_isGood && holds; }

private:
  QJsonObject m_object;
  bool m_isGood = true;
};

QJsonArray toJson(const QList<QStringList>& rows)
{
  QJsonArray all;
  for (const QStringList& row : rows)
    all.append(QJsonArray::fromStringList(row));
  return all;
}

} // namespace

QByteArray Draft::toBytes() const
{
  QJsonObject texts;
  for (auto field = fields.begin(); field != fields.end(); ++field)
    texts.insert(field.key(), *field);
  const QJsonObject all{{u"keptAt"_s, keptAt.toString(Qt::ISODate)},
                        {u"sum"_s, sum},
                        {u"fields"_s, texts},
                        {u"lines"_s, toJson(lines)},
                        {u"isSaved"_s, isSaved},
                        {u"table"_s, table},
                        {u"code"_s, code},
                        {u"read"_s, read ? QJsonValue(QJsonArray::fromStringList(*read)) : QJsonValue()}};
  const QByteArray content = QJsonDocument(all).toJson(QJsonDocument::Compact);
  return headOf(content) + content;
}

std::optional<Draft> Draft::ofBytes(const QByteArray& bytes)
{
  const QByteArray content = bytes.mid(bytes.indexOf('\n') + 1);
  if (bytes != headOf(content) + content)
    return std::nullopt;
  Reader from(QJsonDocument::fromJson(content).object());
  Draft draft{.keptAt = QDateTime::fromString(from.text("keptAt"_L1), Qt::ISODate),
              .sum = from.text("sum"_L1),
              .fields = from.named("fields"_L1),
              .lines = from.rows("lines"_L1),
              .isSaved = from.truth("isSaved"_L1),
              .table = from.text("table"_L1),
              .code = from.text("code"_L1),
              .read = std::nullopt};
  if (!from.value("read"_L1).isNull())
    draft.read = from.texts(from.value("read"_L1));
  from.require(draft.keptAt.isValid());
  return from.isGood() ? std::optional(draft) : std::nullopt;
}
