// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QStringList>
#include <QWidget>

class KeyManager;
class QComboBox;
class QLabel;
class QToolButton;

/** Lets the user choose the key for signing packages, and starts the program that manages keys. */
class GpgKeysWidget : public QWidget
{
    Q_OBJECT
public:
    explicit GpgKeysWidget(QWidget *parent = nullptr);

    /**
     * Lists these keys ("user id [key id]") and selects only the key of setKeyId(). `unusable` has the reasons why some
     * keys cannot sign; these keys are listed but cannot be chosen. `warnings` are shown with the other keys.
     */
    void fill(const QStringList &keys,
              const QHash<QString, QString> &unusable = {},
              const QHash<QString, QString> &warnings = {});
    /** Reads the key ring in the background and then lists its keys. */
    void readKeys();
    /** The key that is in use so far. */
    void setKeyId(const QString &keyId);
    /** The key that the user has chosen; without a choice, the key that is in use. */
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
    QLabel *m_warningLabel; ///< warning about the chosen key
    KeyManager *m_keyManager;
    QString m_keyInUse;
    bool m_isReading = false;
};
