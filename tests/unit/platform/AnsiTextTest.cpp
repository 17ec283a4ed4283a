#include "platform/AnsiText.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(AnsiText, EveryCharacterOfTheCodePageMakesTheRoundTrip)
{
  int characters = 0;
  for (int lead = 0x81; lead <= 0xFE; ++lead)
    for (int trail = 0x40; trail <= 0xFE; ++trail) {
      const QByteArray bytes{QByteArray(1, char(lead)) + char(trail)};
      const QString text = AnsiText::decode(bytes);
      if (text.size() != 1 || text.contains(QChar::ReplacementCharacter))
        continue;
      ++characters;
      EXPECT_EQ(AnsiText::encode(text), bytes);
      EXPECT_TRUE(AnsiText::holds(text)) << bytes.toHex().toStdString();
    }
  // All 21,003 ideographs and the signs beside them.
  EXPECT_GE(characters, 21700);
}

TEST(AnsiText, WhatHasNoPlaceIsAQuestionMarkAndToldOf)
{
  EXPECT_EQ(AnsiText::encode(QStringLiteral("付😀款")), AnsiText::encode(QStringLiteral("付?款")));
  EXPECT_FALSE(AnsiText::holds(QStringLiteral("付😀款")));
  EXPECT_TRUE(AnsiText::holds(QStringLiteral("付款")));
  EXPECT_FALSE(AnsiText::holds(QString(QChar(0xD800))));
}
