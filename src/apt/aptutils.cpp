// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptutils.h"

#include "apt/aptcommands.h"
#include "files/regularfile.h"
#include "files/wholefile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <iterator>

namespace
{
/** Whether the word is a package name, or a name and an architecture with a colon between them. */
bool isPackageWord(const QString &word)
{
    const auto colon = word.indexOf(QLatin1Char(':'));
    return AptCommands::isPackageName(word.left(colon))
           && (colon < 0 || AptCommands::isArchitecture(word.mid(colon + 1)));
}

/** Whether the file's hash is this one, in apt's words. Only hashes that apt trusts count. */
bool hasHash(const QString &path, const QString &expected)
{
    const QString type = expected.section(QLatin1Char(':'), 0, 0);
    const auto algorithm
        = type == QLatin1String("SHA512") ? QCryptographicHash::Sha512 : QCryptographicHash::Sha256;
    if (algorithm == QCryptographicHash::Sha256 && type != QLatin1String("SHA256"))
        return false;
    QCryptographicHash hash(algorithm);
    RegularFile file(path);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file)
           && QString::fromLatin1(hash.result().toHex()) == expected.section(QLatin1Char(':'), 1);
}
} // namespace

AptUtils::AptUtils(QObject *parent)
    : ProcessUtils(parent)
    , m_workingDirectory(QDir::currentPath())
{ }

bool AptUtils::setPrivateSources(const QStringList &sources)
{
    m_privateSources.clear();
    const auto file = QSharedPointer<QTemporaryFile>::create(
        QStringLiteral("%1/%2").arg(QDir::tempPath(), QStringLiteral("nep-sources.list")));
    if (!file->open())
        return false;
    QByteArray text;
    for (const QString &source : sources)
        text += QStringLiteral("deb %1\n").arg(source).toUtf8();
    // An incomplete list would give answers for other sources than the requested ones.
    if (!WholeFile::writeOut(*file, text))
        return false;
    m_privateSources = file;
    return true;
}

QString AptUtils::privateSourcesFile() const
{
    return m_privateSources ? m_privateSources->fileName() : QString();
}

QString AptUtils::noSourcesText()
{
    return tr("apt has no list of the packages of any public source. \"apt update\" fetches the lists of the "
              "sources "
              "that it has been told of.");
}

QString AptUtils::unknownArchitecturesText(const QStringList &architectures)
{
    return tr("apt on this computer does not know the architecture(s) %1, so it could not say what public "
              "sources "
              "offer for them. These commands make apt know: %2")
        .arg(architectures.join(QLatin1String(", ")), architectureCommands(architectures));
}

QString AptUtils::architectureCommands(const QStringList &architectures)
{
    QStringList commands;
    for (const QString &architecture : architectures)
        commands.append(QLatin1String("dpkg --add-architecture ") + architecture);
    commands.append(QStringLiteral("apt update"));
    return commands.join(QLatin1String(" && "));
}

QStringList AptUtils::sourcesFromPolicy(SourceGrouping grouping)
{
    if (!ask(AptCommands::AptCache,
             AptCommands::policyArguments(privateSourcesFile()),
             m_workingDirectory,
             tr("Apt error")))
        return {};
    return AptOutput::sourceLines(output(), grouping);
}

QMap<QString, QStringList> AptUtils::packageVersions(const QString &name, const QString &architecture)
{
    const QString failure = tr("Apt error");
    if (!acceptName(name, failure) || !acceptArchitecture(architecture, failure)
        || !ask(AptCommands::Apt,
                AptCommands::versionsArguments(name, architecture, privateSourcesFile()),
                m_workingDirectory,
                failure))
        return {};
    return AptOutput::versions(output());
}

QVector<AptPackageRecord> AptUtils::packageRecords(const QString &name)
{
    const QString failure = tr("Apt error");
    if (!acceptName(name, failure)
        || !ask(AptCommands::Apt,
                AptCommands::recordsArguments(name, privateSourcesFile()),
                m_workingDirectory,
                failure))
        return {};
    return AptOutput::records(output());
}

QString AptUtils::packageParagraphs(const QStringList &names)
{
    QStringList accepted;
    std::copy_if(names.cbegin(), names.cend(), std::back_inserter(accepted), isPackageWord);
    // An unknown name is no error, as long as another one is known.
    if (!accepted.isEmpty()
        && !run(AptCommands::AptCache, AptCommands::paragraphsArguments(accepted), m_workingDirectory)
        && output().isEmpty())
        return {};
    return accepted.isEmpty() ? QString() : output();
}

