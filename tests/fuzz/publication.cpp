// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "helper/requestrules.h"
#include "publication/listedsources.h"
#include "server/listeningports.h"
#include "server/localsources.h"
#include "server/publicationpath.h"
#include "server/publicationunit.h"
#include "server/sourcekey.h"
#include "server/sourceline.h"
#include "server/vsftpdconfig.h"

#include <QStringList>

#include <algorithm>

namespace
{
constexpr int LargestPort = 65535;

void checkRead(const PublishedRepo &repo)
{
    FUZZ_RULE(!Fuzzing::breaksLine(repo.path) && repo.path == repo.path.trimmed());
}

/** The values in a unit file must be read back unchanged, and the file must contain nothing else. */
void checkPath(const QString &path, int port, const QString &unitTemplate)
{
    FUZZ_RULE(path.startsWith(QLatin1Char('/')) && !Fuzzing::breaksLine(path));
    for (const QChar special : QStringLiteral("%\"'\\$;#,*?[]{}=\t\r"))
        FUZZ_RULE(!path.contains(special));

    const QString unit = PublicationUnit::text(
        QStringLiteral("[Service]\nWorkingDirectory=%1\nExecStart=/bin/x \"%1\" %%1 %2\n"), path, port);
    FUZZ_EQUAL(unit,
               QLatin1String("[Service]\nWorkingDirectory=") + path + QLatin1String("\nExecStart=/bin/x \"")
                   + path + QLatin1String("\" %%1 ") + QString::number(port) + QLatin1Char('\n'));
    FUZZ_EQUAL(PublicationUnit::read(unit).path, path);
    FUZZ_RULE(PublicationUnit::read(unit).port == port);
    const QString filled = PublicationUnit::text(unitTemplate, path, port);
    FUZZ_RULE(filled.count(QLatin1Char('\n')) == unitTemplate.count(QLatin1Char('\n')));

    const QString config = VsftpdConfig::text(path, port);
    FUZZ_RULE(VsftpdConfig::isOurs(config) && VsftpdConfig::mentionsPort(config, port));
    FUZZ_EQUAL(VsftpdConfig::read(config).path, path);
    FUZZ_RULE(VsftpdConfig::read(config).port == port);
    FUZZ_RULE(!VsftpdConfig::isOurs(config + QLatin1Char('x')));
    FUZZ_RULE(VsftpdConfig::isGuarded(QLatin1String("# more\n") + config, VsftpdConfig::guard(path)));
    FUZZ_RULE(!VsftpdConfig::isGuarded(config, VsftpdConfig::guard(path + QLatin1Char('x'))));

    // The helper must accept the program's own line, and the line must be parsed to the same values.
    SourceLine line;
    line.trusted = port % 2 == 0;
    line.architectures = port % 3 == 0 ? QStringLiteral("amd64 i386") : QString();
    line.protocol = LocalDirectoryProtocol;
    line.directory = SourceLine::inLine(path);
    line.codename = QStringLiteral("dogwood");
    line.components = QStringLiteral("main non-free");
    line.copied = port % 5 == 0;
    if (port % 7 == 0) {
        line.trusted = false;
        line.signedBy = SourceKey::file(QString(40, QLatin1Char('A')));
    }
    FUZZ_EQUAL(RequestRules::entryProblem(line.text()),
               line.text().size() > RequestRules::LongestEntry
                   ? QStringLiteral("The source line is too long.")
                   : QString());
    FUZZ_RULE(ListedSources::isOurs(line.text()));
    FUZZ_EQUAL(SourceLine::parse(line.text())->path(), path);
}

void checkEntry(const QString &entry, const QString &file)
{
    FUZZ_RULE(entry.size() <= RequestRules::LongestEntry && entry.startsWith(QLatin1String("deb ")));
    for (const QChar special : QStringLiteral("\"'\\$;#\t\r\n"))
        FUZZ_RULE(!entry.contains(special));
    FUZZ_RULE(entry.count(QLatin1Char('%')) == entry.count(QLatin1String("%20")));
    const QString key = RequestRules::keyFile(entry);
    FUZZ_RULE(entry.count(QLatin1String("signed-by=")) == (key.isEmpty() ? 0 : 1));
    FUZZ_RULE(key.isEmpty() || !SourceKey::fingerprintIn(key).isEmpty());
    FUZZ_RULE(key.isEmpty() || !entry.contains(QLatin1String("trusted=yes")));
    const std::optional<SourceLine> source = SourceLine::parse(entry);
    FUZZ_RULE(!source || source->signedBy == key);
    const QString more = LocalSources::appended(file, entry);
    FUZZ_RULE(LocalSources::contains(more, entry));
    FUZZ_RULE(!LocalSources::removed(more, entry).split(QLatin1Char('\n')).contains(entry));
}
} // namespace

void FuzzTarget::publication(std::string_view input)
{
    // The first line is the request, and the rest is a file.
    const QByteArray bytes = Fuzzing::expanded(input);
    const QString text = QString::fromUtf8(bytes);
    const QString first = text.section(QLatin1Char('\n'), 0, 0);
    const QString file = text.section(QLatin1Char('\n'), 1);
    const int port = 1 + first.size() % LargestPort;
    for (const QString &given : {first, file}) {
        if (PublicationPath::isWellFormed(given))
            checkPath(given, port, file);
        if (RequestRules::entryProblem(given).isEmpty())
            checkEntry(given, file);
    }
    const QString fingerprint = SourceKey::fingerprint(bytes);
    FUZZ_RULE(fingerprint.isEmpty() || SourceKey::isFingerprint(fingerprint));
    const ListedSources listed(text, {QStringLiteral("box")});
    const QStringList orphaned = listed.linesWithoutService({});
    FUZZ_RULE(std::all_of(orphaned.cbegin(), orphaned.cend(), [&text](const QString &line) {
        return LocalSources::contains(text, line);
    }));
    checkRead(PublicationUnit::read(file));
    checkRead(VsftpdConfig::read(file));
    const auto repo = VsftpdConfig::read(file);
    FUZZ_RULE(!VsftpdConfig::isOurs(file) || VsftpdConfig::text(repo.path, repo.port) == file);

    const QSet<int> ports = ListeningPorts::parse(bytes);
    FUZZ_RULE(ports.size() <= bytes.count('\n') + 1);
    FUZZ_RULE(std::all_of(ports.cbegin(), ports.cend(), [](int p) { return p >= 0 && p <= LargestPort; }));
}
