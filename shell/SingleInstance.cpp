#include "SingleInstance.h"

#include "Startup.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QEventLoop>
#include <QLocalSocket>
#include <QLockFile>
#include <QSettings>
#include <QTimer>
#include <unistd.h>

namespace {
constexpr quint32 kMaxPaths = 100000; // more than any file dialog hands out
constexpr char kTaken = '1';
constexpr int kConnectWaitMs = 1000;
} // namespace

SingleInstance::SingleInstance(const QString &name, QObject *parent) : QObject(parent), m_name(name)
{
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *peer = m_server.nextPendingConnection()) {
            connect(peer, &QLocalSocket::disconnected, peer, &QObject::deleteLater);
            connect(peer, &QLocalSocket::readyRead, this, [this, peer] { Read(peer); });
        }
    });
}

QString SingleInstance::UserServerName()
{
    const QByteArray store = startup::OpenSettings()->fileName().toUtf8();
    const QByteArray tag = QCryptographicHash::hash(store, QCryptographicHash::Sha1).toHex().left(8);
    return QStringLiteral("videomend-%1-%2").arg(::getuid()).arg(QString::fromLatin1(tag));
}

SingleInstance::Role SingleInstance::Start(const QStringList &paths, int timeoutMs)
{
    // Two starts at the same moment must not both take the socket over: the
    // look and the claim happen under one lock (a dead holder's lock is stale).
    QLockFile lock(QDir(QDir::tempPath()).filePath(m_name + ".lock"));
    lock.tryLock(timeoutMs);
    switch (Hand(paths, timeoutMs)) {
    case Handover::Taken:
        return Role::Handed;
    case Handover::NoAnswer:
        return Role::Failed;
    case Handover::NobodyThere:
        break;
    }
    // Nobody answered: a socket file there was left by a crash.
    QLocalServer::removeServer(m_name);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    return m_server.listen(m_name) ? Role::First : Role::Failed;
}

SingleInstance::Handover SingleInstance::Hand(const QStringList &paths, int timeoutMs)
{
    QLocalSocket socket;
    socket.connectToServer(m_name);
    if (!socket.waitForConnected(qMin(timeoutMs, kConnectWaitMs)))
        return Handover::NobodyThere;

    QByteArray block;
    QDataStream out(&block, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << quint32(paths.size());
    for (const QString &p : paths)
        out << p.toUtf8();
    socket.write(block);

    // The answer comes through the event loop: the listener may live in
    // this very thread (as in the tests).
    bool taken = false;
    QEventLoop loop;
    QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
    connect(&socket, &QLocalSocket::readyRead, &loop, [&] {
        taken = socket.read(1) == QByteArray(1, kTaken);
        loop.quit();
    });
    connect(&socket, &QLocalSocket::disconnected, &loop, &QEventLoop::quit);
    connect(&socket, &QLocalSocket::errorOccurred, &loop, &QEventLoop::quit);
    loop.exec();
    socket.disconnectFromServer();
    return taken ? Handover::Taken : Handover::NoAnswer;
}

void SingleInstance::Read(QLocalSocket *peer)
{
    QDataStream in(peer);
    in.setVersion(QDataStream::Qt_5_15);
    in.startTransaction();
    quint32 count = 0;
    in >> count;
    if (in.status() == QDataStream::Ok && count > kMaxPaths) {
        peer->abort();
        return;
    }
    QStringList paths;
    for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        QByteArray path;
        in >> path;
        paths << QString::fromUtf8(path);
    }
    if (!in.commitTransaction())
        return; // the rest is still on its way
    peer->write(QByteArray(1, kTaken));
    peer->flush();
    Q_EMIT FilesReceived(paths);
}
