// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/prompts.h"

#include "core/countof.h"
#include "ui/widgets/helptopics.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>
#include <QShortcut>
#include <QTextEdit>

#include <algorithm>

namespace
{
/** Makes a file dialog wider: package files have long names, and Qt's default size is too narrow for them. */
void giveRoom(QFileDialog &dialog)
{
    constexpr QSize Characters(120, 30);
    const QSize wished(Characters.width() * dialog.fontMetrics().averageCharWidth(),
                       Characters.height() * dialog.fontMetrics().lineSpacing());
    dialog.resize(wished.boundedTo(dialog.screen()->availableSize() * 4 / 5));
}
} // namespace

Prompts::Prompts(QWidget *window)
    : QObject(window)
    , m_window(window)
{ }

int Prompts::run(QDialog &dialog)
{
    if (m_dismissed)
        return QDialog::Rejected;
    m_dialogs.append(&dialog);
    QShortcut helpKey(QKeySequence(QKeySequence::HelpContents), &dialog);
    offerHelp(dialog, helpKey);
    const int result = dialog.exec();
    m_dialogs.removeOne(&dialog);
    showNextError();
    announceFreed();
    return m_dismissed ? static_cast<int>(QDialog::Rejected) : result;
}

void Prompts::offerHelp(QDialog &dialog)
{
    offerHelp(dialog, *new QShortcut(QKeySequence(QKeySequence::HelpContents), &dialog));
}

void Prompts::offerHelp(QDialog &dialog, QShortcut &key)
{
    connect(&key, &QShortcut::activated, this, [this, &dialog] {
        Q_EMIT helpRequested(&dialog, HelpTopics::pageOf(dialog));
    });
}

Prompts::Answer Prompts::ask(const QString &title, const QString &text, const QString &about, QWidget *parent)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, parentOr(parent));
    return askIn(box, about);
}

Prompts::Answer
Prompts::askCarefully(const QString &title, const QString &text, const QString &about, QWidget *parent)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, parentOr(parent));
    box.setDefaultButton(QMessageBox::No);
    return askIn(box, about);
}

Prompts::Answer
Prompts::offer(const QString &title, const QString &text, const QString &yes, const QString &about)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, m_window);
    box.button(QMessageBox::Yes)->setText(QString(yes).replace(QLatin1Char('&'), QLatin1String("&&")));
    box.setDefaultButton(QMessageBox::No);
    return askIn(box, about);
}

Prompts::Answer Prompts::askCarefully(
    const QString &title, const QString &text, const QString &about, Option *option, QWidget *parent)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, parentOr(parent));
    box.setDefaultButton(QMessageBox::No);
    auto *tick = new QCheckBox(option->text, &box);
    tick->setChecked(option->isTicked);
    box.setCheckBox(tick);
    connect(tick, &QCheckBox::toggled, &box, [&box, about, option](bool isTicked) {
        box.setInformativeText(isTicked ? option->aboutTicked : about);
    });
    const Answer answer = askIn(box, option->isTicked ? option->aboutTicked : about);
    option->isTicked = tick->isChecked();
    return answer;
}

Prompts::Answer Prompts::askAfterFailure(const QString &title, const QString &text, QWidget *parent)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Yes | QMessageBox::No, parentOr(parent));
    return askIn(box, {});
}

