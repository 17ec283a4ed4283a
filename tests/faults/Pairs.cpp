#include "AccountSetOfTests.h"
#include "Faults.h"
#include "RowDigest.h"
#include "StatementHook.h"
#include "accountset/Check.h"
#include "program/ProgramScreens.h"
#include "screen/CellEditor.h"
#include "screen/Controls.h"
#include "screen/Form.h"
#include "screen/Grid.h"
#include "session/Session.h"
#include "support/FakeDesk.h"
#include "support/FixedMachine.h"

#include <QCoreApplication>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace Faults {
namespace {

using namespace std::chrono_literals;

// The receipt of both users: it has one line and a voucher, and no write-off.
constexpr char Receipt[] = "SKD202206080001";
const QString Changed = "单据已被其他操作员修改，仍要继续吗？";

enum class Action { Save, Edit, Delete, Void, Audit, WriteOff, CloseDay, PostVoucher };

struct NamedAction {
  Action action;
  const char* name;
  const char* tool; // what is clicked in the end
};

constexpr NamedAction Actions[] = {
    {Action::Save, "save", "ToolSave"},      {Action::Edit, "edit", "ToolSave"},       {Action::Delete, "delete", "ToolDelete"},
    {Action::Void, "void", "ToolRedWord"},   {Action::Audit, "audit", "ToolAuditing"}, {Action::WriteOff, "write off", "ToolHX"},
    {Action::CloseDay, "close the day", ""}, {Action::PostVoucher, "post", ""},
};
// Those that a screen of this program has.
constexpr int OwnActions = 6;

// What comes of an action (a column, in the order above) after one of a colleague (a row). docs/database.md has the same table.
constexpr const char* AfterAColleague[][OwnActions] = {
    {"done", "done", "done", "done", "done", "done"},             // save
    {"done", "asked", "asked", "asked", "asked", "differs"},      // edit
    {"done", "done", "done", "missing", "done", "differs"},       // delete
    {"done", "refused", "asked", "refused", "refused", "done"},   // void
    {"done", "refused", "refused", "refused", "refused", "done"}, // audit
    {"done", "done", "done", "done", "done", "done"},             // write off
    {"closed", "closed", "closed", "done", "done", "done"},       // close the day
    {"done", "posted", "done", "posted", "done", "done"},         // post
};

// The words above, and the box by which they are known.
constexpr std::pair<const char*, const char16_t*> Ends[] = {
    {"asked", u"仍要继续吗"},   {"refused", u"已被其他操作员审核或作废"},
    {"differs", u"金额不相等"}, {"missing", u"编号不存在"},
    {"closed", u"结转"},        {"posted", u"登账，禁止"},
};

// Where a user's thread is.
class Progress {
public:
  enum State { Preparing, Ready, Running, AtStatement, AtQuestion, AtNotice, Done };

  void set(State state)
  {
    const std::lock_guard lock(m_mutex);
    m_state = state;
    m_changed.notify_all();
  }
  // False if it takes longer.
  bool await(std::initializer_list<State> states, std::chrono::milliseconds limit = 60s)
  {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, limit, [&] { return std::find(states.begin(), states.end(), m_state) != states.end(); });
  }
  State state()
  {
    const std::lock_guard lock(m_mutex);
    return m_state;
  }

private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  State m_state = Preparing;
};

// What a user found in the end: the boxes without a choice.
using Said = QStringList;

// One user of the account set, with a session and a screen in a thread of its own. It waits when its work is typed, and at
// the moment given: a statement, or a box before it is answered.
class User : FakeDesk {
public:
  // `goesOn` over a colleague's change; `amount` is what it types. No moment is 0.
  User(const AccountSetOfTests& set, const NamedAction& action, const char* amount, bool goesOn, int moment)
      : m_set(set), m_action(action), m_amount(amount), m_goesOn(goesOn), m_moment(moment), m_thread([this] { work(); })
  {
    if (!progress.await({Progress::Ready}))
      qFatal("%s is not ready", action.name);
  }
  ~User() override
  {
    if (m_thread.joinable())
      m_thread.join();
  }

  void start() { progress.set(Progress::Running); }
  // True if it stopped on the way.
  bool stops()
  {
    progress.await({Progress::AtStatement, Progress::AtQuestion, Progress::AtNotice, Progress::Done});
    return progress.state() != Progress::Done;
  }
  // To be called once it is done. A void shows the bill again once it is committed; a colleague may have deleted it by then.
  Said said()
  {
    Said texts;
    for (const Box& box : boxes)
      if (box.buttons == Buttons::Ok && box.text != u"没有原单！")
        texts.append(box.text);
    return texts;
  }

  QString end()
  {
    for (const auto& [word, text] : Ends)
      for (const Box& box : boxes)
        if (box.text.contains(text))
          return word;
    return "done";
  }
  const NamedAction& action() const { return m_action; }

