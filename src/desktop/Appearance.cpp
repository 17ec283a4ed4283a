#include "desktop/Appearance.h"

#include "desktop/Icons.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFont>
#include <QGroupBox>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleOption>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

struct Shade {
  QPalette::ColorRole role;
  QRgb active;
  QRgb disabled;
};

// A disabled field belongs to a settled bill that is still read: its text stays legible.
constexpr Shade Shades[] = {
    {QPalette::Window, 0xfff4f6f8, 0xfff4f6f8},
    {QPalette::WindowText, 0xff1f2933, 0xff52606d},
    {QPalette::Base, 0xffffffff, 0xffeef1f4},
    {QPalette::AlternateBase, 0xfff7f9fb, 0xffeef1f4},
    {QPalette::Text, 0xff1f2933, 0xff3e4c59},
    {QPalette::Button, 0xfff7f9fb, 0xffeef1f4},
    {QPalette::ButtonText, 0xff1f2933, 0xff9aa5b1},
    {QPalette::Highlight, 0xff1f6fb5, 0xff9fb3c8},
    {QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    {QPalette::PlaceholderText, 0xff9aa5b1, 0xff9aa5b1},
};

constexpr QRgb GroupBorder = 0xffd5dce3;
constexpr QPoint GroupTitleIndent{8, 2};
constexpr int RingWidth = 2;

// Families with all characters of the screens, so that no fallback font is searched.
const QStringList Families{u"Noto Sans CJK SC"_s, u"Source Han Sans SC"_s, u"Microsoft YaHei"_s};

// Fusion without the icons that it loads from files: they cost a fifth of the start-up time.
class Style : public QProxyStyle {
public:
  Style() : QProxyStyle(u"fusion"_s) {}

  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override
  {
    switch (which) {
    case SP_MessageBoxInformation: return Icons::icon(u"information");
    case SP_MessageBoxQuestion: return Icons::icon(u"question");
    case SP_MessageBoxWarning: return Icons::icon(u"warning");
    case SP_MessageBoxCritical: return Icons::icon(u"stop");
    case SP_ToolBarHorizontalExtensionButton: return Icons::icon(u"more");
    default: return QProxyStyle::standardIcon(which, option, widget);
    }
  }

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override
  {
    switch (element) {
    case PE_FrameGroupBox:
      painter->setPen(QColor::fromRgb(GroupBorder));
      painter->setBrush(option->palette.alternateBase());
      return painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    case PE_FrameFocusRect:
      // An item, or the text of a check box, with a little space at its sides.
      if (!qobject_cast<const QPushButton*>(widget))
        Appearance::drawFocus(*painter, option->rect.adjusted(-1, 0, 1, 0));
      return;
    case PE_PanelLineEdit:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
      if (!isPartOfField(widget, *option))
        drawFocusOf(*option, *painter);
      return;
    default: return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override
  {
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_PushButtonBevel)
      drawFocusOf(*option, *painter);
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override
  {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    // A date box with a calendar is drawn as a drop-down.
    if (control == CC_ComboBox || control == CC_SpinBox)
      drawFocusOf(*option, *painter);
  }

  // The margins and spacing of group boxes, where a layout sets none.
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
  {
    const bool isGroup = qobject_cast<const QGroupBox*>(widget);
    switch (isGroup ? metric : PM_CustomBase) {
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin: return 12;
    case PM_LayoutTopMargin: return 6;
    case PM_LayoutBottomMargin: return 10;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing: return 8;
    default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
  }

  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part, const QWidget* widget) const override
  {
    const QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
    const bool isGroupTitle = control == CC_GroupBox && part == SC_GroupBoxLabel;
    return isGroupTitle ? rect.translated(GroupTitleIndent) : rect;
  }

private:
  static void drawFocusOf(const QStyleOption& option, QPainter& painter)
  {
    if (option.state & State_HasFocus)
      Appearance::drawFocus(painter, option.rect);
  }

  // The line of a drop-down or a date box, or a cell's, around which its view draws the ring.
  static bool isPartOfField(const QWidget* edit, const QStyleOption& option)
  {
    const auto* const panel = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    const QWidget* const parent = edit ? edit->parentWidget() : nullptr;
    return (panel && panel->lineWidth == 0) || qobject_cast<const QComboBox*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent);
  }
};

QPalette palette()
{
  QPalette palette;
  for (const Shade& shade : Shades) {
    palette.setColor(QPalette::Active, shade.role, QColor::fromRgb(shade.active));
    palette.setColor(QPalette::Inactive, shade.role, QColor::fromRgb(shade.active));
    palette.setColor(QPalette::Disabled, shade.role, QColor::fromRgb(shade.disabled));
  }
  return palette;
}

void recolour(QWidget& widget, QPalette::ColorRole role, QRgb colour)
{
  QPalette colours = widget.palette();
  colours.setColor(role, QColor::fromRgba(colour));
  widget.setPalette(colours);
}

} // namespace

void Appearance::apply()
{
  QApplication::setStyle(new Style);
  QPalette colours = palette();
  QApplication::setPalette(colours);
  QApplication::setFont(QFont(Families, 10));

  // A disabled drop-down is read like a field, not like a button.
  colours.setColor(QPalette::Disabled, QPalette::ButtonText, colours.color(QPalette::Disabled, QPalette::Text));
  QApplication::setPalette(colours, "QComboBox");

  // A muted highlight for item views.
  colours.setColor(QPalette::Highlight, QColor::fromRgb(0xffcfe3f6));
  colours.setColor(QPalette::HighlightedText, colours.color(QPalette::Active, QPalette::Text));
  for (const char* view : {"QTableView", "QTreeView", "QListView"})
    QApplication::setPalette(colours, view);
}

void Appearance::drawFocus(QPainter& painter, const QRect& of)
{
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QApplication::palette().color(QPalette::Highlight), RingWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(of.adjusted(1, 1, -1, -1));
  painter.restore();
}

void Appearance::stamp(QWidget& label)
{
  recolour(label, QPalette::WindowText, 0xffc8372d);
}

void Appearance::note(QWidget& strip)
{
  recolour(strip, QPalette::Window, 0xffe6eef7);
  recolour(strip, QPalette::ButtonText, 0xff1f6fb5);
}

void Appearance::blend(QWidget& field)
{
  recolour(field, QPalette::Base, 0x00000000);
}

void Appearance::setBackground(QWidget& field, bool isReadOnly)
{
  const QPalette colours = QApplication::palette(&field);
  recolour(field, QPalette::Base, colours.color(isReadOnly ? QPalette::Disabled : QPalette::Active, QPalette::Base).rgba());
}

void Appearance::markAsCellEditor(QWidget& field)
{
  recolour(field, QPalette::Base, 0xfffff7d6);
}
