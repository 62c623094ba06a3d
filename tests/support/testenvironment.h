// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/lists.h"
#include "support/scopedvariable.h"
#include "support/testapplication.h"

#include <QtTest>

/**
 * A private home for one test program. HOME, the XDG folders and GNUPGHOME are in a temporary folder, so that no test
 * reads or writes files of the user. Create it before the application object.
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

/** True when `program` is on PATH. If not, a test is skipped, or fails when REQUIRE_REAL_TOOLS is set. */
bool haveTool(const char *program);

/** Writes `text` to `path` and creates missing folders. A failure ends the test program. */
void writeFile(const QString &path, const QByteArray &text);
QByteArray readFile(const QString &path);
/** Every path below the folder, with a checksum of what is in it: two equal ones are the same tree, byte for byte. */
QByteArray treeOf(const QString &folder);
/** Writes an executable script, for example a stand-in for a tool that records its calls or fails. */
void writeScript(const QString &path, const QByteArray &text);
/** The output of a bash script. When one of its commands fails, the test program ends. */
QString runShell(const QString &script, const QString &folder = {});
/** Bytes that cannot be compressed and are the same each time. */
QByteArray noise(int size);

#define VELT_NEED_TOOL(name)                                                                                 \
    do {                                                                                                     \
        if (!haveTool(name)) {                                                                               \
            if (qEnvironmentVariableIsSet("REQUIRE_REAL_TOOLS"))                                             \
                QFAIL(name " is not installed");                                                             \
            QSKIP(name " is not installed");                                                                 \
        }                                                                                                    \
    } while (false)

/** The main function of a test program with the class `TestClass` and the application `Application`. */
#define VELT_TEST_MAIN(TestClass, Application)                                                               \
    int main(int argc, char *argv[])                                                                         \
    {                                                                                                        \
        const TestEnvironment environment;                                                                   \
        TestApplication<Application> application(argc, argv);                                                \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
