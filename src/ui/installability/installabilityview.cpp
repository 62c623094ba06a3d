// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/installability/installabilityview.h"

#include "engine/installability/removalimpact.h"
#include "installability/installabilitytext.h"
#include "ui/installability/curedialog.h"
#include "ui/installability/presentrecords.h"

#include "ui_installabilityview.h"

#include <QEvent>
#include <QLocale>
#include <QPushButton>

#include <utility>

namespace
{
/** How long a package must be shown before anything is worked out for it, in milliseconds. */
constexpr int Pause = 250;

QString asSentence(QString text)
{
    if (!text.isEmpty())
        text[0] = text.at(0).toUpper();
    return text;
}
} // namespace

InstallabilityView::InstallabilityView(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::InstallabilityView>())
{
    m_ui->setupUi(this);
    m_pause.setSingleShot(true);
    m_pause.setInterval(Pause);
    connect(&m_pause, &QTimer::timeout, this, &InstallabilityView::ask);
    connect(m_ui->m_checkToolButton, &QToolButton::clicked, this, &InstallabilityView::checkRequested);
    connect(m_ui->m_factsTree, &FactsTree::packageChosen, this, &InstallabilityView::packageChosen);
    QFont bold = font();
    bold.setBold(true);
    m_ui->m_stateLabel->setFont(bold);
    m_ui->m_splitter->setStretchFactor(0, 1);
    m_ui->m_splitter->setStretchFactor(1, 1);
    showState();
}

InstallabilityView::~InstallabilityView() = default;

void InstallabilityView::setScopeSource(const ScopeSource &source)
{
    m_scope = source;
}

Installability InstallabilityView::state() const
{
    return m_facts.package ? m_facts.package->installabilityState() : InstallabilityUnknown;
}

void InstallabilityView::setPackage(const PackageInfoPtr &package)
{
    if (package == m_facts.package)
        return;
    m_facts.package = package;
    startOver();
}

void InstallabilityView::setCheck(const CompleteCheckRecord &check)
{
    if (m_check == check)
        return;
    m_check = check;
    startOver();
}

void InstallabilityView::repositoryChanged()
{
    if (m_isAsked)
        startOver();
}

void InstallabilityView::setCheckEnabled(bool enabled)
{
    m_ui->m_checkToolButton->setEnabled(enabled);
}

void InstallabilityView::setCuresEnabled(bool enabled)
{
    m_canCure = enabled;
    for (QAbstractButton *button : std::as_const(m_cureButtons))
        button->setEnabled(enabled);
}

// --- what is known at once -----------------------------------------------------------------------------------------

void InstallabilityView::showState()
{
    const bool isKnown = state() != InstallabilityUnknown;
    QToolButton *button = m_ui->m_checkToolButton;
    button->setText(isKnown ? tr("Check again") : tr("Complete check"));
    button->setToolTip(button->text());
    for (QWidget *part : QWidgetList{m_ui->m_stateWidget, m_ui->m_splitter})
        part->setVisible(isKnown);
    m_ui->m_emptyLabel->setVisible(!isKnown);
    m_ui->m_emptyLabel->setText(
        m_facts.package
            ? tr("Not checked yet: press \"%1\". This finds out whether the package can really be "
                 "installed, with all that it needs.")
                  .arg(button->text())
            : QString());
    m_ui->m_curesWidget->setVisible(isKnown && state() == NotInstallable);
    m_ui->m_companionsWidget->setVisible(state() == Installable);
    if (!isKnown)
        return;
    m_ui->m_stateLabel->setText(asSentence(InstallabilityText::state(*m_facts.package->installability)));
    showIcon();
    const QString time = QLocale().toString(m_check.time.toLocalTime(), QLocale::ShortFormat);
    m_ui->m_checkedLabel->setText(
        tr("Checked: %1, against %2").arg(time, InstallabilityText::base(m_check.base)));
    m_ui->m_checkedLabel->setVisible(m_check.isValid());
    m_ui->m_staleLabel->setText(tr("Packages have changed since: press \"%1\".").arg(button->text()));
    m_ui->m_staleLabel->setVisible(m_check.isStale);
}

void InstallabilityView::showIcon()
{
    QString name = QStringLiteral("dialog-ok-apply");
    if (state() == NotInstallable)
        name = QStringLiteral("velt-not-installable");
    else if (state() == InstallabilityUndecided)
        name = QStringLiteral("velt-install-undecided");
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_ui->m_iconLabel->setPixmap(QIcon::fromTheme(name).pixmap(QSize(side, side)));
}

