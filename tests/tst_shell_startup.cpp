// Start-up of the window: settings, scale, single instance, languages, help.

#include "Languages.h"
#include "repair/RepairState.h"
#include "shell_support.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QProcess>
#include <QProcessEnvironment>

class TestShellStartup : public QObject
{
    Q_OBJECT

    static void resetSettings()
    {
        auto s = startup::OpenSettings();
        s->clear();
        s->sync();
    }

    static QAction *languageAction(QMenu *menu, int n)
    {
        for (QAction *a : menu->actions())
            if (a->data().toInt() == n)
                return a;
        return nullptr;
    }

    static QProcess *startProgram(QObject *parent)
    {
        auto *p = new QProcess(parent);
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("QT_QPA_PLATFORM", "offscreen");
        env.insert("VIDEOMEND_NOTICE_TIMEOUT_MS", "100");
        env.insert("ASAN_OPTIONS", "detect_leaks=0");
        p->setProcessEnvironment(env);
        p->start(QStringLiteral(VM_VIDEOMEND_PATH), QStringList());
        return p;
    }

    static bool waitForStarted(QProcess *p)
    {
        QElapsedTimer clock;
        clock.start();
        QByteArray err;
        while (clock.elapsed() < 60000 && p->state() != QProcess::NotRunning) {
            p->waitForReadyRead(200);
            err += p->readAllStandardError();
            if (err.contains("Application started successfully."))
                return true;
        }
        return false;
    }

private Q_SLOTS:
    void init()
    {
        pApp.reset();
        resetSettings();
        shellApp.fDpiScale = 1.0f;
        shellApp.strAppDir = VM_SHELL_DIR;
        languages::Install(-1, QString());
    }

    void scaleSteps()
    {
        using startup::NextLowerScale;
        QCOMPARE(NextLowerScale(0.0f), 1.0f);
        QCOMPARE(NextLowerScale(1.1f), 1.0f);
        QCOMPARE(NextLowerScale(1.25f), 1.0f);
        QCOMPARE(NextLowerScale(1.3f), 1.25f);
        QCOMPARE(NextLowerScale(2.0f), 1.75f);
        QCOMPARE(NextLowerScale(5.0f), 4.75f);
        QCOMPARE(NextLowerScale(5.1f), 0.0f);
        QCOMPARE(NextLowerScale(0.9f), 0.0f);

        // dpi scale, work area -> scale that is kept
        struct Row { float dpi; int w, h; float expected; };
        const Row rows[] = {
            {2.0f, 1280, 720, 1.0f},     // 2.0, 1.75, 1.5 don't fit; 1.25 needs 750
            {1.25f, 1280, 750, 1.25f},
            {1.5f, 1920, 1040, 1.5f},
            {2.0f, 3840, 2100, 2.0f},
            {1.1f, 1920, 1080, 1.1f},    // a step of its own is kept when it fits
            {0.9f, 1920, 1080, 0.9f},    // under 96 DPI a fitting scale stays
            {6.0f, 8000, 8000, 6.0f},
            {6.0f, 1920, 1080, 1.0f},    // past the table and too big: 1
            {1.0f, 640, 480, 1.0f},      // never below 1
        };
        for (const Row &r : rows)
            QCOMPARE(startup::FitScale(r.dpi, r.w, r.h), r.expected);
    }

