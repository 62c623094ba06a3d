// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/preview/differencedialog.h"

#include "core/countof.h"
#include "platform/ui/windowgeometry.h"
#include "ui/preview/differencemodel.h"
#include "ui/widgets/mnemonics.h"
#include "ui/widgets/tablelook.h"
#include "ui/widgets/tooltiptext.h"

#include <QAction>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QSettings>
#include <QTreeView>
#include <QVBoxLayout>

namespace
{
QLabel *plainLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}
} // namespace

DifferenceDialog::DifferenceDialog(const PreviewRow &row, const QString &repository, QWidget *parent)
    : QDialog(parent)
    , m_state(plainLabel({}, this))
    , m_progress(new QProgressBar(this))
    , m_model(new DifferenceModel(this))
    , m_view(new QTreeView(this))
{
    const QString before = repository + QLatin1Char('/') + row.change.before.file;
    const QString after = row.source;
    setWindowTitle(tr("Difference"));
    setSizeGripEnabled(true);
    auto *files = plainLabel(
        tr("Present file: %1").arg(before) + QLatin1Char('\n') + tr("New file: %1").arg(after), this);
    files->setObjectName(QStringLiteral("m_filesLabel"));
    m_state->setObjectName(QStringLiteral("m_stateLabel"));
    m_progress->setRange(0, 0);
    m_progress->setTextVisible(false);
    m_view->setObjectName(QStringLiteral("m_differenceView"));
    m_view->setModel(m_model);
    TableLook::apply(*m_view, windowTitle());
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto *copy = new QAction(QIcon::fromTheme(QStringLiteral("edit-copy")), tr("Copy"), m_view);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    m_view->addAction(copy);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(copy, &QAction::triggered, this, [this] {
        QGuiApplication::clipboard()->setText(m_model->textOf(m_view->selectionModel()->selectedRows()));
    });
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(files);
    layout->addWidget(m_state);
    layout->addWidget(m_progress);
    layout->addWidget(m_view, 1);
    if (row.relation == PreviewRow::SameVersion) {
        const QString version = row.change.before.version;
        auto *advice = plainLabel(
            tr("apt takes packages of one version for the same, so clients that have the present one would "
               "not "
               "get the new one. Build it with the version %1, which sorts after %2 and before the next "
               "version of its maker.")
                .arg(PackageDifference::nextVersion(version), version),
            this);
        advice->setObjectName(QStringLiteral("m_adviceLabel"));
        layout->addWidget(advice);
    }
    layout->addWidget(buttons);
    Mnemonics::markForm(this);
    constexpr QSize Characters(120, 28);
    const QSize wished(Characters.width() * fontMetrics().averageCharWidth(),
                       Characters.height() * fontMetrics().lineSpacing());
    const QRect available = parent->screen()->availableGeometry();
    QRect place(QPoint(), wished.boundedTo(available.size() * 9 / 10));
    place.moveCenter(parent->geometry().center());
    QSettings settings;
    veltRestoreGeometry(this, settings, place, false);
    const int share = width() / 10;
    m_view->setColumnWidth(DifferenceModel::Part, share);
    m_view->setColumnWidth(DifferenceModel::Name, share * 3);
    m_view->setColumnWidth(DifferenceModel::Before, share * 3);
    m_view->setFocus();

    m_state->setText(tr("Comparing the files..."));
    const auto work = [before, after](const StopRequest &stopped) {
        return PackageDifference::between(before, after, stopped);
    };
    m_query.ask(this, work, [this](const PackageDifference &found) { showDifference(found); });
}

void DifferenceDialog::done(int result)
{
    QSettings settings;
    veltSaveGeometry(this, settings, false);
    QDialog::done(result);
}

void DifferenceDialog::showDifference(const PackageDifference &difference)
{
    m_progress->hide();
    m_model->setLines(difference.lines);
    m_view->setCurrentIndex(m_model->index(0, 0));
    if (!difference.failure.isEmpty())
        m_state->setText(difference.failure);
    else if (difference.isCut)
        m_state->setText(tr("The packages are too large to compare their files. This is what else differs:"));
    else if (difference.lines.isEmpty())
        m_state->setText(
            tr("Both packages hold the same. Only the way in which they were packed differs, such as "
               "times or the compression."));
    else
        m_state->setText(tr("%n difference(s):", nullptr, countOf(difference.lines)));
}