void InstallabilityView::startOver()
{
    m_ownQuery.stop();
    m_needsQuery.stop();
    m_isAsked = false;
    m_facts.needs.reset();
    clearCures();
    m_ui->m_curesLabel->setText(tr("Looking for cures..."));
    m_ui->m_companionsLabel->setText(tr("Working out what comes along..."));
    m_ui->m_companionsTree->clear();
    showState();
    m_ui->m_factsTree->showFacts(m_facts);
    if (isVisible())
        m_pause.start();
}

// --- what takes time -----------------------------------------------------------------------------------------------

void InstallabilityView::ask()
{
    if (m_isAsked || !m_scope || !m_facts.package || state() == InstallabilityUnknown)
        return;
    m_isAsked = true;
    const CheckScope scope = m_scope();
    m_facts.repository = scope.repository.path;
    const PackageInfoPtr package = m_facts.package;
    if (state() == NotInstallable) {
        const auto find = [scope, package](const StopRequest &stopped) {
            return Cures(scope).of(presentRecord(scope, package), stopped);
        };
        m_ownQuery.ask(this, find, [this, scope](const QVector<Cure> &cures) {
            showCures(cures);
            askForNeeds(scope);
        });
    } else if (state() == Installable) {
        const auto find = [scope, package](const StopRequest &stopped) {
            return CompanionSizes(scope).of(presentRecord(scope, package), stopped);
        };
        m_ownQuery.ask(this, find, [this, scope](const QVector<Companion> &companions) {
            m_ui->m_companionsLabel->setText(companions.isEmpty()
                                                 ? tr("What comes along is not known any more: check again.")
                                                 : CompanionsTree::totals(companions));
            m_ui->m_companionsTree->showCompanions(companions, scope.base);
            askForNeeds(scope);
        });
    } else {
        askForNeeds(scope);
    }
}

void InstallabilityView::askForNeeds(const CheckScope &scope)
{
    const auto find = [scope, package = m_facts.package](const StopRequest &stopped) {
        return RemovalImpact(scope).of(presentRecords(scope, {package}), stopped);
    };
    m_needsQuery.ask(this, find, [this](const QVector<RepositoryImpact> &needs) {
        m_facts.needs = needs;
        m_ui->m_factsTree->showFacts(m_facts);
    });
}

// --- cures ---------------------------------------------------------------------------------------------------------

void InstallabilityView::clearCures()
{
    const QWidgetList rows
        = m_ui->m_curesRows->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *row : rows)
        row->deleteLater();
    for (QWidget *row : rows)
        row->hide();
    m_cureButtons.clear();
}

void InstallabilityView::showCures(const QVector<Cure> &cures)
{
    constexpr int Most = 3; // the page must fit a small screen
    if (cures.isEmpty())
        m_ui->m_curesLabel->setText(tr("No single change of the repository would cure this."));
    else if (cures.first().isComplete)
        m_ui->m_curesLabel->setText(tr("What would cure it:"));
    else
        m_ui->m_curesLabel->setText(tr("A first step to cure it:"));
    for (const Cure &cure : cures.mid(0, Most))
        addCure(cure);
}

void InstallabilityView::addCure(const Cure &cure)
{
    auto *row = new QWidget(m_ui->m_curesRows);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    const QString words
        = cure.isComplete ? cure.text : tr("%1 (another contradiction is left then)").arg(cure.text);
    auto *button = new QPushButton(CureDialog::verb(cure.kind) + QStringLiteral("..."), row);
    button->setAccessibleDescription(words);
    button->setEnabled(m_canCure);
    auto *label = new QLabel(words, row);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout->addWidget(button);
    layout->addWidget(label, 1);
    m_ui->m_curesRows->layout()->addWidget(row);
    row->show();
    m_cureButtons.append(button);
    connect(button, &QPushButton::clicked, this, [this, cure] { Q_EMIT cureRequested(cure); });
}

// --- events --------------------------------------------------------------------------------------------------------

void InstallabilityView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    showIcon();
    m_pause.start();
}

void InstallabilityView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_pause.stop();
}

void InstallabilityView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::PaletteChange)
        showIcon();
}
