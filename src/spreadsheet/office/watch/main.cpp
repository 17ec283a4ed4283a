#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

extern "C" {
#include <sys/pidfd.h>
}

// officewatch COMMAND [ARGUMENT ...]
//
// Forks a process that watches the owner, then executes the office. The owner holds the other end of the pipe on
// standard input. If the pipe breaks, the owner has died and the office is killed; a byte means that the office
// belongs to the operator from now on. Until then it works on files that others wrote, and its memory is limited, so
// that none of them can exhaust the machine's.

namespace {

constexpr rlim_t MostMemory = rlim_t(1) << 30;
constexpr rlim_t MostOnDisk = rlim_t(1) << 29;

// The soft limit only: the watch restores it.
void limit(int resource, rlim_t most)
{
  rlimit now{};
  if (getrlimit(static_cast<__rlimit_resource>(resource), &now) != 0)
    return;
  now.rlim_cur = now.rlim_max < most ? now.rlim_max : most;
  setrlimit(static_cast<__rlimit_resource>(resource), &now);
}

void unlimit(pid_t office, int resource)
{
  rlimit now{};
  if (prlimit(office, static_cast<__rlimit_resource>(resource), nullptr, &now) != 0)
    return;
  now.rlim_cur = now.rlim_max;
  prlimit(office, static_cast<__rlimit_resource>(resource), &now, nullptr);
}

[[noreturn]] void watch(pid_t office, int officeHandle)
{
  pollfd waits[] = {{STDIN_FILENO, POLLIN, 0}, {officeHandle, POLLIN, 0}};
  while (poll(waits, 2, -1) < 0)
    ;
  if (waits[1].revents != 0)
    _exit(EXIT_SUCCESS);
  char byte = 0;
  if (read(STDIN_FILENO, &byte, 1) == 1) {
    unlimit(office, RLIMIT_DATA);
    unlimit(office, RLIMIT_FSIZE);
  } else {
    pidfd_send_signal(officeHandle, SIGKILL, nullptr, 0);
  }
  _exit(EXIT_SUCCESS);
}

// A grandchild, so that nobody has to wait for it.
bool startWatch()
{
  const pid_t office = getpid();
  const int officeHandle = pidfd_open(office, 0);
  if (officeHandle < 0)
    return false;
  const pid_t child = fork();
  if (child == 0) {
    if (fork() == 0)
      watch(office, officeHandle);
    _exit(EXIT_SUCCESS);
  }
  close(officeHandle);
  return child > 0 && waitpid(child, nullptr, 0) == child;
}

} // namespace

int main(int count, char** arguments)
{
  // The owner's open files are not for the watch or the office.
  close_range(STDERR_FILENO + 1, ~0U, 0);
  if (count < 2 || !startWatch())
    return EXIT_FAILURE;
  limit(RLIMIT_DATA, MostMemory);
  limit(RLIMIT_FSIZE, MostOnDisk);
  limit(RLIMIT_CORE, 0);
  dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
  execv(arguments[1], arguments + 1);
  return EXIT_FAILURE;
}
