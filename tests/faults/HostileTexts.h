#pragma once

#include <QStringList>

// Texts that would do harm if any of them left its quotes: they would write rows of their own, marked Forged, or read
// what is Secret. Each way out of the quotes is combined with each payload.
namespace HostileTexts {

const QString Forged = QStringLiteral("FORGED");
const QString Secret = QStringLiteral("SECRET");

inline QStringList all()
{
  static const QString Starts[] = {QStringLiteral(""),      QStringLiteral("x"),    QStringLiteral("%"), QStringLiteral("1001"),
                                   QStringLiteral("it''s"), QStringLiteral("清泉"), QStringLiteral("\\")};
  static const QString Quotes[] = {QStringLiteral("'"), QStringLiteral("'''"), QStringLiteral("''"), QStringLiteral("\""),
                                   QStringLiteral("＇")};
  static const QString Payloads[] = {
      QStringLiteral("||(select Address from TabClient where Code=@G011@)||"),
      QStringLiteral(" or 1=1 or Code="),
      QStringLiteral(" or Name=(select Name from TabClient where Address=@SECRET@) or Code="),
      QStringLiteral(" union all select Address,Address from TabClient where Address like @SEC%"),
      QStringLiteral(" union all select Address,Address,Address from TabClient--"),
      QStringLiteral("; delete from TabClient; select @"),
      QStringLiteral("; insert into TabStuff(Code,Name) values(@FORGED@,@FORGED@);--"),
      QStringLiteral("; update TabPayfundBill set Auditing=@FORGED@;--"),
      QStringLiteral(",@付款@,@正常@,@@,@@,@@,1,@@),(@FORGED@,@2022-6-8@,@G002@,@FORGED@,@@,9,@m@,@付款@,@正常@,@@,@@,@@,1,@FORGED"),
      QStringLiteral(",@正常@,@@,1,@@),(1,@2022-6-8@,@FORGED@,@G002@,@@,@1001@,@@,9,@@,@正常@,@@,1,@FORGED"),
      QStringLiteral(",@正常@,@@,1,@@),(1,@2022-6-8@,@FORGED@,@1001@,@@,9,@@,@正常@,@@,1,@FORGED"),
      QStringLiteral(",Auditing=@FORGED@,Remark=@"),
      QStringLiteral(" where 1=1--"),
      QStringLiteral("/*"),
      QStringLiteral(" and 1=cast((select Address from TabClient limit 1) as integer) and @1@=@1"),
  };
  QStringList texts;
  for (const QString& start : Starts)
    for (const QString& quote : Quotes)
      for (const QString& payload : Payloads)
        texts.append(start + quote + QString(payload).replace(u'@', quote) + (payload.endsWith(u'=') ? quote : QString()));
  return texts;
}

} // namespace HostileTexts
