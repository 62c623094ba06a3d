// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/repositorypanel.h"

#include "engine/reposhell.h"

#include "ui_repositorypanel.h"

#include <QRegularExpression>

#include <array>

RepositoryPanel::RepositoryPanel(RepoShell &shell, QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::RepositoryPanel>())
    , m_shell(shell)
{
    m_ui->setupUi(this);
    connect(
        m_ui->m_copyKeyPushButton, &QPushButton::clicked, this, [this] { Q_EMIT copyKeyTriggered(m_keyId); });
    connect(
        m_ui->m_saveKeyPushButton, &QPushButton::clicked, this, [this] { Q_EMIT saveKeyTriggered(m_keyId); });
    // Each job may have signed the repository with another key.
    connect(&m_shell, &RepoShell::idle, this, &RepositoryPanel::readKey);
    showKey({});
}

RepositoryPanel::~RepositoryPanel() = default;

void RepositoryPanel::showRepository()
{
    const RepoInfo info = m_shell.repoInfo();
    m_ui->m_repoComponentsLabel->setText(info.components);
    m_ui->m_repoCodenameLabel->setText(info.codename);
    m_ui->m_repoSuiteLabel->setText(info.suite);
    m_ui->m_repoVersionLabel->setText(info.version);
    m_ui->m_repoArchLabel->setText(info.architectures);
    m_ui->m_repoSignLabel->setText(info.signWith ? tr("Signed") : tr("Unsigned"));
    m_ui->m_readOnlyLabel->setVisible(!m_shell.isWritable());
    const QString path = m_shell.path();
    if (path != m_repoPath || !info.signWith)
        showKey({});
    m_repoPath = path;
    readKey();
}

void RepositoryPanel::readKey()
{
    const int number = ++m_reading;
    const RepoInfo info = m_shell.repoInfo();
    if (m_repoPath.isEmpty() || !info.signWith)
        return;
    RepositoryKey::readInBackground(
        this, m_repoPath, info.codename, [this, number](const RepositoryKey &key) {
            if (number == m_reading)
                showKey(key);
        });
}

void RepositoryPanel::showKey(const RepositoryKey &key)
{
    m_keyId = key.text.isEmpty() ? QString() : key.id;
    QString text = key.text.isEmpty() ? key.id : key.text;
    if (!key.remark.isEmpty())
        text = tr("%1 (%2)").arg(text, key.remark);
    m_ui->m_repoKeyLabel->setText(text);
    const QString file = QStringLiteral("/etc/apt/keyrings/%1").arg(keyFileName(m_shell.repoInfo().name));
    m_ui->m_publicKeyLabel->setText(
        tr("Save the public key, put it on each client as %1, and write signed-by=%1 into the brackets after "
           "\"deb\" in its source line.")
            .arg(file));
    const std::array<QWidget *, 2> ofTheKey{m_ui->m_repoKeyTitleLabel, m_ui->m_repoKeyLabel};
    for (QWidget *widget : ofTheKey)
        widget->setVisible(!key.id.isEmpty());
    const std::array<QWidget *, 4> ofItsPublicPart{m_ui->m_publicKeyTitleLabel,
                                                   m_ui->m_publicKeyLabel,
                                                   m_ui->m_copyKeyPushButton,
                                                   m_ui->m_saveKeyPushButton};
    for (QWidget *widget : ofItsPublicPart)
        widget->setVisible(!m_keyId.isEmpty());
}

QString RepositoryPanel::keyFileName(const QString &repositoryName)
{
    static const QRegularExpression others(QStringLiteral("[^A-Za-z0-9._-]+"));
    QString name = repositoryName;
    name.replace(others, QStringLiteral("-"));
    return name + QLatin1String(".asc");
}
