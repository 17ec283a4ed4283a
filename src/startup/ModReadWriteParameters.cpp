#include "startup/ModReadWriteParameters.h"

#include "platform/DateText.h"
#include "platform/Machine.h"
#include "platform/NumberText.h"
#include "platform/SafeFile.h"
#include "platform/Trim.h"
#include "session/Session.h"
#include "startup/ModChangeStr.h"

#include <algorithm>
#include <variant>

using namespace Qt::StringLiterals;

namespace ModReadWriteParameters {
namespace {

using Params = SessionParams;

struct Field {
  const char* key;
  std::variant<QString Params::*, qint16 Params::*, bool Params::*, QDate Params::*> member;
  bool trimmedWhenWritten = false;
};

// The order is part of the format, because readers only read forward.
const Field Fields[] = {
    {"SoftType", &Params::SoftType, true},
    {"OperatorsNum", &Params::OperatorsNum},
    {"DatabaseType", &Params::DatabaseType, true},
    {"VisionNum", &Params::VisionNum, true},
    {"VisionType", &Params::VisionType, true},
    {"AccountVisionType", &Params::AccountVisionType, true},
    {"AccountVisionClass", &Params::AccountVisionClass},
    {"LoginType", &Params::LoginType, true},
    {"CalCostType", &Params::CalCostType, true},
    {"IsJXC", &Params::IsJXC},
    {"demoData", &Params::demoData},
    {"IsAccessSQL", &Params::IsAccessSQL},
    {"IsLotMoney", &Params::IsLotMoney},
    {"ConDataName", &Params::ConDataName},
    {"ConDataRemark", &Params::ConDataRemark},
    {"PrintModleName", &Params::PrintModleName},
    {"ConDataBaseUID", &Params::ConDataBaseUID},
    {"ConDataBasePWD", &Params::ConDataBasePWD},
    {"ConServerIP", &Params::ConServerIP},
    {"ConPortNum", &Params::ConPortNum},
    {"OperateType", &Params::OperateType},
    {"UserName", &Params::UserName},
    {"UserPSW", &Params::UserPSW},
    {"UserNum", &Params::UserNum},
    {"OperateDate", &Params::OperateDate},
    {"CloudAccount", &Params::CloudAccount},
    {"CloudAccount2", &Params::CloudAccount2},
    {"OperationsDirective", &Params::OperationsDirective},
    {"OperationsDirective2", &Params::OperationsDirective2},
    {"OperationsDirective3", &Params::OperationsDirective3},
    {"OperationsDirective4", &Params::OperationsDirective4},
    {"OperationsDirective5", &Params::OperationsDirective5},
};

// Far more than the longest file of the suite.
constexpr qint64 LargestFile = 1 << 20;

// The lines of the file, read forward only.
class ParameterReader {
public:
  explicit ParameterReader(const QByteArray& content)
  {
    for (QByteArray line : content.split('\n')) {
      if (line.endsWith('\r'))
        line.chop(1);
      m_lines.append(ModChangeStr::ChangeStrDecode(line));
    }
    // Text after the last line break is ignored.
    m_lines.removeLast();
  }

  // True if at least one line has the name of a key, in any order: otherwise this is not a parameter file.
  bool carriesAnyKey() const
  {
    const auto isOfKey = [](const QString& line) {
      const QStringView name = QStringView(line).left(qMax<qsizetype>(0, line.indexOf(u'=')));
      return std::any_of(std::begin(Fields), std::end(Fields), [name](const Field& field) { return name == QLatin1String(field.key); });
    };
    return std::any_of(m_lines.begin(), m_lines.end(), isOfKey);
  }

