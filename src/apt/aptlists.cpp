// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptlists.h"

#include "apt/aptcommands.h"
#include "apt/aptoutput.h"
#include "core/processutils.h"
#include "files/scratchfolder.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <cstring>
#include <memory>
#include <mutex>
#include <string>

#include <apt-pkg/error.h>
#include <apt-pkg/fileutl.h>

namespace
{
/** More than any list has: an index of this size is not from a distribution. */
constexpr unsigned long long LargestList = 2ULL << 30;

/** The file of a list as apt keeps it: as it is, or compressed. Empty when it was not fetched. */
QString keptFile(const QString &path)
{
    for (const auto *const suffix : {"", ".lz4", ".zst", ".gz", ".xz", ".bz2", ".lzma"}) {
        QString file = path + QLatin1String(suffix);
        if (QFileInfo(file).isFile())
            return file;
    }
    return {};
}

/** What the thread's last action with apt's library has said. */
QString libraryError()
{
    QStringList messages;
    while (!_error->empty()) {
        std::string message;
        _error->PopMessage(message);
        messages.append(QString::fromStdString(message));
    }
    return messages.join(QLatin1Char('\n'));
}

/** The decompressed bytes of the file; nothing, with a problem, when it cannot be read. */
std::shared_ptr<const std::string> bytesOf(const QString &fileName, QString *problem)
{
    // The library collects its compressors when it opens the first file.
    static std::once_flag isReady;
    std::call_once(isReady, [] { FileFd().Open("/dev/null", FileFd::ReadOnly, FileFd::Extension); });
    const auto bytes = std::make_shared<std::string>();
    FileFd file;
    bool isGood = file.Open(QFile::encodeName(fileName).toStdString(), FileFd::ReadOnly, FileFd::Extension);
    std::size_t length = 0;
    constexpr std::size_t FirstRoom = 1U << 24;
    while (isGood) {
        if (length == bytes->size())
            bytes->resize(bytes->empty() ? FirstRoom : 2 * bytes->size());
        unsigned long long got = 0;
        isGood
            = file.Read(bytes->data() + length, bytes->size() - length, &got) && length + got <= LargestList;
        length += got;
        if (got == 0)
            break;
    }
    const QString said = libraryError();
    bytes->resize(isGood ? length : 0);
    if (!isGood)
        *problem = said.isEmpty() ? fileName : said;
    return bytes;
}
/** Reads a line of the listing. */
AptList listIn(const QString &line, const QDir &folder)
{
    const QStringList parts = line.split(QLatin1Char('|'));
    // A source that is one folder has no architecture, and apt leaves the word as it is.
    const bool isOneFolder = parts.value(3).startsWith(QLatin1Char('$'));
    const QString architecture = isOneFolder ? QString() : parts.value(3);
    QString uri = parts.value(1);
    const QString origin = QStringLiteral("%1 %2 %3").arg(uri, parts.value(2), architecture);
    const QString place
        = uri.replace(QLatin1Char(' '), QLatin1String("%20")) + QLatin1Char(' ') + parts.value(2);
    return {origin.trimmed(),
            architecture,
            keptFile(folder.filePath(QFileInfo(parts.value(0)).fileName())),
            isOneFolder ? place : QStringLiteral("[arch=%1] %2 %3").arg(architecture, place, parts.value(4))};
}
} // namespace

QByteArray AptList::stamp() const
{
    const QFileInfo file(fileName);
    return QStringLiteral("%1 %2 %3")
        .arg(file.fileName(),
             QString::number(file.size()),
             QString::number(file.lastModified().toMSecsSinceEpoch()))
        .toUtf8();
}

QVector<ControlText> AptList::read(QString *problem) const
{
    const auto bytes = bytesOf(fileName, problem);
    QVector<ControlText> paragraphs;
    std::string_view rest(*bytes);
    while (!rest.empty()) {
        const auto end = std::min(rest.find("\n\n"), rest.size());
        const auto paragraph = rest.substr(0, end);
        if (paragraph.find_first_not_of('\n') != std::string_view::npos)
            paragraphs.append(ControlText(bytes, paragraph));
        rest.remove_prefix(std::min(end + 2, rest.size()));
    }
    return paragraphs;
}

bool AptLists::find(const StopRequest &stopped)
{
    const bool isPrivate = !m_environment.isEmpty();
    m_lists.clear();
    if (!isPrivate && !findFolder(stopped))
        return false;
    if ((!isPrivate || m_targets.isEmpty()) && !findTargets(stopped))
        return false;
    const QDir folder(m_folder);
    for (const QString &target : std::as_const(m_targets)) {
        const AptList list = listIn(target, folder);
        if (!list.fileName.isEmpty())
            m_lists.append(list);
    }
    return true;
}

bool AptLists::findFolder(const StopRequest &stopped)
{
    QString output;
    const QString folderKey = QStringLiteral("Dir::State::lists/d");
    if (!run(AptCommands::AptConfig,
             {QStringLiteral("shell"), QStringLiteral("LISTS"), folderKey},
             stopped,
             output))
        return false;
    m_folder = AptOutput::shellValue(output, QStringLiteral("LISTS"));
    QString known;
    if (!run(AptCommands::AptConfig,
             {QStringLiteral("dump"),
              QStringLiteral("--format"),
              QStringLiteral("%v%n"),
              QStringLiteral("APT::Architectures")},
             stopped,
             known))
        return false;
    m_architectures = known.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return true;
}

bool AptLists::findTargets(const StopRequest &stopped)
{
    // With the real folder apt reads all lists before it answers, wherever it has no cache file of them.
    const ScratchFolder empty;
    QString output;
    if (!run(AptCommands::AptGet,
             {QStringLiteral("-o"),
              QStringLiteral("Dir::State::lists=") + empty.path(),
              QStringLiteral("-o"),
              QStringLiteral("Dir::State::status=/dev/null"),
              QStringLiteral("indextargets"),
              QStringLiteral("--no-release-info"),
              QStringLiteral("--format"),
              QStringLiteral("$(FILENAME)|$(SITE)|$(RELEASE)|$(ARCHITECTURE)|$(COMPONENT)"),
              QStringLiteral("Created-By: Packages")},
             stopped,
             output))
        return false;
    m_targets = output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return true;
}

bool AptLists::run(const QString &program,
                   const QStringList &arguments,
                   const StopRequest &stopped,
                   QString &output)
{
    ProcessCall call{program, arguments, {}, m_environment, -1};
    call.stopped = stopped;
    const ProcessResult result = runProcess(call);
    m_errorDetail = result.errorOutput;
    output = result.output;
    return result.succeeded();
}
