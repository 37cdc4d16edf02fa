// The way from "Advance Repair" to a run with a sample: both dialogs,
// samples that are no use and one that is, and the files that share a sample.

#include "repair/RepairState.h"
#include "shell_support.h"
#include "support/Fixtures.h"

#include <QCheckBox>
#include <QTextEdit>

using fixtures::digest;

namespace {
// Clicks "Advance Repair" of the first row: Next, then `inChoice` on the sample dialog.
void throughChain(TestWindow &w, DialogAnswerer &answers, const std::function<void(ReferenceFileDlg *)> &inChoice)
{
    answers.queueButton("NextBtn");
    answers.queue([inChoice](QWidget *d) {
        auto *ref = qobject_cast<ReferenceFileDlg *>(d);
        QVERIFY2(ref, qPrintable(DialogAnswerer::describe(d)));
        inChoice(ref);
    });
    Q_EMIT w.lstRowButtons.at(0)->pButton->MousePressed(w.lstRowButtons.at(0)->nID);
}

bool waitForRun(TestWindow &w, DialogAnswerer &answers)
{
    return QTest::qWaitFor(
        [&] { return !answers.seen.filter("Repair Complete").isEmpty() && w.RepairThread().isFinished(); }, 120000);
}
} // namespace

class TestShellSample : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { pApp.reset(); startup::OpenSettings()->clear(); }

    void cancelledUselessAndGoodSamples()
    {
        VM_FIXTURE(healthy, fixtures::healthy("carve_aac48.mov"));
        VM_FIXTURE(damaged, fixtures::moovRemoved(healthy));
        VM_FIXTURE(sampleSrc, fixtures::healthy("carve_aac48_sample.mov"));
        VM_FIXTURE(otherKind, fixtures::healthy("h264_aac.ts"));
        QTemporaryDir dir;
        const QString clip = dir.filePath("clip.mov");
        const QString sample = dir.filePath("sample.mov");
        QVERIFY(QFile::copy(damaged, clip));
        QVERIFY(QFile::copy(sampleSrc, sample));
        QByteArray noise;
        for (int i = 0; i < 4096; ++i)
            noise += QByteArray::number(quint32(QRandomGenerator::global()->generate()), 16);
        writeBytes(dir.filePath("noise.mov"), noise);
        writeBytes(dir.filePath("text.mp4"), "not a video at all\n");
        makeFiles(dir.path(), {"empty.mov"}, 0);
        makeFiles(dir.path(), {"gone.mov"}, 5000); // removed once chosen
        QDir(dir.path()).mkdir("folder.mov");
        QVERIFY(QFile::copy(otherKind, dir.filePath("other.ts")));
        QMap<QString, QByteArray> before;
        for (const char *n : {"clip.mov", "sample.mov", "text.mp4", "noise.mov", "empty.mov", "gone.mov",
                              "folder.mov", "other.ts"})
            before[dir.filePath(n)] = digest(dir.filePath(n));

        TestWindow w;
        w.realRun = true;
        w.show();
        DialogAnswerer answers;
        w.AddFiles({clip});
        w.RepairBtn->click();
        QVERIFY(waitForRun(w, answers));
        answers.seen.clear();
        QCOMPARE(column(w.pRepairList, 8), QStringList{"Awaiting Action"});
        const int runs = w.runs.size();

        // Cancel on the first page: nothing runs.
        answers.queueButton("cancle");
        Q_EMIT w.lstRowButtons.at(0)->pButton->MousePressed(0);
        QCOMPARE(w.strFailedFilePath, clip);
        QCOMPARE(w.runs.size(), runs);

        // Cancel on the second page, after a cancelled file dialog and a sample.
        throughChain(w, answers, [sample](ReferenceFileDlg *ref) {
            ref->ChooseSample(QString());
            ref->ChooseSample(sample);
            ref->cancle->click();
        });
        QCOMPARE(w.runs.size(), runs);

        // Samples of no use: the run ends, and the row waits again for another.
        for (const char *n : {"text.mp4", "noise.mov", "empty.mov", "gone.mov", "folder.mov", "other.ts"}) {
            const QString s = dir.filePath(n);
            throughChain(w, answers, [s](ReferenceFileDlg *ref) {
                ref->ChooseSample(s);
                if (s.endsWith("gone.mov"))
                    QFile::remove(s);
                ref->RefRepairBtn->click();
            });
            QVERIFY2(waitForRun(w, answers), n);
            answers.seen.clear();
            QVERIFY2(column(w.pRepairList, 8) == QStringList{"Awaiting Action"}, n);
        }
        QCOMPARE(w.runs.size(), runs + 6);

        // Each opening starts cleared; a good sample repairs the clip.
        throughChain(w, answers, [sample](ReferenceFileDlg *ref) {
            ref->ChooseSample(sample);
            ref->RefRepairBtn->click();
        });
        QCOMPARE(w.runs.last().list, QStringList{clip});
        QVERIFY(w.runs.last().sample);
        QVERIFY(waitForRun(w, answers));
        QCOMPARE(column(w.pRepairList, 8), QStringList{"Completed"});

        // Neither the clip nor any sample was written to.
        for (auto it = before.cbegin(); it != before.cend(); ++it)
            if (QFileInfo(it.key()).isFile())
                QCOMPARE(digest(it.key()), it.value());
    }

    void samplesOfTheSameFormat()
    {
        QTemporaryDir dir;
        const QStringList sources =
            makeFiles(dir.path(), {"a.mov", "b.MOV", "c.mp4", "d.rsv", "e.RSV", "f.avi", "g.mov"});
        TestWindow w;
        DialogAnswerer answers;
        w.AddFiles(sources);
        w.OnRepairMOVFiles();
        // All wait for a sample but the last.
        for (int i = 0; i < sources.size(); ++i)
            w.pRepairList->topLevelItem(i)->setText(11, i + 1 < sources.size() ? "0" : "1");

        ReferenceFileDlg *ref = w.pReferenceFileDlg;
        auto pick = [&](const QString &sampleName, bool on) {
            ref->ChooseSample(dir.filePath(sampleName));
            ref->refe_CheckBox->setChecked(on);
            w.OnRefe_CheckBoxClicked();
            QStringList out;
            for (const QString &p : w.lstSameFormat)
                out << QFileInfo(p).fileName();
            return out;
        };
        QCOMPARE(pick("s.mov", true), (QStringList{"a.mov", "b.MOV", "d.rsv", "e.RSV"}));
        QVERIFY(w.bApplyToAll);
        QCOMPARE(pick("s.MP4", true), (QStringList{"c.mp4", "d.rsv", "e.RSV"}));
        QCOMPARE(pick("s.rsv", true), (QStringList{"d.rsv", "e.RSV"}));
        QCOMPARE(pick("s.AVI", false), QStringList{"f.avi"});
        QVERIFY(!w.bApplyToAll);
        QCOMPARE(pick("s.mkv", true), QStringList());

        // The box on and nothing of the sample's format: results at once.
        answers.seen.clear();
        w.OnRepairRefrenceFile();
        QCOMPARE(w.runs.size(), 1);
        QCOMPARE(answers.seen.filter("Repair Complete").size(), 1);
    }

};

VM_SHELL_TEST_MAIN(TestShellSample)
#include "tst_shell_sample.moc"
