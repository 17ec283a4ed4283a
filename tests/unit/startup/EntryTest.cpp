#include "startup/Entry.h"

#include "screen/Form.h"
#include "session/ModuleADO.h"
#include "startup/ModReadWriteParameters.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

struct PlainScreen : Form, Screen {
  explicit PlainScreen(Session& session) : Form(session.desk, u"frmPayfund"_s) {}
  Form& form() override { return *this; }
  void Form_Load() override {}
};

struct EntryTest : testing::Test, SessionFixture {
  EntryTest() { file.run(u"create table TabDotSet(Name, Num)"_s); }

  Mod_ZORVEKMain::Start start()
  {
    EXPECT_TRUE(ModReadWriteParameters::WriteSystemParameters(session, {u"付款"_s}));
    return Mod_ZORVEKMain::Main(session,
                                [](Session& of, const QString&) -> std::unique_ptr<Screen> { return std::make_unique<PlainScreen>(of); });
  }
};

} // namespace

TEST_F(EntryTest, AFileThatIsNoWholeAccountSetEndsTheRunAndStaysAsItWas)
{
  QFile stored(accountSetPath());
  ASSERT_TRUE(stored.open(QIODevice::ReadOnly));
  const QByteArray whole = stored.readAll();
  struct Row {
    const char* what;
    QByteArray content;
  };
  for (const auto& [what, content] : {
           Row{"empty", {}},
           Row{"a text", QByteArray("no database at all\r\n").repeated(500)},
           Row{"cut in its header", whole.left(60)},
           Row{"cut behind its first page", whole.left(whole.size() / 2)},
           Row{"a header before rubbish", whole.left(16) + QByteArray(whole.size(), '\xA5')},
       }) {
    QFile::remove(accountSetPath());
    QFile damaged(accountSetPath());
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write(content) == content.size());
    damaged.close();
    const auto started = start();
    EXPECT_FALSE(started.screen) << what;
    EXPECT_EQ(started.exitStatus, 1) << what;
    EXPECT_EQ(desk.boxes.value(0).title, u""_s) << what;
    EXPECT_TRUE(desk.boxes.value(0).text.startsWith(u"Error:"_s)) << what;
    EXPECT_EQ(desk.boxes.size(), 2) << what << ": the statement's own box, and the run-time error";
    desk.boxes.clear();
    CloseConnection(session);
    ASSERT_TRUE(damaged.open(QIODevice::ReadOnly));
    EXPECT_EQ(damaged.readAll(), content) << what;
  }
}

TEST_F(EntryTest, TheDecimalSettingsAreReadOnceAtStart)
{
  start();
  EXPECT_EQ(session.DotSet.DotPrice, -3);
  EXPECT_EQ(session.DotSet.DotNumber, -3);
  EXPECT_EQ(session.DotSet.DotMoney, -3);
  file.run(u"insert into TabDotSet values('单价型',4),('数值型',-2),('货币型',2)"_s);
  start();
  EXPECT_EQ(session.DotSet.DotPrice, 4);
  EXPECT_EQ(session.DotSet.DotNumber, -2);
  EXPECT_EQ(session.DotSet.DotMoney, 2);
}
