#pragma once

#include "Scene.h"
#include "Script.h"
#include "Stage.h"

// The directives that state what must stand on the screen, in the account set and in the program folder.
class Checks {
public:
  Checks(Scene& scene, Stage& stage) : m_scene(scene), m_stage(stage) {}

  // True if the verb is one of a check.
  static bool isCheck(Verb verb) { return verb >= Verb::Form && verb <= Verb::FileAbsent; }

  // Unmet with what was expected and what was there.
  void perform(const Directive& directive);

private:
  void checkState(const Directive& directive);
  void checkRows(const Directive& directive);
  void checkStarted(const Directive& directive);
  void checkNotStarted();
  void checkFileContent(const Directive& directive);
  void checkFileLine(const Directive& directive, bool has);
  QStringList linesOf(const QString& name) const;

  Scene& m_scene;
  Stage& m_stage;
};
