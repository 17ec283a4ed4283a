#include "drafts/DraftFile.h"
#include "platform/SafeFile.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>

namespace {

const Draft Any{.keptAt = QDateTime(QDate(2022, 6, 8), QTime(14, 3)),
                .sum = "1,600.00",
                .fields = {{"TxtName", QString(QChar(0)) + "\"\\\n\u2028%1'清泉😀"}, {"TxtMemo", ""}},
                .lines = {{"", "1001", "库存现金", "1,600.00", "{}[]"}, {"", "", "", "", ""}},
                .isSaved = true,
                .table = "TabPayfundBill",
                .code = "FKD202206080001",
                .read = QStringList{"", "正常", "1600"}};

QByteArray sealed(const QByteArray& content, const QByteArray& version = "1")
{
  return "ZORVEK draft " + version + ' ' + QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex() + '\n' + content;
}

struct DraftFileTest : testing::Test, SessionFixture {
  QString only() const
  {
    const QFileInfoList all = QDir(folder.filePath("TempFile")).entryInfoList(QDir::Files);
    return all.size() == 1 ? all.first().filePath() : QString();
  }
};

} // namespace

TEST(DraftTest, HoldsAnyTextAndIsNoneOnceDamaged)
{
  const QByteArray bytes = Any.toBytes();
  EXPECT_TRUE(Draft::ofBytes(bytes) == Any);
  for (int at = 0; at < bytes.size(); ++at) {
    QByteArray turned = bytes;
    turned[at] = char(turned[at] ^ 1);
    EXPECT_FALSE(Draft::ofBytes(turned) || Draft::ofBytes(bytes.first(at))) << at;
  }
  EXPECT_FALSE(Draft::ofBytes(bytes + '\0'));
  const QByteArray content = bytes.mid(bytes.indexOf('\n') + 1);
  EXPECT_TRUE(Draft::ofBytes(sealed(content)));
  EXPECT_FALSE(Draft::ofBytes(sealed(content, "2")));
  for (const QByteArray& other : {QByteArray(), QByteArray("[]"), QByteArray("{}"), QByteArray(content).replace("\"1001\"", "1001"),
                                  QByteArray(content).replace("true", "1"), QByteArray(content).replace("2022-06-08T", "2022-06-31T"),
                                  QByteArray(content).replace("\"code\"", "\"Code\"")})
    EXPECT_FALSE(Draft::ofBytes(sealed(other))) << other.constData();
}

TEST_F(DraftFileTest, IsItsOwnersAndHeldByTheWindowThatWroteIt)
{
  DraftFile other;
  other.open(session, "frmPayfund");
  DraftFile later;
  later.open(session, "frmPayfund");
  EXPECT_FALSE(other.write(Any)) << "without the folder";
  QDir(folder.path()).mkpath("TempFile");
  {
    DraftFile mine;
    mine.open(session, "frmPayfund");
    EXPECT_TRUE(mine.write(Any) && mine.write(Any));
    EXPECT_EQ(QFileInfo(only()).permissions() & ~(QFile::ReadUser | QFile::WriteUser), SafeFile::ForThisUser);
    EXPECT_FALSE(other.read()) << "its window is open";
  }
  EXPECT_TRUE(other.read() == Any);
  EXPECT_TRUE(QFile::resize(only(), qint64(1) << 40));
  EXPECT_FALSE(other.read()) << "huge";
  Draft newer = Any;
  newer.sum = "2";
  EXPECT_TRUE(later.write(newer));
  other.remove(Any);
  EXPECT_NE(only(), "") << "not its own";
  later.remove(newer);
  EXPECT_EQ(only(), "");
}
