#include "BoxAnswer.h"

#include "Failure.h"
#include "PlaceText.h"

namespace BoxAnswer {
namespace {

using Answer = Desk::Answer;
using Buttons = Desk::Buttons;

constexpr int Patience = 100;

Answer answerOf(const QString& word)
{
  if (word == u"yes")
    return Answer::Yes;
  if (word == u"no")
    return Answer::No;
  return word == u"cancel" ? Answer::Cancel : Answer::Ok;
}

bool hasButton(const Desk::Box& box, Answer answer)
{
  switch (answer) {
  case Answer::Ok: return box.buttons != Buttons::YesNo;
  case Answer::Cancel: return box.buttons == Buttons::OkCancel;
  case Answer::Yes:
  case Answer::No: return box.buttons == Buttons::YesNo;
  }
  return false;
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
    throw Failure(QStringLiteral("expected the icon %1, was %2").arg(iconNames().at(int(*directive.icon)), describe(box)));
  const Answer answer = answerOf(directive.verb == Verb::Ask ? directive.word : QString());
  if (!hasButton(box, answer))
    throw Failure(QStringLiteral("the box has no button \"%1\": %2").arg(directive.word.isEmpty() ? "ok" : directive.word, describe(box)));
  return answer;
}

Answer declining(const Desk::Box& box, int declinedSoFar)
{
  const bool other = declinedSoFar > Patience && declinedSoFar % 2;
  switch (box.buttons) {
  case Buttons::Ok: return Answer::Ok;
  case Buttons::OkCancel: return other ? Answer::Ok : Answer::Cancel;
  case Buttons::YesNo: return other ? Answer::Yes : Answer::No;
  }
  return Answer::Ok;
}

QString describe(const Desk::Box& box)
{
  return QStringLiteral("\"%1\" [%2]").arg(PlaceText::onOneLine(box.text), iconNames().at(int(box.icon)));
}

} // namespace BoxAnswer
