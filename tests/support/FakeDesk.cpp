#include "support/FakeDesk.h"

#include <QStringList>

QString FakeDesk::takeTexts()
{
  QStringList texts;
  for (const Box& box : boxes)
    texts.append(box.text);
  boxes.clear();
  return texts.join(u'\n');
}

Desk::Answer FakeDesk::ask(const Box& box)
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
