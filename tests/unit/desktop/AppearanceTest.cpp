#include "desktop/Appearance.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>

// A disabled field belongs to a settled bill that is still read.
TEST(Appearance, WhatIsDisabledIsLegibleAndWhatIsCheckedLooksSo)
{
  Appearance::apply();
  const auto lightness = [](QPalette::ColorRole role) { return QApplication::palette().color(QPalette::Disabled, role).lightness(); };
  EXPECT_GT(lightness(QPalette::Base) - lightness(QPalette::Text), 128);
  QCheckBox box;
  const QImage open = box.grab().toImage();
  box.setChecked(true);
  EXPECT_NE(box.grab().toImage(), open);
}

TEST(Appearance, WhatHasTheFocusHasARing)
{
  Appearance::apply();
  QWidget window;
  QVBoxLayout layout(&window);
  auto* const date = new QDateEdit;
  date->setCalendarPopup(true);
  const QList<QWidget*> fields{new QLineEdit, new QCheckBox("自动审核"), new QRadioButton("现金"), new QComboBox,
                               date,          new QPushButton("查询")};
  for (QWidget* const field : fields)
    layout.addWidget(field);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const auto ringPixels = [](QWidget& field) {
    const QImage image = field.grab().toImage();
    const QRgb ring = QApplication::palette().color(QPalette::Highlight).rgb();
    int found = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        found += image.pixel(x, y) == ring;
    return found;
  };
  for (QWidget* const field : fields) {
    window.setFocus();
    const int before = ringPixels(*field);
    field->setFocus();
    EXPECT_GT(ringPixels(*field), before + 100) << field->metaObject()->className();
  }
}
