// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/publicationpanel.h"

#include "engine/reposhell.h"
#include "publication/publicationaddresses.h"
#include "ui/dialogs/publicationtext.h"
#include "ui/widgets/tooltiptext.h"

#include "ui_publicationpanel.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QSettings>

#include <array>
#include <utility>

PublicationPanel::PublicationPanel(RepoShell &shell, QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::PublicationPanel>())
    , m_shell(shell)
{
    m_ui->setupUi(this);
    setUpFields();
    connectFields();
    showChoice();
    connect(&m_shell, &RepoShell::pathChanged, this, &PublicationPanel::followMove);
    auto *addresses = new PublicationAddresses(this);
    connect(addresses, &PublicationAddresses::found, this, &PublicationPanel::offerAddresses);
    addresses->start();
}

PublicationPanel::~PublicationPanel() = default;

void PublicationPanel::setUpFields()
{
    m_ui->m_srvTypeComboBox->addItem(QStringLiteral("HTTP"), HttpProtocol);
    m_ui->m_srvTypeComboBox->addItem(QStringLiteral("FTP"), FtpProtocol);
    m_ui->m_srvTypeComboBox->setCurrentIndex(-1);
    static const QRegularExpression address(PublicationAddresses::pattern());
    m_ui->m_ipAddrComboBox->setValidator(new QRegularExpressionValidator(address, m_ui->m_ipAddrComboBox));
    // The completer would turn an address into a longer one that begins with it.
    m_ui->m_ipAddrComboBox->setCompleter(nullptr);
    m_ui->m_ipAddrComboBox->addItem(PublicationAddresses::loopback());
    const std::array<QWidget *, 4> turned = {m_ui->m_publishArchComboBox,
                                             m_ui->m_srvTypeComboBox,
                                             m_ui->m_ipAddrComboBox,
                                             m_ui->m_httpPortSpinBox};
    for (QWidget *field : turned) {
        field->setFocusPolicy(Qt::StrongFocus);
        field->installEventFilter(this);
    }
}

void PublicationPanel::connectFields()
{
    const auto index = qOverload<int>(&QComboBox::currentIndexChanged);
    connect(m_ui->m_trustedCheckBox, &QCheckBox::toggled, this, &PublicationPanel::showChoice);
    connect(m_ui->m_publishArchComboBox, index, this, &PublicationPanel::showChoice);
    connect(m_ui->m_srvTypeComboBox, index, this, &PublicationPanel::showChoice);
    connect(m_ui->m_srvTypeComboBox, index, this, &PublicationPanel::serverTypeChanged);
    connect(m_ui->m_srvTypeComboBox, qOverload<int>(&QComboBox::activated), this, [this](int type) {
        if (std::exchange(m_type, type) != type)
            Q_EMIT serverTypeChosen();
    });
    connect(m_ui->m_httpPortSpinBox,
            qOverload<int>(&QSpinBox::valueChanged),
            this,
            &PublicationPanel::showChoice);
    connect(
        m_ui->m_httpPortSpinBox, &QSpinBox::editingFinished, this, &PublicationPanel::portEditingFinished);
    QComboBox *address = m_ui->m_ipAddrComboBox;
    connect(address, &QComboBox::editTextChanged, this, &PublicationPanel::showChoice);
    connect(address->lineEdit(), &QLineEdit::textEdited, this, [this] { m_addressChosen = true; });
    connect(address, qOverload<int>(&QComboBox::activated), this, [this] { m_addressChosen = true; });
    connect(m_ui->m_srcCopyPushButton, &QPushButton::clicked, this, &PublicationPanel::copySourceLine);
    connect(m_ui->m_publishPushButton, &QPushButton::clicked, this, &PublicationPanel::publishTriggered);
    connect(m_ui->m_unpublishPushButton, &QPushButton::clicked, this, &PublicationPanel::unpublishTriggered);
}

bool PublicationPanel::eventFilter(QObject *watched, QEvent *event)
{
    // The wheel scrolls the panel. It must not change a field that comes under the pointer.
    if (event->type() != QEvent::Wheel || qobject_cast<QWidget *>(watched)->hasFocus())
        return QWidget::eventFilter(watched, event);
    event->ignore();
    return true;
}

// --- the contents of the fields --------------------------------------------------------------------------------

void PublicationPanel::offerAddresses(const QStringList &addresses, const QString &preferred)
{
    QComboBox *address = m_ui->m_ipAddrComboBox;
    address->addItems(addresses);
    if (!m_addressChosen && !preferred.isEmpty())
        address->setCurrentText(preferred);
}

void PublicationPanel::showArchitectures(const QStringList &architectures)
{
    QComboBox *field = m_ui->m_publishArchComboBox;
    const QString chosen = field->currentText();
    // The line is built once, at the end.
    const QSignalBlocker blocker(field);
    field->clear();
    field->addItems(architectures);
    field->setCurrentIndex(qMax(field->findText(chosen), architectures.isEmpty() ? -1 : 0));
}

