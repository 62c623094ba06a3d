// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <stdexcept>
#include <string>
#include <string_view>

/** What the targets have in common: how an input is read, and how a rule that does not hold is told. */
namespace Fuzzing
{
/** A rule did not hold for an input. Nobody catches it while fuzzing, which ends the program and keeps the input. */
class Broken : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

[[noreturn]] void fail(const char *rule, const char *file, int line, const std::string &details = {});
void requireEqual(
    const QString &actual, const QString &expected, const char *rule, const char *file, int line);

/** Enough for what is quadratic to take many seconds. */
inline int repeatedSize = 1 << 16;

/**
 * The bytes that an input stands for. Where it holds the byte 1 twice, what stands between is repeated until there
 * are repeatedSize, with a running number in the place of the byte 2: so a short input shows what takes more than
 * linear time.
 */
QByteArray expanded(std::string_view input);
QString expandedText(std::string_view input);

/** Whether the text would take more than one line in a file, for any program that reads it. */
bool breaksLine(const QString &text);

/** A file that exists in memory alone and can be opened by its name. */
class MemoryFile
{
public:
    explicit MemoryFile(const QByteArray &contents);
    ~MemoryFile();
    MemoryFile(const MemoryFile &) = delete;
    MemoryFile &operator=(const MemoryFile &) = delete;

    QString name() const;

private:
    int m_descriptor = -1;
};
} // namespace Fuzzing

/** Ends the run when a rule does not hold. */
#define FUZZ_RULE(condition)                                                                                 \
    do {                                                                                                     \
        if (!(condition))                                                                                    \
            Fuzzing::fail(#condition, __FILE__, __LINE__);                                                   \
    } while (false)

/** As above for two texts that are to be equal. */
#define FUZZ_EQUAL(actual, expected)                                                                         \
    Fuzzing::requireEqual((actual), (expected), #actual " == " #expected, __FILE__, __LINE__)
