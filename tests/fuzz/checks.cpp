// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "installability/installabilitytext.h"
#include "installability/storedcompletecheck.h"
#include "results/jsonwriter.h"

#include <QBuffer>

#include <algorithm>
#include <utility>

namespace
{
using ResultsDocument::Outcome;

const QString Repository = QStringLiteral("/r");

Outcome read(QByteArray document, StoredCompleteCheck *check)
{
    QBuffer buffer(&document);
    buffer.open(QIODevice::ReadOnly);
    return StoredCompleteCheck::read(&buffer, Repository, check);
}

QByteArray written(const StoredCompleteCheck &check)
{
    QByteArray document;
    QBuffer output(&document);
    output.open(QIODevice::WriteOnly);
    ResultsDocument::rewrite(
        nullptr, &output, {Repository, {}, [&check](JsonWriter &writer) { check.write(writer); }}, 1);
    return document;
}

/** A line of plain text, however long or hostile the names are. */
bool isLine(const QString &text, int length)
{
    return text.size() <= length && std::none_of(text.cbegin(), text.cend(), [](QChar c) {
               return c.category() == QChar::Other_Control || c.category() == QChar::Other_Format;
           });
}
} // namespace

void FuzzTarget::checks(std::string_view input)
{
    StoredCompleteCheck check;
    if (read(Fuzzing::expanded(input), &check) != Outcome::Done)
        return;
    for (const auto &finding : std::as_const(check.findings)) {
        const QStringList sentences = InstallabilityText::sentences(finding->reason);
        FUZZ_RULE(sentences.size() <= finding->reason.size());
        FUZZ_RULE(std::all_of(sentences.cbegin(), sentences.cend(), [](const QString &sentence) {
            return isLine(sentence, 2000);
        }));
        FUZZ_RULE(isLine(InstallabilityText::summary(*finding), 300));
    }
    FUZZ_RULE(isLine(InstallabilityText::base(check.record.base), 2000));

    // What has been read once is not changed by writing and reading it again.
    StoredCompleteCheck again;
    const QByteArray first = written(check);
    FUZZ_RULE(read(first, &again) == Outcome::Done);
    FUZZ_RULE(again.checked == check.checked || !check.record.isValid());
    FUZZ_RULE(written(again) == first || !check.record.isValid());
}
