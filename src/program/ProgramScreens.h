#pragma once

#include "session/Screen.h"

#include <map>
#include <memory>

// The screens of this program, each made at first use and kept for the run.
class ProgramScreens : public Screens {
public:
  explicit ProgramScreens(Session& session) : m_session(session) {}

  Screen* screen(const QString& name) override;

private:
  Session& m_session;
  std::map<QString, std::unique_ptr<Screen>> m_screens;
};
