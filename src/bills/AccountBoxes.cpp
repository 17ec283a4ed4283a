#include "bills/AccountBoxes.h"

#include "ledger/MasterData.h"
#include "platform/Trim.h"

using namespace Qt::StringLiterals;

void AccountBoxes::completeNames(Session& session)
{
  code.onKey = [this, &session](const Key& key) {
    const QString typed = Trim(code.text());
    // A quote would end the statement's text, with an error that nobody has asked for.
    const bool isLookedUp = (key.code == Key::Enter || key.code == Key::Tab) && !typed.isEmpty() && !typed.contains(u'\'');
    if (isLookedUp)
      if (const auto leaf = ModFuntion::CheckLeafRecord(session, typed, u"TabAccountantType"_s, u"Code"_s))
        name.setText(leaf->Name);
    return moveOnAtEnter(code, key);
  };
}

void AccountBoxes::set(const QString& newCode, const QString& newName)
{
  code.setText(newCode);
  name.setText(newName);
}

BillAccount AccountBoxes::account() const
{
  return {Trim(code.text()), Trim(name.text())};
}

std::optional<Desk::Box> AccountBoxes::refusalUnlessLeaf(Session& session, const QString& text)
{
  const auto [typedCode, typedName] = account();
  const bool byName = typedCode.isEmpty();
  const auto leaf =
      ModFuntion::CheckLeafRecord(session, byName ? typedName : typedCode, u"TabAccountantType"_s, byName ? u"Name"_s : u"Code"_s);
  if (!leaf)
    return Desk::Box{text};
  set(leaf->Code, leaf->Name);
  return {};
}
