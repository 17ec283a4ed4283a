#include "desktop/BoxDetails.h"

#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QShortcut>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

// Empty where nothing could be found.
QString found(const Desk::Details& details)
{
  const QString text = details();
  return text.isEmpty() ? u"没有更多的信息。"_s : text;
}

} // namespace

void addDetails(QMessageBox& box, const Desk::Details& details)
{
  auto* const layout = qobject_cast<QGridLayout*>(box.layout());
  if (!layout)
    return;
  auto* const opener = new QToolButton(&box);
  opener->setObjectName("BoxDetailsOpener"_L1);
  opener->setText(u"详情(&D)"_s);
  opener->setCheckable(true);
  opener->setAutoRaise(true);
  opener->setArrowType(Qt::RightArrow);
  opener->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  // The focus stays on the buttons of the box.
  opener->setFocusPolicy(Qt::NoFocus);
  auto* const text = new QLabel(&box);
  text->setObjectName("BoxDetails"_L1);
  text->setTextFormat(Qt::PlainText);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  text->hide();
  layout->addWidget(opener, layout->rowCount(), 0, 1, -1, Qt::AlignLeft);
  layout->addWidget(text, layout->rowCount(), 0, 1, -1);
  QObject::connect(opener, &QToolButton::toggled, &box, [opener, text, details](bool isOpen) {
    if (isOpen && text->text().isEmpty())
      text->setText(found(details));
    opener->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow);
    text->setVisible(isOpen);
  });
  auto* const copy = new QShortcut(QKeySequence::Copy, &box);
  QObject::connect(copy, &QShortcut::activated, &box,
                   [&box, details] { QGuiApplication::clipboard()->setText(box.text() + u'\n' + found(details)); });
}
