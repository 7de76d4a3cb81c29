#pragma once

// Clears every piece of process-wide state the library keeps (the factory list, the process
// finder, keys held down by key strings, the button-name table), so that each test starts as a fresh host would.
void ResetProcessWideState();