    void settingsAndScaleOfTheWindow()
    {
        // A fresh store gets ResizeAppforDPI 1, in the native user store.
        QVERIFY(startup::ReadResizeAppforDpi());
        const QString file = startup::OpenSettings()->fileName();
        QVERIFY2(file.startsWith(qEnvironmentVariable("XDG_CONFIG_HOME")), qPrintable(file));
        QVERIFY(file.contains("Halvern Works"));
        QCOMPARE(startup::OpenSettings()->value("ResizeAppforDPI").toInt(), 1);
        QCOMPARE(startup::OpenSettings()->allKeys(), QStringList{"ResizeAppforDPI"});

        // With it on, every design length follows the scale, truncated.
        shellApp.fDpiScale = 1.25f;
        {
            VideoRepairWindow w;
            QCOMPARE(w.fScale, 1.25f);
            QCOMPARE(w.size(), QSize(1062, 750));
            QCOMPARE(w.RepairBtn->geometry(), QRect(858, 662, 175, 50));
            QCOMPARE(w.pFileList->geometry(), QRect(27, 250, 1006, 306));
            QCOMPARE(w.pStopDlg->fScale, 1.25f);
            QCOMPARE(w.pRepairFinishDlg->size(), QSize(622, 217));
        }

        // Off: the fixed Qt environment and a scale of 1 everywhere.
        startup::OpenSettings()->setValue("ResizeAppforDPI", 0);
        QVERIFY(!startup::ReadResizeAppforDpi());
        startup::SetFixedQtEnvironment();
        QCOMPARE(qgetenv("QT_FONT_DPI"), QByteArray("102"));
        QCOMPARE(qgetenv("QT_SCALE_FACTOR"), QByteArray("1"));
        QCOMPARE(qgetenv("QT_AUTO_SCREEN_SCALE_FACTOR"), QByteArray("0"));
        shellApp.fDpiScale = 2.0f;
        VideoRepairWindow w;
        QCOMPARE(w.fScale, 1.0f);
        QCOMPARE(w.size(), QSize(850, 600));
        QCOMPARE(startup::DialogScale(), 1.0f);
        QCOMPARE(w.windowFlags(), Qt::WindowFlags(0x2000801));
        qunsetenv("QT_FONT_DPI");
        qunsetenv("QT_SCALE_FACTOR");
        qunsetenv("QT_AUTO_SCREEN_SCALE_FACTOR");
    }

    void secondInstanceAndCrashedFirst()
    {
        const QString key = startup::SingleInstance::UserKey();
        QVERIFY(key.startsWith("62d60669-bb94-4a94-88bb-b964890a7e10-"));
        startup::SingleInstance::ClearStale(key);

        QProcess *first = startProgram(this);
        QVERIFY2(waitForStarted(first), "first instance did not start");

        QProcess *second = startProgram(this);
        QVERIFY(second->waitForFinished(60000));
        QCOMPARE(second->exitStatus(), QProcess::NormalExit);
        QCOMPARE(second->exitCode(), 0);
        QVERIFY(second->readAllStandardError().contains("Halvern Videomend is already running."));

        // Killed without a chance to clean up: the segment stays behind.
        first->kill();
        QVERIFY(first->waitForFinished(10000));

        QProcess *third = startProgram(this);
        QVERIFY2(waitForStarted(third), "a start after a crash was refused");
        QTest::qWait(300);
        QCOMPARE(third->state(), QProcess::Running);
        third->kill();
        third->waitForFinished(10000);
        startup::SingleInstance::ClearStale(key);
    }

