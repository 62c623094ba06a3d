// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/packagesourcerules.h"

#include "engine/reprepro/configfolder.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <QVector>

#include <algorithm>
#include <utility>

namespace
{
const QByteArray RuleName = QByteArrayLiteral("velt-admin-repo");

struct Field
{
    QByteArray name; ///< in lower case
    QByteArray value; ///< of its first line
    QByteArray lines;
};

/** The fields of a control file; nothing when a line, or a second field of a name, could be read in several ways. */
std::optional<QVector<Field>> fieldsOf(const QByteArray &control)
{
    static const QRegularExpression firstLine(
        QStringLiteral("^([A-Za-z0-9][A-Za-z0-9_-]*): (\\S(?:.*\\S)?)$"));
    static const QRegularExpression nextLine(QStringLiteral("^ \\S(?:.*\\S)?$"));
    if (!control.endsWith('\n') || control.contains('\r') || control.contains('\0'))
        return std::nullopt;
    QVector<Field> fields;
    QList<QByteArray> lines = control.split('\n');
    lines.removeLast();
    for (const QByteArray &line : std::as_const(lines)) {
        // Each byte is one character here.
        const QString text = QString::fromLatin1(line);
        if (const auto first = firstLine.match(text); first.hasMatch()) {
            fields.append(
                {first.captured(1).toLatin1().toLower(), first.captured(2).toLatin1(), line + '\n'});
        } else if (!fields.isEmpty() && nextLine.match(text).hasMatch()) {
            fields.last().lines += line + '\n';
        } else {
            return std::nullopt;
        }
    }
    QStringList names;
    for (const Field &field : std::as_const(fields))
        names.append(QString::fromLatin1(field.name));
    return names.removeDuplicates() == 0 ? std::make_optional(fields) : std::nullopt;
}

/** What reprepro insists on, so that one file does not fail the run for all. */
bool hasPlainValues(const QHash<QByteArray, QByteArray> &values)
{
    static const QRegularExpression package(QStringLiteral("^[a-z0-9][a-z0-9.+-]+$"));
    static const QRegularExpression version(QStringLiteral("^[0-9][A-Za-z0-9.+:~-]*$"));
    static const QRegularExpression source(
        QStringLiteral("^[a-z0-9][a-z0-9.+-]+(?: \\([0-9][A-Za-z0-9.+:~-]*\\))?$"));
    static const QRegularExpression word(QStringLiteral("^[a-z0-9][a-z0-9-]*$"));
    const auto fits = [&values](const char *name, const QRegularExpression &expression) {
        return expression.match(QString::fromLatin1(values.value(name))).hasMatch();
    };
    return fits("package", package) && fits("version", version) && fits("architecture", word)
           && fits("section", word) && fits("priority", word)
           && (!values.contains("source") || fits("source", source));
}
} // namespace

std::optional<QByteArray> PackageSourceRules::record(const QByteArray &control,
                                                     const FileChecksums &checksums,
                                                     const QByteArray &fileName)
{
    const auto fields = fieldsOf(control);
    if (!fields || !checksums.isValid())
        return std::nullopt;
    QHash<QByteArray, QByteArray> values;
    for (const Field &field : *fields)
        values.insert(field.name, field.value);
    for (const char *ours : {"filename", "size", "md5sum", "sha1", "sha256", "sha512"})
        if (values.contains(ours))
            return std::nullopt;
    if (!values.contains("description") || !hasPlainValues(values))
        return std::nullopt;
    QByteArray text;
    for (const Field &field : *fields) {
        if (field.name == "priority" || field.name == "section")
            continue;
        // reprepro puts these fields, in this order, before the description.
        if (field.name == "description")
            text += "Priority: " + values.value("priority") + "\nSection: " + values.value("section")
                    + "\nFilename: " + fileName + "\nSize: " + QByteArray::number(checksums.size)
                    + "\nSHA256: " + checksums.sha256 + "\nSHA1: " + checksums.sha1
                    + "\nMD5sum: " + checksums.md5 + '\n';
        text += field.lines;
    }
    return text + '\n';
}