void PublicationPanel::showRepository()
{
    const QString path = m_shell.path();
    m_ui->m_publicParamsWidget->setEnabled(!path.isEmpty());
    showArchitectures(m_shell.repoInfo().binaryArchitectures());
    if (path != m_repoPath) {
        m_repoPath = path;
        m_published = PublicationSettings::find(QSettings(), {path, m_shell.canonicalPath()});
        if (m_published)
            restore(*m_published);
        m_live.clear();
        m_isUnseen = true;
    }
    showChoice();
}

// --- the stored choices ----------------------------------------------------------------------------------------

void PublicationPanel::restore(const PublicationSettings &settings)
{
    m_ui->m_trustedCheckBox->setChecked(settings.trusted);
    const int architecture = m_ui->m_publishArchComboBox->findText(settings.architectures);
    if (architecture >= 0)
        m_ui->m_publishArchComboBox->setCurrentIndex(architecture);
    showPlace(settings.protocol, settings.port);
    if (!settings.host.isEmpty()) {
        m_ui->m_ipAddrComboBox->setCurrentText(settings.host);
        m_addressChosen = true;
    }
}

void PublicationPanel::showPlace(int protocol, int port)
{
    m_ui->m_srvTypeComboBox->setCurrentIndex(m_ui->m_srvTypeComboBox->findData(protocol));
    m_type = m_ui->m_srvTypeComboBox->currentIndex();
    m_ui->m_httpPortSpinBox->setValue(port);
}

PublicationSettings PublicationPanel::choice() const
{
    PublicationSettings choice;
    choice.port = m_ui->m_httpPortSpinBox->value();
    choice.repoPath = m_shell.canonicalPath();
    choice.trusted = m_ui->m_trustedCheckBox->isChecked();
    choice.architectures = m_ui->m_publishArchComboBox->currentText();
    choice.protocol
        = m_ui->m_srvTypeComboBox->currentIndex() < 0 ? -1 : m_ui->m_srvTypeComboBox->currentData().toInt();
    if (isAddressComplete())
        choice.host = m_ui->m_ipAddrComboBox->currentText();
    return choice;
}

void PublicationPanel::claim(int protocol, int port)
{
    // The fields may show another publication of the repository by now.
    showPlace(protocol, port);
    m_published = choice();
    QSettings settings;
    QList<int> served{m_published->port};
    for (const Publication &publication : std::as_const(m_live))
        served << publication.port();
    PublicationSettings::release(settings, {m_repoPath, m_shell.canonicalPath()}, served);
    m_published->claim(settings);
}

void PublicationPanel::saveChoices()
{
    if (!m_published)
        return;
    QSettings settings;
    // By now the port may be released, or may belong to another repository.
    if (!PublicationSettings::busyPorts(settings).contains(m_published->port)
        || PublicationSettings::load(settings, m_published->port).repoPath != m_published->repoPath)
        return;
    m_published->repoPath = m_shell.canonicalPath();
    m_published->trusted = m_ui->m_trustedCheckBox->isChecked();
    m_published->architectures = m_ui->m_publishArchComboBox->currentText();
    // With another port in the field, the shown server type does not belong to the published port.
    if (m_ui->m_srvTypeComboBox->currentIndex() >= 0 && m_ui->m_httpPortSpinBox->value() == m_published->port)
        m_published->protocol = m_ui->m_srvTypeComboBox->currentData().toInt();
    if (isAddressComplete())
        m_published->host = m_ui->m_ipAddrComboBox->currentText();
    m_published->claim(settings);
}

void PublicationPanel::followMove(const QString &newPath)
{
    // The path is empty when the repository was opened or closed.
    if (newPath.isEmpty())
        return;
    m_repoPath = newPath;
    saveChoices();
}

// --- the source line -------------------------------------------------------------------------------------------

bool PublicationPanel::isAddressComplete() const
{
    return m_ui->m_ipAddrComboBox->lineEdit()->hasAcceptableInput();
}

bool PublicationPanel::serves(int protocol) const
{
    return m_ui->m_srvTypeComboBox->currentIndex() >= 0
           && m_ui->m_srvTypeComboBox->currentData().toInt() == protocol;
}

QString PublicationPanel::whatIsMissing() const
{
    if (m_ui->m_srvTypeComboBox->currentIndex() < 0)
        return tr("Choose a server type");
    if (!serves(LocalDirectoryProtocol) && !isAddressComplete())
        return tr("Complete the IP address");
    return {};
}

