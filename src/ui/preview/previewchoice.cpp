// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/preview/previewchoice.h"

#include "ui/preview/previewmodel.h"

#include <QApplication>
#include <QComboBox>
#include <QPainter>
#include <QTimer>

namespace
{
/** The positions of the choices in the box. */
enum Choice { Replace, Keep };

const QStyle &styleOf(const QStyleOptionViewItem &option)
{
    return option.widget != nullptr ? *option.widget->style() : *QApplication::style();
}
} // namespace

void PreviewChoice::paint(QPainter *painter,
                          const QStyleOptionViewItem &option,
                          const QModelIndex &index) const
{
    if (!index.data(PreviewModel::ChoiceRole).toBool()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QStyle &style = styleOf(option);
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &item, painter, option.widget);
    QStyleOptionComboBox box;
    box.rect = option.rect;
    box.state = option.state & (QStyle::State_Enabled | QStyle::State_MouseOver);
    box.direction = option.direction;
    box.fontMetrics = option.fontMetrics;
    box.palette = option.palette;
    box.currentIcon = item.icon;
    box.iconSize = item.decorationSize;
    box.frame = false;
    const QRect field
        = style.subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxEditField, option.widget);
    const int icon
        = item.icon.isNull() ? 0 : item.decorationSize.width() + option.fontMetrics.averageCharWidth();
    box.currentText = option.fontMetrics.elidedText(item.text, Qt::ElideRight, field.width() - icon);
    painter->save();
    painter->setClipRect(option.rect);
    style.drawComplexControl(QStyle::CC_ComboBox, &box, painter, option.widget);
    style.drawControl(QStyle::CE_ComboBoxLabel, &box, painter, option.widget);
    painter->restore();
}

QSize PreviewChoice::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    // All rows have the height of a row with a choice.
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    QStyleOptionComboBox box;
    box.fontMetrics = option.fontMetrics;
    return styleOf(option).sizeFromContents(QStyle::CT_ComboBox, &box, size, option.widget).expandedTo(size);
}

QWidget *PreviewChoice::createEditor(QWidget *parent,
                                     const QStyleOptionViewItem & /*option*/,
                                     const QModelIndex &index) const
{
    auto *box = new QComboBox(parent);
    box->setFrame(false);
    box->addItems(index.data(PreviewModel::OptionsRole).toStringList());
    box->setAccessibleName(PreviewModel::tr("What happens"));
    connect(box, qOverload<int>(&QComboBox::activated), this, [this, box] {
        auto *self = const_cast<PreviewChoice *>(this);
        Q_EMIT self->commitData(box);
        Q_EMIT self->closeEditor(box);
    });
    QTimer::singleShot(0, box, &QComboBox::showPopup);
    return box;
}

void PreviewChoice::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const bool isOn
        = index.sibling(index.row(), PreviewModel::Package).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    static_cast<QComboBox *>(editor)->setCurrentIndex(isOn ? Replace : Keep);
}

void PreviewChoice::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    const bool isOn = static_cast<QComboBox *>(editor)->currentIndex() == Replace;
    const bool wasOn
        = index.sibling(index.row(), PreviewModel::Package).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    if (isOn != wasOn)
        model->setData(index, isOn, PreviewModel::ChoiceRole);
}
