#pragma once
// What each command of wbs does, once its arguments have been checked. Each returns the exit code.
#include "Arguments.h"

namespace wbs {

// back, forward, refresh, home, search, favorites, go and open: the exported command, and a report
// of the driver that served it.
int Deliver(const Arguments& args);
int Which(const Arguments& args);
int Page(const Arguments& args);
// list-favorites and list-history.
int List(const Arguments& args);
int Version(const Arguments& args);

}  // namespace wbs