  Progress progress;
  QList<Progress::State> moments; // that it has passed

private:
  Answer showBox(const Box& box) override
  {
    pass(box.buttons == Buttons::Ok ? Progress::AtNotice : Progress::AtQuestion);
    if (box.buttons == Buttons::YesNo)
      answers = {box.text != Changed || m_goesOn ? Answer::Yes : Answer::No};
    return FakeDesk::showBox(box);
  }

  void pass(Progress::State moment)
  {
    moments.append(moment);
    if (moments.size() != m_moment)
      return;
    progress.set(moment);
    progress.await({Progress::Running});
  }

  void waitForStart()
  {
    progress.set(Progress::Ready);
    progress.await({Progress::Running});
    moments.clear();
    boxes.clear();
    StatementHook::atStatement = [this] { pass(Progress::AtStatement); };
  }

  void work()
  {
    if (m_action.tool[0] == 0)
      workElsewhere();
    else
      workOnScreen();
    StatementHook::atStatement = {};
    progress.set(Progress::Done);
  }

  // Another program of the suite.
  void workElsewhere()
  {
    waitForStart();
    const QString sql = m_action.action == Action::CloseDay
                            ? QString("insert into TabTurnDay values('2022-06-08')")
                            : QString("update TabWarrant set State='已登账' where JXCBillCode='%1'").arg(Receipt);
    if (const auto done = m_set.openStore()->runAll({sql}); !done)
      qFatal("%s", qPrintable(done.error()));
  }

  void workOnScreen()
  {
    FixedMachine machine(m_set.folder());
    Session session{*this, machine};
    session.params = m_set.params();
    session.DotSet = LoadDotSet(session);
    const std::unique_ptr<Screen> opened = makeProgramScreen(session, "frmGathefund");
    Form& form = opened->form();
    const bool isNew = m_action.action == Action::Save;
    opened->Form_Load();
    if (!isNew)
      opened->FillBill("TabGathefundBill", Receipt);
    show(form);
    opened->frm_Initialize(!isNew);
    if (m_action.action == Action::WriteOff)
      inDialog = [this](Form& dialog) { writeOff(dialog); };
    else
      type(form);
    form.find<ToolButton>(m_action.tool)->click();
    form.close();
  }

  void type(Form& form)
  {
    if (m_action.action == Action::Save) {
      form.find<TextBox>("TxtName")->typed("诚信电器行");
      form.find<TextBox>("TxtName")->press({Key::Enter, {}, false});
      enter(form, 1, "1001");
    }
    if (m_action.action == Action::Save || m_action.action == Action::Edit)
      enter(form, 3, m_amount);
    waitForStart();
  }

  void writeOff(Form& dialog)
  {
    enter(dialog, 10, "5000");
    waitForStart();
    dialog.find<ToolButton>("ToolHX")->click();
  }

  static void enter(Form& form, int column, const QString& text)
  {
    form.find<Grid>("MSH")->clickCell(1, column);
    form.find<TextBox>("Text2")->typed(text);
    form.find<TextBox>("Text2")->press({Key::Enter, {}, false});
  }

  const AccountSetOfTests& m_set;
  const NamedAction& m_action;
  const char* m_amount;
  bool m_goesOn;
  int m_moment;
  std::thread m_thread;
};

// What two users saw, and what is stored.
struct Outcome {
  Said first;
  Said second;
  QByteArray rows;
  bool operator==(const Outcome&) const = default;
};

// Two actions on the receipt, by users whose screens were opened before either of them acts.
class Pair {
public:
  Pair(AccountSetOfTests& set, const NamedAction& first, const NamedAction& second, bool goesOn)
      : m_set(set), m_first(first), m_second(second), m_goesOn(goesOn)
  {
  }

  QString name() const { return QString("%1, %2%3").arg(m_first.name, m_second.name, m_goesOn ? ", going on" : ""); }

  // What may come of it: one after the other. Empty, or what is wrong with that already.
  QString playInTurn()
  {
    for (const bool isFirstFirst : {true, false}) {
      start(0);
      User& earlier = isFirstFirst ? *m_a : *m_b;
      User& later = isFirstFirst ? *m_b : *m_a;
      earlier.start();
      earlier.stops();
      later.start();
      later.stops();
      if (isFirstFirst)
        m_moments = m_a->moments;
      if (const int column = int(&later.action() - Actions); column < OwnActions)
        if (const QString expected = AfterAColleague[&earlier.action() - Actions][column]; later.end() != expected)
          return QString("%1 after %2: %3, expected %4").arg(later.action().name, earlier.action().name, later.end(), expected);
      m_allowed.append(outcome());
      // A changed or deleted bill leaves the settled amount of its goods bills.
      if (m_first.action == Action::WriteOff || m_second.action == Action::WriteOff)
        continue;
      QString found;
      std::ignore =
          Check::run(m_set.location(), [&found](const Check::Finding& finding) { found = finding.what + finding.rows.join(u' '); });
      if (!found.isEmpty())
        return "the check finds " + found;
    }
    return {};
  }

