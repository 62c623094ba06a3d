// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/testapplication.h"

#include <QString>
#include <QTemporaryDir>

/**
 * A home of its own for one test program: HOME, the XDG folders and GNUPGHOME lie in a temporary folder, so that no
 * test reads or writes anything of the user. Make it before the application object.
 */
class TestEnvironment
{
public:
    TestEnvironment();
    ~TestEnvironment();
    TestEnvironment(const TestEnvironment &) = delete;
    TestEnvironment &operator=(const TestEnvironment &) = delete;

private:
    QTemporaryDir m_home;
};

/** True when `program` is on PATH; otherwise a test skips, or fails when REQUIRE_REAL_TOOLS is set. */
bool haveTool(const char *program);

/** Writes `text` to `path`, making missing folders; fails the program when that is impossible. */
void writeFile(const QString &path, const QByteArray &text);
QByteArray readFile(const QString &path);
/** Writes an executable script, for example a recording or failing stand-in for a tool. */
void writeScript(const QString &path, const QByteArray &text);
/** What a bash script printed; fails the program when one of its commands fails. */
QString runShell(const QString &script, const QString &folder = {});
/** Incompressible, and the same each time. */
QByteArray noise(int size);

#define VELT_NEED_TOOL(name)                                                                                 \
    do {                                                                                                     \
        if (!haveTool(name)) {                                                                               \
            if (qEnvironmentVariableIsSet("REQUIRE_REAL_TOOLS"))                                             \
                QFAIL(name " is not installed");                                                             \
            QSKIP(name " is not installed");                                                                 \
        }                                                                                                    \
    } while (false)

/** The main function of a test program whose class is `TestClass` and whose application is `Application`. */
#define VELT_TEST_MAIN(TestClass, Application)                                                               \
    int main(int argc, char *argv[])                                                                         \
    {                                                                                                        \
        const TestEnvironment environment;                                                                   \
        TestApplication<Application> application(argc, argv);                                                \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
