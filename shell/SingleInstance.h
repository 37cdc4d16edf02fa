#pragma once
// One window per user and settings store. The first start listens on a
// local socket; a later start connects, hands over the files it was given
// and leaves. A socket file left by a crash is removed when nobody answers
// on it.
//
// What goes over the socket: a QDataStream list of UTF-8 paths (each
// length-prefixed); the answer is one byte once the list is taken.

#include <QLocalServer>
#include <QObject>
#include <QStringList>

class QLocalSocket;

class SingleInstance : public QObject
{
    Q_OBJECT
public:
    enum class Role {
        First,  // this process listens now
        Handed, // another one took the files
        Failed, // neither: the socket can't be made, or the other one doesn't answer
    };

    explicit SingleInstance(const QString &name = UserServerName(), QObject *parent = nullptr);

    // Hands `paths` to a running instance, else becomes the first one.
    // Waits up to timeoutMs for the other's answer (events keep running).
    Role Start(const QStringList &paths, int timeoutMs = 10000);
    // Per user and settings store: two users, or two stores, never meet.
    static QString UserServerName();

Q_SIGNALS:
    // Paths a later start handed over, as it sent them.
    void FilesReceived(const QStringList &paths);

private:
    enum class Handover { NobodyThere, Taken, NoAnswer };
    Handover Hand(const QStringList &paths, int timeoutMs);
    void Read(QLocalSocket *peer);

    QString m_name;
    QLocalServer m_server;
};
