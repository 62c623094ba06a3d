// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/newrepodialog.h"

#include "core/countof.h"
#include "core/runinbackground.h"
#include "engine/repository/changerules.h"
#include "engine/repository/descriptionfields.h"
#include "engine/repository/newreporules.h"
#include "files/pathguard.h"
#include "signing/keymanager.h"
#include "ui/dialogs/furtherfields.h"
#include "ui/dialogs/missingpackage.h"
#include "ui/dialogs/prompts.h"
#include "ui/dialogs/signingswitch.h"
#include "ui/packages/packagedetails.h"
#include "ui/widgets/mnemonics.h"
#include "ui/widgets/singlespacevalidator.h"

#include "ui_newrepodialog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QLayout>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSet>
#include <QToolTip>

#include <initializer_list>
#include <utility>

namespace
{
/** The administrator's list of choices for a field. These files have only a few lines. */
QStringList systemChoices(const QString &name, const QStringList &defaults)
{
    constexpr qint64 Limit = 65536;
    QFile file(QStringLiteral("/etc/%1/%2.conf").arg(QStringLiteral("velt-admin-repo"), name));
    if (!file.open(QIODevice::ReadOnly))
        return defaults;
    return NewRepoRules::choices(QString::fromLocal8Bit(file.read(Limit)), defaults);
}

/** Sets the text of a field that is empty and that the user has not edited. */
void fillUntouched(QLineEdit *field, const QString &text)
{
    if (!field->isModified() && field->text().isEmpty())
        field->setText(text);
}

/** Text about the packages that the change deletes. */
QString lossesText(const RepoChange &change, const QList<PackageInfoPtr> &packages)
{
    const QList<PackageInfoPtr> lost = change.lost(packages);
    if (lost.isEmpty())
        return NewRepoDialog::tr("No package will be deleted.");
    QSet<QString> files;
    for (const PackageInfoPtr &package : packages)
        files.insert(package->filePath());
    const QString text
        = lost.size() == files.size()
              ? NewRepoDialog::tr("All %n package(s) will be deleted: %1", nullptr, countOf(lost))
              : NewRepoDialog::tr("%n package(s) will be deleted: %1", nullptr, countOf(lost));
    return text.arg(PackageDetails::names(lost, change.before, PackageDetails::Meant::Files));
}

/** Shows a tool tip at the field with the allowed characters when the validator refuses an input. */
void tellRefusals(QLineEdit *field, const QString &allowed)
{
    QObject::connect(field, &QLineEdit::inputRejected, field, [field, allowed] {
        QToolTip::showText(field->mapToGlobal(field->rect().bottomLeft()), allowed, field);
    });
}
} // namespace

NewRepoDialog::NewRepoDialog(Mode mode, Prompts &prompts, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::NewRepoDialog>())
    , m_prompts(prompts)
    , m_mode(mode)
{
    m_ui->setupUi(this);
    if (mode == Mode::Change)
        setWindowTitle(tr("Repository change"));
    else if (mode == Mode::Import)
        setWindowTitle(tr("Repository import"));
    m_further = new FurtherFields(m_ui->m_infoGroupBox);
    m_ui->m_infoLayout->addWidget(m_further);
    Mnemonics::markForm(this);
    setUpFields();
    showPublished(false);
    connect(m_ui->m_pathToolButton, &QToolButton::clicked, this, &NewRepoDialog::selectFolder);
    connect(m_ui->buttonBox, &QDialogButtonBox::accepted, this, &NewRepoDialog::accept);
    connect(m_ui->buttonBox, &QDialogButtonBox::rejected, this, &NewRepoDialog::reject);

    new SigningSwitch(
        m_ui->m_signWithCheckBox, m_ui->buttonBox->button(QDialogButtonBox::Ok), m_prompts, this);
    auto *keyManager = new KeyManager(this);
    connect(m_ui->m_startKGpgToolButton, &QToolButton::clicked, keyManager, &KeyManager::start);
    connect(keyManager, &KeyManager::runningChanged, m_ui->m_startKGpgToolButton, &QWidget::setDisabled);
    connect(keyManager, &KeyManager::packageMissing, this, [this](const QString &package) {
        offerMissingPackage(m_prompts, package, this);
    });
    connect(keyManager, &KeyManager::startFailed, this, [this](const QString &program) {
        warnNotStarted(m_prompts, program, this);
    });
}

