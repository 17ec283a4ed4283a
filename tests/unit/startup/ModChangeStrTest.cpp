#include "startup/ModChangeStr.h"

#include "platform/AnsiText.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

using ModChangeStr::ChangeStrDecode;
using ModChangeStr::ChangeStrEncode;

TEST(ModChangeStr, ReversesTheLineAndLowersEachCharacterByFive)
{
  EXPECT_EQ(ChangeStrEncode("IsJXC=1"), "\x2C\x38\x3E\x53\x45\x6E\x44");
  EXPECT_EQ(ChangeStrEncode("  ab  "), "]\\");
  // 付 is B8B6 and 款 is BFEE: each is one number.
  EXPECT_EQ(ChangeStrEncode("a付款"), "\xBF\xE9\xB8\xB1\x5C");
}

TEST(ModChangeStr, EveryCharacterSurvivesTheRoundTrip)
{
  QStringList characters{"€"};
  for (char16_t c = 0x05; c < 0x7F; ++c)
    characters.append(QChar(c));
  for (int lead = 0x81; lead <= 0xFE; ++lead)
    for (int trail = 0x40; trail <= 0xFE; ++trail)
      characters.append(AnsiText::decode(QByteArray(1, char(lead)) + char(trail)));
  for (const QString& character : characters)
    if (const QString line = "UserName=甲" + character + "乙"; character.size() == 1 && !character.contains(QChar::ReplacementCharacter)) {
      EXPECT_EQ(ChangeStrDecode(ChangeStrEncode(line)), line);
    }
}
