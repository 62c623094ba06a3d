// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/configuredprograms.h"

#include <QRegularExpression>
#include <QSet>

namespace
{
/** reprepro skips longer lines, so there is no need to interpret them. */
constexpr int LongestLine = 4000;

QSet<QByteArray> wordsOf(const char *text)
{
    const QList<QByteArray> words = QByteArray(text).simplified().split(' ');
    return {words.cbegin(), words.cend()};
}

/** Options that name neither a program nor a place to write to. */
bool isHarmlessOption(const QByteArray &name)
{
    static const QSet<QByteArray> names = wordsOf(
        "export keepunreferencedfiles nokeepunreferencedfiles keepunusednewfiles nokeepunusednewfiles "
        "keepunneededlists nokeepunneededlists keepdirectories nokeepdirectories keeptemporaries "
        "nokeeptemporaries ask-passphrase noask-passphrase delete nodelete deleteunreferenced verbose silent "
        "verbosedb noverbosedb verbosedatabase noverbosedatabase force fast nofast ignore unignore noignore "
        "skipold noskipold nonoskipold nolistsdownload nonolistsdownload nothingiserror nonothingiserror "
        "onlysmalldeletes noonlysmalldeletes waitforlock spacecheck checkspace dbsafetymargin safetymargin "
        "guessgpgtty noguessgpgtty nonoguessgpgtty component architecture type section priority list-format "
        "list-max list-skip show-percent restrict restrict-source restrict-src restrict-binary");
    return names.contains(name);
}

bool isFolderOption(const QByteArray &name)
{
    static const QSet<QByteArray> names = wordsOf("outdir distdir dbdir logdir listdir morguedir");
    return names.contains(name);
}

bool isUncompressor(const QByteArray &name)
{
    static const QSet<QByteArray> names = wordsOf("gunzip bunzip2 unlzma unxz lunzip unzstd");
    return names.contains(name);
}

/** Fields of a distribution whose values are plain words, or names of files that are only read. */
bool isHarmlessField(const QByteArray &name)
{
    static const QSet<QByteArray> names = wordsOf(
        "codename suite fakecomponentprefix alsoacceptfor version origin label notautomatic "
        "butautomaticupgrades description architectures components udebcomponents update pull deboverride "
        "udeboverride dscoverride exportoptions contents contentsarchitectures contentscomponents "
        "contentsucomponents uploaders tracking validfor readonly signed-by limit archive");
    return names.contains(name);
}

/** Whether an index description names no program: a word after the compressions would be one. */
bool isPlainIndex(const QByteArray &value)
{
    static const QRegularExpression words(
        QStringLiteral(R"(\A[A-Za-z0-9][\w.-]*( [A-Za-z0-9][\w.-]*)?( \.[a-z0-9]*)+\z)"));
    return words.match(QString::fromLatin1(value)).hasMatch();
}

/** Whether the path stays inside the folder to which it is relative. */
bool isInside(const QByteArray &name)
{
    const QByteArray leadingElsewhere("/~+!-");
    return !name.isEmpty() && !leadingElsewhere.contains(name.at(0)) && !name.split('/').contains("..");
}

QString shown(const QByteArray &line)
{
    return QString::fromLocal8Bit(line).simplified();
}
} // namespace

const QByteArray ConfiguredPrograms::BelowRepository("+b/");

void ConfiguredPrograms::addLine(const char *file, const QByteArray &line)
{
    m_lines.append(QLatin1String("conf/") + QLatin1String(file) + QLatin1String(": ") + shown(line));
    const QList<QByteArray> words = line.simplified().split(' ');
    for (QByteArray word : words) {
        for (const char *start : {"!", "+c/", "./"})
            if (word.startsWith(start))
                word.remove(0, static_cast<int>(qstrlen(start)));
        const QByteArray path = word.startsWith(BelowRepository) ? word.mid(BelowRepository.size()) : word;
        if (isInside(path) && !m_words.contains(word))
            m_words.append(word);
    }
}

void ConfiguredPrograms::readOptions(const QByteArray &text)
{
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray &written : lines) {
        const QByteArray line = written.trimmed();
        const bool isOdd = line.size() > LongestLine || line.contains('\0');
        if (!isOdd && (line.isEmpty() || line.startsWith('#') || line.startsWith(';')))
            continue;
        QByteArray value = line.simplified().replace('=', ' ').simplified();
        while (value.startsWith('-'))
            value.remove(0, 1);
        const QByteArray name = value.split(' ').first();
        value = value.mid(name.size()).trimmed();
        if (!isOdd && (isHarmlessOption(name) || (isUncompressor(name) && value == "NONE")))
            continue;
        if (!isOdd && isFolderOption(name) && value.startsWith(BelowRepository)) {
            const QByteArray folder = value.mid(BelowRepository.size());
            if (isInside(folder) && !folder.contains('/') && !folder.contains(' ') && folder != ".") {
                m_folders.append(folder);
                continue;
            }
        }
        addLine("options", line);
    }
}

void ConfiguredPrograms::readDistributions(const QByteArray &text)
{
    QByteArray name;
    QList<QByteArray> values; // values of the field, one for each line
    const auto finish = [&] {
        if (!values.isEmpty())
            readField(name, values);
        values.clear();
    };
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith('#'))
            continue;
        if (!values.isEmpty() && (line.startsWith(' ') || line.startsWith('\t'))) {
            values.append(line.trimmed());
            continue;
        }
        finish();
        if (line.trimmed().isEmpty())
            continue;
        const auto colon = line.indexOf(':');
        if (colon < 0) {
            addLine("distributions", line);
            continue;
        }
        name = line.left(colon);
        values.append(line.mid(colon + 1).trimmed());
    }
    finish();
}

void ConfiguredPrograms::readField(const QByteArray &name, const QList<QByteArray> &lines)
{
    const QByteArray field = name.trimmed().toLower();
    const QByteArray value = lines.join(' ').simplified();
    if (isHarmlessField(field) || (field == "signwith" && !value.contains('!'))
        || ((field == "debindices" || field == "udebindices" || field == "dscindices") && isPlainIndex(value))
        // The lines after the name of the log file are programs.
        || (field == "log" && value == lines.first() && isInside(value)))
        return;
    for (const QByteArray &line : lines)
        if (!line.isEmpty())
            addLine("distributions", name + ": " + line);
}