NewRepoDialog::~NewRepoDialog() = default;

void NewRepoDialog::setUpFields()
{
    const QRegularExpression nameCharacters(QStringLiteral("[a-z|0-9|_|\\.|\\-]+"));
    const QRegularExpression listCharacters(QStringLiteral("[a-z|0-9|\\-|\\s]+"));
    const QString allowed = tr("Small letters a to z, digits and the characters %1 are allowed here.");
    tellRefusals(m_ui->m_nameLineEdit, allowed.arg(QLatin1String(". _ -")));
    tellRefusals(m_ui->m_suiteComboBox->lineEdit(), allowed.arg(QLatin1String(". _ -")));
    tellRefusals(
        m_ui->m_componentsComboBox->lineEdit(),
        tr("Small letters a to z, digits and hyphens are allowed here; one blank separates two values."));
    m_ui->m_nameLineEdit->setValidator(new QRegularExpressionValidator(nameCharacters, this));
    m_ui->m_suiteComboBox->setValidator(new QRegularExpressionValidator(nameCharacters, this));
    m_ui->m_archComboBox->setValidator(new SingleSpaceValidator(listCharacters, this));
    m_ui->m_componentsComboBox->setValidator(new SingleSpaceValidator(listCharacters, this));
    m_ui->m_archComboBox->setChoices(
        systemChoices(QStringLiteral("architectures"), NewRepoRules::defaultArchitectures()));
    m_ui->m_archComboBox->setTextReadOnly(true);
    m_ui->m_componentsComboBox->setChoices(
        systemChoices(QStringLiteral("components"), NewRepoRules::defaultComponents()));
    for (QComboBox *box : {m_ui->m_codeNameComboBox, m_ui->m_suiteComboBox}) {
        // A completer would change the typed text: "stable" is also the start of other names.
        box->setCompleter(nullptr);
        box->setCurrentIndex(-1);
    }
    QWidget *last = m_ui->m_startKGpgToolButton;
    const QWidgetList further = m_further->tabOrder();
    for (QWidget *field : further) {
        setTabOrder(last, field);
        last = field;
    }
    connect(m_ui->m_signWithCheckBox, &QCheckBox::toggled, m_further, &FurtherFields::setSigned);
    connect(m_ui->m_createContentsFileCheckBox, &QCheckBox::toggled, m_further, &FurtherFields::setContents);
    connect(m_further, &FurtherFields::folded, this, &NewRepoDialog::fitHeight);
}

void NewRepoDialog::setRepository(const QString &path,
                                  const RepoInfo &info,
                                  const QList<PackageInfoPtr> &packages)
{
    m_path = path;
    m_info = info;
    m_packages = packages;
    setEntries(path, info);
    showPublished(isPublished(path));
}

void NewRepoDialog::setEntries(const QString &path, const RepoInfo &info)
{
    m_ui->m_pathLineEdit->setText(QFileInfo(path).absolutePath());
    m_ui->m_nameLineEdit->setText(info.name);
    m_ui->m_codeNameComboBox->setEditText(info.codename);
    m_ui->m_suiteComboBox->setEditText(info.suite);
    m_ui->m_versionLineEdit->setText(info.version);
    m_ui->m_archComboBox->setEditText(info.architectures);
    m_ui->m_componentsComboBox->setEditText(info.components);
    m_ui->m_signWithCheckBox->setChecked(info.signWith);
    m_ui->m_createContentsFileCheckBox->setChecked(info.contents);
    m_further->setInfo(info);
}

