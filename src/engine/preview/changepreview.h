// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/packagechange.h"
#include "engine/repository/repositoryextension.h"

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

struct PreviewRequest;
struct PreviewSource;

/** What would become of one package in the index of one architecture. */
struct PreviewRow
{
    enum Verdict : quint8 {
        Change, ///< as `change` says
        Collision, ///< the same place holds another package; the user's choice decides
        Refused ///< it cannot go in; `refusal` says why
    };
    /** How the new version compares with the present one. */
    enum Relation : quint8 { Alone, Newer, Older, SameFile, SameVersion };

    PackageChange change;
    Verdict verdict = Change;
    Relation relation = Alone;
    QString refusal; ///< in words of a user
    QString note; ///< what the user has to know about a row that is not refused; mostly empty
    QString source; ///< the file that would go in; empty when none would, or it has still to be fetched
    bool isOn = true; ///< the user wants it; of a collision: the present package is to be replaced
    /** Rows of one group are switched together: reprepro cannot part the places of their one file. -1: none. */
    int group = -1;
    /** False for a consequence that cannot be switched off: the rows of a new description, and of going back. */
    bool isSwitchable = true;
    PackageInfoPtr present; ///< what is in the place now; null when nothing is
    PackageInfoPtr offered; ///< what would be there; null when nothing would

    /** Whether applying changes something here. */
    bool takesPart() const { return isOn && verdict != Refused; }
};

/** A package that can be installed only before, or only after a change. */
struct PreviewLoss
{
    QString repository; ///< path
    PackageInfoPtr package;
    QStringList reasons; ///< why it cannot be installed then, or could not until then; sentences
};

/** What a change would do beside the packages themselves. */
struct PreviewEffect
{
    bool isKnown = false; ///< the search for it has ended
    QVector<PreviewLoss> lost; ///< they could not be installed any more
    QVector<PreviewLoss> gained; ///< they could be installed from then on
    QVector<PreviewLoss> uninstallable; ///< they come in, and cannot be installed
    QString base; ///< against what that was checked, in words of a user
    int upgrades = 0; ///< packages that clients would upgrade
    int downgrades = 0; ///< packages of which clients would keep a newer version than the repository offers
    qint64 comes = 0; ///< bytes of files that come into the pool
    qint64 goes = 0; ///< bytes of files that leave it
    qint64 free = -1; ///< bytes on the disk of the repository; -1: not known
    QString signature; ///< who signs the result, in words of a user
    QStringList description; ///< what a change of the description does; sentences
    QStringList clients; ///< what clients must do; sentences and commands
};

/** What a job would do to a repository, found out without touching it. A value: any thread can work with a copy. */
struct ChangePreview
{
    enum Kind : quint8 { Add, Remove, Fetch, Import, Upgrade, Describe, Return };

    Kind kind = Add;
    QString repository; ///< path
    QByteArray stamp; ///< of the state of the repository that the preview is made from
    QVector<PreviewRow> rows;
    RepositoryExtension lacking; ///< what the repository would need for all of the packages
    PreviewEffect effect;
    std::shared_ptr<const PreviewRequest> request; ///< what it was made for
    std::shared_ptr<const PreviewSource>
        source; ///< the files that it was made from, and what was unpacked of them

    /** Whether a package is lost, replaced by an older one, or removed although others need it. */
    bool breaksSomething() const;
    /** Whether applying it would change anything. */
    bool changesSomething() const;
    /**
     * Switches a row, and with it the rows that cannot be parted from it. A row that is switched on switches those off
     * that want the same place. The effect is not known any more.
     */
    void setOn(int row, bool on);
    /** The same for several rows, one after the other. */
    void setOn(const QVector<int> &wanted, bool on);
    /** setOn() for all collisions of this kind. */
    void setOnForAll(PreviewRow::Relation relation, bool on);
};

Q_DECLARE_METATYPE(ChangePreview)
