// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

namespace CaDiCaL
{
class Solver;
}

/**
 * A search for values of variables that make all clauses true. A literal is the number of a variable, from 1 on, and
 * negative for "not". Clauses can be added between two searches; what the solver has learned stays.
 */
class SatSolver
{
public:
    enum Answer {
        Possible, ///< value() tells how
        Impossible, ///< isToBlame() tells which assumptions are too much
        Unknown ///< stopped, or the time was over
    };

    SatSolver();
    ~SatSolver();
    SatSolver(const SatSolver &) = delete;
    SatSolver &operator=(const SatSolver &) = delete;

    int newVariable() { return ++m_variables; }
    void addClause(std::initializer_list<int> literals);
    /** The next clause, literal by literal; ended by endClause(). */
    void addLiteral(int literal);
    void endClause() { addLiteral(0); }
    /** The value that the search tries first. */
    void prefer(int literal);

    /** Searches with these literals true, at most so many seconds, until `stopped`, which is asked very often. */
    Answer solve(const std::vector<int> &assumptions, int seconds, const std::function<bool()> &stopped);
    bool value(int literal) const;
    /** Whether the assumption is one of those that the last search found to contradict each other. */
    bool isToBlame(int assumption) const;

private:
    std::unique_ptr<CaDiCaL::Solver> m_solver;
    int m_variables = 0;
};
