#include "FaultyFiles.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <csignal>
#include <sqlite3.h>
#include <sys/mman.h>
#include <unistd.h>

namespace FaultyFiles {
namespace {

constexpr int MostWrites = 200'000;

// Shared by the processes of a run.
struct Counts {
  int commits = 0;
  int unsyncedCommits = 0;
  int writes = 0;
  int failures = 0;
  int commitsAheadOf[MostWrites + 1] = {};
  bool isAtRest[MostWrites + 1] = {}; // by the number of the last commit
};

Counts* counts = nullptr;
Plan plan;
int statement = 0;       // the number of the one that runs
int failedStatement = 0; // the number of the one that failed last
int failed = 0;

int beginStatement(unsigned, void*, void*, void*)
{
  ++statement;
  return 0;
}

int watchStatements(sqlite3* database, char**, const sqlite3_api_routines*)
{
  return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, beginStatement, nullptr);
}

void noteFailure()
{
  ++counts->failures;
  failed += statement != failedStatement;
  failedStatement = statement;
}

sqlite3_vfs* disk()
{
  static sqlite3_vfs* const Disk = sqlite3_vfs_find("unix");
  return Disk;
}

struct File {
  sqlite3_file base;
  bool isWatched; // of an account set: the file itself or its journal

  // Lies behind this.
  sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

File* fileOf(sqlite3_file* file)
{
  return reinterpret_cast<File*>(file);
}

sqlite3_file* realOf(sqlite3_file* file)
{
  return fileOf(file)->real();
}

[[noreturn]] void die()
{
  kill(getpid(), SIGKILL);
  for (;;)
    pause();
}

// The result that the plan wants for the next write; SQLITE_OK if it is to be done.
int nextWrite(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset)
{
  if (!fileOf(file)->isWatched)
    return SQLITE_OK;
  const int number = ++counts->writes;
  if (number <= MostWrites)
    counts->commitsAheadOf[number] = counts->commits;
  if (number == plan.killAtWrite) {
    if (bytes)
      realOf(file)->pMethods->xWrite(realOf(file), bytes, size / 2, offset);
    die();
  }
  const bool fails = plan.failAtWrite > 0 && (plan.failsOn ? number >= plan.failAtWrite : number == plan.failAtWrite);
  if (fails)
    noteFailure();
  return fails ? plan.failure : SQLITE_OK;
}

int xWrite(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset)
{
  const int code = nextWrite(file, bytes, size, offset);
  return code == SQLITE_OK ? realOf(file)->pMethods->xWrite(realOf(file), bytes, size, offset) : code;
}

int xSync(sqlite3_file* file, int flags)
{
  const int code = nextWrite(file, nullptr, 0, 0);
  return code == SQLITE_OK ? realOf(file)->pMethods->xSync(realOf(file), flags) : code;
}

// What is passed on as it comes.
template <auto Method, typename... Arguments> int passed(sqlite3_file* file, Arguments... arguments)
{
  return (realOf(file)->pMethods->*Method)(realOf(file), arguments...);
}

using Offset = sqlite3_int64;
const sqlite3_io_methods Methods = {
    .iVersion = 1,
    .xClose = passed<&sqlite3_io_methods::xClose>,
    .xRead = passed<&sqlite3_io_methods::xRead, void*, int, Offset>,
    .xWrite = xWrite,
    .xTruncate = passed<&sqlite3_io_methods::xTruncate, Offset>,
    .xSync = xSync,
    .xFileSize = passed<&sqlite3_io_methods::xFileSize, Offset*>,
    .xLock = passed<&sqlite3_io_methods::xLock, int>,
    .xUnlock = passed<&sqlite3_io_methods::xUnlock, int>,
    .xCheckReservedLock = passed<&sqlite3_io_methods::xCheckReservedLock, int*>,
    .xFileControl = passed<&sqlite3_io_methods::xFileControl, int, void*>,
    .xSectorSize = passed<&sqlite3_io_methods::xSectorSize>,
    .xDeviceCharacteristics = passed<&sqlite3_io_methods::xDeviceCharacteristics>,
    .xShmMap = nullptr,
    .xShmLock = nullptr,
    .xShmBarrier = nullptr,
    .xShmUnmap = nullptr,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

int xOpen(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
  file->pMethods = nullptr;
  fileOf(file)->isWatched = (flags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_MAIN_JOURNAL)) != 0;
  const int code = disk()->xOpen(disk(), name, realOf(file), flags, outFlags);
  if (realOf(file)->pMethods)
    file->pMethods = &Methods;
  return code;
}

// A statement is committed when its journal goes.
int xDelete(sqlite3_vfs*, const char* name, int syncsFolder)
{
  const int code = disk()->xDelete(disk(), name, syncsFolder);
  const QString path = QString::fromUtf8(name);
  if (code != SQLITE_OK || !path.endsWith(u"-journal"))
    return code;
  const int number = ++counts->commits;
  counts->unsyncedCommits += syncsFolder == 0;
  if (!plan.keepStates.isEmpty())
    QFile::copy(path.chopped(8), QDir(plan.keepStates).filePath(QString::number(number) + ".mdb"));
  if (number == plan.killAtCommit)
    die();
  return code;
}

} // namespace

void install()
{
  void* const shared = mmap(nullptr, sizeof(Counts), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED)
    qFatal("no shared memory");
  counts = new (shared) Counts;
  static sqlite3_vfs Faulty = *disk();
  Faulty.zName = "faulty";
  Faulty.szOsFile += int(sizeof(File));
  Faulty.xOpen = xOpen;
  Faulty.xDelete = xDelete;
  sqlite3_vfs_register(&Faulty, 1);
  sqlite3_auto_extension(reinterpret_cast<void (*)()>(watchStatements));
}

void follow(const Plan& next)
{
  plan = next;
  counts->commits = counts->unsyncedCommits = counts->writes = counts->failures = 0;
  std::fill(std::begin(counts->isAtRest), std::end(counts->isAtRest), false);
  failed = 0;
}

int commits()
{
  return counts->commits;
}

int unsyncedCommits()
{
  return counts->unsyncedCommits;
}

void noteRest()
{
  counts->isAtRest[qMin(counts->commits, MostWrites)] = true;
}

bool isAtRest(int commit)
{
  return counts->isAtRest[qMin(commit, MostWrites)];
}

int writes()
{
  return counts->writes;
}

int commitsAheadOf(int write)
{
  return counts->commitsAheadOf[qMin(write, MostWrites)];
}

int failures()
{
  return counts->failures;
}

int failedStatements()
{
  return failed;
}

} // namespace FaultyFiles
