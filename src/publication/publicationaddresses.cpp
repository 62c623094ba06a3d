// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/publicationaddresses.h"

#include <QNetworkInterface>
#include <QNetworkProxy>
#include <QRegularExpression>

#include <utility>

PublicationAddresses::PublicationAddresses(QObject *parent)
    : PublicationAddresses(Target(), parent)
{ }

PublicationAddresses::PublicationAddresses(Target target, QObject *parent)
    : QObject(parent)
    , m_target(std::move(target))
{
    // With a proxy, the connection would only show the way to the proxy.
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_limit.setSingleShot(true);
    connect(&m_socket, &QTcpSocket::connected, this, [this] { finish(m_socket.localAddress().toString()); });
    connect(&m_socket, &QTcpSocket::errorOccurred, this, [this] { finish(QString()); });
    connect(&m_limit, &QTimer::timeout, this, [this] { finish(QString()); });
}

PublicationAddresses::~PublicationAddresses()
{
    // The end of the socket emits signals. They must not reach this object, which is being destroyed.
    m_socket.disconnect(this);
}

bool PublicationAddresses::isAddress(const QString &text)
{
    static const QRegularExpression address(QRegularExpression::anchoredPattern(pattern()));
    return address.match(text).hasMatch();
}

void PublicationAddresses::start()
{
    m_limit.start(m_target.limit);
    m_socket.connectToHost(m_target.host, m_target.port);
}

void PublicationAddresses::finish(const QString &preferred)
{
    if (std::exchange(m_done, true))
        return;
    m_limit.stop();
    m_socket.abort();
    QStringList addresses;
    const QList<QHostAddress> all = QNetworkInterface::allAddresses();
    for (const QHostAddress &address : all) {
        if (address.protocol() == QAbstractSocket::IPv4Protocol && !address.isLoopback())
            addresses += address.toString();
    }
    addresses.removeDuplicates();
    Q_EMIT found(addresses, preferred);
}
