// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHostAddress>
#include <QObject>
#include <QStringList>
#include <QTcpSocket>
#include <QTimer>

/**
 * Finds the addresses under which other machines may reach this one. The preferred one is that of the network
 * interface that leads to the rest of the world: a connection to a host out there tells, over which nothing is sent.
 */
class PublicationAddresses : public QObject
{
    Q_OBJECT
public:
    /** A host that is out there for everybody; only the way to it matters. */
    struct Target
    {
        QHostAddress host = QHostAddress(QStringLiteral("8.8.8.8"));
        quint16 port = 53;
        int limit = 3000; ///< milliseconds until the connection is given up
    };

    explicit PublicationAddresses(QObject *parent = nullptr);
    PublicationAddresses(Target target, QObject *parent);
    ~PublicationAddresses() override;

    /** The address that is always there. */
    static QString loopback() { return QHostAddress(QHostAddress::LocalHost).toString(); }
    /** Regular expression of what may stand in the place of an address; the numbers are not looked at. */
    static QString pattern() { return QStringLiteral("([0-9]{1,3}[.]){3}[0-9]{1,3}"); }
    /** Whether the whole text is of that form. */
    static bool isAddress(const QString &text);

    /** Begins the search; call it once. */
    void start();

Q_SIGNALS:
    /**
     * The search has ended; told once. `addresses` are those of all interfaces but the loopback one, in the system's
     * order; `preferred` is empty when no way out was found.
     */
    void found(const QStringList &addresses, const QString &preferred);

private:
    Target m_target;
    QTcpSocket m_socket;
    QTimer m_limit;
    bool m_done = false;

    void finish(const QString &preferred);
};
