// System calls that fail on demand: the test program has functions of its own in the place of those
// of the C library.
#pragma once

namespace kalvex {

/// From now on the call with this number, counted from 0 over all of openat, write, fsync, linkat
/// and renameat, fails with an error number.
void FailCall(int number, int errorNumber);

/// No call fails any more. Says whether the one that should fail was reached.
bool StopFailing();

}  // namespace kalvex
