// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/gathering/gatherdialog.h"

#include "engine/gathering/gathertext.h"
#include "ui/widgets/checktablemodel.h"
#include "ui/widgets/mnemonics.h"

#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>

#include <utility>

namespace
{
enum Column { Package, Version, Architecture, Size, Source, NeededBy };

QString sizeText(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1);
}
} // namespace

GatherDialog::GatherDialog(GatherPlan plan,
                           const std::function<QString(const QString &)> &alias,
                           QWidget *parent)
    : CheckTableDialog(
        tr("Fetch missing packages"),
        tr("The chosen packages are fetched and added, so that what needs them finds them in the "
           "repository."),
        {tr("Package"), tr("Version"), tr("Architecture"), tr("Size"), tr("Source"), tr("Needed by")},
        parent)
    , m_plan(std::move(plan))
    , m_left(new QPlainTextEdit(this))
{
    constexpr int MostLines = 6;
    QVector<CheckTableModel::Row> rows;
    QVector<qint64> sizes;
    rows.reserve(m_plan.rows.size());
    for (const GatherPlan::Row &row : std::as_const(m_plan.rows)) {
        const QString version = row.replaced.isEmpty()
                                    ? row.package.version
                                    : tr("%1 instead of %2").arg(row.package.version, row.replaced);
        rows.append({{row.package.name,
                      version,
                      row.ownArchitecture,
                      sizeText(row.size),
                      alias(row.package.repository),
                      GatherText::neededBy(row)},
                     row.isOn});
        sizes.append(row.size);
    }
    setVersionColumns({Version});
    setNumbers(Size, sizes);
    model()->setRows(rows);
    fitColumns();
    setEmptyChoiceAllowed(false);
    m_left->setObjectName(QStringLiteral("m_leftText"));
    m_left->setAccessibleName(tr("What stays missing"));
    m_left->setReadOnly(true);
    m_left->setTabChangesFocus(true);
    m_left->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_left->setFixedHeight(MostLines * fontMetrics().lineSpacing());
    addBelow(m_left);
    const QPushButton *preview = addConfirmation(tr("Preview..."), QStringLiteral("m_previewButton"));
    connect(preview, &QPushButton::clicked, this, [this] {
        m_wantsPreview = true;
        accept();
    });
    connect(model(), &CheckTableModel::checksChanged, this, &GatherDialog::takeChoice);
    takeChoice();
    Mnemonics::markForm(this);
}

void GatherDialog::takeChoice()
{
    // Nobody reads more, and it is written anew at each click.
    constexpr int MostLines = 500;
    for (int row = 0; row < m_plan.rows.size(); ++row)
        m_plan.rows[row].isOn = model()->isChecked(row);
    setState(tr("Selected: %1 of %2, %3")
                 .arg(model()->checkedCount())
                 .arg(model()->rowCount())
                 .arg(sizeText(m_plan.size())));
    auto left = m_plan.left();
    QStringList lines{GatherText::summary(left)};
    QStringList idle;
    const auto idleRows = m_plan.idleRows();
    for (const int row : idleRows)
        idle.append(m_plan.rows.at(row).package.name);
    if (!idle.isEmpty())
        lines.append(tr("Not needed any more: %1").arg(idle.join(QLatin1String(", "))));
    const bool isCut = left.size() > MostLines;
    left.resize(qMin(left.size(), MostLines));
    lines += GatherText::lines(left);
    if (isCut)
        lines.append(QString(QChar(0x2026)));
    m_left->setPlainText(lines.join(QLatin1Char('\n')));
}