QVector<AptPackageRecord> AptUtils::packageRecords(const QStringList &names)
{
    QStringList accepted;
    std::copy_if(names.cbegin(), names.cend(), std::back_inserter(accepted), isPackageWord);
    if (accepted.isEmpty())
        return {};
    // One unknown name makes apt fail, but apt shows the other packages.
    const bool succeeded = run(
        AptCommands::Apt, AptCommands::recordsArguments(accepted, privateSourcesFile()), m_workingDirectory);
    if (!succeeded && output().isEmpty())
        tellError(tr("Apt error"), errorOutput());
    return AptOutput::records(output());
}

QStringList AptUtils::providers(const QString &name)
{
    const QString failure = tr("apt-cache: error showing package %1 info").arg(name);
    if (!acceptName(name, failure)
        || !ask(AptCommands::AptCache,
                AptCommands::providersArguments(name, privateSourcesFile()),
                QString(),
                failure))
        return {};
    return AptOutput::providers(output());
}

QStringList AptUtils::searchByPrefix(const QString &prefix)
{
    if (!AptCommands::isSearchPrefix(prefix))
        return {};
    // The output is used even when a part of the pipe failed.
    run(AptCommands::Bash, AptCommands::searchArguments(prefix), m_workingDirectory);
    return AptOutput::searchedNames(output(), prefix);
}

QStringList AptUtils::downloadTogether(const QVector<AptDownload> &packages, const QString &folder)
{
    QVector<AptDownload> accepted;
    std::copy_if(packages.cbegin(), packages.cend(), std::back_inserter(accepted), [](const auto &package) {
        return AptCommands::isPackageName(package.name) && AptCommands::isArchitecture(package.architecture);
    });
    const bool succeeded
        = !accepted.isEmpty() && run(AptCommands::AptGet, AptCommands::downloadArguments(accepted), folder);
    const QDir target(folder);
    QStringList files = target.entryList(QDir::Files);
    if (!succeeded && !files.isEmpty())
        files = wholeFiles(files, accepted, folder);
    QStringList paths;
    for (const AptDownload &package : packages) {
        const QString file = AptCommands::fileOf(package, files);
        files.removeOne(file);
        paths.append(file.isEmpty() ? QString() : target.absoluteFilePath(file));
    }
    return paths;
}

QStringList
AptUtils::wholeFiles(const QStringList &files, const QVector<AptDownload> &packages, const QString &folder)
{
    // apt does not name the files that are there.
    const QTemporaryDir empty;
    if (!empty.isValid()
        || !run(AptCommands::AptGet, AptCommands::downloadHashesArguments(packages), empty.path()))
        return {};
    const auto hashes = AptOutput::downloadHashes(output());
    QStringList whole;
    std::copy_if(files.cbegin(), files.cend(), std::back_inserter(whole), [&](const QString &name) {
        return hasHash(folder + QLatin1Char('/') + name, hashes.value(name));
    });
    return whole;
}

QString AptUtils::download(const QString &name,
                           const QString &version,
                           const QString &architecture,
                           const QString &folder)
{
    const QString failure = tr("Apt: download package %1 error").arg(name);
    if (!acceptName(name, failure) || !acceptArchitecture(architecture, failure)
        || !ask(
            AptCommands::Apt, AptCommands::downloadArguments(name, version, architecture), folder, failure))
        return {};
    const QDir target(folder);
    const QString file = AptCommands::fileOf({name, version, architecture}, target.entryList(QDir::Files));
    return file.isEmpty() ? QString() : target.absoluteFilePath(file);
}

bool AptUtils::ask(const QString &program,
                   const QStringList &arguments,
                   const QString &workingDirectory,
                   const QString &failure)
{
    if (run(program, arguments, workingDirectory))
        return true;
    tellError(failure, errorOutput());
    return false;
}

bool AptUtils::acceptName(const QString &name, const QString &failure)
{
    const bool accepted = AptCommands::isPackageName(name);
    if (!accepted)
        tellError(failure, tr("\"%1\" is not the name of a package").arg(name));
    return accepted;
}

bool AptUtils::acceptArchitecture(const QString &architecture, const QString &failure)
{
    const bool accepted = AptCommands::isArchitecture(architecture);
    if (!accepted)
        tellError(failure, tr("\"%1\" is not an architecture").arg(architecture));
    return accepted;
}
