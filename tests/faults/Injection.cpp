#include "AccountSetOfTests.h"
#include "Faults.h"
#include "accountset/Schema.h"
#include "program/ProgramScreens.h"
#include "screen/CellEditor.h"
#include "screen/Controls.h"
#include "screen/Form.h"
#include "screen/Grid.h"
#include "session/Session.h"
#include "support/FakeDesk.h"
#include "support/FixedMachine.h"

#include <QSet>

namespace Faults {
namespace {

const Key Enter{Key::Enter, {}, false};

// Texts that would do harm if any of them left its quotes: they would write rows of their own, marked Forged, or read
// what is Secret. Each way out of the quotes is combined with each payload.
const QString Forged = "FORGED";
const QString Secret = "SECRET";

QStringList hostileTexts()
{
  const QString payloads[] = {
      "||(select Address from TabClient where Code=@G011@)||",
      " or 1=1 or Code=",
      " or Name=(select Name from TabClient where Address=@SECRET@) or Code=",
      " union all select Address,Address from TabClient where Address like @SEC%",
      " union all select Address,Address,Address from TabClient--",
      "; delete from TabClient; select @",
      "; insert into TabStuff(Code,Name) values(@FORGED@,@FORGED@);--",
      "; update TabPayfundBill set Auditing=@FORGED@;--",
      ",@付款@,@正常@,@@,@@,@@,1,@@),(@FORGED@,@2022-6-8@,@G002@,@FORGED@,@@,9,@m@,@付款@,@正常@,@@,@@,@@,1,@FORGED",
      ",@正常@,@@,1,@@),(1,@2022-6-8@,@FORGED@,@G002@,@@,@1001@,@@,9,@@,@正常@,@@,1,@FORGED",
      ",@正常@,@@,1,@@),(1,@2022-6-8@,@FORGED@,@1001@,@@,9,@@,@正常@,@@,1,@FORGED",
      ",Auditing=@FORGED@,Remark=@",
      " where 1=1--",
      "/*",
      " and 1=cast((select Address from TabClient limit 1) as integer) and @1@=@1",
  };
  QStringList texts;
  for (const QString start : {"", "x", "%", "1001", "it''s", "清泉", "\\"})
    for (const QString quote : {"'", "'''", "''", "\"", "＇"})
      for (const QString& payload : payloads)
        texts.append(start + quote + QString(payload).replace('@', quote) + (payload.endsWith('=') ? quote : QString()));
  return texts;
}

// A screen, and what an honest user types before one field gets a hostile text.
struct ScreenDirective {
  const char* form;
  const char* directive;
  QList<std::pair<const char*, const char*>> fields = {};
};

const ScreenDirective ScreenDirectives[] = {
    {"frmPayfund", "付款", {{"TxtName", "清泉饮料公司"}}},
    {"frmGathefund", "收款", {{"TxtName", "城东商场"}}},
    {"frmBankKeepTake",
     "银行存取",
     {{"TxtAccountCodeC", "1001"},
      {"TxtAccountNameC", "库存现金"},
      {"TxtAccountCodeR", "100201"},
      {"TxtAccountNameR", "x"},
      {"TxtMoney", "5"}}},
    {"frmFeeElseIncome", "费用开支", {{"TxtCash", "5"}, {"TxtCashAccouCode", "1001"}, {"TxtCashAccouName", "x"}}},
    {"frmFeeElseIncome", "其他收入", {{"TxtCash", "5"}, {"TxtCashAccouCode", "1001"}, {"TxtCashAccouName", "x"}}},
    {"frmFeeSustain", "费用抵冲(客户)", {{"TxtName", "城东商场"}}},
    {"frmFeeSustain", "费用抵冲(供应商)", {{"TxtName", "清泉饮料公司"}}},
    {"frmGouDui", "开票勾对"},
    {"frmGouDuiTogather", "开票金额汇总表"},
    {"frmSFKHeXiao", "收付款核销查询"},
};

// One screen of the program on an account set, without its window.
class Target {
public:
  Target(const AccountSetOfTests& set, const ScreenDirective& directive) : m_machine(set.folder()), m_directive(directive)
  {
    m_session.params = set.params();
    m_session.params.IsLotMoney = true;
    m_session.params.OperateType = directive.directive;
    m_session.DotSet = LoadDotSet(m_session);
    m_opened = makeProgramScreen(m_session, directive.form);
    m_screen = &m_opened->form();
    m_opened->Form_Load();
    m_desk.show(*m_screen);
    m_opened->frm_Initialize(false);
  }

