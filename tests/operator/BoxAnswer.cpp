#include "BoxAnswer.h"

#include "Failure.h"

#include "PlaceText.h"
#include <QHash>

namespace BoxAnswer {
namespace {

using Answer = Desk::Answer;
using Buttons = Desk::Buttons;

constexpr int Patience = 100;

// What a box may be answered, declining first.
QList<Answer> answersTo(const Desk::Box& box)
{
  switch (box.buttons) {
  case Buttons::Ok: return {Answer::Ok};
  case Buttons::OkCancel: return {Answer::Cancel, Answer::Ok};
  case Buttons::YesNo: return {Answer::No, Answer::Yes};
  }
  return {};
}

bool hasText(const Desk::Box& box, const QString& expected)
{
  const QString text = PlaceText::onOneLine(box.text);
  if (expected.endsWith(u'*') && text.startsWith(PlaceText::unquoted(QStringView(expected).chopped(1))))
    return true;
  return text == expected;
}

} // namespace

Answer of(const Directive& directive, const Desk::Box& box)
{
  if (directive.verb != Verb::Message && directive.verb != Verb::Ask)
    throw Failure(QStringLiteral("expected no box, was %1").arg(describe(box)));
  if (!hasText(box, directive.text))
    throw Failure(QStringLiteral("expected the box \"%1\", was %2").arg(directive.text, describe(box)));
  if (directive.icon && *directive.icon != box.icon)
    throw Failure(QStringLiteral("expected the icon %1, was %2").arg(iconName(*directive.icon), describe(box)));
  static const QHash<QString, Answer> answers = {{"yes", Answer::Yes}, {"no", Answer::No}, {"cancel", Answer::Cancel}};
  const Answer answer = answers.value(directive.word, Answer::Ok);
  if (!answersTo(box).contains(answer))
    throw Failure(QStringLiteral("the box has no button \"%1\": %2").arg(directive.word.isEmpty() ? "ok" : directive.word, describe(box)));
  return answer;
}

Answer declining(const Desk::Box& box, int declinedSoFar)
{
  const QList<Answer> answers = answersTo(box);
  return declinedSoFar > Patience && declinedSoFar % 2 ? answers.last() : answers.first();
}

QString describe(const Desk::Box& box)
{
  return QStringLiteral("\"%1\" [%2]").arg(PlaceText::onOneLine(box.text), iconName(box.icon));
}

} // namespace BoxAnswer