std::optional<QByteArray> PackageSourceRules::description(const QByteArray &own, const QString &codename)
{
    // Other fields name programs, tables and records that know inclusions and updates apart, or may come with them.
    static const QList<QByteArray> known{"codename",
                                         "suite",
                                         "origin",
                                         "label",
                                         "version",
                                         "description",
                                         "architectures",
                                         "components",
                                         "udebcomponents",
                                         "signwith",
                                         "notautomatic",
                                         "butautomaticupgrades",
                                         "validfor",
                                         "update"};
    QByteArray text;
    bool isFound = false;
    bool isDropped = false;
    QList<QByteArray> names; ///< of the paragraph
    bool isOurs = false;
    const auto isKnown = [&] {
        return !isOurs || std::all_of(names.cbegin(), names.cend(), [](const QByteArray &name) {
            return known.contains(name);
        });
    };
    for (const QByteArray &line : own.split('\n')) {
        if (line.startsWith('!') || line.contains('\r'))
            return std::nullopt;
        if (line.trimmed().isEmpty()) {
            if (!isKnown())
                return std::nullopt;
            names.clear();
            isOurs = isDropped = false;
        }
        const bool isFurther = line.startsWith(' ') || line.startsWith('\t') || line.startsWith('#');
        if (!isFurther && !line.isEmpty()) {
            const auto colon = line.indexOf(':');
            names.append(line.left(colon).trimmed().toLower());
            isDropped = names.last() == "update";
            if (names.last() == "codename" && line.mid(colon + 1).trimmed() == codename.toUtf8()) {
                if (isFound)
                    return std::nullopt;
                isFound = isOurs = true;
                text += "Update: " + RuleName + '\n';
            }
        }
        if (!isDropped)
            text += line + '\n';
    }
    return isFound && isKnown() ? std::make_optional(text) : std::nullopt;
}

bool PackageSourceRules::areOptionsPlain(const QString &options)
{
    // Others choose what is taken in, or give it a section or a priority.
    static const QStringList known{QStringLiteral("ask-passphrase"),
                                   QStringLiteral("checkspace"),
                                   QStringLiteral("dbdir"),
                                   QStringLiteral("dbsafetymargin"),
                                   QStringLiteral("deleteunreferenced"),
                                   QStringLiteral("distdir"),
                                   QStringLiteral("export"),
                                   QStringLiteral("gnupghome"),
                                   QStringLiteral("keepdirectories"),
                                   QStringLiteral("keepunreferencedfiles"),
                                   QStringLiteral("keepunusednewfiles"),
                                   QStringLiteral("listdir"),
                                   QStringLiteral("logdir"),
                                   QStringLiteral("noask-passphrase"),
                                   QStringLiteral("noguessgpgtty"),
                                   QStringLiteral("outdir"),
                                   QStringLiteral("safetymargin"),
                                   QStringLiteral("silent"),
                                   QStringLiteral("spacecheck"),
                                   QStringLiteral("verbose"),
                                   QStringLiteral("waitforlock")};
    const QStringList lines = options.split(QLatin1Char('\n'));
    return std::all_of(lines.cbegin(), lines.cend(), [](const QString &line) {
        const QString text = line.trimmed();
        return text.isEmpty() || text.startsWith(QLatin1Char('#'))
               || known.contains(ConfigFolder::optionName(text));
    });
}

QByteArray PackageSourceRules::updates(const QString &folder,
                                       const QStringList &components,
                                       const QStringList &architectures)
{
    return "Name: " + RuleName
           + QStringLiteral(
                 "\nMethod: file:%1\nSuite: x\nComponents: %2\nUDebComponents:\nArchitectures: %3\n")
                 .arg(folder, components.join(QLatin1Char(' ')), architectures.join(QLatin1Char(' ')))
                 .toLatin1()
           + "IgnoreRelease: yes\nDownloadListsAs: .\n";
}

bool PackageSourceRules::isPlain(const QString &word)
{
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z0-9/][A-Za-z0-9/._-]*$"));
    return plain.match(word).hasMatch();
}

QString PackageSourceRules::index(const QString &component, const QString &architecture)
{
    return QStringLiteral("dists/x/%1/binary-%2/Packages").arg(component, architecture);
}
