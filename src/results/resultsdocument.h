// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class JsonWriter;
class QIODevice;

/**
 * A document with results of checks: a JSON object with one member for each repository, named with the repository's
 * path. The document can have hundreds of megabytes, so it is processed as a stream and never held in memory.
 */
namespace ResultsDocument
{
/** The result of reading or rewriting. */
enum class Outcome {
    Done,
    Broken, ///< the input is not a document of this form
    Failed ///< the input could not be read, or the output could not be written
};

/** A change to the document. */
struct Change
{
    QString repository; ///< the member to delete
    QString newPath; ///< if not empty, the member is renamed to this and replaces a member of this name
    std::function<void(JsonWriter &)> write; ///< if not null, writes the value of the repository's new member
};

/** Whether `input` has a member for one of `repositories`. The text after this member is not checked. */
bool hasMember(QIODevice *input, const QStringList &repositories);

/** Copies the document `input`, or an empty one when `input` is null, to `output` and applies `change`. */
Outcome rewrite(QIODevice *input, QIODevice *output, const Change &change, int indent);

/**
 * Far more levels than we ever write. Without a limit, an indented document could grow with the square of its depth.
 */
inline constexpr int maximumDepth = 1024;
} // namespace ResultsDocument