  // The value of a key, searched from where the last search ended. Empty if the file ends first, or if a line comes
  // that is neither a value nor a heading.
  QString ReadParameter(const QString& key)
  {
    while (m_at < m_lines.size()) {
      const QString& line = m_lines[m_at++];
      const qsizetype equals = line.indexOf(u'=');
      const qsizetype colon = line.indexOf(u':');
      if (equals < 0 && colon < 0)
        return {};
      const bool isHeading = colon >= 0 && (equals < 0 || colon < equals);
      if (!isHeading && line.left(equals) == key)
        return line.mid(equals + 1);
    }
    return {};
  }

private:
  QStringList m_lines;
  qsizetype m_at = 0;
};

void take(Params& params, const Field& field, const QString& value)
{
  if (const auto text = std::get_if<QString Params::*>(&field.member))
    params.** text = value;
  else if (const auto flag = std::get_if<bool Params::*>(&field.member))
    params.** flag = Trim(value) == u"1";
  else if (const auto date = std::get_if<QDate Params::*>(&field.member))
    params.** date = DateText::parse(value).value_or(QDate());
  else
    params.*std::get<qint16 Params::*>(field.member) = qint16(qBound(-32768.0, NumberText::numericPrefix(value), 32767.0));
}

QString give(const Params& params, const Field& field)
{
  if (const auto text = std::get_if<QString Params::*>(&field.member))
    return field.trimmedWhenWritten ? Trim(params.**text) : params.**text;
  if (const auto flag = std::get_if<bool Params::*>(&field.member))
    return params.**flag ? u"1"_s : u"0"_s;
  if (const auto date = std::get_if<QDate Params::*>(&field.member))
    return DateText::shortForm(params.**date);
  return NumberText::plain(params.*std::get<qint16 Params::*>(field.member));
}

} // namespace

QStringList keys()
{
  QStringList names;
  for (const Field& field : Fields)
    names.append(QString::fromLatin1(field.key));
  return names;
}

bool ReadSystemParameters(const Machine& machine, SessionParams& params)
{
  const auto content = SafeFile::take(machine.inProgramFolder(QString::fromLatin1(FileName)), LargestFile + 1);
  // A file that does not end in a line break is truncated.
  if (!content || content->size() > LargestFile || !content->endsWith('\n'))
    return false;

  ParameterReader reader(*content);
  if (!reader.carriesAnyKey())
    return false;
  SessionParams read;
  for (const Field& field : Fields)
    take(read, field, reader.ReadParameter(QString::fromLatin1(field.key)));
  read.OperateType = read.OperationsDirective;
  if (!read.OperateDate.isValid())
    read.OperateDate = machine.today();
  read.IsAccessSQL = read.DatabaseType == u"Access";
  params = read;
  return true;
}

std::optional<QByteArray> fileContent(const QHash<QString, QString>& values)
{
  QByteArray content;
  for (const QString& key : keys()) {
    const QString line = key + u'=' + values.value(key);
    const QByteArray scrambled = ModChangeStr::ChangeStrEncode(line);
    // Shifting maps two control characters to CR and LF and others to lead bytes.
    if (ModChangeStr::ChangeStrDecode(scrambled) != Trim(line) || scrambled.contains('\n') || scrambled.contains('\r'))
      return std::nullopt;
    content += scrambled + "\r\n";
  }
  return content;
}

bool writeFile(const QString& folder, const QByteArray& content)
{
  return SafeFile::write(folder + u'/' + QString::fromLatin1(FileName), content, SafeFile::ForThisUser);
}

bool WriteSystemParameters(Session& session, const Directives& directives)
{
  SessionParams params = session.params;
  params.OperationsDirective = Trim(directives.first);
  params.OperationsDirective2 = Trim(directives.second);
  params.OperationsDirective3 = Trim(directives.third);
  params.OperationsDirective4 = Trim(directives.fourth);
  params.OperationsDirective5 = Trim(directives.fifth);
  QHash<QString, QString> values;
  for (const Field& field : Fields)
    values.insert(QString::fromLatin1(field.key), give(params, field));
  const auto content = fileContent(values);
  if (content && writeFile(session.machine.programFolder(), *content))
    return true;
  QFile::remove(session.machine.inProgramFolder(QString::fromLatin1(FileName)));
  session.desk.stop(u"参数存取失败！"_s);
  return false;
}

} // namespace ModReadWriteParameters
