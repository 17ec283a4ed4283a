#include "startup/Launcher.h"

#include "startup/ModReadWriteParameters.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

struct LauncherTest : testing::Test, SessionFixture {
  void install(const QString& executable)
  {
    QFile sibling(folder.filePath(executable));
    ASSERT_TRUE(sibling.open(QIODevice::WriteOnly));
  }
  bool run(const QString& operation) { return Mod_ZORVEKMain::RunSiblingProgram(session, operation, {u" 1 "_s, u"2"_s}); }
  bool hasParameterFile() const { return QFile::exists(folder.filePath(u"SysPar.dll"_s)); }
};

} // namespace

TEST_F(LauncherTest, EachOperationHasItsProgramAndItsMessages)
{
  struct Row {
    QString executable;
    QString called;
    QStringList operations;
  };
  for (const auto& [executable, called, operations] : {
           Row{u"TALMIR.exe"_s, u"打印管理"_s, {u"打印"_s}},
           Row{u"BENQOS.exe"_s, u"外部报表管理"_s, {u"外部报表管理"_s}},
           Row{u"MIRVAL.exe"_s,
               u"基础管理"_s,
               {u"供应商资料"_s, u"客户资料"_s, u"往来单位资料"_s, u"员工资料"_s, u"商品资料"_s, u"自动生成会计凭证对应科目设置"_s,
                u"现金银行资料"_s, u"仓库资料"_s}},
           Row{u"GOSTEN.exe"_s, u"会计事务"_s, {u"查看会计凭证"_s}},
           Row{u"FENDRO.exe"_s,
               u"采购管理"_s,
               {u"购买入库原单查看"_s, u"其他入库原单查看"_s, u"商品入库原单查看"_s, u"采购入库原单查看"_s}},
           Row{u"HULVIK.exe"_s, u"销售管理"_s, {u"销售出库原单查看"_s, u"其他出库原单查看"_s, u"商品出库原单查看"_s}},
           Row{u"ZORVEK.exe"_s, u"ZORVEK"_s, {u"收款单原单查看"_s, u"付款单原单查看"_s}},
           Row{u"DRAMOT.exe"_s,
               u"图片管理"_s,
               {u"付款单图片"_s, u"收款单图片"_s, u"银行存取款单图片"_s, u"银行存取（取现）单图片"_s, u"银行存取(存现)单图片"_s,
                u"费用开支单图片"_s, u"其他收入单图片"_s, u"费用抵冲单图片"_s, u"费用抵冲(客户)单图片"_s, u"费用抵冲(供应商)单图片"_s,
                u"费用抵冲(客户)图片"_s, u"费用抵冲(供应商)图片"_s}},
       }) {
    EXPECT_FALSE(run(operations[0]));
    EXPECT_EQ(desk.boxes.value(0).icon, Desk::Icon::Stop);
    EXPECT_EQ(desk.takeTexts(), called + u"程序不存在，请确定您程序安装是否完整！"_s);
    install(executable);
    machine.startsPrograms = false;
    EXPECT_FALSE(run(operations[0]));
    EXPECT_EQ(desk.takeTexts(), u"启动"_s + called + u"程序意外终止！"_s);
    machine.startsPrograms = true;
    for (const QString& operation : operations) {
      EXPECT_TRUE(run(u"  "_s + operation + u' ')) << shown(operation);
      EXPECT_EQ(machine.started.takeLast(), folder.filePath(executable));
    }
  }
}

TEST_F(LauncherTest, AnUnknownOperationWritesNoFile)
{
  for (const QString& operation : {u""_s, u"打"_s, u"银行存取(取现)单图片"_s, u"银行存取（存现）单图片"_s}) {
    EXPECT_FALSE(run(operation));
    EXPECT_EQ(desk.boxes.value(0).icon, Desk::Icon::Information);
    EXPECT_EQ(desk.takeTexts(), u"未传递操作指令，操作中断！"_s);
  }
  EXPECT_FALSE(hasParameterFile());
}

TEST_F(LauncherTest, WithoutAParameterFileNothingIsStarted)
{
  install(u"TALMIR.exe"_s);
  session.params.UserPSW = u"😀"_s;
  EXPECT_FALSE(run(u"打印"_s));
  EXPECT_EQ(desk.takeTexts(), u"参数存取失败！"_s);
  EXPECT_TRUE(machine.started.isEmpty());
}
