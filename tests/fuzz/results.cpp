// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsjson.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QBuffer>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

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
    return ResultsDocument::hasMember(&buffer, {repository});
}

Outcome rewrite(QByteArray document, const DependsJson::Change &change, QByteArray *written)
{
    QBuffer input(&document);
    input.open(QIODevice::ReadOnly);
    QBuffer output(written);
    output.open(QIODevice::WriteOnly | QIODevice::Truncate);
    return DependsJson::rewrite(&input, &output, change);
}

/** The packages as a check would leave them. */
QList<PackageInfoPtr> packagesOf(const StoredPackages &stored)
{
    QList<PackageInfoPtr> packages;
    QStringList names = stored.keys();
    names.sort();
    for (const QString &name : std::as_const(names)) {
        // The package that is checked last comes first.
        const QVector<StoredDepends> &named = stored[name];
        for (auto entry = named.crbegin(); entry != named.crend(); ++entry) {
            PackageInfo package;
            package.name = name;
            package.version = entry->version;
            package.architecture = entry->architecture;
            package.indexComponent = entry->component;
            package.type = entry->type;
            package.dependsInfo = entry->info;
            packages.append(PackageInfoPtr::create(package));
        }
    }
    return packages;
}

/** All stored results, in the written form. */
QString description(const StoredPackages &stored)
{
    QBuffer output;
    output.open(QIODevice::WriteOnly);
    DependsJson::rewrite(nullptr, &output, {Repository, {}, packagesOf(stored)});
    return QString::fromUtf8(output.data());
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
    // A document that cannot be read must not be rewritten, and the other way round.
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
}
