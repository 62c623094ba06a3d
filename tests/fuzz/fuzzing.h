// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <stdexcept>
#include <string>
#include <string_view>

/** Common functions of the targets: how an input is expanded, and how a broken rule is reported. */
namespace Fuzzing
{
/** A rule did not hold for an input. The fuzzer does not catch it, so the program ends and the input is kept. */
class Broken : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

[[noreturn]] void fail(const char *rule, const char *file, int line, const std::string &details = {});
void requireEqual(
    const QString &actual, const QString &expected, const char *rule, const char *file, int line);

/** Large enough that a quadratic algorithm takes many seconds. */
inline int repeatedSize = 1 << 16;

/**
 * The bytes that an input stands for. If it contains the byte 1 twice, the part between is repeated up to repeatedSize
 * bytes, with a running number in place of the byte 2. So a short input can reveal an algorithm with more than linear
 * time.
 */
QByteArray expanded(std::string_view input);
QString expandedText(std::string_view input);

/** Writes the correct checksum into each block of a tar archive with the mark of a header, as no mutation would. */
QByteArray withRightSums(QByteArray archive);

/** Whether any program would read the text as more than one line of a file. */
bool breaksLine(const QString &text);

/** A file that exists only in memory and can be opened by its name. */
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

/** The same for two texts that must be equal. */
#define FUZZ_EQUAL(actual, expected)                                                                         \
    Fuzzing::requireEqual((actual), (expected), #actual " == " #expected, __FILE__, __LINE__)