QString PublicationPanel::builtLine() const
{
    return m_shell.sourceLine(m_ui->m_trustedCheckBox->isChecked(),
                              m_ui->m_publishArchComboBox->currentText(),
                              m_ui->m_httpPortSpinBox->value(),
                              m_ui->m_srvTypeComboBox->currentData().toInt(),
                              m_ui->m_ipAddrComboBox->currentText());
}

void PublicationPanel::showChoice()
{
    const bool overNetwork = !serves(LocalDirectoryProtocol);
    m_ui->m_ipAddrTitleLabel->setEnabled(overNetwork);
    m_ui->m_ipAddrComboBox->setEnabled(overNetwork);
    m_ui->m_httpPortTitleLabel->setEnabled(overNetwork);
    m_ui->m_httpPortSpinBox->setEnabled(overNetwork);
    m_ui->m_ftpNoteLabel->setVisible(serves(FtpProtocol));

    const QString missing = m_repoPath.isEmpty() ? QString() : whatIsMissing();
    const QString line = m_repoPath.isEmpty() || !missing.isEmpty() ? QString() : builtLine();
    m_ui->m_srcLineEdit->setPlaceholderText(missing);
    m_ui->m_srcLineEdit->setText(line);
    m_ui->m_srcLineEdit->setToolTip(toolTipText(line));
    m_ui->m_srcLineEdit->setCursorPosition(0);
    m_ui->m_srcCopyPushButton->setEnabled(!line.isEmpty());
    showState();
    Q_EMIT choiceChanged();
}

QString PublicationPanel::sourceLine() const
{
    return m_ui->m_srcLineEdit->text();
}

void PublicationPanel::copySourceLine()
{
    if (m_ui->m_srcLineEdit->text().isEmpty())
        return;
    QGuiApplication::clipboard()->setText(m_ui->m_srcLineEdit->text());
    Q_EMIT statusLabel(tr("Address is copied to clipboard"));
}

// --- the publications ------------------------------------------------------------------------------------------

void PublicationPanel::showPublications(bool known, const QVector<Publication> &publications)
{
    const bool isNew = publications != m_live;
    const bool isFirst = known && std::exchange(m_isUnseen, false);
    m_isPublishingKnown = known;
    m_live = publications;
    // Only a change of this repository counts: news of another one must not change what the user is typing.
    if (isNew)
        followLive(isFirst);
    showState();
}

void PublicationPanel::followLive(bool isFirst)
{
    PublicationSettings settings = choice();
    if (!settings.applyLive(m_live))
        return;
    // The other choices belong to the port. Later the user may have changed them to publish again.
    if (isFirst && (!m_published || m_published->port != settings.port)) {
        if (const auto kept
            = PublicationSettings::find(QSettings(), {m_repoPath, m_shell.canonicalPath()}, settings.port)) {
            m_published = kept;
            restore(*kept);
        }
    }
    showPlace(settings.protocol, settings.port);
}

void PublicationPanel::showState()
{
    const QString host = m_ui->m_ipAddrComboBox->currentText();
    QStringList lines;
    for (const Publication &publication : std::as_const(m_live)) {
        const QString address = PublicationText::address(publication.protocol, host, publication.repo.port);
        lines << (publication.state == QLatin1String("active")
                      ? tr("Published at %1").arg(address)
                      : tr("To be published at %1: %2")
                            .arg(address, PublicationText::state(publication.state).toLower()));
    }
    if (lines.isEmpty() && m_isPublishingKnown && !m_repoPath.isEmpty()) {
        lines << tr("Not published");
        // Few users find a tool tip, so the reason stands here too. It is on the same line, so that the fields below
        // do not move while the user types a port.
        if (!m_obstacle.isEmpty())
            lines.last() += QStringLiteral(". %1").arg(m_obstacle);
    }
    if (m_isOrphaned)
        lines << tr("The local sources list of this machine has a line for it that leads to a port where "
                    "nothing is published. "
                    "Publish it there, or choose \"Remove src list\".");
    m_ui->m_publicationStateLabel->setText(lines.join(QLatin1Char('\n')));
}

void PublicationPanel::setCommands(bool canPublish, bool canUnpublish, const QString &reason)
{
    if (m_obstacle != reason) {
        m_obstacle = reason;
        showState();
    }
    m_ui->m_publishPushButton->setEnabled(canPublish);
    m_ui->m_publishPushButton->setToolTip(toolTipText(reason));
    m_ui->m_unpublishPushButton->setEnabled(canUnpublish);
}

void PublicationPanel::setOrphaned(bool orphaned)
{
    if (std::exchange(m_isOrphaned, orphaned) != orphaned)
        showState();
}

void PublicationPanel::setPort(int port)
{
    m_ui->m_httpPortSpinBox->setValue(port);
}

void PublicationPanel::askServerType()
{
    m_ui->m_srvTypeComboBox->setFocus();
    m_ui->m_srvTypeComboBox->showPopup();
}
