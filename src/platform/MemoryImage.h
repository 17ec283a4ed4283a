#pragma once

// From now on nobody reads this process's memory, in which passwords are: a crash leaves no core file, and
// another program of the same user can't look into it. A debugger that started the program still can.
void forbidMemoryImages();
