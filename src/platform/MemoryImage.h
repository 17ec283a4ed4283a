#pragma once

// Keeps others from reading this process's memory, which holds passwords: from now on a crash leaves no core file,
// and another program of the same user can't look into it. A debugger that started the program still can.
void forbidMemoryImages();