void NewRepoDialog::propose(const QString &folder, const QString &name)
{
    m_ui->m_pathLineEdit->setText(folder);
    m_ui->m_nameLineEdit->setText(name);
}

void NewRepoDialog::setPublishedCheck(PublishedCheck check)
{
    m_isPublished = std::move(check);
    if (!m_path.isEmpty())
        showPublished(isPublished(m_path));
}

void NewRepoDialog::setDefaults(const RepoInfo &info)
{
    fillUntouched(m_ui->m_nameLineEdit, info.name);
    fillUntouched(m_ui->m_codeNameComboBox->lineEdit(), info.codename);
    fillUntouched(m_ui->m_suiteComboBox->lineEdit(), info.suite);
    fillUntouched(m_ui->m_versionLineEdit, info.version);
    fillUntouched(m_ui->m_archComboBox->lineEdit(), info.architectures);
    fillUntouched(m_ui->m_componentsComboBox->lineEdit(), info.components);
}

void NewRepoDialog::showPublished(bool published)
{
    m_ui->m_messageIcon->setVisible(published);
    m_ui->m_messageLabel->setVisible(published);
    m_ui->m_infoGroupBox->setEnabled(!published);
    m_ui->m_pathLineEdit->setEnabled(!published);
    m_ui->m_pathToolButton->setEnabled(!published);
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(!published);
    if (auto *preview = findChild<QPushButton *>(QStringLiteral("m_previewButton")))
        preview->setEnabled(!published);
    if (published) {
        m_ui->m_messageIcon->setPixmap(QIcon::fromTheme(QStringLiteral("dialog-warning")).pixmap(32, 32));
        m_ui->m_messageLabel->setText(
            tr("It looks like you are trying to edit a published repository. Please "
               "unpublish the repository first."));
    }
    fitHeight();
}

void NewRepoDialog::fitHeight()
{
    // The layouts notice only later that something has been folded.
    m_further->layout()->activate();
    m_ui->m_infoLayout->activate();
    adjustSize();
    // adjustSize() is too small for wrapped texts in large fonts.
    resize(width(),
           qMin(layout()->totalHeightForWidth(width()), screen()->availableSize().height() * 9 / 10));
}

void NewRepoDialog::selectFolder()
{
    const QString start = m_ui->m_pathLineEdit->text();
    const QString folder = m_prompts.directory(
        tr("Select a directory to create the repository"), start.isEmpty() ? QDir::homePath() : start, this);
    if (!folder.isEmpty())
        m_ui->m_pathLineEdit->setText(folder);
}

QString NewRepoDialog::repositoryPath() const
{
    return NewRepoRules::fullPath(m_ui->m_pathLineEdit->text(), m_ui->m_nameLineEdit->text());
}

RepoInfo NewRepoDialog::repoInfo() const
{
    // What the form does not show stays.
    RepoInfo info = m_info;
    info.name = m_ui->m_nameLineEdit->text();
    info.codename = m_ui->m_codeNameComboBox->currentText();
    info.suite = m_ui->m_suiteComboBox->currentText();
    info.version = m_ui->m_versionLineEdit->text();
    info.architectures = m_ui->m_archComboBox->currentText().trimmed();
    info.components = m_ui->m_componentsComboBox->currentText().trimmed();
    info.signWith = m_ui->m_signWithCheckBox->isChecked();
    info.contents = m_ui->m_createContentsFileCheckBox->isChecked();
    m_further->apply(&info);
    return info;
}

void NewRepoDialog::accept()
{
    if (m_isLooking || !fieldsAreValid())
        return;
    const QString path = repositoryPath();
    const RepoInfo info = repoInfo();
    setBusy(true);
    runInBackground(
        this,
        [path, remembered = m_remembered] { return stateOf(path, remembered); },
        [this, path, info](const FolderState &state) {
            setBusy(false);
            // Meanwhile the user may have changed the fields or closed the dialog.
            if (!isVisible() || !m_ui->buttonBox->button(QDialogButtonBox::Ok)->isEnabled())
                return;
            if (path != repositoryPath() || info != repoInfo())
                accept();
            else if (m_checkPreview)
                checkPreview(state);
            else if (userAgreesToLosses(state, false))
                QDialog::accept();
        });
}

