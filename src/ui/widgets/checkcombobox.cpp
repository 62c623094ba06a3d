// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/checkcombobox.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStandardItemModel>
#include <QWheelEvent>

CheckComboBox::CheckComboBox(QWidget *parent)
    : QComboBox(parent)
    , m_items(new QStandardItemModel(this))
{
    setModel(m_items);
    setEditable(true);
    setInsertPolicy(NoInsert);
    // A completer would replace the whole text with one item.
    setCompleter(nullptr);
    lineEdit()->installEventFilter(this);
    view()->installEventFilter(this);
    view()->viewport()->installEventFilter(this);
}

void CheckComboBox::setChoices(const QStringList &choices)
{
    const QString text = currentText();
    m_items->clear();
    for (const QString &choice : choices)
        addChoice(choice);
    setCurrentIndex(-1);
    setEditText(text);
}

QStringList CheckComboBox::checkedItems() const
{
    QStringList checked;
    for (int row = 0; row < m_items->rowCount(); ++row) {
        if (m_items->item(row)->checkState() == Qt::Checked)
            checked << m_items->item(row)->text();
    }
    return checked;
}

void CheckComboBox::setTextReadOnly(bool readOnly)
{
    lineEdit()->setReadOnly(readOnly);
}

void CheckComboBox::addChoice(const QString &text)
{
    auto *item = new QStandardItem(text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Unchecked);
    m_items->appendRow(item);
}

void CheckComboBox::showPopup()
{
    const QStringList parts = currentText().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    // A typed value that is not among the items would be lost at the next toggle.
    for (const QString &part : parts) {
        if (m_items->findItems(part).isEmpty())
            addChoice(part);
    }
    for (int row = 0; row < m_items->rowCount(); ++row) {
        QStandardItem *item = m_items->item(row);
        item->setCheckState(parts.contains(item->text()) ? Qt::Checked : Qt::Unchecked);
    }
    QComboBox::showPopup();
    if (!view()->currentIndex().isValid())
        view()->setCurrentIndex(m_items->index(0, 0));
}

void CheckComboBox::toggle(const QModelIndex &index)
{
    QStandardItem *item = m_items->itemFromIndex(index);
    if (item == nullptr)
        return;
    item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    setEditText(checkedItems().join(QLatin1Char(' ')));
}

bool CheckComboBox::eventFilter(QObject *watched, QEvent *event)
{
    // The combo box itself would choose this one item and close the pop-up.
    if (watched == view()->viewport() && event->type() == QEvent::MouseButtonRelease) {
        toggle(view()->indexAt(static_cast<QMouseEvent *>(event)->pos()));
        return true;
    }
    if (watched == view() && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Space || key == Qt::Key_Select) {
            toggle(view()->currentIndex());
            return true;
        }
        if (key == Qt::Key_Enter || key == Qt::Key_Return) {
            hidePopup();
            return true;
        }
    }
    // Qt offers Enter as a shortcut first, so it must be accepted here to arrive as a key press.
    if (watched == view() && event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Enter || key == Qt::Key_Return) {
            event->accept();
            return true;
        }
    }
    // A read-only text field opens the pop-up like a button.
    if (watched == lineEdit() && lineEdit()->isReadOnly() && isEnabled()
        && event->type() == QEvent::MouseButtonPress) {
        showPopup();
        return true;
    }
    return QComboBox::eventFilter(watched, event);
}

void CheckComboBox::keyPressEvent(QKeyEvent *event)
{
    // Moving through the items would replace the text with a single item.
    switch (event->key()) {
    case Qt::Key_Space:
        if (!lineEdit()->isReadOnly()) {
            QComboBox::keyPressEvent(event);
            break;
        }
        [[fallthrough]];
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        showPopup();
        event->accept();
        break;
    default:
        QComboBox::keyPressEvent(event);
    }
}

void CheckComboBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}
