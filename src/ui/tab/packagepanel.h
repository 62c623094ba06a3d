// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QWidget>

#include <memory>

class PackageMore;
class QAction;
struct PackageInfo;

namespace Ui
{
class PackagePanel;
}

/** The tab "Common" of a package: what its record says. */
class PackagePanel : public QWidget
{
    Q_OBJECT
public:
    explicit PackagePanel(QWidget *parent = nullptr);
    ~PackagePanel() override;

    void showPackage(const PackageInfo &package);
    /** Commands that get a button below the rows. */
    void setCommands(const QList<QAction *> &commands);

private:
    std::unique_ptr<Ui::PackagePanel> m_ui;
    PackageMore *m_more;
};
