#pragma once

#include "Checks.h"
#include "Driver.h"
#include "Environment.h"
#include "Script.h"
#include "session/Session.h"
#include "startup/Screen.h"

#include <functional>
#include <memory>

// Plays one script with one driver, directive by directive. In the middle of a directive the program may wait for the user: the
// following directives are then played from inside that wait.
//
// Always holds: the first failure counts. After it, and after the last directive, no more directives are played: boxes are declined
// and forms closed until every wait has returned.
class Player : private DriverEvents {
public:
  struct Options {
    std::function<std::unique_ptr<Driver>(DriverEvents&)> makeDriver;
    QString pictureFolder;                // where screenshots go; empty for none
    std::function<void(int line)> onLine; // called at the start of each directive
    std::function<void()> atRest = {};    // called when the program waits for the user and no box is open
  };
  struct Verdict {
    int failedLine = 0; // 0 if the script passed
    QString reason;
  };

  Player(const Script& script, Environment& environment, const Options& options);
  ~Player() override;

  Verdict play();

private:
  // One run of the program, from its start to its end.
  struct Run {
    explicit Run(Desk& desk, Machine& machine) : session{desk, machine} {}
    Session session;
    std::unique_ptr<Screen> screen = {};
  };

  // DriverEvents
  Desk::Answer boxOpened(const Desk::Box& box) override;
  void modalOpened(const std::function<bool()>& isOpen) override { playWhile(isOpen); }

  void playWhile(const std::function<bool()>& goesOn);
  // Calls `play` with the next directive, and records its failure.
  void takeNext(const std::function<void(const Directive&)>& play);
  void fail(int line, const QString& reason);

  void perform(const Directive& directive);
  // False if the verb is not in that group.
  bool setUp(const Directive& directive);
  bool act(const Directive& directive);
  void type(const ControlName& name, const QString& text);
  void choose(const ControlName& name, const QString& item);
  void clickCell(const Directive& directive);
  void start(const Directive& directive);
  void makeAccountSet(const Directive& directive);
  void checkEnded() const;

  Script m_script;
  Environment& m_environment;
  Options m_options;
  std::unique_ptr<Driver> m_driver;
  Checks m_checks;
  std::unique_ptr<Run> m_run;
  Verdict m_verdict;
  qsizetype m_next = 0;
  int m_checked = 0;
  int m_declined = 0;
  bool m_over = false;
};
