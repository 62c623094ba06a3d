// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/upgrade/listedrecords.h"

#include <QSet>

#include <string>
#include <unordered_map>

namespace
{
/** The architectures that are asked for, by the names of the packages. */
using Questions = std::unordered_map<std::string, QSet<QString>>;

Questions questionsOf(const QStringList &words)
{
    Questions questions;
    for (const QString &word : words) {
        const auto colon = word.indexOf(QLatin1Char(':'));
        questions[word.left(colon).toStdString()].insert(word.mid(colon + 1));
    }
    return questions;
}

bool isForEach(const AptList &list)
{
    return list.architecture.isEmpty() || list.architecture == QLatin1String("all");
}
} // namespace

QVector<AptPackageRecord> ListedRecords::find(const QVector<AptList> &lists,
                                              const QStringList &words,
                                              const StopRequest &stopped,
                                              QString *problem)
{
    const Questions questions = questionsOf(words);
    QVector<AptPackageRecord> records;
    QSet<QString> known;
    std::string name;
    for (const AptList &list : lists) {
        if (stopped && stopped())
            break;
        const auto paragraphs = list.read(problem);
        for (const ControlText &paragraph : paragraphs) {
            name = controlFieldValue(paragraph.text(), "Package");
            const auto question = questions.find(name);
            if (question == questions.end()
                || !(isForEach(list) || question->second.contains(list.architecture)))
                continue;
            const AptPackageRecord record{QString::fromStdString(name),
                                          paragraph.field("Version"),
                                          list.architecture.isEmpty() ? paragraph.field("Architecture")
                                                                      : list.architecture,
                                          list.origin,
                                          paragraph.field("Filename"),
                                          paragraph.field("SHA256")};
            // Another component of the source can offer the same version with different contents.
            const QString key
                = QStringList{record.name, record.version, record.repository}.join(QLatin1Char('\n'));
            if (record.version.isEmpty() || known.contains(key))
                continue;
            known.insert(key);
            records.append(record);
        }
    }
    return records;
}
