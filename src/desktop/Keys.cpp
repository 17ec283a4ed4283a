#include "desktop/Keys.h"

#include <QKeyEvent>

namespace {

struct NamedKey {
  Qt::Key key;
  Key::Code code;
};

constexpr NamedKey NamedKeys[] = {
    {Qt::Key_Return, Key::Enter},  {Qt::Key_Enter, Key::Enter},         {Qt::Key_Tab, Key::Tab},
    {Qt::Key_Backtab, Key::Tab},   {Qt::Key_Escape, Key::Escape},       {Qt::Key_Up, Key::Up},
    {Qt::Key_Down, Key::Down},     {Qt::Key_Left, Key::Left},           {Qt::Key_Right, Key::Right},
    {Qt::Key_PageUp, Key::PageUp}, {Qt::Key_PageDown, Key::PageDown},   {Qt::Key_Home, Key::Home},
    {Qt::Key_End, Key::End},       {Qt::Key_Backspace, Key::Backspace}, {Qt::Key_Delete, Key::Delete},
};

// The keys with Ctrl that a control may handle; all others belong to the window.
constexpr NamedKey CtrlKeys[] = {
    {Qt::Key_Return, Key::Enter}, {Qt::Key_Enter, Key::Enter}, {Qt::Key_Apostrophe, Key::Character}, {Qt::Key_Equal, Key::Character}};

std::optional<Key> ctrlKeyOf(const QKeyEvent& event)
{
  for (const NamedKey& named : CtrlKeys)
    if (event.key() == named.key)
      return Key{named.code, named.code == Key::Character ? QString(QChar(named.key)) : QString(), false, true};
  return std::nullopt;
}

} // namespace

std::optional<Key> keyOf(const QKeyEvent& event)
{
  if ((event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier)
    return ctrlKeyOf(event);
  if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
    return std::nullopt;
  const bool shift = event.modifiers() & Qt::ShiftModifier;
  for (const NamedKey& named : NamedKeys)
    if (event.key() == named.key)
      return Key{named.code, {}, shift || event.key() == Qt::Key_Backtab};
  if (event.text().isEmpty() || !event.text().front().isPrint())
    return std::nullopt;
  return Key::character(event.text());
}
