// Work spread over threads: indices 0..count-1 handed out one at a time, so
// that a slow zone does not hold the others back. Each index is done by one
// thread, whole, so the result of an index does not depend on the thread
// count.
#pragma once

#include <functional>

namespace solvane::engine {

// The thread count to use: `requested` when above 0, else the machine's
// core count (at least 1).
int ThreadCount(int requested);

// Calls `work(i)` for every i in [0, count) on up to `threads` threads (the
// calling thread one of them) and returns when all are done. The first
// exception thrown by a call is rethrown here after the others have ended.
void ParallelFor(int count, int threads, const std::function<void(int)>& work);

}  // namespace solvane::engine
