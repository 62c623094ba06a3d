// SPDX-License-Identifier: GPL-3.0-or-later
#include "repostate.h"

#include "engine/engineharness.h"

namespace
{
QByteArray sumOf(const QString &file)
{
    return QCryptographicHash::hash(readFile(file), QCryptographicHash::Sha256).toHex();
}

QString nameIn(const QString &key)
{
    return key.section(u' ', 0, 0);
}
} // namespace

void Request::offer(const QStringList &files)
{
    for (const QString &file : files)
        offered[QFileInfo(file).fileName().section(u'_', 0, 0)].insert(sumOf(file));
}

RepoState RepoState::read(const QString &path)
{
    RepoState state;
    QDirIterator indices(path + "/dists"_s, {"Packages"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (indices.hasNext()) {
        const QString index = indices.next();
        const QStringList place = index.split(u'/');
        QMap<QByteArray, QByteArray> fields;
        const QByteArrayList lines = QByteArray(readFile(index) + '\n').split('\n');
        for (const QByteArray &line : lines) {
            const int colon = line.indexOf(": ");
            if (colon > 0)
                fields[line.left(colon)] = line.mid(colon + 2);
            if (!line.isEmpty() || fields.isEmpty())
                continue;
            const QString key = QString::fromLatin1(fields["Package"]) + u' ' + place.value(place.size() - 3)
                                + u' ' + place.value(place.size() - 2);
            const QByteArray sum = sumOf(path + u'/' + QString::fromUtf8(fields["Filename"]));
            if (sum != fields["SHA256"])
                state.m_faults += "%1 has another file than its index says\n"_s.arg(key);
            if (state.m_sums.contains(key))
                state.m_faults += "%1 is there twice\n"_s.arg(key);
            state.m_sums.insert(key, sum);
            fields.clear();
        }
    }
    return state;
}

QString RepoState::faultsAfter(const RepoState &before, const Request &request) const
{
    QString faults = m_faults;
    for (auto old = before.m_sums.cbegin(); old != before.m_sums.cend(); ++old)
        if (!m_sums.contains(old.key()) && !request.removed.contains(nameIn(old.key())))
            faults += "%1 is lost\n"_s.arg(old.key());
    for (auto now = m_sums.cbegin(); now != m_sums.cend(); ++now) {
        if (*now != before.m_sums.value(now.key())
            && !request.offered.value(nameIn(now.key())).contains(*now))
            faults += "%1 has a file that nobody gave it\n"_s.arg(now.key());
    }
    return faults;
}

QStringList RepoState::names() const
{
    QSet<QString> names;
    for (auto package = m_sums.keyBegin(); package != m_sums.keyEnd(); ++package)
        names.insert(nameIn(*package));
    return names.values();
}

QString RepoState::faultsWithin(EngineHarness &engine)
{
    QString faults;
    // Messages about an interrupted write or an undone job are expected.
    if (!engine.criticals
             .filter(
                 QRegularExpression("^(?!.*(put back as it was before|interrupted and has been undone))"_s))
             .isEmpty())
        faults += "the engine says: %1\n"_s.arg(engine.trouble());
    for (const char *command : {"check", "checkpool"}) {
        const ProcessResult result = engine.reprepro({QString::fromLatin1(command)});
        if (!result.succeeded() || !result.errorOutput.isEmpty())
            faults += QString::fromLatin1(command) + ": "_s + result.errorOutput + u'\n';
    }
    if (!engine.settled())
        faults += "records, indices, database and pool disagree\n"_s;
    if (QFile::exists(engine.shell.path() + "/db/lockfile"_s))
        faults += "the database is locked\n"_s;
    const QStringList top
        = QDir(engine.shell.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    if (top != "conf|db|dists|pool"_list)
        faults += "left in the repository: %1\n"_s.arg(top.join(u' '));
    return faults;
}