    void languageSwitchChangesBothPages()
    {
        TestWindow w;
        DialogAnswerer answers;
        QCOMPARE(w.label_5->text(), QString("Add Your Corrupt Videos to Repair"));
        QCOMPARE(w.pFileList->columnWidth(0), 180);

        // Put a row on the results page that waits for a sample.
        QTemporaryDir dir;
        writeFile(dir.filePath("clip.mov"), 10);
        w.AddFiles({dir.filePath("clip.mov")});
        w.OnRepairMOVFiles();
        QCOMPARE(w.runs.size(), 1);
        Q_EMIT w.RepairThread().WriteProcessingStatus("clip.mov");
        Q_EMIT w.RepairThread().WriteStatus(false, false, "clip.mov", false);
        QTreeWidgetItem *row = w.pRepairList->topLevelItem(0);
        QCOMPARE(row->text(8), QString("Awaiting Action"));

        // German from the second page's menu.
        QAction *german = languageAction(w.pLanguageMenu2, 1);
        QVERIFY(german);
        german->trigger();
        QCOMPARE(startup::OpenSettings()->value("LanguageType").toInt(), 1);
        QVERIFY(german->isChecked());
        QVERIFY(languageAction(w.pLanguageMenu, 1)->isChecked());
        QVERIFY(!languageAction(w.pLanguageMenu, 0)->isChecked());
        QCOMPARE(w.label_5->text(), QString("Beschädigte Videos zur Reparatur hinzufügen"));
        QCOMPARE(w.RepairBtn->text(), QString("Reparieren"));
        QCOMPARE(w.stringLabl->text(), QString("Ausgewählte Videos werden repariert"));
        QCOMPARE(w.saveBtn->text(), QString("Reparierte Dateien speichern"));
        QCOMPARE(w.pFileList->headerItem()->text(0), QString(" Dateiname"));
        QCOMPARE(w.pRepairList->headerItem()->text(8), QString(" Status"));
        QCOMPARE(w.pRepairList->headerItem()->text(9), QString(" Aktion"));
        QCOMPARE(row->text(8), QString("Aktion nötig"));
        QCOMPARE(w.lstRowButtons.first()->pButton->text(), QString("Erw. Reparatur"));
        QCOMPARE(w.pFileList->columnWidth(2), 110);
        QCOMPARE(w.pRepairList->columnWidth(8), 120);
        QCOMPARE(w.lstRowButtons.first()->pButton->width(), 100);
        // The hidden state columns are untouched.
        QCOMPARE(row->text(11), QString("0"));

        // And back to English from the first page's menu.
        languageAction(w.pLanguageMenu, 0)->trigger();
        QCOMPARE(startup::OpenSettings()->value("LanguageType").toInt(), 0);
        QCOMPARE(w.label_5->text(), QString("Add Your Corrupt Videos to Repair"));
        QCOMPARE(row->text(8), QString("Awaiting Action"));
        QCOMPARE(w.lstRowButtons.first()->pButton->text(), QString("Advance Repair"));
        QCOMPARE(w.pFileList->columnWidth(2), 70);
        QCOMPARE(w.pRepairList->columnWidth(8), 110);
        QCOMPARE(w.lstRowButtons.first()->pButton->width(), 110);
    }

    void languageOutsideTheTableOrWithoutFiles()
    {
        // 11: no translator, no widths.
        startup::WriteLanguage(11);
        shellApp.nLanguage = 11;
        QVERIFY(!languages::Install(11, shellApp.strAppDir));
        {
            VideoRepairWindow w;
            QCOMPARE(w.label_5->text(), QString("Add Your Corrupt Videos to Repair"));
            QCOMPARE(w.pFileList->headerItem()->text(0), QString(" File Name"));
            QVERIFY(w.pFileList->columnWidth(0) != 180);
            QCOMPARE(w.pFileList->columnWidth(0), w.pFileList->header()->defaultSectionSize());
        }

        // German chosen, but its files are missing: English texts, German widths.
        startup::WriteLanguage(0);
        QTemporaryDir empty;
        shellApp.strAppDir = empty.path();
        VideoRepairWindow w;
        languageAction(w.pLanguageMenu, 1)->trigger();
        QCOMPARE(startup::OpenSettings()->value("LanguageType").toInt(), 1);
        QCOMPARE(w.label_5->text(), QString("Add Your Corrupt Videos to Repair"));
        QCOMPARE(w.pFileList->columnWidth(0), 160);
        shellApp.strAppDir = VM_SHELL_DIR;
    }

    void helpPagesShipFollowTheState()
    {
        TestWindow w;
        DialogAnswerer answers;
        auto page = [&] { return QFileInfo(w.HelpPagePath()); };
        QCOMPARE(page().fileName(), QString("about.html"));
        QVERIFY(page().isFile());
        QTemporaryDir dir;
        writeFile(dir.filePath("a.mov"), 10);
        w.AddFiles({dir.filePath("a.mov")});
        QCOMPARE(page().fileName(), QString("adding-files.html"));
        QVERIFY(page().isFile());
        w.OnRepairMOVFiles();
        QCOMPARE(page().fileName(), QString("repairing.html"));
        QVERIFY(page().isFile());
        // A language without pages of its own falls back to English.
        languageAction(w.pLanguageMenu, 10)->trigger();
        QVERIFY(page().isFile());
        languageAction(w.pLanguageMenu, 0)->trigger();
    }
};

VM_SHELL_TEST_MAIN(TestShellStartup)
#include "tst_shell_startup.moc"
