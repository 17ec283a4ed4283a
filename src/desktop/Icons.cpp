#include "desktop/Icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

// The shell's icons are in this static library; without the call the linker would drop them.
static void load()
{
  Q_INIT_RESOURCE(icons);
}

namespace {

// Renders an icon when a size is first needed. Qt's own icon engine would load the plugins of all image
// formats.
class Drawing : public QIconEngine {
public:
  explicit Drawing(const QString& name) : m_name(name) {}

  QIconEngine* clone() const override { return new Drawing(m_name); }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
  {
    const qreal ratio = painter->device()->devicePixelRatio();
    painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
  {
    if (m_drawn.size() != size)
      m_drawn = draw(size);
    QStyleOption option;
    option.palette = QApplication::palette();
    return mode == QIcon::Normal ? m_drawn : QApplication::style()->generatedIconPixmap(mode, m_drawn, &option);
  }

private:
  QPixmap draw(const QSize& size) const
  {
    load();
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    QSvgRenderer(u":/icons/%1.svg"_s.arg(m_name)).render(&painter);
    return drawn;
  }

  const QString m_name;
  QPixmap m_drawn;
};

} // namespace

QIcon Icons::icon(QStringView name)
{
  return name.isEmpty() ? QIcon() : QIcon(new Drawing(name.toString()));
}
