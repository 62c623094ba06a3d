// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsjson.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QBuffer>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
using DependsJson::Outcome;

const QString Repository = QStringLiteral("/r");
const QString Other = QStringLiteral("/new");

Outcome read(QByteArray document, const QString &repository, StoredPackages *stored)
{
    QBuffer buffer(&document);
    buffer.open(QIODevice::ReadOnly);
    return DependsJson::read(&buffer, repository, stored);
}

bool hasMember(QByteArray document, const QString &repository)
{
    QBuffer buffer(&document);
    buffer.open(QIODevice::ReadOnly);
    return DependsJson::hasMember(&buffer, {repository});
}

Outcome rewrite(QByteArray document, const DependsJson::Change &change, QByteArray *written)
{
    QBuffer input(&document);
    input.open(QIODevice::ReadOnly);
    QBuffer output(written);
    output.open(QIODevice::WriteOnly | QIODevice::Truncate);
    return DependsJson::rewrite(&input, &output, change);
}

void append(QString *text, const Dependency &dependency)
{
    *text += QStringLiteral("%1 %2 %3 %4 %5 %6{")
                 .arg(dependency.name,
                      dependency.op,
                      dependency.version,
                      dependency.secondOp,
                      dependency.secondVersion,
                      QString::number(dependency.status));
    for (auto found = dependency.foundVersions.cbegin(); found != dependency.foundVersions.cend(); ++found)
        *text += found.key() + QLatin1Char(' ') + found->version + QString::number(found->status);
    for (const Dependency &provider : dependency.providers)
        append(text, provider);
    *text += QLatin1Char('}');
}

/** All that is known, in the packages' order. */
QString description(const StoredPackages &stored)
{
    QString text;
    QStringList names = stored.keys();
    names.sort();
    for (const QString &name : qAsConst(names)) {
        const StoredDepends &package = stored[name];
        text += QStringLiteral("%1 %2 %3 %4\n")
                    .arg(name, package.version, package.architecture, QString::number(package.info->status));
        const auto &groups = package.info->groups;
        for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
            text += group.key() + QString::number(group->status);
            for (const Dependency &dependency : group->alternatives)
                append(&text, dependency);
        }
    }
    return text;
}

/** As the check would leave it: the stored results, and no other package of the name. */
QList<PackageInfoPtr> packagesOf(const StoredPackages &stored)
{
    QList<PackageInfoPtr> packages;
    for (auto entry = stored.cbegin(); entry != stored.cend(); ++entry) {
        PackageInfo package;
        package.name = entry.key();
        package.version = entry->version;
        package.architecture = entry->architecture;
        package.dependsInfo = entry->info;
        packages.append(PackageInfoPtr::create(package));
    }
    return packages;
}
} // namespace

void FuzzTarget::results(std::string_view input)
{
    const QByteArray document = Fuzzing::expanded(input);
    StoredPackages stored;
    const Outcome outcome = read(document, Repository, &stored);
    FUZZ_RULE(outcome != Outcome::Failed);
    const bool isKnown = hasMember(document, Repository);
    QByteArray written;
    // What cannot be read must not be rewritten, and the other way round.
    FUZZ_RULE(rewrite(document, {Other, {}, {}}, &written) == outcome);
    if (outcome != Outcome::Done)
        return;
    FUZZ_RULE(stored.isEmpty() || isKnown);

    QJsonParseError error;
    FUZZ_RULE(QJsonDocument::fromJson(written, &error).isObject());
    FUZZ_RULE(!hasMember(written, Other) && hasMember(written, Repository) == isKnown);
    StoredPackages again;
    FUZZ_RULE(read(written, Repository, &again) == Outcome::Done);
    FUZZ_EQUAL(description(again), description(stored));
    QByteArray twice;
    FUZZ_RULE(rewrite(written, {Other, {}, {}}, &twice) == Outcome::Done);
    FUZZ_RULE(twice == written);

    // The repository has moved.
    FUZZ_RULE(rewrite(written, {Repository, Other, {}}, &twice) == Outcome::Done);
    FUZZ_RULE(!hasMember(twice, Repository) && hasMember(twice, Other) == isKnown);
    FUZZ_RULE(read(twice, Other, &again) == Outcome::Done);
    FUZZ_EQUAL(description(again), description(stored));

    // The repository's results are stored anew.
    const auto packages = packagesOf(stored);
    FUZZ_RULE(rewrite(written, {Repository, {}, packages}, &twice) == Outcome::Done);
    FUZZ_RULE(read(twice, Repository, &again) == Outcome::Done);
    FUZZ_EQUAL(description(again), description(stored));
}
