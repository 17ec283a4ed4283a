#include "Player.h"

#include "BoxAnswer.h"
#include "Failure.h"
#include "PlaceText.h"
#include "program/ProgramScreens.h"
#include "startup/Entry.h"

#include <QDir>

Player::Player(const Script& script, Environment& environment, const Options& options)
    : m_script(script), m_environment(environment), m_options(options), m_driver(options.makeDriver(*this)),
      m_checks(environment, *m_driver)
{
}

Player::~Player() = default;

Player::Verdict Player::play()
{
  playWhile([] { return true; });
  m_driver->clear();
  if (m_verdict.failedLine == 0 && m_checked == 0)
    fail(m_script.directives.isEmpty() ? 1 : m_script.directives.last().line, QStringLiteral("the script checks nothing"));
  return m_verdict;
}

void Player::playWhile(const std::function<bool()>& goesOn)
{
  while (!m_over && goesOn()) {
    if (m_options.atRest)
      m_options.atRest();
    if (m_next == m_script.directives.size())
      m_over = true;
    else
      takeNext([this](const Directive& directive) { perform(directive); });
  }
}

void Player::takeNext(const std::function<void(const Directive&)>& play)
{
  const Directive& directive = m_script.directives[m_next++];
  m_options.onLine(directive.line);
  try {
    play(directive);
  } catch (const Failure& failure) {
    fail(directive.line, failure.reason());
  } catch (const std::exception& error) {
    fail(directive.line, QStringLiteral("an error left the program untrapped: %1").arg(QString::fromUtf8(error.what())));
  }
}

void Player::fail(int line, const QString& reason)
{
  m_over = true;
  if (m_verdict.failedLine == 0)
    m_verdict = {line, reason};
}

Desk::Answer Player::boxOpened(const Desk::Box& box)
{
  Desk::Answer answer = BoxAnswer::declining(box, m_declined);
  if (m_over) {
    ++m_declined;
    return answer;
  }
  if (m_next == m_script.directives.size())
    fail(m_script.directives.last().line, QStringLiteral("a box is left at the end of the script: %1").arg(BoxAnswer::describe(box)));
  else
    takeNext([&](const Directive& directive) {
      answer = BoxAnswer::of(directive, box);
      ++m_checked;
    });
  return answer;
}

void Player::perform(const Directive& directive)
{
  if (directive.verb == Verb::Ended)
    checkEnded();
  else if (Checks::isCheck(directive.verb))
    m_checks.perform(directive);
  else if (!setUp(directive) && !act(directive))
    throw Failure(QStringLiteral("no box is there"));
  m_checked += Checks::isCheck(directive.verb);
}

bool Player::setUp(const Directive& directive)
{
  switch (directive.verb) {
  case Verb::AccountSet: return makeAccountSet(directive), true;
  case Verb::Clock: return m_environment.setClock(directive.when), true;
  case Verb::Session: return m_environment.setSession(directive.name, directive.text), true;
  case Verb::Siblings: return m_environment.placeSiblings(directive.places), true;
  case Verb::Sql: return m_environment.runSql(directive.text), true;
  case Verb::Start:
  case Verb::StartWithoutParameters: return start(directive), true;
  default: return false;
  }
}

bool Player::act(const Directive& directive)
{
  const ControlName& control = directive.control;
  switch (directive.verb) {
  case Verb::Type: return type(control, directive.text), true;
  case Verb::Key: return m_driver->press(directive.key), true;
  case Verb::Focus: return m_driver->focus(control), true;
  case Verb::Click: return directive.row < 0 ? m_driver->click(control) : m_driver->clickItem(control, directive.row), true;
  case Verb::DoubleClick: return m_driver->doubleClick(control), true;
  case Verb::Choose: return choose(control, directive.text), true;
  case Verb::SetDate: return m_driver->setDate(control, directive.when.date()), true;
  case Verb::Cell:
  case Verb::DoubleCell: return clickCell(directive), true;
  case Verb::Node:
  case Verb::DoubleNode: return m_driver->clickNode(control, directive.text, directive.verb == Verb::DoubleNode), true;
  case Verb::Wheel: return m_driver->wheel(control, directive.number), true;
  case Verb::Close: return m_driver->close(), true;
  case Verb::Screenshot:
    if (!m_options.pictureFolder.isEmpty())
      m_driver->screenshot(QDir(m_options.pictureFolder).filePath(directive.name));
    return true;
  default: return false;
  }
}

void Player::type(const ControlName& name, const QString& text)
{
  const bool hasText = m_driver->selectText(name);
  if (text.isEmpty() && hasText)
    m_driver->press({Key::Delete, {}, false});
  for (const char32_t character : text.toUcs4()) {
    // A character may open a box that ends the script.
    if (m_over)
      return;
    m_driver->press(Key::character(QString::fromUcs4(&character, 1)));
  }
}

void Player::choose(const ControlName& name, const QString& item)
{
  const QStringList items = m_driver->items(name);
  if (!items.contains(item))
    throw Failure(QStringLiteral("%1 has no such item, but: %2").arg(name.text(), items.join(QStringLiteral(" | "))));
  m_driver->choose(name, int(items.indexOf(item)));
}

void Player::clickCell(const Directive& directive)
{
  Checks::requireCell(m_driver->grid(directive.control), directive);
  m_driver->clickCell(directive.control, directive.row, directive.column, directive.verb == Verb::DoubleCell);
}

void Player::makeAccountSet(const Directive& directive)
{
  if (!m_driver->topForm().isEmpty())
    throw Failure(QStringLiteral("the program still runs on the account set"));
  m_environment.makeAccountSet(directive.word == u"demo" ? ScriptAccountSet::Content::Demo : ScriptAccountSet::Content::Empty);
}

void Player::start(const Directive& directive)
{
  if (const QString form = m_driver->topForm(); !form.isEmpty())
    throw Failure(QStringLiteral("the program still runs: %1 is open").arg(form));
  if (directive.verb == Verb::Start)
    m_environment.writeParameters(directive.places);
  else
    m_environment.removeParameters();
  m_driver->clear();
  m_run = std::make_unique<Run>(m_driver->desk(), m_environment.machine());
  m_run->screen = Mod_ZORVEKMain::Main(m_run->session, makeProgramScreen).screen;
}

void Player::checkEnded() const
{
  if (!m_run)
    throw Failure(QStringLiteral("expected the program to have ended, was not started"));
  if (const QString form = m_driver->topForm(); !form.isEmpty())
    throw Failure(QStringLiteral("expected the program to have ended, was still showing %1").arg(form));
}
