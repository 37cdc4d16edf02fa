#pragma once
// Helpers of the window tests: a private settings store, a window whose run
// start and free space can be replaced, and an answerer for modal dialogs.

#include "Dialogs.h"
#include "Startup.h"
#include "VideoRepairWindow.h"
#include "repair/WorkFolder.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPushButton>
#include <QSemaphore>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>
#include <atomic>
#include <functional>

// The settings store and the translation folder must be set before the
// application object exists, so these tests bring their own main.
#define VM_SHELL_TEST_MAIN(TestClass)                                     \
    int main(int argc, char **argv)                                       \
    {                                                                     \
        QTemporaryDir configHome;                                         \
        qputenv("XDG_CONFIG_HOME", configHome.path().toUtf8());           \
        QApplication app(argc, argv);                                     \
        shellApp.strAppDir = QStringLiteral(VM_SHELL_DIR);                \
        TestClass tc;                                                     \
        return QTest::qExec(&tc, argc, argv);                             \
    }

// A window whose runs are recorded, and optionally really started.
class TestWindow : public VideoRepairWindow
{
public:
    struct Run { QStringList list; bool sample; };
    QList<Run> runs;
    bool realRun = false;
    qint64 freeBytes = -1; // -1: ask the volume

protected:
    void StartRun(const QStringList &list, bool sampleRun) override
    {
        runs << Run{list, sampleRun};
        if (realRun)
            VideoRepairWindow::StartRun(list, sampleRun);
    }
    qint64 BytesAvailable(const QString &rootPath) const override
    {
        return freeBytes >= 0 ? freeBytes : VideoRepairWindow::BytesAvailable(rootPath);
    }
};

// Answers every modal dialog that comes up, in order: the next queued
// answer, else the OK or Yes button. Keeps "title | text" of each.
class DialogAnswerer : public QObject
{
public:
    using Answer = std::function<void(QWidget *)>;
    QStringList seen;

    DialogAnswerer()
    {
        connect(&m_timer, &QTimer::timeout, this, &DialogAnswerer::poll);
        m_timer.start(10);
    }
    void queue(const Answer &a) { m_answers << a; }
    void queueButton(const QString &objectName) { queue([objectName](QWidget *d) { click(d, objectName); }); }
    static void click(QWidget *dialog, const QString &objectName)
    {
        if (auto *b = dialog->findChild<QPushButton *>(objectName))
            b->click();
        else
            QFAIL(qPrintable("no button " + objectName));
    }
    static QString describe(QWidget *w)
    {
        if (auto *p = qobject_cast<PromptDialog *>(w))
            return p->Title() + " | " + p->Text();
        if (auto *f = qobject_cast<repairFinishDialog *>(w))
            return f->TitleLabl->text() + " | " + f->TextLabl->text();
        if (auto *s = qobject_cast<InsufficientSpaceDlg *>(w))
            return s->TitleLabl->text() + " | " + s->label->text() + s->label_4->text() + s->repairedLabl->text();
        return w->metaObject()->className();
    }

private:
    void poll()
    {
        QWidget *w = QApplication::activeModalWidget();
        // The stop question is window-modal and answered by the tests themselves.
        if (!w || !w->isVisible() || w == m_last || qobject_cast<StopDlg *>(w))
            return;
        m_last = w;
        seen << describe(w);
        const Answer a = m_answers.isEmpty() ? Answer() : m_answers.takeFirst();
        QTimer::singleShot(0, w, [w, a] {
            if (a)
                a(w);
            else if (w->findChild<QPushButton *>("OkBtn") && w->findChild<QPushButton *>("OkBtn")->isVisible())
                click(w, "OkBtn");
            else
                click(w, "YesBtn");
        });
        // The same dialog object may come again later; forget it once hidden.
        QTimer::singleShot(50, this, [this] { m_last = nullptr; });
    }

    QTimer m_timer;
    QList<Answer> m_answers;
    QWidget *m_last = nullptr;
};

// The texts of column `c`, row by row.
inline QStringList column(QTreeWidget *list, int c)
{
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->text(c);
    return out;
}

// Every name in `folder`, hidden ones included, sorted.
inline QStringList entries(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

inline void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(f.write(bytes), qint64(bytes.size()));
}

// Files of `size` bytes under `folder`, sub-folders made as needed; their paths.
inline QStringList makeFiles(const QString &folder, const QStringList &names, qint64 size = 100)
{
    QStringList paths;
    for (const QString &n : names) {
        paths << folder + "/" + n;
        QDir().mkpath(QFileInfo(paths.last()).path());
        writeBytes(paths.last(), QByteArray(int(size), 'x'));
    }
    return paths;
}

// Keeps the thread that first emits `signal` waiting until `release` is
// released; `held` says when it waits.
template <typename Sender, typename Signal>
void holdFirst(Sender *sender, Signal signal, QSemaphore &release, std::atomic<bool> &held)
{
    auto wait = [&release, &held] {
        if (!held.exchange(true))
            release.acquire();
    };
    QObject::connect(sender, signal, sender, wait, Qt::DirectConnection);
}

// A finished run by hand: every source repaired, its result written after the
// run noted its folders (so that the result counts as the program's work).
inline void finishedRun(TestWindow &w, DialogAnswerer &answers, const QStringList &sources)
{
    w.AddFiles(sources);
    w.OnRepairMOVFiles();
    for (int i = 0; i < w.pRepairList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = w.pRepairList->topLevelItem(i);
        QString out = item->text(1);
        if (out.endsWith(".DAT"))
            out = out.left(out.size() - 4) + ".mov";
        if (out.endsWith(".RSV"))
            out = out.left(out.size() - 4) + ".mp4";
        QDir().mkpath(QFileInfo(out).path());
        writeBytes(out, QByteArray(4096 + i, char('a' + i)));
        workfolder::MarkHidden(QFileInfo(QFileInfo(out).path()).path());
        Q_EMIT w.RepairThread().WriteProcessingStatus(item->text(0));
        Q_EMIT w.RepairThread().WriteStatus(true, false, item->text(0), false);
    }
    Q_EMIT w.RepairThread().RepairFinish();
    answers.seen.clear();
}

