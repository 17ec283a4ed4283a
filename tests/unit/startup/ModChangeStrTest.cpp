#include "startup/ModChangeStr.h"

#include "platform/AnsiText.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using ModChangeStr::ChangeStrDecode;
using ModChangeStr::ChangeStrEncode;

TEST(ModChangeStr, ReversesTheLineAndLowersEachCharacterByFive)
{
  EXPECT_EQ(ChangeStrEncode(u"IsJXC=1"_s), "\x2C\x38\x3E\x53\x45\x6E\x44");
  EXPECT_EQ(ChangeStrEncode(u"  ab  "_s), "]\\");
  EXPECT_EQ(ChangeStrEncode({}), QByteArray());
  // 付 is B8B6 and 款 is BFEE: each is one number.
  EXPECT_EQ(ChangeStrEncode(u"a付款"_s), "\xBF\xE9\xB8\xB1\x5C");
}

TEST(ModChangeStr, EveryCharacterSurvivesTheTrip)
{
  const auto survives = [](const QString& character) {
    const QString line = u"UserName=甲"_s + character + u"乙"_s;
    return ChangeStrDecode(ChangeStrEncode(line)) == line;
  };
  for (int lead = 0x81; lead <= 0xFE; ++lead)
    for (int trail = 0x40; trail <= 0xFE; ++trail) {
      const QString character = AnsiText::decode(QByteArray(1, char(lead)) + char(trail));
      if (character.size() != 1 || character.contains(QChar::ReplacementCharacter))
        continue;
      EXPECT_TRUE(survives(character)) << std::hex << lead << trail;
    }
  for (char16_t c = 0x05; c < 0x7F; ++c)
    EXPECT_TRUE(survives(QString(QChar(c)))) << int(c);
  EXPECT_TRUE(survives(u"€"_s));
}
