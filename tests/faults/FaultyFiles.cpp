#include "FaultyFiles.h"
#include "StatementHook.h"

#include <QByteArrayView>

#include <csignal>
#include <new>
#include <sqlite3.h>
#include <sys/mman.h>
#include <unistd.h>

namespace FaultyFiles {
namespace {

Counts* shared = nullptr;
Plan plan;
int statement = 0;       // the number of the current one
int failedStatement = 0; // the number of the one that failed last
sqlite3_vfs* disk = nullptr;
// Of the disk's files; those of a database and of a journal lock differently, and write alike.
const sqlite3_io_methods* real = nullptr;

int beginStatement(unsigned, void*, void*, void*)
{
  ++statement;
  StatementHook::call();
  return 0;
}

int watchStatements(sqlite3* database, char**, const sqlite3_api_routines*)
{
  return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, beginStatement, nullptr);
}

[[noreturn]] void die()
{
  kill(getpid(), SIGKILL);
  for (;;)
    pause();
}

int countWrite()
{
  const int number = ++shared->writes;
  if (number <= MostWrites)
    shared->commitsBefore[number] = shared->commits;
  return number;
}

void countCommit()
{
  const int number = ++shared->commits;
  if (plan.atCommit)
    plan.atCommit(number);
  if (number == plan.killAtCommit)
    die();
}

// The result that the plan demands of the next write; SQLITE_OK if it is to be done.
int nextWrite(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset)
{
  const int number = countWrite();
  if (number == plan.killAtWrite) {
    if (bytes)
      real->xWrite(file, bytes, plan.killAfterWrite ? size : size / 2, offset);
    die();
  }
  if (plan.failAtWrite == 0 || number < plan.failAtWrite || (number > plan.failAtWrite && !plan.failsOn))
    return SQLITE_OK;
  ++shared->failures;
  shared->failedStatements += statement != failedStatement;
  failedStatement = statement;
  return plan.failure;
}

int xWrite(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset)
{
  const int code = nextWrite(file, bytes, size, offset);
  return code == SQLITE_OK ? real->xWrite(file, bytes, size, offset) : code;
}

int xSync(sqlite3_file* file, int flags)
{
  ++shared->syncs;
  const int code = nextWrite(file, nullptr, 0, 0);
  return code == SQLITE_OK ? real->xSync(file, flags) : code;
}

// SQLite opens a folder only to sync it.
int (*realOpenDirectory)(const char*, int*) = nullptr;

int openDirectory(const char* path, int* descriptor)
{
  ++shared->syncs;
  return realOpenDirectory(path, descriptor);
}

// The file of an account set and its journal are watched.
int xOpen(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
  static sqlite3_io_methods database;
  static sqlite3_io_methods journal;
  const int code = disk->xOpen(vfs, name, file, flags, outFlags);
  if (!file->pMethods || (flags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_MAIN_JOURNAL)) == 0)
    return code;
  real = file->pMethods;
  sqlite3_io_methods& faulty = (flags & SQLITE_OPEN_MAIN_DB) != 0 ? database : journal;
  faulty = *real;
  faulty.iVersion = 1; // neither shared memory nor mapped pages
  faulty.xWrite = xWrite;
  faulty.xSync = xSync;
  file->pMethods = &faulty;
  return code;
}

// A statement is committed when its journal is deleted.
int xDelete(sqlite3_vfs* vfs, const char* name, int syncsFolder)
{
  const int code = disk->xDelete(vfs, name, syncsFolder);
  if (code != SQLITE_OK || !QByteArrayView(name).endsWith("-journal"))
    return code;
  shared->unsyncedCommits += syncsFolder == 0;
  countCommit();
  return code;
}

} // namespace

void install()
{
  void* const memory = mmap(nullptr, sizeof(Counts), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED)
    qFatal("no shared memory");
  shared = new (memory) Counts;
  disk = sqlite3_vfs_find("unix");
  static sqlite3_vfs Faulty = *disk;
  Faulty.zName = "faulty";
  Faulty.xOpen = xOpen;
  Faulty.xDelete = xDelete;
  sqlite3_vfs_register(&Faulty, 1);
  realOpenDirectory = reinterpret_cast<decltype(realOpenDirectory)>(disk->xGetSystemCall(disk, "openDirectory"));
  disk->xSetSystemCall(disk, "openDirectory", reinterpret_cast<sqlite3_syscall_ptr>(openDirectory));
  sqlite3_auto_extension(reinterpret_cast<void (*)()>(watchStatements));
}

void follow(const Plan& next)
{
  plan = next;
  new (shared) Counts;
}

const Counts& counts()
{
  return *shared;
}

void noteRest()
{
  shared->isAtRest[qMin(shared->commits, MostWrites)] = true;
}

void noteServerWrite()
{
  if (countWrite() == plan.killAtWrite)
    die();
}

void noteServerCommit()
{
  countCommit();
}

} // namespace FaultyFiles
