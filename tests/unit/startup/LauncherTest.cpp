#include "startup/Launcher.h"

#include "startup/ModReadWriteParameters.h"
#include "support/Printing.h"
#include "support/SessionFixture.h"

#include <gtest/gtest.h>

#include <QFile>

namespace {

struct LauncherTest : testing::Test, SessionFixture {
  void install(const QString& executable) const { EXPECT_TRUE(QFile(folder.filePath(executable)).open(QIODevice::WriteOnly)); }
  bool run(const QString& operation) { return Mod_ZORVEKMain::RunSiblingProgram(session, operation, {" 1 ", "2"}); }
};

} // namespace

TEST_F(LauncherTest, EachOperationHasItsProgram)
{
  const struct {
    const char* executable;
    QStringList operations;
  } rows[] = {
      {"MIRVAL.exe", {"往来单位资料", "员工资料", "现金银行资料", "仓库资料"}},
      {"FENDRO.exe", {"购买入库原单查看", "其他入库原单查看", "商品入库原单查看", "采购入库原单查看"}},
      {"HULVIK.exe", {"销售出库原单查看", "其他出库原单查看", "商品出库原单查看"}},
      {"ZORVEK.exe", {"收款单原单查看", "付款单原单查看"}},
      {"DRAMOT.exe", {"付款单图片", "收款单图片", "费用开支单图片", "其他收入单图片", "费用抵冲(供应商)图片", "费用抵冲(客户)单图片"}},
  };
  for (const auto& row : rows) {
    install(row.executable);
    for (const QString& operation : row.operations) {
      EXPECT_TRUE(run("  " + operation + ' ')) << shown(operation);
      EXPECT_EQ(machine.started.takeLast(), folder.filePath(row.executable));
    }
  }
}

TEST_F(LauncherTest, WhatDoesNotStartIsReported)
{
  for (const char* operation : {"", "打", "银行存取(取现)单图片"}) {
    EXPECT_FALSE(run(operation));
    EXPECT_EQ(desk.takeTexts(), "未传递操作指令，操作中断！");
  }
  EXPECT_FALSE(QFile::exists(folder.filePath("SysPar.dll")));
  install("TALMIR.exe");
  machine.startsPrograms = false;
  EXPECT_FALSE(run("打印"));
  EXPECT_EQ(desk.takeTexts(), "启动打印管理程序意外终止！");
  machine.startsPrograms = true;
  session.params.UserPSW = "😀"; // not of the code page
  EXPECT_FALSE(run("打印"));
  EXPECT_EQ(desk.takeTexts(), "参数存取失败！");
  EXPECT_TRUE(machine.started.isEmpty());
}
