// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/mnemonics.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMenu>
#include <QSet>

#include <utility>

namespace
{
constexpr QChar Mark = QLatin1Char('&');

/** Index of the marked letter; -1 when there is none. A doubled mark stands for a visible ampersand. */
int markedLetter(const QString &text)
{
    for (int i = 0; i + 1 < text.size(); ++i) {
        if (text.at(i) != Mark)
            continue;
        ++i;
        if (text.at(i) != Mark)
            return i;
    }
    return -1;
}

/** Index of the first free letter, at the start of a word or anywhere; -1 when there is none. */
int freeLetter(const QString &text, const QSet<QChar> &taken, bool atWordStart)
{
    for (int i = 0; i < text.size(); ++i) {
        const bool begins = i == 0 || !text.at(i - 1).isLetterOrNumber();
        if (text.at(i).isLetterOrNumber() && (begins || !atWordStart)
            && !taken.contains(text.at(i).toLower()))
            return i;
    }
    return -1;
}
} // namespace

QStringList Mnemonics::marked(const QStringList &texts)
{
    QStringList result = texts;
    QSet<QChar> taken;
    QList<int> open;
    for (int i = 0; i < texts.size(); ++i) {
        const int letter = markedLetter(texts.at(i));
        if (letter >= 0)
            taken.insert(texts.at(i).at(letter).toLower());
        else
            open.append(i);
    }
    // Letters at the start of words are assigned first, so that no text takes such a letter from another.
    for (const bool atWordStart : {true, false}) {
        QList<int> left;
        for (const int i : std::as_const(open)) {
            const int letter = freeLetter(texts.at(i), taken, atWordStart);
            if (letter < 0) {
                left.append(i);
                continue;
            }
            taken.insert(texts.at(i).at(letter).toLower());
            result[i].insert(letter, Mark);
        }
        open = left;
    }
    return result;
}

void Mnemonics::mark(QWidget *menu, const QWidget *except)
{
    QList<QAction *> entries;
    QStringList texts;
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (action->isSeparator())
            continue;
        entries.append(action);
        texts.append(action->text());
        if (action->menu() != nullptr && action->menu() != except)
            mark(action->menu(), except);
    }
    // An action that is in two menus is marked by the first one; the second menu keeps the mark.
    const QStringList results = marked(texts);
    for (int i = 0; i < entries.size(); ++i)
        entries.at(i)->setText(results.at(i));
}

void Mnemonics::markForm(QWidget *form)
{
    QWidgetList captions;
    QStringList texts;
    const QWidgetList children = form->findChildren<QWidget *>();
    for (QWidget *child : children) {
        const auto *label = qobject_cast<QLabel *>(child);
        const auto *button = qobject_cast<QAbstractButton *>(child);
        // Enter and Escape stand for OK and Cancel, so these buttons need no mark. Yes and No already have marks.
        const auto *box = qobject_cast<QDialogButtonBox *>(child->parentWidget());
        if (box != nullptr && markedLetter(button->text()) < 0
            && box->standardButton(qobject_cast<QAbstractButton *>(child)) != QDialogButtonBox::NoButton)
            continue;
        const QString text = label != nullptr && label->buddy() != nullptr ? label->text()
                             : button != nullptr                           ? button->text()
                                                                           : QString();
        if (text.isEmpty())
            continue;
        captions.append(child);
        texts.append(text);
    }
    const QStringList results = marked(texts);
    for (int i = 0; i < captions.size(); ++i) {
        captions.at(i)->setProperty("text", results.at(i));
        // A marked letter is painted by itself, so the text can be wider than the label knows ("To").
        if (auto *label = qobject_cast<QLabel *>(captions.at(i)); label != nullptr && !label->wordWrap())
            label->setMinimumWidth(label->sizeHint().width() + label->fontMetrics().averageCharWidth());
    }
}
