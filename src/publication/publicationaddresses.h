// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHostAddress>
#include <QObject>
#include <QStringList>
#include <QTcpSocket>
#include <QTimer>

/**
 * Finds the addresses under which other machines may reach this one. The preferred address is that of the network
 * interface that leads to the internet. A connection to a public host shows it; nothing is sent over the connection.
 */
class PublicationAddresses : public QObject
{
    Q_OBJECT
public:
    /** A public host, of which only the route matters. */
    struct Target
    {
        QHostAddress host = QHostAddress(QStringLiteral("8.8.8.8"));
        quint16 port = 53;
        int limit = 3000; ///< milliseconds until the connection is given up
    };

    explicit PublicationAddresses(QObject *parent = nullptr);
    PublicationAddresses(Target target, QObject *parent);
    ~PublicationAddresses() override;

    /** The loopback address, which every machine has. */
    static QString loopback() { return QHostAddress(QHostAddress::LocalHost).toString(); }
    /** Regular expression of an address; it does not check the size of the numbers. */
    static QString pattern() { return QStringLiteral("([0-9]{1,3}[.]){3}[0-9]{1,3}"); }
    /** Whether the whole text has the form of an address. */
    static bool isAddress(const QString &text);

    /** Begins the search; call it once. */
    void start();

Q_SIGNALS:
    /**
     * The search has ended; emitted once. `addresses` are those of all interfaces but the loopback one, in the system's
     * order; `preferred` is empty when no route was found.
     */
    void found(const QStringList &addresses, const QString &preferred);

private:
    Target m_target;
    QTcpSocket m_socket;
    QTimer m_limit;
    bool m_done = false;

    void finish(const QString &preferred);
};
