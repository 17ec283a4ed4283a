#pragma once

#include <QString>

// One key press, as it reaches a control: a named key, or a character.
struct Key {
  enum Code { Character, Enter, Tab, Escape, Up, Down, Left, Right, PageUp, PageDown, Home, End, Backspace, Delete };

  Code code = Character;
  QString text; // of a character key; empty otherwise
  bool shift = false;
  bool ctrl = false;

  static Key character(const QString& text) { return {Character, text, false}; }
  bool isArrow() const { return code == Up || code == Down || code == Left || code == Right; }
};
