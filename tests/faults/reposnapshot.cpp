// SPDX-License-Identifier: GPL-3.0-or-later
#include "reposnapshot.h"

#include "engine/engineharness.h"
#include "engine/history/repositoryhistory.h"

#include <utility>

namespace
{
QByteArray sumOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

/** The names of all files below the folder, from there on, sorted. */
QStringList filesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator entries(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (entries.hasNext())
        files.append(entries.next().mid(folder.size() + 1));
    files.sort();
    return files;
}

/** A release file without what differs in each export. */
QByteArray lasting(const QByteArray &release)
{
    QByteArray lines;
    for (const QByteArray &line : release.split('\n'))
        if (!line.startsWith("Date: ") && !line.startsWith("Valid-Until: "))
            lines += line + '\n';
    return lines;
}

/**
 * How a point differs from an earlier reading. Files that a later job without a point of its own takes out come to its
 * pool, for the way back.
 */
QString differing(const QByteArray &now, const QByteArray &then)
{
    QByteArray lines;
    const QByteArrayList left = now.split('\n');
    const QByteArrayList right = then.split('\n');
    for (const QByteArray &line : left)
        lines += right.contains(line) || line.startsWith("pool/") ? QByteArray() : "now " + line + '\n';
    for (const QByteArray &line : right)
        lines += left.contains(line) ? QByteArray() : "then " + line + '\n';
    return QString::fromUtf8(lines);
}

QString codenameOf(const QByteArray &description)
{
    for (const QByteArray &line : description.split('\n'))
        if (line.startsWith("Codename: "))
            return QString::fromUtf8(line.mid(10));
    return {};
}
} // namespace

RepoSnapshot RepoSnapshot::read(const QString &path)
{
    RepoSnapshot state;
    for (const char *folder : {"dists", "pool"}) {
        for (const QString &name : filesBelow(path + u'/' + QLatin1String(folder))) {
            const QString file = QLatin1String(folder) + u'/' + name;
            const QByteArray bytes = readFile(path + u'/' + file);
            const QString last = name.section(u'/', -1);
            const bool isSignature = last == "InRelease"_s || last == "Release.gpg"_s;
            const bool isRelease = last == "Release"_s;
            state.m_parts[file] = isSignature ? "signature" : sumOf(isRelease ? lasting(bytes) : bytes);
        }
    }
    for (const char *file : {"conf/distributions", "packages.conf"})
        if (QFile::exists(path + u'/' + QLatin1String(file)))
            state.m_parts[QLatin1String(file)] = readFile(path + u'/' + QLatin1String(file));
    const QString codename = codenameOf(state.m_parts.value("conf/distributions"_s));
    const QString format = "${package}|${$component}|${$architecture}|${$type} ${version} ${sha256}\n"_s;
    const auto reprepro = [&](const QStringList &words) {
        const ProcessResult result
            = runProcess({"reprepro"_s, QStringList{"-b"_s, path} + words, {}, {}, -1});
        if (!result.succeeded() || !result.errorOutput.isEmpty())
            state.m_faults += words.join(u' ') + ": "_s + result.errorOutput + u'\n';
        QStringList lines = result.output.split(u'\n', Qt::SkipEmptyParts);
        lines.sort();
        return lines;
    };
    for (const QString &line : reprepro({"--list-format"_s, format, "list"_s, codename}))
        state.m_packages[line.section(u' ', 0, 0)] = line.section(u' ', 1).toUtf8();
    for (const char *command : {"list", "_listchecksums", "dumpreferences", "check", "checkpool"}) {
        const bool isList = qstrcmp(command, "list") == 0;
        state.m_parts[QLatin1String(command)]
            = reprepro(QStringList{QLatin1String(command)} + (isList ? QStringList{codename} : QStringList{}))
                  .join(u'\n')
                  .toUtf8();
    }
    const RepositoryHistory history = RepositoryHistory::read(path);
    for (const RestorePoint &point : history.points) {
        QByteArray contents;
        const QString folder = RepositoryHistory::pointFolder(path, point.number);
        for (const QString &file : filesBelow(folder))
            if (file != "contents.cache.db"_s)
                contents += file.toUtf8() + ' ' + sumOf(readFile(folder + u'/' + file)) + '\n';
        state.m_points[point.number] = contents;
        state.m_kept[point.number] = point.isKept;
        if (!point.isReadable)
            state.m_faults += "the record of point %1 is damaged\n"_s.arg(point.number);
    }
    return state;
}

