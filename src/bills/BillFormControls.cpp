#include "bills/BillForm.h"

#include "ledger/FieldHelp.h"
#include "ledger/Money.h"
#include "session/Edition.h"

// The controls of a bill screen. Containers in the order of the screen, so that Tab goes the way the
// form is read.

void BillForm::buildHeader()
{
  Pic = add<Container>(this, "Pic");
  LabBillName = add<Label>(Pic, "LabBillName");
  LabState = add<Label>(Pic, "LabState");
  LabState->setVisible(false);
  LabAuditing = add<Label>(Pic, "LabAuditing");
  LabAuditing->setVisible(false);
  TxtBillCode = add<TextBox>(Pic, "TxtBillCode");
  TxtBillCode->setEnabled(false);
  DTPDate = add<DatePicker>(Pic, "DTPDate");
  DTPDate->onKey = [this](const Key& key) { return moveOn(key); };
  TxtDate = add<TextBox>(Pic, "TxtDate");
  TxtDate->setReadOnly(true);
  TxtDate->setTabStop(false);
  buildMoneyType();
  FrameProvide = add<Container>(Pic, "FrameProvide", QString::fromUtf16(traits().headFrame));
}

TextBox* BillForm::addEntry(Control* container, const char* name)
{
  TextBox* const box = add<TextBox>(container, name);
  box->onKey = [this](const Key& key) { return moveOn(key); };
  return box;
}

TextBox* BillForm::addAmount(Control* container, const char* name)
{
  TextBox* const box = addEntry(container, name);
  box->onFocusIn = [box] { box->setText(ModFuntion::StripMoneyText(box->text())); };
  box->onFocusOut = [this, box] { box->setText(ModFuntion::FormatDotText(box->text(), session.DotSet.DotMoney)); };
  return box;
}

ImageButton* BillForm::addPickButton(Control* container, const char* name, std::function<void()> pick)
{
  ImageButton* const button = add<ImageButton>(container, name, {}, "点击选择");
  button->onClick = std::move(pick);
  return button;
}

bool BillForm::moveOn(const Key& key)
{
  if (key.code == Key::Enter)
    focusNext();
  return key.code == Key::Enter;
}

void BillForm::buildSaleManAndMemo()
{
  TxtSaleMan = add<TextBox>(FrameProvide, "TxtSaleMan", {}, "输入编号或姓名回车自动调出");
  TxtSaleMan->onKey = [this](const Key& key) { return TxtSaleMan_KeyPress(key); };
  addPickButton(FrameProvide, "ImgSaleMan", [this] { ImgSaleMan_Click(); });
  TxtMemo = addEntry(FrameProvide, "TxtMemo");
}

void BillForm::buildMoneyType()
{
  FrameMoneyType = add<Container>(Pic, "FrameMoneyType");
  TxtMoneyName = add<ComboBox>(FrameMoneyType, "TxtMoneyName");
  TxtMoneyName->setEditable(true);
  TxtMoneyName->setText("人民币");
  TxtMoneyName->onKey = [this](const Key& key) { return moveOn(key); };
  TxtMoneyName->onChange = [this] { TxtMoneyName_Change(); };
  TxtMoneyName->onClick = [this] { TxtMoneyName_Change(); };
  TxtMoneyRate = add<TextBox>(FrameMoneyType, "TxtMoneyRate");
  TxtMoneyRate->setText("1");
  TxtMoneyRate->onKey = [this](const Key& key) { return TxtMoneyRate_KeyPress(key); };
}

void BillForm::buildFooter()
{
  for (TextBox** box : {&TxtOperator, &TxtAuditing}) {
    *box = add<TextBox>(Pic, box == &TxtOperator ? "TxtOperator" : "TxtAuditing");
    (*box)->setReadOnly(true);
    (*box)->setTabStop(false);
  }
  ChAutoAuditing = add<CheckBox>(Pic, "ChAutoAuditing", "保存时自动审核单据");
  ChAutoAdd = add<CheckBox>(Pic, "ChAutoAdd", "保存后自动新建下一单");
  LoadingPic = add<Container>(Pic, "LoadingPic");
  LoadingPic->setVisible(false);
  add<ProgressBar>(LoadingPic, "Animation1");
  add<Label>(LoadingPic, "LabLoading", "数据读写中,请稍等.....");
  add<ScrollBar>(this, "VS");
  add<ScrollBar>(this, "HS");
  buildToolbar();
  buildFileMenu();
  buildPrintMenu();
}

bool BillForm::has(Feature feature) const
{
  switch (feature) {
  case Feature::Lines: return traits().lines;
  case Feature::Partner: return traits().partner;
  case Feature::WriteOff: return traits().isWrittenOff;
  default: return true;
  }
}

