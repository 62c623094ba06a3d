// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/qtversions.h"

#include <QVector>

#include <functional>

/** What a dependency needs: a package name, an architecture, and the type of the depending package. */
struct PackageQuestion
{
    QString name;
    QString architecture; ///< "all" stands for any architecture
    PackageType type = PackageType::Deb; ///< packages of different types never satisfy each other

    friend bool operator==(const PackageQuestion &a, const PackageQuestion &b)
    {
        return a.name == b.name && a.architecture == b.architecture && a.type == b.type;
    }
    friend QtVersions::HashValue qHash(const PackageQuestion &question, QtVersions::HashValue seed = 0)
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
    QString version; ///< version of the package itself
    QString providedVersion; ///< version of the provided name; empty when there is none
};

/** Called between the steps of a long operation; true means: stop. */
using StopRequest = std::function<bool()>;

/**
 * Knows packages that can satisfy dependencies. Questions are announced in bulk, because a source may have to run a
 * program to answer them. Several threads can then read the answers until the next announcement. A question that was
 * not announced may get no answer.
 */
class CandidateSource
{
public:
    CandidateSource() = default;
    virtual ~CandidateSource() = default;
    CandidateSource(const CandidateSource &) = delete;
    CandidateSource &operator=(const CandidateSource &) = delete;

    /** False when a stop request prevented some questions. A source that has failed returns true. */
    virtual bool prefetch(const QVector<PackageQuestion> &questions, const StopRequest &stopped) = 0;
    /** False when the source cannot know about such packages here. Then a missing candidate means nothing. */
    virtual bool canAnswer(const PackageQuestion & /*question*/) const { return true; }
    /** The offered versions, in no particular order; none when the name is unknown. */
    virtual QVector<Candidate> candidates(const PackageQuestion &question) const = 0;

    /** Prepares for questions that come soon. Called from another thread, when no other function is. */
    virtual void getReady(const StopRequest & /*stopped*/) { }
    /** Like prefetch(), but for providers(). */
    virtual bool prefetchProviders(const QVector<PackageQuestion> &questions, const StopRequest &stopped) = 0;
    /** The packages that provide the name. A package appears once for each of its versions that do so. */
    virtual QVector<Provider> providers(const PackageQuestion &question) const = 0;
};