QString RepoSnapshot::differences(const RepoSnapshot &wanted) const
{
    QString text = m_faults;
    QStringList names = m_parts.keys() + wanted.m_parts.keys();
    names.removeDuplicates();
    for (const QString &name : std::as_const(names)) {
        if (m_parts.value(name) == wanted.m_parts.value(name))
            continue;
        const QString is = m_parts.contains(name) ? "another"_s : "missing"_s;
        text += "%1 is %2\n"_s.arg(name, wanted.m_parts.contains(name) ? is : "too much"_s);
    }
    return text;
}

bool RepoSnapshot::isBetween(const RepoSnapshot &before, const RepoSnapshot &after) const
{
    QStringList names = m_packages.keys() + before.m_packages.keys() + after.m_packages.keys();
    return m_faults.isEmpty() && std::all_of(names.cbegin(), names.cend(), [&](const QString &name) {
               const QByteArray now = m_packages.value(name);
               return now == before.m_packages.value(name) || now == after.m_packages.value(name);
           });
}

QString RepoSnapshot::historyFaults(const RepoSnapshot &before, bool mayLackOld) const
{
    QString faults;
    const int last = before.m_points.isEmpty() ? 0 : before.m_points.lastKey();
    for (auto point = m_points.cbegin(); point != m_points.cend(); ++point) {
        const bool isNext = point.key() == last + 1;
        const QString other = isNext ? QString() : differing(*point, before.m_points.value(point.key()));
        if (!other.isEmpty())
            faults += "point %1 is another one: %2"_s.arg(QString::number(point.key()), other);
    }
    for (auto point = before.m_points.cbegin(); point != before.m_points.cend(); ++point) {
        // Only the oldest may go.
        const bool isOld = mayLackOld && !m_points.isEmpty() && point.key() < m_points.firstKey();
        if (!m_points.contains(point.key()) && !isOld)
            faults += "point %1 is lost\n"_s.arg(point.key());
    }
    return faults;
}

int RepoSnapshot::newPoint(const RepoSnapshot &before) const
{
    if (m_points.isEmpty() || before.m_points.contains(m_points.lastKey()) || !m_kept.last())
        return 0;
    return m_points.lastKey();
}

QString RepoSnapshot::troubles(const EngineHarness &engine)
{
    // Messages about an interrupted write or an undone job are expected.
    const QRegularExpression other("^(?!.*(put back as it was before|interrupted and has been undone))"_s);
    const bool isFine = engine.criticals.filter(other).isEmpty();
    return isFine ? QString() : "the engine says: %1\n"_s.arg(engine.trouble());
}

QString RepoSnapshot::faultsWithin(const EngineHarness &engine)
{
    QString faults = troubles(engine);
    if (!engine.settled())
        faults += "records, indices, database and pool disagree\n"_s;
    const QString path = engine.shell.path();
    if (QFile::exists(path + "/db/lockfile"_s))
        faults += "the database is locked\n"_s;
    const auto left = [&](const QString &folder, const QString &known) {
        const QStringList names
            = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        const QRegularExpression right(QRegularExpression::anchoredPattern(known));
        for (const QString &name : names)
            if (!right.match(name).hasMatch())
                faults += "left behind: %1/%2\n"_s.arg(folder, name);
    };
    left(path, "conf|db|dists|pool|packages\\.conf"_s);
    left(path + "/conf"_s, "distributions"_s);
    left(path + "/db"_s, "[a-z.]+\\.db|version|velt-admin-repo\\.(history|damaged)"_s);
    left(RepositoryHistory::folder(path), "[0-9]{6,}|head\\.json|indices\\.[a-z]"_s);
    return faults;
}

QString RepoSnapshot::served(const QString &path)
{
    return runShell("find dists -type f -exec sha256sum {} + | sort"_s, path);
}

// Each run of reprepro writes the version of its database anew.
QStringList RepoSnapshot::everything(const QString &path)
{
    return runShell(
               "find . -type f -not -name version -printf '%p %i %T@\\n'; find . -type f -exec sha256sum {} +"_s,
               path)
        .split(u'\n');
}
