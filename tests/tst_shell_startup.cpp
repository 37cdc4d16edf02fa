// Start-up of the window: settings, scale, files given to it, single instance, languages, help.

#include "Languages.h"
#include "SingleInstance.h"
#include "repair/RepairState.h"
#include "shell_support.h"

#include <QAction>
#include <QLocalServer>
#include <QMenu>
#include <QProcess>
#include <QProcessEnvironment>

class TestShellStartup : public QObject
{
    Q_OBJECT

    static QAction *languageAction(QMenu *menu, int n)
    {
        for (QAction *a : menu->actions())
            if (a->data().toInt() == n)
                return a;
        return nullptr;
    }

    // Starts the program; what it wrote to stderr until it was up or gone.
    static QByteArray startProgram(QProcess *p, const QStringList &files = {})
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("QT_QPA_PLATFORM", "offscreen");
        env.insert("ASAN_OPTIONS", "detect_leaks=0");
        p->setProcessEnvironment(env);
        p->start(QStringLiteral(VM_VIDEOMEND_PATH), files);
        QElapsedTimer clock;
        clock.start();
        QByteArray err;
        while (clock.elapsed() < 60000 && p->state() != QProcess::NotRunning && !err.contains(kUp)) {
            p->waitForReadyRead(200);
            err += p->readAllStandardError();
        }
        return err + p->readAllStandardError();
    }
    static constexpr char kUp[] = "Application started successfully.";

