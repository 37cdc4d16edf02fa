// The software update against a loopback web server: the check, the offer,
// the download and the start of the installer, and what stays on disk.

#include "UpdateDialogs.h"
#include "shell_support.h"

#include <QRandomGenerator>
#include <QTcpServer>
#include <QTcpSocket>
#include <unistd.h>

namespace {

// How the server answers one path.
struct Route
{
    enum Mode { Whole, Silent, Trickle, Stall, Drop };
    int status = 200;
    QByteArray body;
    Mode mode = Whole;
    int part = 0; // Trickle: bytes per 100 ms; Stall, Drop: bytes sent before
};

class TestServer : public QTcpServer
{
public:
    QHash<QString, Route> routes;
    QStringList hits;

protected:
    void incomingConnection(qintptr handle) override
    {
        auto *s = new QTcpSocket(this);
        s->setSocketDescriptor(handle);
        connect(s, &QTcpSocket::readyRead, s, [this, s] {
            QByteArray &request = m_requests[s];
            request += s->readAll();
            if (request.contains("\r\n\r\n"))
                serve(s, QString::fromLatin1(request.split(' ').value(1)));
        });
    }

private:
    void serve(QTcpSocket *s, const QString &path)
    {
        hits << path;
        const Route r = routes.value(path, Route{404, "not here", Route::Whole, 0});
        if (r.mode == Route::Silent)
            return;
        // A redirect's body is where it points.
        const QByteArray where = r.status / 100 == 3 ? "Location: " + r.body + "\r\n" : QByteArray();
        s->write(QStringLiteral("HTTP/1.1 %1 X\r\nContent-Length: %2\r\nConnection: close\r\n")
                     .arg(r.status).arg(r.body.size()).toLatin1() + where + "\r\n");
        if (r.mode == Route::Whole) {
            s->write(r.body);
            s->disconnectFromHost();
        } else if (r.mode == Route::Trickle) {
            auto *t = new QTimer(s);
            auto sent = std::make_shared<int>(0);
            connect(t, &QTimer::timeout, s, [s, t, r, sent] {
                s->write(r.body.mid(*sent, r.part));
                *sent += r.part;
                if (*sent >= r.body.size()) {
                    t->stop();
                    s->disconnectFromHost();
                }
            });
            t->start(100);
        } else {
            s->write(r.body.left(r.part));
            if (r.mode == Route::Drop) {
                s->flush();
                s->abort();
            }
        }
    }
    QHash<QTcpSocket *, QByteArray> m_requests;
};

class TestHost : public update::Host
{
public:
    bool online = true;
    QStringList messages;
    int quits = 0;

    std::unique_ptr<QSettings> Settings() const override { return startup::OpenSettings(); }
    QString LanguageFolder() const override { return "EN"; }
    QString FileStem() const override { return startup::UpdateFileStem(); }
    QString ProductName() const override { return startup::ProductName(); }
    bool IsOnline() const override { return online; }
    void ShowMessage(const char *context, const char *, const char *text) override
    {
        messages << QCoreApplication::translate(context, text);
    }
    void QuitForUpdate() override { ++quits; }
};

const char kNone[] = "No update available.";
const char kFailed[] = "Update failed \n\n Update failed due to partial download.";
const char kInstalled[] = "installer started, program quits";
const char kQuiet[] = "nothing said";
constexpr int kMinSize = 4096;

} // namespace

class TestUpdate : public QObject
{
    Q_OBJECT
public:
    explicit TestUpdate(const QString &root) : m_root(root) {}

private:
    QString m_root;
    TestServer m_server;
    QString m_marker;

    QString folder() const { return update::UpdateFolder(); }
    // A stand-in installer: a script that notes its start, padded to `size`.
    QByteArray installer(int size) const
    {
        QByteArray script = "#!/bin/sh\necho started > '" + QFile::encodeName(m_marker) + "'\n#";
        return script + QByteArray(qMax(0, size - script.size() - 1), 'x') + "\n";
    }
    void setLink(const QString &base) { startup::OpenSettings()->setValue("EN/UpdateNewLink", base); }
    QString base() const { return QStringLiteral("http://127.0.0.1:%1/").arg(m_server.serverPort()); }