Prompts::Answer Prompts::askIn(QMessageBox &box, const QString &about)
{
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(about);
    // The text format of the box does not apply to the informative text, which can be a path.
    if (auto *label = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText);
    box.setEscapeButton(QMessageBox::No);
    const int reply = run(box);
    if (m_dismissed)
        return Answer::Dismissed;
    return reply == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

void Prompts::inform(const QString &title, const QString &text, QWidget *parent)
{
    tell(QMessageBox::Information, title, text, parent);
}

void Prompts::warn(const QString &title, const QString &text, QWidget *parent)
{
    tell(QMessageBox::Warning, title, text, parent);
}

void Prompts::fail(const QString &title, const QString &text, QWidget *parent)
{
    tell(QMessageBox::Critical, title, text, parent);
}

void Prompts::tell(int icon, const QString &title, const QString &text, QWidget *parent)
{
    QMessageBox box(static_cast<QMessageBox::Icon>(icon), title, text, QMessageBox::Ok, parentOr(parent));
    box.setTextFormat(Qt::PlainText);
    run(box);
}

void Prompts::showError(const QString &text, const QString &details, RepoEnums::ErrorType type)
{
    showErrors({{text, details, type, {}}});
}

void Prompts::showErrors(const QList<Error> &errors)
{
    if (m_dismissed)
        return;
    m_errors.append(errors);
    showNextError();
}

QString Prompts::named(const QList<Error> &errors)
{
    constexpr int MostNamed = 4;
    constexpr int MostCharacters = 160;
    QStringList lines;
    for (const Error &error : errors.mid(0, MostNamed)) {
        // If the text does not name the file, the details begin with its name.
        QString about = error.details.trimmed().section(QLatin1Char('\n'), 0, 0).trimmed();
        if (about.endsWith(QLatin1Char(':')))
            about.chop(1);
        const QString line = about.isEmpty() ? error.text : error.text + QLatin1Char(' ') + about;
        lines << (line.size() > MostCharacters ? line.left(MostCharacters) + QStringLiteral("...") : line);
    }
    if (errors.size() > MostNamed)
        lines << QString() << tr("%n further message(s) below.", nullptr, countOf(errors) - MostNamed);
    return lines.join(QLatin1Char('\n'));
}

void Prompts::showNextError()
{
    // A box that is covered by a modal dialog gets no key presses, and on some desktops it stays so.
    if (m_errors.isEmpty() || !m_errorBox.isNull() || !m_dialogs.isEmpty())
        return;
    const QList<Error> errors = m_errors;
    m_errors.clear();

    bool critical = false;
    QString details = errors.first().details;
    if (errors.size() > 1)
        details.clear();
    for (const Error &error : errors) {
        critical = critical || error.type == RepoEnums::CRITICAL;
        if (errors.size() > 1)
            details += error.text + QLatin1Char('\n') + error.details.trimmed() + QLatin1String("\n\n");
    }
    const QString text = errors.size() == 1 ? errors.first().text : named(errors);

    QString title = errors.size() == 1 ? errors.first().title : QString();
    if (title.isEmpty())
        title = critical ? tr("Error") : tr("Warning");
    auto *box = new QMessageBox(
        critical ? QMessageBox::Critical : QMessageBox::Warning, title, text, QMessageBox::Ok, m_window);
    box->setTextFormat(Qt::PlainText);
    if (!details.trimmed().isEmpty()) {
        box->setDetailedText(details.trimmed());
        // Some desktops would make the button that shows the details the default button.
        box->setDefaultButton(QMessageBox::Ok);
        box->setEscapeButton(QMessageBox::Ok);
        if (auto *view = box->findChild<QTextEdit *>()) {
            // Qt shows five lines, and the user cannot enlarge the box.
            constexpr int MostLines = 20;
            const int lines
                = qMin(static_cast<int>(details.trimmed().count(QLatin1Char('\n'))) + 3, MostLines);
            view->setFixedHeight(qMin(qMax(view->minimumHeight(), lines * view->fontMetrics().lineSpacing()),
                                      m_window->screen()->availableSize().height() / 3));
            // Its default width would break every path.
            view->setMinimumWidth(qMin(box->fontMetrics().averageCharWidth() * 80,
                                       m_window->screen()->availableSize().width() / 2));
            // Users without a mouse must be able to scroll and copy long details.
            view->setFocusPolicy(Qt::StrongFocus);
            view->setTabChangesFocus(true);
            view->setTextInteractionFlags(view->textInteractionFlags() | Qt::TextSelectableByKeyboard);
        }
        // Clicks the button that shows the details, because they are important for an error.
        const QList<QAbstractButton *> buttons = box->buttons();
        for (QAbstractButton *button : buttons) {
            if (box->buttonRole(button) == QMessageBox::ActionRole)
                button->click();
        }
    }
    m_errorBox = box;
    offerHelp(*box);
    connect(box, &QDialog::finished, this, [this, box] {
        m_errorBox.clear();
        box->deleteLater();
        showNextError();
        announceFreed();
    });
    box->open();
}

Prompts::FileChoice Prompts::saveFile(const QString &title,
                                      const QString &folder,
                                      const QString &name,
                                      const QStringList &filters)
{
    const auto suffixOf = [](const QString &filter) {
        static const QRegularExpression firstPattern(QStringLiteral("\\*\\.([^ )]+)"));
        return firstPattern.match(filter).captured(1);
    };
    QFileDialog dialog(m_window, title, folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // We ask this ourselves, with the complete name.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(suffixOf(filters.first()));
    dialog.selectFile(name);
    giveRoom(dialog);
    // Otherwise the suffix of the proposed name would stay after another filter is chosen.
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString &filter) {
        dialog.setDefaultSuffix(suffixOf(filter));
        const QFileInfo chosen(dialog.selectedFiles().value(0));
        const bool isOfKind = std::any_of(filters.cbegin(), filters.cend(), [&](const QString &other) {
            return chosen.suffix() == suffixOf(other);
        });
        if (isOfKind)
            dialog.selectFile(chosen.completeBaseName() + QLatin1Char('.') + suffixOf(filter));
    });
    QString path;
    do {
        if (run(dialog) != QDialog::Accepted)
            return {};
        path = dialog.selectedFiles().value(0);
        // Qt takes the end of a version number for a suffix.
        const QString suffix = QFileInfo(path).suffix();
        if (!suffix.isEmpty() && suffix.at(0).isDigit())
            path += QLatin1Char('.') + suffixOf(dialog.selectedNameFilter());
    } while (!mayReplace(path));
    const auto fitting = std::find_if(filters.cbegin(), filters.cend(), [&](const QString &filter) {
        return path.endsWith(QLatin1Char('.') + suffixOf(filter), Qt::CaseInsensitive);
    });
    return {path, fitting == filters.cend() ? dialog.selectedNameFilter() : *fitting};
}

