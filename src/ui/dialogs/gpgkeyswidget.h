// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QStringList>
#include <QWidget>

class KeyManager;
class QComboBox;
class QLabel;
class QToolButton;

/** Picks the key that packages are signed with, and starts the program that manages keys. */
class GpgKeysWidget : public QWidget
{
    Q_OBJECT
public:
    explicit GpgKeysWidget(QWidget *parent = nullptr);

    /**
     * Offers these keys ("user id [key id]") and selects none but the one that setKeyId() named. `unusable` says of
     * some of them why they cannot sign; they are listed and cannot be chosen. `warnings` is shown with the others.
     */
    void fill(const QStringList &keys,
              const QHash<QString, QString> &unusable = {},
              const QHash<QString, QString> &warnings = {});
    /** Reads the key ring aside and then offers its keys. */
    void readKeys();
    /** The key that has been in use until now. */
    void setKeyId(const QString &keyId);
    /** The key that the user chose; without a choice, the one that has been in use. */
    QString keyId() const;

    /** The key id in the text of a key; empty when there is none. */
    static QString keyIdOf(const QString &key);

Q_SIGNALS:
    /** The key manager cannot be started, because this package is not installed. */
    void packageMissing(const QString &package);
    /** The key manager is installed but does not start. */
    void startFailed(const QString &program);

private:
    void selectKeyInUse();
    void showWarning();

    QToolButton *m_startKGpgToolButton;
    QComboBox *m_keysComboBox;
    QLabel *m_warningLabel; ///< of the key that is chosen
    KeyManager *m_keyManager;
    QString m_keyInUse;
    bool m_isReading = false;
};
