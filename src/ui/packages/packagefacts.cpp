// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/packagefacts.h"

#include <QHash>
#include <QLocale>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <QUrl>

namespace
{
qint64 number(const ControlText &control, std::string_view field, qint64 unit)
{
    constexpr qint64 Largest = qint64(1) << 50;
    bool isNumber = false;
    const qint64 value = control.field(field).toLongLong(&isNumber);
    return isNumber && value >= 0 && value <= Largest ? value * unit : -1;
}

/** An argument as a POSIX shell reads it. */
QString quoted(const QString &argument)
{
    static const QRegularExpression plain(
        QStringLiteral("\\A[A-Za-z0-9@%+=:,./_-][A-Za-z0-9@%+=:,./_~-]*\\z"));
    if (plain.match(argument).hasMatch())
        return argument;
    QString text = argument;
    text.replace(QLatin1Char('\''), QLatin1String("'\\''"));
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}
} // namespace

PackageFacts PackageFacts::of(const PackageInfo &package)
{
    constexpr qint64 Kibibyte = 1024;
    PackageFacts facts;
    facts.size = sizeOf(package);
    facts.installedSize = number(package.control, "Installed-Size", Kibibyte);
    facts.source = package.control.field("Source");
    // A source that is not named has the name of its package.
    if (facts.source.isEmpty() && !package.control.isEmpty())
        facts.source = package.name;
    facts.homepage = package.control.field("Homepage");
    facts.poolFile = package.poolFile.isEmpty() ? package.control.field("Filename") : package.poolFile;
    facts.sha256 = package.control.field("SHA256");
    return facts;
}

qint64 PackageFacts::sizeOf(const PackageInfo &package)
{
    return number(package.control, "Size", 1);
}

QString PackageFacts::sizeText(qint64 bytes, bool isExact)
{
    if (bytes < 0)
        return {};
    const QLocale locale;
    QString text = locale.formattedDataSize(bytes, 1);
    constexpr qint64 Kibibyte = 1024;
    return isExact && bytes >= Kibibyte ? tr("%1 (%2 bytes)").arg(text, locale.toString(bytes)) : text;
}

QString PackageFacts::linkTo(const QString &address)
{
    const QUrl url(address, QUrl::StrictMode);
    const QString text = address.toHtmlEscaped();
    if (!url.isValid() || (url.scheme() != QLatin1String("https") && url.scheme() != QLatin1String("http")))
        return text;
    return QStringLiteral("<a href=\"%1\">%2</a>")
        .arg(QString::fromLatin1(url.toEncoded()).toHtmlEscaped(), text);
}

QString PackageFacts::names(const QList<PackageInfoPtr> &packages)
{
    QStringList names;
    QSet<QString> known;
    for (const PackageInfoPtr &package : packages) {
        if (!known.contains(package->name))
            names << package->name;
        known.insert(package->name);
    }
    return names.join(QLatin1Char('\n'));
}

QString PackageFacts::aptCommand(const QList<PackageInfoPtr> &packages)
{
    QHash<QString, QSet<QString>> architectures;
    for (const PackageInfoPtr &package : packages)
        architectures[package->name].insert(package->architecture);
    QStringList words;
    QSet<QString> known;
    for (const PackageInfoPtr &package : packages) {
        // Anything else could be an option, a file or a pattern for apt.
        static const QRegularExpression name(QStringLiteral("\\A[a-z0-9][a-z0-9+.-]*\\z"));
        if (!name.match(package->name).hasMatch())
            continue;
        QString word = package->name;
        if (architectures.value(package->name).size() > 1)
            word += QLatin1Char(':') + package->architecture;
        word += QLatin1Char('=') + package->version;
        if (!known.contains(word))
            words << quoted(word);
        known.insert(word);
    }
    return words.isEmpty() ? QString() : QLatin1String("apt install ") + words.join(QLatin1Char(' '));
}
