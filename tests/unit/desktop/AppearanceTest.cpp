#include "desktop/Appearance.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QPalette>

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
