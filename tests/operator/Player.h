#pragma once

#include "Checks.h"
#include "Scene.h"
#include "Script.h"
#include "Stage.h"
#include "session/Session.h"
#include "startup/Screen.h"

#include <functional>
#include <memory>

// Plays one script on one stage, directive by directive. A directive may let the program wait for the
// operator in its midst: the directives that follow are then played from inside that wait.
//
// Always holds: the first thing that went wrong decides. From then on, and once the last directive has
// been played, no directive is played any more; boxes are declined and forms closed until every wait
// has come back.
class Player : private Encounters {
public:
  struct Options {
    std::function<std::unique_ptr<Stage>(Encounters&)> makeStage;
    QString pictureFolder;                // where screenshots go; empty for nowhere
    std::function<void(int line)> onLine; // told of each directive as it begins
    std::function<void()> atRest = {};    // called when the program waits for the operator and no box is open
  };
  struct Verdict {
    int failedLine = 0; // 0 if the script passed
    QString reason;
  };

  Player(const Script& script, Scene& scene, const Options& options);
  ~Player() override;

  Verdict play();

private:
  // One run of the program, from its start to its end.
  struct Run {
    explicit Run(Desk& desk, Machine& machine) : session{desk, machine} {}
    Session session;
    std::unique_ptr<Screen> screen = {};
  };

  // Encounters
  Desk::Answer boxStands(const Desk::Box& box) override;
  void modalStands(const std::function<bool()>& stands) override { playWhile(stands); }

  void playWhile(const std::function<bool()>& goesOn);
  // Plays the next directive by `play`, and notes the failure if it throws.
  void takeNext(const std::function<void(const Directive&)>& play);
  void fail(int line, const QString& reason);

  void perform(const Directive& directive);
  // False if the verb is not of that group.
  bool setScene(const Directive& directive);
  bool act(const Directive& directive);
  void type(const ControlName& name, const QString& text);
  void choose(const ControlName& name, const QString& item);
  void start(const Directive& directive);
  void makeAccountSet(const Directive& directive);
  void checkEnded() const;

  Script m_script;
  Scene& m_scene;
  Options m_options;
  std::unique_ptr<Stage> m_stage;
  Checks m_checks;
  std::unique_ptr<Run> m_run;
  Verdict m_verdict;
  qsizetype m_next = 0;
  int m_checked = 0;
  int m_declined = 0;
  bool m_over = false;
};
