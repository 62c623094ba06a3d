// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/contents/textpage.h"

#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QVBoxLayout>

namespace
{
constexpr int MostMarks = 1000; ///< each one is painted
}

TextPage::TextPage(const QString &name, QWidget *parent)
    : QWidget(parent)
    , m_about(new QLabel(this))
    , m_view(new QPlainTextEdit(this))
{
    m_about->setTextFormat(Qt::PlainText);
    m_about->setWordWrap(true);
    m_about->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_about->hide();
    m_view->setReadOnly(true);
    m_view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_view->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_view->setTabChangesFocus(true);
    m_view->setAccessibleName(name);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_about);
    layout->addWidget(m_view, 1);
}

void TextPage::setText(const PackageContents::Text &text)
{
    m_view->setPlainText(text.text);
    m_view->setVisible(!text.isBinary);
    if (text.isBinary)
        m_about->setText(tr("%1 is a program and no text.").arg(text.path));
    else if (text.isCut)
        m_about->setText(
            tr("%1, of which this is the beginning. The whole text is in the package.").arg(text.path));
    else
        m_about->setText(text.path);
    m_about->show();
    search(m_searched);
}

void TextPage::setReason(const QString &reason)
{
    m_view->clear();
    m_view->hide();
    m_about->setText(reason);
    m_about->show();
}

int TextPage::search(const QString &text)
{
    m_searched = text;
    QList<QTextEdit::ExtraSelection> marks;
    int count = 0;
    if (!text.isEmpty()) {
        QTextEdit::ExtraSelection mark;
        mark.format.setBackground(palette().brush(QPalette::Highlight));
        mark.format.setForeground(palette().brush(QPalette::HighlightedText));
        const QTextDocument *document = m_view->document();
        for (QTextCursor at = document->find(text); !at.isNull(); at = document->find(text, at)) {
            ++count;
            mark.cursor = at;
            if (marks.size() < MostMarks)
                marks << mark;
        }
        QTextCursor start = m_view->textCursor();
        start.setPosition(start.selectionStart());
        m_view->setTextCursor(start);
        searchAgain(false);
    }
    m_view->setExtraSelections(marks);
    return count;
}

void TextPage::searchAgain(bool backwards)
{
    if (m_searched.isEmpty())
        return;
    const QTextDocument::FindFlags way = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (m_view->find(m_searched, way))
        return;
    const QTextCursor before = m_view->textCursor();
    m_view->moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
    if (!m_view->find(m_searched, way))
        m_view->setTextCursor(before);
}

void TextPage::focusText()
{
    m_view->setFocus();
}
