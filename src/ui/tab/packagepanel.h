// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

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

private:
    std::unique_ptr<Ui::PackagePanel> m_ui;
};
