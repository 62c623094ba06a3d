// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packagereplacementrules.h"
#include "engine/preview/changepreview.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QVector>

#include <functional>
#include <optional>

/**
 * The rows of a preview. A check box switches a row; rows that cannot be parted are switched together. Of a collision
 * the column "What happens" offers the choice between replacing and keeping the present package.
 */
class PreviewModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Package, Architecture, Happens, OldVersion, NewVersion, Size, From, ColumnCount };
    enum Role {
        ChoiceRole
        = Qt::UserRole, ///< bool: the row offers a choice; writable: whether the present package is replaced
        OptionsRole ///< the texts of both choices: replace, keep
    };
    using AliasLookup = std::function<QString(const QString &origin)>;

    explicit PreviewModel(QObject *parent = nullptr);

    /** The user's names for origins of apt. */
    void setAliases(AliasLookup aliases) { m_aliases = std::move(aliases); }
    /** Shows a preview. The same rows with another effect keep their places. */
    void setPreview(const ChangePreview &preview);
    /** The preview with the rows as they are switched now. */
    const ChangePreview &preview() const { return m_preview; }
    const PreviewRow &row(int row) const { return m_preview.rows.at(row); }
    /** What a cell shows. */
    QString text(const PreviewRow &row, int column) const;
    /** Whether any row offers a choice. */
    bool hasCollisions() const { return m_hasCollisions; }
    /** Whether any row is comparable. */
    bool hasComparable() const { return m_hasComparable; }

    /** Switches the rows of these numbers, as far as they can be switched. */
    void setOn(const QVector<int> &rows, bool on);
    /** Switches all collisions of this relation. */
    void setOnForAll(PreviewRow::Relation relation, bool on);
    /** Decides all collisions as the rule of the question about a replacement does. */
    void decide(PackageReplacementRules::Rule rule);
    /** The rule by which all collisions are decided now; none when no rule does. */
    std::optional<PackageReplacementRules::Rule> rule() const;

    /** The kind of a collision, in words: "Newer version". */
    static QString kindText(PreviewRow::Relation relation);
    /** Bytes of the file that comes, or else goes. */
    static qint64 size(const PreviewRow &row);
    /** The longest choice of a collision, which the column "What happens" has to hold. */
    static QString longestChoice();
    /** Whether both files of the row can be compared. */
    static bool isComparable(const PreviewRow &row);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /** The user has switched rows: the effect is not known any more. */
    void switched();

private:
    void showSwitched();
    QString usualFate(const PreviewRow &row) const;
    QString origin(const PreviewRow &row) const;
    QString toolTip(const PreviewRow &row, int column) const;
    static QString happens(const PreviewRow &row);

    ChangePreview m_preview;
    bool m_hasCollisions = false;
    bool m_hasComparable = false;
    AliasLookup m_aliases;
    mutable QHash<int, QString>
        m_fates; ///< what happens to rows without words of their own: a filter asks for all
};