private Q_SLOTS:
    void init()
    {
        pApp.reset();
        startup::OpenSettings()->clear();
        shellApp.fDpiScale = 1.0f;
        shellApp.strAppDir = VM_SHELL_DIR;
        languages::Install(-1, QString());
    }

    void fitScale()
    {
        // Screen scale, screen size and the scale kept: the largest step (or
        // off-step scale) whose window fits, else 1.
        const struct { float dpi; int width, height; float kept; } rows[] = {
            {2.0f, 1280, 720, 1.0f}, {1.25f, 1280, 750, 1.25f}, {2.0f, 3840, 2100, 2.0f}, {1.1f, 1920, 1080, 1.1f},
            {0.9f, 1920, 1080, 0.9f}, {0.9f, 640, 480, 1.0f}, {6.0f, 8000, 8000, 6.0f}, {6.0f, 1920, 1080, 1.0f},
        };
        for (const auto &r : rows)
            QCOMPARE(startup::FitScale(r.dpi, r.width, r.height), r.kept);
    }

    void settingsAndScaleOfTheWindow()
    {
        // A fresh store gets ResizeAppforDPI 1, in the user's config folder.
        QVERIFY(startup::ReadResizeAppforDpi());
        const auto s = startup::OpenSettings();
        QVERIFY2(s->fileName().startsWith(qEnvironmentVariable("XDG_CONFIG_HOME")), qPrintable(s->fileName()));
        QCOMPARE(s->allKeys(), QStringList{"ResizeAppforDPI"});
        QCOMPARE(s->value("ResizeAppforDPI").toInt(), 1);

        // Off, a scale of 1 everywhere, whatever the screen says.
        s->setValue("ResizeAppforDPI", 0);
        QVERIFY(!startup::ReadResizeAppforDpi());
        shellApp.fDpiScale = 2.0f;
        QCOMPARE(startup::DialogScale(), 1.0f);
    }

    void secondInstanceAndCrashedFirst()
    {
        const QString name = SingleInstance::UserServerName();
        QLocalServer::removeServer(name);
        QTemporaryDir dir;
        QProcess first, second, third;
        QVERIFY2(startProgram(&first).contains(kUp), "first instance did not start");
        QVERIFY(startProgram(&second, makeFiles(dir.path(), {"clip.mp4"})).contains("already running"));
        QVERIFY(second.state() == QProcess::NotRunning || second.waitForFinished(60000));
        QVERIFY(second.exitStatus() == QProcess::NormalExit && second.exitCode() == 0);

        // Killed without a chance to clean up: the socket file stays behind,
        // and must not keep the next start out.
        first.kill();
        QVERIFY(first.waitForFinished(10000));
        QVERIFY2(startProgram(&third).contains(kUp), "a start after a crash was refused");
        QTest::qWait(300);
        QCOMPARE(third.state(), QProcess::Running);
        third.kill();
        third.waitForFinished(10000);
        QLocalServer::removeServer(name);
    }

    void filesFromTheCommandLineAndLaterStarts()
    {
        // Names as a launcher gives them: relative, absolute with a space, as a URL.
        QTemporaryDir dir;
        const QStringList files = makeFiles(dir.path(), {"a.mp4", "b c.mov", "d.mkv", "e.avi"});
        TestWindow w;
        DialogAnswerer answers;
        w.TakeFiles(startup::FileArguments({"videomend", "a.mp4", files[1], QUrl::fromLocalFile(files[2]).toString()},
                                           dir.path()));
        QCOMPARE(column(w.pFileList, VideoRepairWindow::fcFullPath), files.mid(0, 3));

        // A later start hands its files to the first; one already listed is skipped.
        const QString name = QStringLiteral("vm-test-%1").arg(QCoreApplication::applicationPid());
        SingleInstance first(name), second(name);
        QCOMPARE(first.Start({}), SingleInstance::Role::First);
        connect(&first, &SingleInstance::FilesReceived, &w, &VideoRepairWindow::TakeFiles);
        QCOMPARE(second.Start({files[3], files[0]}), SingleInstance::Role::Handed);
        QCOMPARE(column(w.pFileList, VideoRepairWindow::fcFullPath), files);
        QCOMPARE(answers.seen.size(), 1); // "already added"
    }

    void languageSwitchChangesBothPages()
    {
        TestWindow w;
        DialogAnswerer answers;
        QTemporaryDir dir;
        w.AddFiles(makeFiles(dir.path(), {"clip.mov"}));
        w.OnRepairMOVFiles();
        Q_EMIT w.RepairThread().WriteProcessingStatus("clip.mov");
        Q_EMIT w.RepairThread().WriteStatus(false, false, "clip.mov", false);
        QTreeWidgetItem *row = w.pRepairList->topLevelItem(0);
        auto texts = [&] { return QStringList{w.label_5->text(), row->text(8)}; };
        const QStringList english = texts();

        // German from the second page's menu: stored, and the texts of both
        // pages change, the rows' included, while each row keeps its state.
        languageAction(w.pLanguageMenu2, 1)->trigger();
        QCOMPARE(startup::OpenSettings()->value("LanguageType").toInt(), 1);
        QCOMPARE(texts(), (QStringList{"Beschädigte Videos zur Reparatur hinzufügen", "Aktion nötig"}));
        QCOMPARE(row->text(11), QString("0"));

        // Back to English from the first page's menu; German again with its
        // files missing: the choice is kept, the texts stay English.
        languageAction(w.pLanguageMenu, 0)->trigger();
        QCOMPARE(texts(), english);
        QTemporaryDir empty;
        shellApp.strAppDir = empty.path();
        languageAction(w.pLanguageMenu, 1)->trigger();
        QCOMPARE(startup::OpenSettings()->value("LanguageType").toInt(), 1);
        QCOMPARE(texts(), english);
    }

    void languageOutsideTheTable()
    {
        // 11, as a damaged settings file may hold: no translator, English.
        const QString english = VideoRepairWindow().label_5->text();
        startup::WriteLanguage(11);
        shellApp.nLanguage = 11;
        QVERIFY(!languages::Install(11, shellApp.strAppDir));
        QCOMPARE(VideoRepairWindow().label_5->text(), english);
    }

    void helpPagesShip()
    {
        // A page for each state; a language without pages of its own falls back to English.
        TestWindow w;
        DialogAnswerer answers;
        QTemporaryDir dir;
        w.AddFiles(makeFiles(dir.path(), {"a.mov"}));
        w.OnRepairMOVFiles();
        for (int language : {0, 10}) {
            languageAction(w.pLanguageMenu, language)->trigger();
            QVERIFY2(QFileInfo(w.HelpPagePath()).isFile(), qPrintable(w.HelpPagePath()));
        }
        languageAction(w.pLanguageMenu, 0)->trigger();
    }
};

VM_SHELL_TEST_MAIN(TestShellStartup)
#include "tst_shell_startup.moc"