  // Every field into which something can be typed; a grid's cells are fields of their own, "MSH 1" to "MSH 4".
  QStringList fields() const
  {
    QStringList names = {"UserName", "OperateType"};
    for (Control* const control : m_screen->controls())
      if (const TextBox* const box = qobject_cast<TextBox*>(control);
          box && !box->isReadOnly() && box->name() != u"Text2" && box->isUsable())
        names.append(box->name());
    if (isBill() && m_screen->find<CellEditor>("Text2"))
      for (int column = 1; column <= 4; ++column)
        names.append(QString("MSH %1").arg(column));
    return names;
  }

  // A whole bill, or conditions, with one hostile field; then everything that makes statements of it.
  void attack(const QString& field, const QString& text)
  {
    m_desk.inDialog = [&text](Form& dialog) { answerDialog(dialog, text); };
    const SessionParams honest = m_session.params;
    if (field == u"UserName")
      m_session.params.UserName = text;
    if (field == u"OperateType")
      m_session.params.OperateType = text;
    isBill() ? attackBill(field, text) : attackList(field, text);
    m_session.params = honest;
  }

  // The codes that the screen has shown, and all texts that it shows now, its boxes among them.
  const QSet<QString>& codes() const { return m_codes; }
  QString takeShown()
  {
    QString shown = m_desk.takeTexts();
    for (Control* const control : m_screen->controls())
      shown += control->shownText() + u'\n';
    if (const Grid* const grid = m_screen->find<Grid>("MSH"))
      for (int row = 1; row < grid->rows(); ++row)
        for (int column = 0; column < grid->cols(); ++column)
          shown += grid->text(row, column) + u'\n';
    return shown;
  }

private:
  bool isBill() const { return m_screen->find("ToolSave"); }

  // A dialog that comes up gets the text in each of its boxes, and is confirmed.
  static void answerDialog(Form& dialog, const QString& text)
  {
    if (ListBox* const columns = dialog.find<ListBox>("ListMSHHead"))
      columns->select(1);
    for (Control* const control : dialog.controls())
      if (TextBox* const box = qobject_cast<TextBox*>(control); box && dialog.isOpen()) {
        box->typed(text);
        box->press(Enter);
      }
    for (const char* button : {"CmdOk", "CmdExit"})
      if (Control* const found = dialog.find(button); found && dialog.isOpen())
        found->click();
    if (dialog.isOpen())
      dialog.close();
  }

  void press(const char* name)
  {
    if (Control* const control = m_screen->find(name))
      control->click();
  }

  void type(const QString& field, const QString& text)
  {
    if (field.startsWith(u"MSH "))
      return typeIntoCell(field.last(1).toInt(), text);
    if (TextBox* const box = m_screen->find<TextBox>(field)) {
      box->typed(text);
      box->press(Enter);
      box->typed(text);
    }
  }

  void typeIntoCell(int column, const QString& text)
  {
    m_screen->find<Grid>("MSH")->clickCell(1, column);
    CellEditor& editor = *m_screen->find<CellEditor>("Text2");
    editor.typed(text);
    editor.press(Enter);
    editor.typed(text);
  }

  void attackBill(const QString& field, const QString& text)
  {
    press("ToolBuild");
    for (const auto& [name, value] : m_directive.fields)
      m_screen->find<TextBox>(name)->typed(value);
    if (field.startsWith(u"MSH ") || m_screen->find<CellEditor>("Text2")) {
      const bool isFund = m_screen->find("ToolHX");
      typeIntoCell(1, isFund ? "1001" : "660106");
      typeIntoCell(3, "5");
    }
    type(field, text);
    for (const char* button :
         {"ToolSave", "ToolAuditing", "ToolUnAuditing", "ToolSeeWarrent", "ToolHX", "ToolImg", "MPDirect_PT", "FMSHFormat"}) {
      press(button);
      m_codes.insert(m_screen->find<TextBox>("TxtBillCode")->text());
    }
    // The second save is an edit.
    m_desk.answers = {Desk::Answer::Yes};
    press("ToolSave");
    m_desk.answers = {Desk::Answer::Yes};
    press("ToolRedWord");
    m_desk.answers.clear();
    press("ToolBefore");
  }

  void attackList(const QString& field, const QString& text)
  {
    for (Control* const control : m_screen->controls())
      if (TextBox* const box = qobject_cast<TextBox*>(control); box && !qobject_cast<ComboBox*>(control) && box->name() != u"Text2")
        box->typed({});
    type(field, text);
    for (const char* button : {"CmdQuery", "ImgUnitCode", "ImgUnitName", "ToolOldBill", "ToolInf", "ToolInOutBill", "FMSHFormat"})
      press(button);
  }