bool Prompts::mayReplace(const QString &path)
{
    return !QFileInfo::exists(path)
           || askCarefully(tr("Confirm replacement"),
                           tr("The file %1 already exists. Do you want to replace it?").arg(path))
                  == Answer::Yes;
}

QString Prompts::openFile(const QString &title, const QString &folder, const QString &filter)
{
    QFileDialog dialog(m_window, title, folder, filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    giveRoom(dialog);
    return run(dialog) == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QStringList Prompts::openFiles(const QString &title, const QString &folder, const QString &filter)
{
    QFileDialog dialog(m_window, title, folder, filter);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    giveRoom(dialog);
    return run(dialog) == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

QString Prompts::directory(const QString &title, const QString &folder, QWidget *parent)
{
    QFileDialog dialog(parentOr(parent), title, folder);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    giveRoom(dialog);
    return run(dialog) == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

int Prompts::choose(const QString &title, const QString &label, const QStringList &items, int current)
{
    QInputDialog dialog(m_window);
    dialog.setWindowTitle(title);
    dialog.setLabelText(label);
    dialog.setComboBoxItems(items);
    dialog.setComboBoxEditable(false);
    dialog.setTextValue(items.value(current));
    return run(dialog) == QDialog::Accepted ? static_cast<int>(items.indexOf(dialog.textValue())) : -1;
}

bool Prompts::isOpen() const
{
    return !m_dialogs.isEmpty() || !m_errorBox.isNull();
}

void Prompts::dismissAll()
{
    m_dismissed = true;
    m_errors.clear();
    if (QMessageBox *box = m_errorBox.data())
        box->reject();
    // In reverse order, so that the innermost event loop returns first.
    const QList<QPointer<QDialog>> dialogs = m_dialogs;
    for (auto dialog = dialogs.crbegin(); dialog != dialogs.crend(); ++dialog) {
        if (QDialog *open = dialog->data())
            open->reject();
    }
}

void Prompts::announceFreed()
{
    // Queued, so that the caller of the dialog has handled its result.
    if (!isOpen() && !m_dismissed)
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (!isOpen() && !m_dismissed)
                    Q_EMIT freed();
            },
            Qt::QueuedConnection);
}
