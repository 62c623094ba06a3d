// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QVector>

#include <functional>

/** What a dependency asks for: a name, the architecture it is wanted for and the kind of package that wants it. */
struct PackageQuestion
{
    QString name;
    QString architecture; ///< "all" stands for any
    PackageType type = PackageType::Deb; ///< installer packages and ordinary ones never satisfy one another

    friend bool operator==(const PackageQuestion &a, const PackageQuestion &b)
    {
        return a.name == b.name && a.architecture == b.architecture && a.type == b.type;
    }
    friend uint qHash(const PackageQuestion &question, uint seed = 0)
    {
        return qHash(question.name, seed) ^ (qHash(question.architecture, seed) * 31U)
               ^ static_cast<uint>(question.type);
    }
};

/** A version of a package and the label of the source that offers it. */
struct Candidate
{
    QString source;
    QString version;
};

/** A package that provides a name. */
struct Provider
{
    QString name;
    QString version; ///< the package's own
    QString providedVersion; ///< the version as which it provides the name; empty when it gives none
};

/** Asked between steps of a long operation; true means that it should end. */
using StopRequest = std::function<bool()>;

/**
 * Knows packages that can satisfy dependencies. Questions are announced in bulk, because a source may have to run a
 * program to answer them; the answers can then be read from several threads at once until the next announcement. A
 * question that was not announced may go unanswered.
 */
class CandidateSource
{
public:
    CandidateSource() = default;
    virtual ~CandidateSource() = default;
    CandidateSource(const CandidateSource &) = delete;
    CandidateSource &operator=(const CandidateSource &) = delete;

    /** False when a stop request has kept some from being asked; a source that fails has no more to say. */
    virtual bool prefetch(const QVector<PackageQuestion> &questions, const StopRequest &stopped) = 0;
    /** False when the source cannot be asked about such packages here: that it offers none says nothing. */
    virtual bool canAnswer(const PackageQuestion & /*question*/) const { return true; }
    /** The versions on offer, in no order; none when the name is not known. */
    virtual QVector<Candidate> candidates(const PackageQuestion &question) const = 0;

    /** As prefetch(). */
    virtual bool prefetchProviders(const QVector<PackageQuestion> &questions, const StopRequest &stopped) = 0;
    /** The packages that provide the name; the same one more than once when several versions of it do. */
    virtual QVector<Provider> providers(const PackageQuestion &question) const = 0;
};
