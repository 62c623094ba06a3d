// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/packagecolumns.h"

#include "apt/versionorder.h"
#include "ui/packages/packagefacts.h"
#include "ui/widgets/tooltiptext.h"

#include <QDateTime>
#include <QLocale>
#include <QStringList>

#include <array>

namespace
{
std::string_view viewOf(const QByteArray &text)
{
    return {text.constData(), static_cast<std::size_t>(text.size())};
}

QString statusText(const RepoItem &item)
{
    QStringList texts;
    switch (item.dependState()) {
    case DependUndefined:
        texts << PackageColumns::tr("not checked");
        break;
    case DependError:
        texts << PackageColumns::tr("not satisfied");
        break;
    case DependSuccess:
        texts << PackageColumns::tr("satisfied");
        break;
    default:
        break;
    }
    if (item.installability() == NotInstallable)
        texts << PackageColumns::tr("cannot be installed");
    else if (item.installability() == InstallabilityUndecided)
        texts << PackageColumns::tr("undecided");
    return texts.join(QLatin1String(", "));
}
} // namespace

PackageColumns::Columns PackageColumns::all()
{
    return {Name, Version, Architecture, Size, Status, Signature, Added};
}

QString PackageColumns::title(Column column)
{
    switch (column) {
    case Name:
        return tr("Packages");
    case Version:
        return tr("Version");
    case Architecture:
        return tr("Architecture");
    case Size:
        return tr("Size");
    case Status:
        return tr("Status");
    case Signature:
        return tr("Signature");
    case Added:
        return tr("Added");
    }
    return {};
}

QString PackageColumns::key(Column column)
{
    switch (column) {
    case Name:
        return QStringLiteral("name");
    case Version:
        return QStringLiteral("version");
    case Architecture:
        return QStringLiteral("architecture");
    case Size:
        return QStringLiteral("size");
    case Status:
        return QStringLiteral("status");
    case Signature:
        return QStringLiteral("signature");
    case Added:
        return QStringLiteral("added");
    }
    return {};
}

QString PackageColumns::text(Column column, const RepoItem &item)
{
    if (item.isContainer())
        return {};
    switch (column) {
    case Name:
        return item.package->name;
    case Version:
        return item.package->version;
    case Architecture:
        return item.package->ownArchitecture();
    case Size:
        return PackageFacts::sizeText(PackageFacts::sizeOf(*item.package));
    case Status:
        return statusText(item);
    case Signature:
        return item.package->isSigned() ? item.package->signingKey : tr("Unsigned");
    case Added:
        return item.added > 0
                   ? QLocale().toString(QDateTime::fromSecsSinceEpoch(item.added), QLocale::ShortFormat)
                   : QString();
    }
    return {};
}

QVariant PackageColumns::data(Column column, const RepoItem &item, int role)
{
    if (role == Qt::TextAlignmentRole && column == Size)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::DisplayRole)
        return text(column, item);
    return role == Qt::ToolTipRole ? toolTipText(text(column, item)) : QVariant();
}

QVariant PackageColumns::headerData(Column column, int role)
{
    if (role == Qt::TextAlignmentRole)
        return int((column == Size ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? title(column) : QVariant();
}

PackageColumns::SortKey PackageColumns::sortKey(Column column, const RepoItem &item)
{
    const PackageInfo &package = *item.package;
    switch (column) {
    case Name:
        return {0, package.name.toUtf8()};
    case Version:
        return {0, package.version.toUtf8()};
    case Architecture:
        return {0, package.ownArchitecture().toUtf8()};
    case Size:
        return {PackageFacts::sizeOf(package), {}};
    case Status: {
        // The worst come first.
        constexpr int Rest = 10;
        constexpr std::array<int, 3> states = {1, 0, 2}; // undefined, error, success
        const int state = item.state >= DependUndefined && item.state <= DependSuccess
                              ? states.at(static_cast<std::size_t>(item.state - DependUndefined))
                              : Rest;
        const bool isBad = item.installability() == NotInstallable;
        return {isBad ? -1 : state, {}};
    }
    case Signature:
        return {0, package.signingKey.toUtf8()};
    case Added:
        return {item.added, {}};
    }
    return {};
}

bool PackageColumns::isLess(Column column, const SortKey &left, const SortKey &right)
{
    if (column == Version)
        return VersionOrder::compare(viewOf(left.text), viewOf(right.text)) < 0;
    return left.number != right.number ? left.number < right.number : left.text < right.text;
}
