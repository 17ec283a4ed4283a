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
      bool lossless = false;
      EXPECT_EQ(AnsiText::encode(text, &lossless), bytes);
      EXPECT_TRUE(lossless) << bytes.toHex().toStdString();
    }
  // All 21,003 ideographs and the signs beside them.
  EXPECT_GE(characters, 21700);
}

TEST(AnsiText, WhatHasNoPlaceIsAQuestionMarkAndToldOf)
{
  bool lossless = true;
  EXPECT_EQ(AnsiText::encode(QStringLiteral("付😀款"), &lossless), AnsiText::encode(QStringLiteral("付?款")));
  EXPECT_FALSE(lossless);
  AnsiText::encode(QStringLiteral("付款"), &lossless);
  EXPECT_TRUE(lossless);
  AnsiText::encode(QString(QChar(0xD800)), &lossless);
  EXPECT_FALSE(lossless);
}
