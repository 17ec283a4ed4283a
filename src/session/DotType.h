#pragma once

#include <QtGlobal>

struct Session;

// How many decimals the account set shows. 0 or more is a count; -1 the usual two, -2 the number as
// it is, -3 (no setting) the usual two without thousands separators.
struct DotType {
  qint16 DotPrice = -3;
  qint16 DotNumber = -3;
  qint16 DotMoney = -3;
};

// Reads the settings from TabDotSet: the first access to the database of a run.
DotType LoadDotSet(Session& session);