    // Runs one check; clicks Update on an offer and waits for the download's end.
    QString runCheck(TestHost &host, bool manual, QString *offer)
    {
        QTimer clicker;
        connect(&clicker, &QTimer::timeout, this, [offer] {
            if (auto *d = qobject_cast<QShowUpdate *>(update::OpenUpdateDialog())) {
                if (offer)
                    *offer = d->textEdit->toPlainText();
                d->UpdateButton->click();
            }
        });
        clicker.start(10);
        QCheckUpdate check(host, manual);
        if (check.result() == QCheckUpdate::Result::Offered &&
            !QTest::qWaitFor([&host] { return host.quits > 0 || !host.messages.isEmpty(); }, 10000))
            return "download never ended";
        if (host.quits && !QTest::qWaitFor([this] { return QFile::exists(m_marker); }, 5000))
            return "installer never ran";
        return host.quits ? kInstalled : host.messages.isEmpty() ? kQuiet : host.messages.join(" / ");
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_server.listen(QHostAddress::LocalHost, 0));
        m_marker = m_root + "/out/installer-started";
        update::limits.checkMs = 1500;
        update::limits.stallMs = 600;
        update::limits.tickMs = 20;
        update::networkSeam = update::Network::Online;
    }

    void init()
    {
        auto s = startup::OpenSettings();
        s->clear();
        s->setValue("Version", "7.0.0.0");
        s->setValue("AverageUpdateSize", kMinSize);
        setLink(base());
        m_server.routes.clear();
        m_server.hits.clear();
        QFile::remove(m_marker);
        QDir(folder()).removeRecursively();
        update::updState = update::UpdateState();
    }

    void compareVersions()
    {
        // Current, latest, and the verdict: 0 none, 1 minor, 2 major.
        const struct { const char *current, *latest; int verdict; } rows[] = {
            {"7.0.0.0", "7.0.0.0", 0}, {"7.0.0.0", "7.0.0.1", 1}, {"7.0.9.9", "7.1.0.0", 1},
            {"9.9.9.9", "10.0.0.0", 2}, {"10.0.0.0", "9.9.9.9", 0}, {"10.0.0.0", "10.0.1.0", 1},
            {"7.1.0.0", "7.0.9.9", 0}, {"", "7.0.0.1", 0}, {"7.0", "7.0.0.1", 1},
        };
        for (const auto &r : rows) {
            const update::VersionVerdict v = update::CompareVersions(r.current, r.latest);
            QVERIFY2(int(v.bMinorUpdate) + 2 * int(v.bMajorUpdate) == r.verdict, r.latest);
        }
    }

    void serverCases()
    {
        const Route good{200, installer(kMinSize + 1000)}, none{404, "not here"};
        auto v = [](const QByteArray &text) { return Route{200, text}; };
        QRandomGenerator rng(7);
        QByteArray random(1000, 0);
        for (char &c : random)
            c = char(rng.bounded(256));
        const QString major = "major release 8.0.0.0 "; // what the offer names, "" for none
        const struct { const char *tag; Route version, exe; bool manual; QString outcome, offer; } rows[] = {
            {"newer minor", v("\n  7.0.1.0  \r\nrest"), good, true, kInstalled, "minor update 7.0.1.0 "},
            {"newer major, silent", v("8.0.0.0\n"), good, false, kInstalled, major},
            {"redirected", Route{302, "/moved.txt"}, good, false, kInstalled, "minor update 7.5.0.0 "},
            {"same, manual", v("7.0.0.0\n"), none, true, kNone, ""},
            {"same, silent", v("7.0.0.0\n"), none, false, kQuiet, ""},
            {"random", v(random), none, true, kNone, ""},
            {"7.0", v("7.0\r\n"), none, true, kNone, ""},
            {"1 MB line", v(QByteArray(1 << 20, '8')), none, true, kNone, ""},
            {"version 404", Route{404, "8.0.0.0\n"}, none, true, kNone, ""},
            {"version dropped", Route{200, "8.0.0.0\n", Route::Drop, 3}, none, true, kNone, ""},
            {"version never comes", Route{200, "8.0.0.0\n", Route::Silent}, none, true, kNone, ""},
            {"installer trickles", v("8.0.0.0"), Route{200, good.body, Route::Trickle, 600}, true, kInstalled, major},
            {"installer stalls", v("8.0.0.0"), Route{200, good.body, Route::Stall, 1000}, true, kFailed, major},
            {"installer dropped", v("8.0.0.0"), Route{200, good.body, Route::Drop, 1000}, true, kFailed, major},
            {"installer 404", v("8.0.0.0"), none, true, kFailed, major},
            {"installer won't start", v("8.0.0.0"), Route{200, "#!/nonexistent/sh\n" + good.body}, true,
             "The installer could not be started.", major},
            {"installer too small", v("8.0.0.0"), Route{200, installer(kMinSize - 100)}, true, kFailed, major},
        };
        for (const auto &row : rows) {
            init();
            m_server.routes["/HalvernVideomend.txt"] = row.version;
            m_server.routes["/HalvernVideomend.exe"] = row.exe;
            m_server.routes["/moved.txt"] = Route{200, "7.5.0.0\n"};

            TestHost host;
            QString offered;
            QElapsedTimer clock;
            clock.start();
            const QString outcome = runCheck(host, row.manual, &offered);
            qInfo("%s: %s in %lld ms", row.tag, qPrintable(outcome.simplified().left(40)), clock.elapsed());
            QVERIFY2(outcome == row.outcome, row.tag);
            QVERIFY2(row.offer.isEmpty() ? offered.isEmpty() : offered.contains(row.offer), qPrintable(offered));
            QVERIFY(clock.elapsed() < 2 * update::limits.checkMs + 4 * update::limits.stallMs + 3000);

            // Only a started installer stays; nothing else appears in the temp folder.
            const QStringList kept = outcome == kInstalled ? QStringList{"HalvernVideomend.exe"} : QStringList();
            QCOMPARE(entries(folder()), kept);
            const QStringList temp = entries(QDir::tempPath());
            QVERIFY2(temp.isEmpty() || temp == QStringList{QFileInfo(folder()).fileName()}, qPrintable(temp.join(",")));
            if (outcome == kInstalled)
                QVERIFY(QFileInfo(folder() + "/HalvernVideomend.exe").isExecutable());
        }
    }

    void noNetworkOrNoAddressAsksNoServer()
    {
        m_server.routes["/HalvernVideomend.txt"] = Route{200, "8.0.0.0\n"};
        TestHost offline;
        offline.online = false;
        QCOMPARE(runCheck(offline, true, nullptr), QString(kQuiet)); // silent even when asked

        setLink("");
        TestHost fresh;
        QCOMPARE(runCheck(fresh, true, nullptr), QString(kNone));
        QCOMPARE(m_server.hits, QStringList());
        QVERIFY(!QFileInfo::exists(folder()));
    }

    void foreignFolderIsRefused()
    {
        // A link in the folder's place, or a folder others may enter.
        m_server.routes["/HalvernVideomend.txt"] = Route{200, "7.0.0.0\n"};
        const QString elsewhere = m_root + "/out/elsewhere";
        QDir().mkpath(elsewhere);
        QVERIFY(QFile::link(elsewhere, folder()));
        TestHost host;
        QCOMPARE(runCheck(host, true, nullptr), QString(kNone));
        QCOMPARE(m_server.hits, QStringList());
        QCOMPARE(entries(elsewhere), QStringList());
        update::RemoveUpdateFiles();
        QVERIFY(QFileInfo(folder()).isSymLink());
        QFile::remove(folder());

        QVERIFY(QDir().mkpath(folder()));
        QFile::setPermissions(folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther |
                                            QFile::ExeOther);
        QVERIFY(update::FolderIsOurs(folder(), true));
        QCOMPARE(QFileInfo(folder()).permissions() & (QFile::ReadOther | QFile::ExeOther), QFile::Permissions());
        QDir().rmdir(folder());
    }

    void windowButtonsSpeakAndRaise()
    {
        TestWindow w;
        DialogAnswerer answers;
        setLink("");
        w.onUpdateWizard();
        QCOMPARE(answers.seen, QStringList{"Update | No update available."});
        w.CheckForUpdate(false);
        QCOMPARE(answers.seen.size(), 1);

        // An offer already open is raised, not joined by another check.
        setLink(base());
        TestHost host;
        update::updState.bMinorUpdate = true;
        QShowUpdate offer(host, &w);
        offer.show();
        w.onUpdateWizard();
        QVERIFY(offer.isVisible());
        QCOMPARE(m_server.hits, QStringList());
        QCOMPARE(answers.seen.size(), 1);

        // Ending for the installer lets a save finish its copies first.
        const QString dest = m_root + "/out/saved";
        QDir().mkpath(dest);
        const QStringList sources = makeFiles(m_root + "/out/src", {"a.mp4", "b.mp4", "c.mp4"}, 8 << 20);
        QVERIFY(w.SavingThread().StartSaving(sources, dest));
        w.EndForUpdate();
        QVERIFY(!w.SavingThread().isRunning());
        for (const QString &name : entries(dest))
            QCOMPARE(QFileInfo(dest + "/" + name).size(), qint64(8 << 20));
        QCOMPARE(entries(dest).size(), 3);
    }
};

int main(int argc, char **argv)
{
    QTemporaryDir root;
    for (const char *sub : {"config", "tmp", "out", "runtime"})
        QDir().mkpath(root.path() + "/" + sub);
    QFile::setPermissions(root.path() + "/runtime", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(root.path() + "/runtime"));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(root.path() + "/config"));
    qputenv("TMPDIR", QFile::encodeName(root.path() + "/tmp"));
    QApplication app(argc, argv);
    shellApp.strAppDir = QStringLiteral(VM_SHELL_DIR);
    TestUpdate tc(root.path());
    return QTest::qExec(&tc, argc, argv);
}

#include "tst_update.moc"