void NewRepoDialog::setPreviewCheck(PreviewCheck check)
{
    m_checkPreview = std::move(check);
    QPushButton *preview = m_ui->buttonBox->addButton(tr("Preview..."), QDialogButtonBox::ActionRole);
    preview->setObjectName(QStringLiteral("m_previewButton"));
    preview->setAutoDefault(false);
    preview->setEnabled(m_ui->buttonBox->button(QDialogButtonBox::Ok)->isEnabled());
    Mnemonics::markForm(this);
    connect(preview, &QPushButton::clicked, this, [this] {
        m_wantsPreview = true;
        accept();
    });
}

void NewRepoDialog::setBusy(bool busy)
{
    m_isLooking = busy;
    if (busy)
        setCursor(Qt::BusyCursor);
    else
        unsetCursor();
}

void NewRepoDialog::checkPreview(const FolderState &state)
{
    setBusy(true);
    // What is looked at stays; the user can only cancel.
    const QWidgetList fields{m_ui->m_infoGroupBox, m_ui->m_pathLineEdit, m_ui->m_pathToolButton};
    for (QWidget *field : fields)
        field->setEnabled(false);
    const auto answer = [this, fields, state, dialog = QPointer<NewRepoDialog>(this)](Previewed previewed) {
        if (dialog.isNull() || !isVisible())
            return;
        for (QWidget *field : fields)
            field->setEnabled(true);
        setBusy(false);
        if (previewed != Previewed::Failed && userAgreesToLosses(state, previewed == Previewed::Due))
            QDialog::accept();
    };
    m_checkPreview(std::exchange(m_wantsPreview, false), answer);
}

NewRepoDialog::FolderState NewRepoDialog::stateOf(const QString &path, const QStringList &remembered)
{
    FolderState state;
    state.exists = QFileInfo::exists(path);
    if (state.exists) {
        state.isRepository = PathGuard::isRepository(path);
        state.repositories = PathGuard::repositoriesBelow(path, remembered);
    }
    return state;
}

bool NewRepoDialog::stays() const
{
    return m_mode == Mode::Change && repositoryPath() == NewRepoRules::fullPath(m_path, QString());
}

void NewRepoDialog::focusMissingField()
{
    const std::initializer_list<std::pair<QWidget *, QString>> fields{
        {m_ui->m_pathLineEdit, m_ui->m_pathLineEdit->text()},
        {m_ui->m_nameLineEdit, m_ui->m_nameLineEdit->text()},
        {m_ui->m_codeNameComboBox, m_ui->m_codeNameComboBox->currentText()},
        {m_ui->m_archComboBox, m_ui->m_archComboBox->currentText()},
        {m_ui->m_componentsComboBox, m_ui->m_componentsComboBox->currentText()}};
    for (const auto &[field, text] : fields) {
        if (text.trimmed().isEmpty()) {
            field->setFocus();
            return;
        }
    }
}

bool NewRepoDialog::fieldsAreValid()
{
    switch (NewRepoRules::check(m_ui->m_pathLineEdit->text(), repoInfo())) {
    case NewRepoRules::Refusal::None:
        return furtherFieldsAreValid() && pathIsFree();
    case NewRepoRules::Refusal::MissingField:
        m_prompts.warn(windowTitle(), tr("Please fill all required fields!"), this);
        focusMissingField();
        break;
    case NewRepoRules::Refusal::ArchitectureAll:
        m_prompts.warn(windowTitle(), tr("Architecture \"all\" is unallowable!"), this);
        break;
    case NewRepoRules::Refusal::BadPath:
        m_prompts.warn(windowTitle(), tr("The path must be absolute: it starts with a slash."), this);
        m_ui->m_pathLineEdit->setFocus();
        break;
    case NewRepoRules::Refusal::BadName:
        m_prompts.warn(
            windowTitle(),
            tr("The name or the code name cannot be used. They consist of letters, digits, dots, hyphens "
               "and underscores."),
            this);
        break;
    }
    return false;
}

