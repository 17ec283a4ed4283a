#include "support/FakeDesk.h"

#include <QScopeGuard>
#include <QStringList>

QString FakeDesk::takeTexts()
{
  QStringList texts;
  for (const Box& box : boxes)
    texts.append(box.text);
  boxes.clear();
  return texts.join(u'\n');
}

Desk::Answer FakeDesk::showBox(const Box& box)
{
  boxes.append(box);
  if (!answers.isEmpty())
    return answers.takeFirst();
  switch (box.buttons) {
  case Buttons::Ok: return Answer::Ok;
  case Buttons::OkCancel: return Answer::Cancel;
  case Buttons::YesNo: return Answer::No;
  }
  return Answer::Ok;
}

void FakeDesk::show(Form& form)
{
  shown.append(&form);
  form.opened();
}

void FakeDesk::showModal(Form& form)
{
  show(form);
  if (inDialog)
    inDialog(form);
}

void FakeDesk::showDuring(Form& form, const std::function<void()>& work)
{
  show(form);
  const auto gone = qScopeGuard([&] { form.close(); });
  work();
}

void FakeDesk::breathe()
{
  if (inWork && !shown.isEmpty())
    inWork(*shown.last());
}
