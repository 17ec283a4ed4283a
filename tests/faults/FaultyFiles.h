#pragma once

#include <functional>

// Sits between SQLite and the disk: counts what is written to an account set, kills the process at a given moment, or
// lets the disk fail. It works for this process and for those forked from it, which share the counts. On a server the
// writing statements and commits of the program count instead (ServerCalls.cpp), and nothing is made to fail.
namespace FaultyFiles {

// To be called once, before the first database is opened.
void install();

struct Plan {
  int killAtCommit = 0;                          // the process is killed after its n-th commit; 0 for none
  int killAtWrite = 0;                           // ... or half-way through its n-th write ...
  bool killAfterWrite = false;                   // ... or just after it
  int failAtWrite = 0;                           // the n-th write, or sync, fails ...
  int failure = 0;                               // ... with this result code of SQLite
  bool failsOn = false;                          // ... and so do all that follow
  std::function<void(int commit)> atCommit = {}; // called after each one, in the process that writes
};
// The counts start again at zero.
void follow(const Plan& plan);

constexpr int MostWrites = 200'000;

struct Counts {
  int commits = 0;
  int unsyncedCommits = 0;                // those that a power cut could still undo: the end of the journal was not synced
  int writes = 0;                         // and syncs
  int syncs = 0;                          // of files and of their folder
  int failures = 0;                       // writes and syncs that were made to fail ...
  int failedStatements = 0;               // ... and the statements that met at least one of them
  int commitsBefore[MostWrites + 1] = {}; // the n-th write
  bool isAtRest[MostWrites + 1] = {};     // whether noteRest was called between the n-th commit and the next
};
const Counts& counts();

// Notes that the user's action is complete.
void noteRest();

// The same for a server: just after a writing statement, or just before a commit; and after a commit.
void noteServerWrite();
void noteServerCommit();

} // namespace FaultyFiles
