#pragma once

#include <QString>

// Puts itself between SQLite and the disk: counts what is written to an account set, kills the process at
// a moment that was named, or has the disk fail. It is for the whole process and is passed on to the
// processes that are forked from it; the counts are shared with them.
namespace FaultyFiles {

// To be called once, ahead of the first database.
void install();

struct Plan {
  int killAtCommit = 0;    // the statement that is the n-th to be committed is the last; 0 for none
  int killAtWrite = 0;     // the n-th write is done by half
  int failAtWrite = 0;     // the n-th write, or sync, fails ...
  int failure = 0;         // ... with this result code of SQLite
  bool failsOn = false;    // ... and so do all behind it
  QString keepStates = {}; // a folder for a copy of the file behind each commit: 0.mdb is the first one
};
// Counts begin anew.
void follow(const Plan& plan);

int commits();
// Those of them that a power cut could still undo, because the end of the journal was not synced.
int unsyncedCommits();
// Notes that what was begun is done; whether that was noted after the n-th commit and before the next.
void noteRest();
bool isAtRest(int commit);
int writes();
// How many commits were done ahead of the n-th write.
int commitsAheadOf(int write);
// Writes and syncs that were failed.
int failures();
// Statements of this process that met at least one of them.
int failedStatements();

} // namespace FaultyFiles
