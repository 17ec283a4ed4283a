#include "bills/BillForm.h"

#include "platform/Trim.h"
#include "printing/PrintHandOff.h"

// The printouts of a bill.

void BillForm::PrintHandOff(const QString& printType)
{
  if (!mayDo(RightKind::Print))
    return;
  PrintJob job{
      .title = billName(), .head = printLines(traits().printHead), .foot = printLines(traits().printFoot), .printed = printedGrid()};
  if (isVoided())
    job.title += "（已作废）";
  ::PrintHandOff(session, job, printType);
}

QStringList BillForm::printLines(std::span<const PrintLine> lines) const
{
  QStringList texts;
  for (const PrintLine& line : lines)
    texts.append(QString::fromUtf16(line.label) + Trim(find(QString::fromLatin1(line.control))->shownText()));
  return texts;
}