void BillForm::buildToolbar()
{
  struct Tool {
    const char* key; // null for the partner's button, which each bill calls its own
    const char* caption;
    void (BillForm::*press)(); // null until what it opens is there
    const char* tip = "";
    Feature needs = Feature::None;
  };
  static constexpr Tool Tools[] = {
      {"ToolBuild", "新建", &BillForm::NewBill},
      {"ToolSave", "保存", &BillForm::FSave_Click},
      {"ToolAuditing", "审核", &BillForm::RequestAudit},
      {"ToolUnAuditing", "反审核", &BillForm::RequestUnAudit},
      {"ToolDelete", "删除", &BillForm::FDelete_Click, "删除单据"},
      {"ToolInsertRow", "插入行", &BillForm::InsertLineRow, "", Feature::Lines},
      {"ToolDeleteRow", "删除行", &BillForm::DeleteLineRow, "", Feature::Lines},
      {"ToolRedWord", "作废", &BillForm::VoidBill},
      {"ToolSeeWarrent", "凭证", &BillForm::ShowVoucher},
      {"ToolHX", "核销", &BillForm::openWriteOff, "", Feature::WriteOff},
      {"ToolPrint", "打印", &BillForm::popUpPrintMenu},
      {nullptr, "资料", &BillForm::ShowPartnerInfo, "", Feature::Partner},
      {"ToolImg", "图文", &BillForm::openImages},
      {"ToolBefore", "前单", &BillForm::BrowsePrevious},
      {"ToolBack", "后单", &BillForm::BrowseNext},
      {"ToolExit", "退出", &BillForm::FExit_Click},
  };
  Toolbar1 = add<Container>(this, "Toolbar1");
  for (const Tool& tool : Tools) {
    if (!has(tool.needs))
      continue;
    ToolButton* const button =
        tool.key ? add<ToolButton>(Toolbar1, tool.key, tool.caption, tool.tip)
                 : add<ToolButton>(Toolbar1, traits().partner->infoTool, tool.caption, QString::fromUtf16(traits().partner->infoToolTip));
    if (tool.press)
      button->onClick = [this, press = tool.press] { (this->*press)(); };
  }
  ToolPrint = find<ToolButton>("ToolPrint");
  find("ToolSeeWarrent")->setVisible(hasAccountingModule(session.params.VisionType));
}

void BillForm::buildFileMenu()
{
  struct Item {
    const char* name;
    const char* caption;
    void (BillForm::*press)();
    Feature needs = Feature::None;
  };
  static constexpr Item Items[] = {
      {"FBuild", "新建", &BillForm::NewBill},
      {"FSave", "保存", &BillForm::FSave_Click},
      {"FDelete", "删除单据", &BillForm::FDelete_Click},
      {"FSeeWarrent", "查看凭证", &BillForm::FSeeWarrent_Click},
      {"FJXCAccount", "自动生成会计凭证对应科目设置", &BillForm::FJXCAccount_Click},
      {"FMSHFormat", "界面列表格式设置", &BillForm::FMSHFormat_Click, Feature::Lines},
      {"FDeleteMSHFormat", "删除界面列表格式", &BillForm::FDeleteMSHFormat_Click, Feature::Lines},
      {"FPrintSet", "打印设置", &BillForm::MPrintSet_PT_Click},
      {"FExcle", "导出至Excel文件...", nullptr},
      {"FExit", "退出", &BillForm::FExit_Click},
  };
  File = add<Menu>(this, "File", "文件(&F)");
  for (const Item& item : Items) {
    if (!has(item.needs))
      continue;
    if (QLatin1String(item.name) == QLatin1String("FExcle")) {
      Menu* const exports = add<Menu>(File, item.name, item.caption);
      add<MenuItem>(exports, "FExcle_PT", "普通格式")->onClick = [this] { FExcle_PT_Click(); };
      addTemplateMenu(add<Menu>(exports, "FIntoExcel", "设置的格式"), "FIntoExcel_Inf", BillTemplate::Finish::HandOver);
      continue;
    }
    MenuItem* const made = add<MenuItem>(File, item.name, item.caption);
    if (item.press)
      made->onClick = [this, press = item.press] { (this->*press)(); };
  }
}

void BillForm::buildPrintMenu()
{
  MPrint = add<Menu>(this, "MPrint", "打印(&T)");
  add<MenuItem>(MPrint, "MPDirect_PT", "直接打印")->onClick = [this] { MPDirect_PT_Click(); };
  add<MenuItem>(MPrint, "MPPreview_PT", "打印预览")->onClick = [this] { MPPreview_PT_Click(); };
  add<MenuItem>(MPrint, "MPrintSet_PT", "打印设置")->onClick = [this] { MPrintSet_PT_Click(); };
  addTemplateMenu(add<Menu>(MPrint, "MPDirect_Excel", "按模板直接打印"), "MPDirect_Excel_D_Inf", BillTemplate::Finish::Print);
  addTemplateMenu(add<Menu>(MPrint, "MPPreview_Excel", "按模板打印预览"), "MPPreview_Excel_D_Inf", BillTemplate::Finish::Preview);
  add<MenuItem>(MPrint, "MPrintSet_Excel", "外部报表管理")->onClick = [this] { MPrintSet_Excel_Click(); };
}

void BillForm::addTemplateMenu(Control* menu, const char* name, BillTemplate::Finish finish)
{
  MenuItemArray* const items = add<MenuItemArray>(menu, name);
  items->setItem(0, "暂无");
  items->onItemClick = [this, items, finish](int index) { PrintBill_Excel(items->captions().value(index), finish); };
}

void BillForm::fillTemplateMenus()
{
  for (const char* name : {"FIntoExcel_Inf", "MPDirect_Excel_D_Inf", "MPPreview_Excel_D_Inf"})
    ModFuntion::FillTemplateMenu(session, *find<MenuItemArray>(name), billName());
}