  // The first user's moments.
  const QList<Progress::State>& moments() const { return m_moments; }

  // The second user runs through while the first one is stopped; who has to wait for a lock goes on with the first one.
  QString playAt(int moment)
  {
    start(moment);
    m_a->start();
    const bool isStopped = m_a->stops();
    const Progress::State at = m_a->progress.state();
    const bool isAtBox = at == Progress::AtQuestion || at == Progress::AtNotice;
    m_b->start();
    const bool wasFree = !isStopped || m_b->progress.await({Progress::Done}, isAtBox ? 20s : 40ms);
    if (isStopped)
      m_a->start();
    m_a->progress.await({Progress::Done});
    m_b->progress.await({Progress::Done});
    const Outcome seen = outcome();
    if (isAtBox && !wasFree)
      return "the other user waited for the box";
    // A user who is asked has written nothing: the other one was first.
    if (at == Progress::AtQuestion ? seen == m_allowed.last() : m_allowed.contains(seen))
      return {};
    QString allowed;
    for (const Outcome& one : m_allowed)
      allowed += "\n    in turn: " + describe(one);
    return describe(seen) + allowed;
  }

  // True if both users saw the same as those of `other`.
  bool isAs(const Pair& other) const { return m_allowed == other.m_allowed; }

private:
  void start(int moment)
  {
    m_a.reset();
    m_b.reset();
    m_set.restore();
    const auto prepared = m_set.openStore()->runAll(
        {"insert into TabOutBill(Code,Datee,BillType,UnitCode,UnitName,SumMoney,AllDiscount,Cash,Credit,HXMoney,State)"
         " values('XSD1','2022-06-02','销售出库','K014','诚信电器行',5000,0,0,0,0,'正常')"});
    if (!prepared)
      qFatal("%s", qPrintable(prepared.error()));
    m_a = std::make_unique<User>(m_set, m_first, "600", m_goesOn, moment);
    m_b = std::make_unique<User>(m_set, m_second, "700", m_goesOn, 0);
  }

  Outcome outcome()
  {
    Outcome seen{m_a->said(), m_b->said(), RowDigest::of(*m_set.openStore())};
    m_a.reset();
    m_b.reset();
    return seen;
  }

  static QString describe(const Outcome& outcome)
  {
    return QString("%1 | %2 | %3").arg(outcome.first.join('/'), outcome.second.join('/'), QString(outcome.rows.toHex().first(8)));
  }

  AccountSetOfTests& m_set;
  const NamedAction& m_first;
  const NamedAction& m_second;
  bool m_goesOn;
  std::unique_ptr<User> m_a;
  std::unique_ptr<User> m_b;
  QList<Outcome> m_allowed;
  QList<Progress::State> m_moments;
};

// At every box, and at some or all of the statements. Other programs take no lock on a server: what they write between a
// statement and the commit is not seen there.
int stopEverywhere(Pair& pair, bool atStatements, bool isLong, Tally& tally)
{
  const QList<Progress::State>& moments = pair.moments();
  const qsizetype step = isLong ? 1 : std::max<qsizetype>(1, moments.size() / 2);
  int stops = 0;
  for (int moment = 1; moment <= moments.size(); ++moment)
    if (moments[moment - 1] != Progress::AtStatement || (atStatements && moment % step == 0)) {
      ++stops;
      tally.add(QString("%1, stopped at %2").arg(pair.name()).arg(moment), pair.playAt(moment));
    }
  return stops;
}

} // namespace

void pairs(bool isOnServer, bool isLong, Tally& tally)
{
  int count = 1;
  char name[] = "faults";
  char* texts[] = {name, nullptr};
  const QCoreApplication application(count, texts);
  AccountSetOfTests set(isOnServer, "pairs_test");
  int stops = 0;
  for (const NamedAction& first : std::span(Actions).first(OwnActions))
    for (const NamedAction& second : Actions) {
      Pair careful(set, first, second, false);
      Pair stubborn(set, first, second, true);
      for (Pair* const pair : {&careful, &stubborn}) {
        if (pair == &stubborn && isOnServer && !isLong)
          continue;
        const QString reason = pair->playInTurn();
        tally.add(pair->name(), reason);
        if (!reason.isEmpty())
          continue;
        if (pair == &stubborn && stubborn.isAs(careful))
          continue;
        const bool isOurs = &second < Actions + OwnActions;
        stops += stopEverywhere(*pair, isOurs || !isOnServer, isLong, tally);
      }
    }
  std::printf("pairs: %d stops\n", stops);
}

} // namespace Faults
