// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>

/**
 * Memory that a test shares with the programs under test and with what they start. Each change of a file below a folder
 * is a step: a name that is made, changed or deleted, or a write. All processes count together, so that a fault comes
 * at every moment at which it can make a difference, and at the same one again.
 */
struct FaultBoard
{
    enum Fault : int {
        None,
        MainKilled, ///< the program that the test has started; what it runs goes on
        AllKilled, ///< with all that it runs; a write is cut in two
        ChildKilled, ///< a program that it runs
        DiskFull, ///< nothing gets room from this step on, or for some steps
        Count
    };
    static constexpr const char *Variable
        = "FAULTS_BOARD"; ///< of the environment; names the file of the memory

    char folder[256];
    std::atomic<int> fault;
    std::atomic<int> from; ///< the first step of the fault
    std::atomic<int> until; ///< the step at which the disk has room again
    std::atomic<int> steps; ///< taken so far
    std::atomic<int> main; ///< process id of the program under test, from beginFaults() on
};

/** Begins to count the steps. The library that counts them defines it, so a program looks it up. */
extern "C" void beginFaults();
