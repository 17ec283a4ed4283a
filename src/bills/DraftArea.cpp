#include "bills/DraftArea.h"

#include "bills/BillScreen.h"

#include <QAbstractItemModel>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LongestName = 24;

// Fields that the user does not type.
bool isFilledByProgram(const Control& field)
{
  static constexpr const char* Names[] = {"TxtBillCode", "TxtDate", "TxtOperator", "TxtAuditing"};
  return std::ranges::any_of(Names, [&](const char* name) { return field.name() == QLatin1StringView(name); });
}

// An amount has no separators while the focus is in its box.
QString textOf(const Control& field)
{
  const auto* const amount = qobject_cast<const AmountBox*>(&field);
  return amount ? amount->formatted() : field.shownText();
}

} // namespace

DraftArea::DraftArea(BillScreen& screen)
    : m_screen(screen), FrameDraft(&screen, "FrameDraft"), LabDraft(&FrameDraft, "LabDraft"), ToolbarDraft(&FrameDraft, "ToolbarDraft"),
      ToolRestore(&ToolbarDraft, "ToolRestore"), ToolDiscard(&ToolbarDraft, "ToolDiscard")
{
  ToolRestore.setCaption(u"恢复(R)"_s);
  ToolRestore.setToolTip(u"恢复"_s);
  ToolRestore.onClick = [this] { restore(); };
  ToolDiscard.setCaption(u"丢弃"_s);
  ToolDiscard.onClick = [this] { discard(); };
  FrameDraft.setVisible(false);
}

void DraftArea::leave()
{
  keep();
  if (!m_shown)
    return;
  m_other = std::exchange(m_shown, std::nullopt);
  if (FrameDraft.isVisible())
    showStrip();
}

void DraftArea::begin()
{
  m_unchanged = typed();
  m_kept.clear();
  m_shown.reset();
  if (std::exchange(m_hasBegun, true))
    return;
  for (const Control* const field : fields())
    QObject::connect(field, &Control::changed, &m_screen, &Form::typedChanged);
  QObject::connect(&m_screen.MSH.model(), &QAbstractItemModel::dataChanged, &m_screen, &Form::typedChanged);
  QObject::connect(&m_screen.MSH.model(), &QAbstractItemModel::modelReset, &m_screen, &Form::typedChanged);
  m_file.open(m_screen.session, m_screen.name() + m_screen.rightFunction());
  m_other = m_file.read();
  showStrip();
}

void DraftArea::end(const QString& code)
{
  if (m_other && !code.isEmpty() && m_other->code == code) {
    m_file.remove(*m_other);
    m_other.reset();
    showStrip();
  }
  cleanUp();
  begin();
}

// The file no longer has to hold the bill that is shown.
void DraftArea::cleanUp()
{
  const auto gone = std::exchange(m_shown, std::nullopt);
  m_kept.clear();
  if (gone && m_other)
    m_file.write(*m_other);
  else if (gone)
    m_file.remove(*gone);
}

void DraftArea::keep()
{
  if (!m_hasBegun)
    return;
  const QStringList now = typed();
  if (now == m_unchanged)
    return cleanUp();
  if (now == m_kept)
    return;
  m_shown = draft();
  if (m_file.write(*m_shown))
    m_kept = now;
}

// What was typed since the screen was opened is offered in its place.
void DraftArea::restore()
{
  if (!m_other)
    return;
  const Draft restored = *m_other;
  m_other.reset();
  leave();
  // Also if an error ends it half-way: then the file still holds all of it.
  const auto isShown = qScopeGuard([&] {
    m_unchanged.clear();
    m_shown = restored;
    m_kept = m_file.write(restored) ? typed() : QStringList();
    showStrip();
  });
  m_screen.takeBack(restored);
}

void DraftArea::fill(const Draft& draft) const
{
  for (Control* const field : fields()) {
    const QString text = draft.fields.value(field->name());
    if (auto* const box = qobject_cast<TextBox*>(field))
      box->setText(text);
    else if (auto* const picker = qobject_cast<DatePicker*>(field))
      picker->setDate(QDate::fromString(text, Qt::ISODate));
  }
  if (m_screen.lines)
    m_screen.lines->takeBack(draft.lines);
}

void DraftArea::discard()
{
  if (m_other && !m_shown)
    m_file.remove(*m_other);
  m_other.reset();
  showStrip();
}

void DraftArea::showStrip()
{
  if (m_other)
    LabDraft.setCaption(about(*m_other));
  FrameDraft.setVisible(m_other.has_value());
}

QString DraftArea::about(const Draft& draft) const
{
  QStringList facts{draft.keptAt.toString(u"yyyy-MM-dd HH:mm"_s)};
  if (m_screen.partner)
    facts.append(draft.fields.value(m_screen.partner->TxtName.name()).left(LongestName));
  facts.append(draft.sum);
  facts.removeAll(QString());
  const QString bill = m_screen.billName();
  return (draft.code.isEmpty() ? u"上次有一张未保存的"_s + bill : u"上次对"_s + bill + u' ' + draft.code + u" 的修改未保存"_s) + u'（' +
         facts.join(u'，') + u'）';
}

Draft DraftArea::draft() const
{
  Draft draft{.keptAt = m_screen.session.machine.now(),
              .sum = m_screen.lines ? m_screen.lines->LabTotalMoney.caption() : m_screen.transfer->TxtMoney.formatted(),
              .fields = {},
              .lines = m_screen.lines ? m_screen.lines->rows() : QList<QStringList>(),
              .isSaved = m_screen.IsSavedBill,
              .table = m_screen.store.bill().table,
              .code = m_screen.store.bill().code,
              .read = m_screen.store.asRead()};
  for (const Control* const field : fields())
    draft.fields.insert(field->name(), textOf(*field));
  return draft;
}

// The rows at the end in which nothing is typed do not count.
QStringList DraftArea::typed() const
{
  QStringList texts;
  if (m_screen.lines)
    for (const QStringList& row : m_screen.lines->rows())
      texts += row;
  while (!texts.isEmpty() && texts.last().isEmpty())
    texts.removeLast();
  for (const Control* const field : fields())
    if (!isFilledByProgram(*field))
      texts.append(textOf(*field));
  return texts;
}

// In an order in which one may be set after the other: a currency before its rate, a code before its name.
QList<Control*> DraftArea::fields() const
{
  QList<Control*> all;
  for (Control* const control : m_screen.Pic.findChildren<Control*>())
    if (qobject_cast<DatePicker*>(control) || (qobject_cast<TextBox*>(control) && !qobject_cast<CellEditor*>(control)))
      all.append(control);
  return all;
}
