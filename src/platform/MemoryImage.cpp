#include "platform/MemoryImage.h"

#include <sys/prctl.h>

void forbidMemoryImages()
{
  prctl(PR_SET_DUMPABLE, 0);
}