  FakeDesk m_desk;
  FixedMachine m_machine;
  Session m_session{m_desk, m_machine};
  const ScreenDirective& m_directive;
  std::unique_ptr<Screen> m_opened;
  Form* m_screen = nullptr;
  QSet<QString> m_codes;
};

constexpr const char* Bills[] = {"TabPayfundBill", "TabGathefundBill", "TabKeepTake", "TabFee", "TabElseIncome", "TabSustain"};

// What all attacks together must leave as it is.
class Watch {
public:
  explicit Watch(Store& store) : m_store(store), m_before(counts()) {}

  // Empty if nothing was forged and no secret was copied.
  QString harm(const QSet<QString>& ownCodes) const
  {
    for (const Schema::Table& table : Schema::allTables()) {
      QStringList bad;
      for (const Schema::Column& column : table.columns)
        if (column.type == Schema::ColumnType::Text &&
            !(table.name == QLatin1String("TabClient") && column.name == QLatin1String("Address")))
          bad.append(QString("%1='%2' or %1='%3'").arg(column.name, Forged, Secret));
      if (!bad.isEmpty() && count(QString("%1 where %2").arg(table.name, bad.join(" or "))) != 0)
        return QString("%1 holds what was forged").arg(table.name);
    }
    const QHash<QString, qint64> now = counts();
    for (auto it = m_before.begin(); it != m_before.end(); ++it)
      if (now.value(it.key()) != it.value())
        return QString("%1 had %2 rows and has %3").arg(it.key()).arg(it.value()).arg(now.value(it.key()));
    return strangeBill(ownCodes);
  }

private:
  qint64 count(const QString& from) const
  {
    const auto read = m_store.run("select count(*) from " + from);
    return read ? read->value(0, 0).toInteger() : -1;
  }

  // Rows of the tables that no bill writes.
  QHash<QString, qint64> counts() const
  {
    QHash<QString, qint64> all;
    for (const Schema::Table& table : Schema::allTables()) {
      const QString name = table.name;
      if (name == u"TabPrintMSHSet" || name.startsWith(u"TabWarrant") || name == u"TabWriteAccountant")
        continue;
      if (std::any_of(std::begin(Bills), std::end(Bills), [&](const char* bill) { return name.startsWith(bill); }))
        continue;
      all.insert(name, count(name));
    }
    return all;
  }

  // Bills of the day under codes that no screen has shown.
  QString strangeBill(const QSet<QString>& ownCodes) const
  {
    for (const char* table : Bills) {
      const auto read = m_store.run(QString("select Code from %1 where Code like '%20220608%'").arg(table));
      for (qint64 row = 0; read && row < read->rows(); ++row)
        if (const QString code = read->value(row, 0).toText(); !ownCodes.contains(code))
          return QString("%1 holds %2, which no screen has shown").arg(table, code);
    }
    return {};
  }

  Store& m_store;
  QHash<QString, qint64> m_before;
};

void attackAll(const AccountSetOfTests& set, int textsAField, Tally& tally)
{
  const auto store = set.openStore();
  // The bills of the day are those of the attacks alone.
  QStringList prepared{"update TabClient set Address='" + Secret + "'"};
  for (const char* table : Bills)
    prepared.append(QString("delete from %1 where Code like '%20220608%'").arg(table));
  if (const auto done = store->runAll(prepared); !done)
    qFatal("%s", qPrintable(done.error()));
  const Watch watch(*store);
  const QStringList texts = hostileTexts();
  QSet<QString> codes;
  qsizetype next = 0;
  int fields = 0;
  for (const ScreenDirective& directive : ScreenDirectives) {
    Target target(set, directive);
    for (const QString& field : target.fields()) {
      ++fields;
      QString reason;
      for (int i = 0; i < std::min(textsAField, int(texts.size())); ++i) {
        const QString& text = texts[next++ % texts.size()];
        target.attack(field, text);
        // The text itself names the secret; what the program answers with it does not.
        if (QString shown = target.takeShown(); reason.isEmpty() && shown.remove(text).contains(u'\n' + Secret + u'\n'))
          reason = QString("%1 was shown").arg(Secret);
      }
      codes += target.codes();
      if (reason.isEmpty())
        reason = watch.harm(codes);
      tally.add(QString("%1 (%2) %3").arg(directive.form, directive.directive, field), reason);
    }
  }
  std::printf("injection: %d fields, %lld texts of %lld each\n", fields, qlonglong(next), qlonglong(texts.size()));
}

} // namespace

void injection(bool isOnServer, bool isLong, Tally& tally)
{
  const AccountSetOfTests set(isOnServer, "injection_test");
  attackAll(set, isLong ? 1000 : 5, tally);
}

} // namespace Faults