bool NewRepoDialog::furtherFieldsAreValid()
{
    const QString refusal = DescriptionFields::refusal(repoInfo(), m_info);
    if (refusal.isEmpty())
        return true;
    m_further->setOpen(true);
    m_prompts.warn(windowTitle(), refusal, this);
    return false;
}

bool NewRepoDialog::pathIsFree()
{
    const QString refusal = m_pathRefusal ? m_pathRefusal(repositoryPath()) : QString();
    if (refusal.isEmpty())
        return true;
    m_prompts.warn(windowTitle(), refusal, this);
    m_ui->m_nameLineEdit->setFocus();
    return false;
}

bool NewRepoDialog::userAgreesToLosses(const FolderState &state, bool isPreviewed)
{
    const auto agrees = [this](const QString &title, const QString &question, const QString &about = {}) {
        return m_prompts.askCarefully(title, question, about, this) == Prompts::Answer::Yes;
    };
    // The preview offers to carry the packages over too.
    if (isPreviewed)
        m_carriesPackages = RepoChange{m_info, repoInfo()}.isRenaming() && !m_packages.isEmpty();
    else if (m_mode == Mode::Change && !userAgreesToChange())
        return false;
    if (stays())
        return true;
    const QString path = repositoryPath();
    if (m_mode == Mode::Change && !isPreviewed
        && !agrees(windowTitle(), tr("Do you want to move the repository from %1 to %2?").arg(m_path, path)))
        return false;
    return !state.exists || mayBeReplaced(path, state);
}

bool NewRepoDialog::userAgreesToChange()
{
    RepoChange change{m_info, repoInfo()};
    if (!change.dropsPlaces())
        return true;
    const QString question
        = tr("Changing fields Codename, Architectures, Components may result in packages deletion. "
             "Want to continue?");
    const QString about = lossesText(change, m_packages);
    m_carriesPackages = change.isRenaming();
    // Without known packages there is no need to ask about carrying them over.
    if (!change.isRenaming() || m_packages.isEmpty())
        return m_prompts.askCarefully(windowTitle(), question, about, this) == Prompts::Answer::Yes;
    change.carries = true;
    Prompts::Option carrying{
        tr("&Carry the packages over to the new code name"), true, lossesText(change, m_packages)};
    const bool agrees
        = m_prompts.askCarefully(windowTitle(), question, about, &carrying, this) == Prompts::Answer::Yes;
    m_carriesPackages = carrying.isTicked;
    return agrees;
}

bool NewRepoDialog::mayBeReplaced(const QString &path, const FolderState &state)
{
    if (!state.repositories.isEmpty()) {
        m_prompts.warn(windowTitle(),
                       tr("The directory %1 cannot be replaced, because it holds these repositories: %2")
                           .arg(path, state.repositories.join(QLatin1String(", "))),
                       this);
        m_ui->m_nameLineEdit->setFocus();
        return false;
    }
    const QString about = state.isRepository
                              ? tr("It holds a repository. Everything in it will be deleted.")
                              : tr("It holds no repository. Everything in it will be deleted.");
    if (m_prompts.askCarefully(
            windowTitle(), tr("The directory %1 already exists. Replace it?").arg(path), about, this)
        != Prompts::Answer::Yes)
        return false;
    return !isPublished(path)
           || m_prompts.askCarefully(
                  tr("Overwriting a published repository"),
                  tr("You are trying to overwrite a published repository. It is highly recommended to first "
                     "unpublish the repository and then make changes. Click \"Yes\" only if you know what "
                     "you are doing. Continue?"),
                  {},
                  this)
                  == Prompts::Answer::Yes;
}
