// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/satsolver.h"

#include <chrono>

#include <cadical.hpp>

namespace
{
using Clock = std::chrono::steady_clock;

// The answers of solve(), as in the competitions of solvers.
constexpr int Satisfiable = 10;
constexpr int Unsatisfiable = 20;

/** Ends a search from within. */
class Limit : public CaDiCaL::Terminator
{
public:
    Limit(int seconds, const std::function<bool()> &stopped)
        : m_end(Clock::now() + std::chrono::seconds(seconds))
        , m_stopped(stopped)
    { }
    bool terminate() override { return (m_stopped && m_stopped()) || Clock::now() >= m_end; }

private:
    Clock::time_point m_end;
    const std::function<bool()> &m_stopped;
};
} // namespace

SatSolver::SatSolver()
    : m_solver(std::make_unique<CaDiCaL::Solver>())
{
    m_solver->set("quiet", 1);
}

SatSolver::~SatSolver() = default;

void SatSolver::addClause(std::initializer_list<int> literals)
{
    for (const int literal : literals)
        m_solver->add(literal);
    m_solver->add(0);
}

void SatSolver::addLiteral(int literal)
{
    m_solver->add(literal);
}

void SatSolver::prefer(int literal)
{
    m_solver->phase(literal);
}

SatSolver::Answer
SatSolver::solve(const std::vector<int> &assumptions, int seconds, const std::function<bool()> &stopped)
{
    for (const int literal : assumptions)
        m_solver->assume(literal);
    Limit limit(seconds, stopped);
    m_solver->connect_terminator(&limit);
    const int answer = m_solver->solve();
    m_solver->disconnect_terminator();
    if (answer == Satisfiable)
        return Possible;
    return answer == Unsatisfiable ? Impossible : Unknown;
}

bool SatSolver::value(int literal) const
{
    return m_solver->val(literal) > 0;
}

bool SatSolver::isToBlame(int assumption) const
{
    return m_solver->failed(assumption);
}
