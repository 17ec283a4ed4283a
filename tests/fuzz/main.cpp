#include "Targets.h"

#include <QFile>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <random>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

// Feeds the readers of outside texts: fuzz. The corpus of the tree is replayed, and some bytes made from
// it; with ZORVEK_LONG in the surroundings these are made for minutes. `fuzz TARGET FILE` reads one file,
// such as a crash that was kept. Built with the sanitizers, always.

namespace {

using Random = std::mt19937;
using Clock = std::chrono::steady_clock;

constexpr qsizetype MostBytes = 1 << 16;

// What is being read, for the parent of a process that dies of it.
struct Shared {
  qsizetype size;
  long long count;
  char bytes[MostBytes];
};

Shared* shared = nullptr;

qsizetype below(Random& random, qsizetype end)
{
  return end <= 0 ? 0 : std::uniform_int_distribution<qsizetype>(0, end - 1)(random);
}

void edit(QByteArray& bytes, const QList<QByteArray>& corpus, Random& random)
{
  const qsizetype at = below(random, bytes.size() + 1);
  switch (below(random, 6)) {
  case 0: bytes.insert(at, char(below(random, 256))); break;
  case 1: bytes.remove(at, below(random, 8) + 1); break;
  case 2: bytes.insert(at, bytes.mid(below(random, bytes.size()), below(random, 40))); break;
  case 3: {
    const QByteArray& other = corpus[below(random, corpus.size())];
    bytes.replace(at, below(random, 20), other.mid(below(random, other.size()), below(random, 40)));
    break;
  }
  case 4: bytes.insert(at, "'\"#[]{}();\\\0\r\n-"[below(random, 15)]); break;
  default:
    if (at < bytes.size())
      bytes[at] = char(bytes[at] ^ (1 << below(random, 8)));
  }
}

void feed(const Target& target, const QByteArray& bytes)
{
  shared->size = qMin(bytes.size(), MostBytes);
  std::memcpy(shared->bytes, bytes.constData(), std::size_t(shared->size));
  ++shared->count;
  target.read(bytes.first(shared->size));
}

void feedAll(const Target& target, std::chrono::seconds howLong)
{
  const QList<QByteArray> corpus = target.corpus();
  for (const QByteArray& bytes : corpus)
    feed(target, bytes);
  Random random(unsigned(Clock::now().time_since_epoch().count()));
  for (const auto end = Clock::now() + howLong; Clock::now() < end;) {
    QByteArray bytes = corpus[below(random, corpus.size())];
    for (qsizetype edits = below(random, 8); edits >= 0; --edits)
      edit(bytes, corpus, random);
    alarm(10);
    feed(target, bytes);
  }
}

// In a process of its own. True if it lived.
bool survives(const Target& target, std::chrono::seconds howLong)
{
  shared->count = 0;
  const pid_t child = fork();
  if (child == 0) {
    feedAll(target, howLong);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  std::printf("%s: %lld texts\n", target.name, shared->count);
  if (status == 0)
    return true;
  QFile kept(QStringLiteral("crash-") + target.name);
  if (kept.open(QIODevice::WriteOnly))
    kept.write(shared->bytes, shared->size);
  std::printf("FAILED %s: status %d, the text is in %s\n", target.name, status, kept.fileName().toUtf8().constData());
  return false;
}

int readOne(const char* name, const char* path)
{
  QFile file(QString::fromLocal8Bit(path));
  for (const Target& target : targets())
    if (std::strcmp(target.name, name) == 0 && file.open(QIODevice::ReadOnly)) {
      target.read(file.readAll());
      return 0;
    }
  return 2;
}

} // namespace

int main(int count, char** texts)
{
  if (count == 3)
    return readOne(texts[1], texts[2]);
  void* const memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED)
    return 1;
  shared = new (memory) Shared;
  const std::chrono::seconds howLong(qEnvironmentVariableIsSet("ZORVEK_LONG") ? 120 : 2);
  int passed = 0;
  for (const Target& target : targets()) {
    std::fflush(nullptr);
    passed += survives(target, howLong);
  }
  std::printf("%d passed, %d failed\n", passed, int(targets().size()) - passed);
  return passed == targets().size() ? 0 : 1;
}
