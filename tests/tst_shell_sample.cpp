// The way from "Advance Repair" to a run with a sample: both dialogs, the
// files that share a sample, and samples that are no use.

#include "repair/RepairState.h"
#include "shell_support.h"
#include "support/Fixtures.h"

#include <QCheckBox>
#include <QCryptographicHash>
#include <QDesktopServices>
#include <QTextEdit>
#include <QUrl>

using fixtures::digest;

namespace {
QStringList column(QTreeWidget *list, int c)
{
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->text(c);
    return out;
}

// Runs a first real run of `files` and waits for its end.
bool firstRun(TestWindow &w, DialogAnswerer &answers, const QStringList &files)
{
    w.AddFiles(files);
    w.RepairBtn->click();
    if (!QTest::qWaitFor([&] { return !answers.seen.isEmpty() && w.RepairThread().isFinished(); }, 120000))
        return false;
    answers.seen.clear();
    return true;
}

// Clicks "Advance Repair" of row `row`, answers both dialogs with `inChoice`.
void throughChain(TestWindow &w, DialogAnswerer &answers, int row,
                  const std::function<void(ReferenceFileDlg *)> &inChoice)
{
    answers.queue([](QWidget *d) {
        auto *adv = qobject_cast<AdvancedRepairDlg *>(d);
        QVERIFY2(adv, qPrintable(DialogAnswerer::describe(d)));
        adv->NextBtn->click();
    });
    answers.queue([inChoice](QWidget *d) {
        auto *ref = qobject_cast<ReferenceFileDlg *>(d);
        QVERIFY(ref);
        inChoice(ref);
    });
    Q_EMIT w.lstRowButtons.at(row)->pButton->MousePressed(w.lstRowButtons.at(row)->nID);
}
} // namespace

class TestShellSample : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> opened;

public Q_SLOTS:
    void openUrl(const QUrl &url) { opened << url; }

private Q_SLOTS:
    void init()
    {
        pApp.reset();
        startup::OpenSettings()->clear();
    }

    void chainAndRealSampleRun()
    {
        VM_FIXTURE(healthy, fixtures::healthy("carve_aac48.mov"));
        VM_FIXTURE(damaged, fixtures::moovRemoved(healthy));
        VM_FIXTURE(sampleSrc, fixtures::healthy("carve_aac48_sample.mov"));
        QTemporaryDir dir;
        const QString clip = dir.filePath("clip.mov");
        const QString sample = dir.filePath("sample.mov");
        QVERIFY(QFile::copy(damaged, clip));
        QVERIFY(QFile::copy(sampleSrc, sample));
        const QByteArray clipBefore = digest(clip), sampleBefore = digest(sample);

        TestWindow w;
        w.realRun = true;
        w.show();
        DialogAnswerer answers;
        QVERIFY(firstRun(w, answers, {clip}));
        QCOMPARE(column(w.pRepairList, 8), QStringList{"Awaiting Action"});

        // Cancel on the first page: nothing runs.
        answers.queue([](QWidget *d) {
            auto *adv = qobject_cast<AdvancedRepairDlg *>(d);
            QVERIFY(adv);
            QVERIFY(adv->windowFlags().testFlag(Qt::SplashScreen));
            QCOMPARE(adv->TitleLabl->text(), QString("Add Sample Video"));
            QVERIFY(adv->String_label->text().contains("<b>Advance Repair</b>"));
            QVERIFY(adv->String_label->text().contains("Click &quot;Next&quot; to add a 'sample video' of the same "
                                                        "format, shot using the same device."));
            QVERIFY(adv->String_label->text().contains(
                "The sample and the damaged video remain unchanged during repair process."));
            QCOMPARE(adv->NextBtn->text(), QString("Next"));
            QCOMPARE(adv->LearnMoreLink->text(), QString("Learn More"));
            QCOMPARE(adv->size(), QSize(510, 275));
            adv->cancle->click();
        });
        const int runs = w.runs.size();
        Q_EMIT w.lstRowButtons.at(0)->pButton->MousePressed(0);
        QCOMPARE(w.strFailedFilePath, clip);
        QCOMPARE(w.strFailedFileName, QString("clip.mov"));
        QCOMPARE(w.runs.size(), runs);

        // Cancel on the second page, after a cancelled file dialog and a sample.
        throughChain(w, answers, 0, [sample](ReferenceFileDlg *ref) {
            QCOMPARE(ref->TitleLabl->text(), QString("Choose Video"));
            QCOMPARE(ref->String_label->text(), QString("Add a sample video:"));
            QCOMPARE(ref->refe_CheckBox->text(), QString("Apply to all files of same format."));
            QCOMPARE(ref->size(), QSize(514, 232));
            QVERIFY(!ref->RefRepairBtn->isEnabled());
            QVERIFY(!ref->refe_CheckBox->isEnabled());
            ref->ChooseSample(QString());
            QVERIFY(!ref->RefRepairBtn->isEnabled());
            ref->ChooseSample(sample);
            QCOMPARE(ref->RefPath_Edit->toPlainText(), sample);
            QVERIFY(ref->RefRepairBtn->isEnabled());
            QVERIFY(ref->refe_CheckBox->isEnabled());
            ref->cancle->click();
        });
        QCOMPARE(w.runs.size(), runs);
        QCOMPARE(pApp.strSampleFile, sample); // kept after a cancel

        // Each opening starts cleared; Repair starts the real second run.
        QSignalSpy disabled(&w.RepairThread(), &ThreadVideoRepair::disableAddReferenceBtn);
        answers.seen.clear();
        throughChain(w, answers, 0, [sample](ReferenceFileDlg *ref) {
            QVERIFY(ref->RefPath_Edit->toPlainText().isEmpty());
            QVERIFY(!ref->RefRepairBtn->isEnabled());
            ref->ChooseSample(sample);
            ref->RefRepairBtn->click();
        });
        QCOMPARE(w.runs.size(), runs + 1);
        QCOMPARE(w.runs.last().list, QStringList{clip});
        QVERIFY(w.runs.last().sample);
        QCOMPARE(w.stringLabl->text(), QString("Advance Repair Running"));
        QTRY_VERIFY_WITH_TIMEOUT(!answers.seen.filter("Repair Complete").isEmpty() && w.RepairThread().isFinished(), 120000);
        QVERIFY(disabled.count() > 0);
        QVERIFY(!w.overAllProgess_2->isVisibleTo(&w));
        QCOMPARE(column(w.pRepairList, 8), QStringList{"Completed"});
        QCOMPARE(digest(clip), clipBefore);
        QCOMPARE(digest(sample), sampleBefore);
    }

    void sameFormatAndLearnMore()
    {
        QTemporaryDir dir;
        const QStringList names = {"a.mov", "b.MOV", "c.mp4", "d.rsv", "e.RSV", "f.avi", "g.mov"};
        QStringList sources;
        for (const QString &n : names) {
            sources << dir.filePath(n);
            writeFile(sources.last(), 100);
        }
        TestWindow w;
        DialogAnswerer answers;
        w.AddFiles(sources);
        w.OnRepairMOVFiles();
        // All wait for a sample but the last.
        for (int i = 0; i < names.size(); ++i)
            w.pRepairList->topLevelItem(i)->setText(11, i + 1 < names.size() ? "0" : "1");

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

        // Learn More opens the page of the language only when one is set.
        QDesktopServices::setUrlHandler("https", this, "openUrl");
        AdvancedRepairDlg adv(&w, sources.first());
        connect(&adv, &AdvancedRepairDlg::LearnMore, &w, &VideoRepairWindow::onlearnmorelinkclicked);
        adv.LearnMoreLink->click();
        QVERIFY(opened.isEmpty());
        startup::OpenSettings()->setValue("EN/Learn_more", "https://example.invalid/learn");
        adv.LearnMoreLink->click();
        QCOMPARE(opened, QList<QUrl>{QUrl("https://example.invalid/learn")});
        QDesktopServices::unsetUrlHandler("https");
    }

    void samplesOfNoUse()
    {
        VM_FIXTURE(healthy, fixtures::healthy("carve_aac48.mov"));
        VM_FIXTURE(damaged, fixtures::moovRemoved(healthy));
        QTemporaryDir dir;
        const QString clip = dir.filePath("clip.mov");
        QVERIFY(QFile::copy(damaged, clip));
        const QByteArray clipBefore = digest(clip);

        QFile text(dir.filePath("text.mp4"));
        QVERIFY(text.open(QIODevice::WriteOnly));
        text.write("not a video at all\n");
        text.close();
        QFile noise(dir.filePath("noise.mov"));
        QVERIFY(noise.open(QIODevice::WriteOnly));
        for (int i = 0; i < 4096; ++i)
            noise.write(QByteArray::number(quint32(QRandomGenerator::global()->generate()), 16));
        noise.close();
        writeFile(dir.filePath("empty.mov"), 0);
        writeFile(dir.filePath("gone.mov"), 5000);
        QDir(dir.path()).mkdir("folder.mov");
        VM_FIXTURE(otherKind, fixtures::healthy("h264_aac.ts"));
        QVERIFY(QFile::copy(otherKind, dir.filePath("other.ts")));
        const QStringList samples = {dir.filePath("text.mp4"), dir.filePath("noise.mov"), dir.filePath("empty.mov"),
                                     dir.filePath("gone.mov"), dir.filePath("folder.mov"), dir.filePath("other.ts")};
        QMap<QString, QByteArray> before;
        for (const QString &s : samples)
            before[s] = digest(s);

        TestWindow w;
        w.realRun = true;
        w.show();
        DialogAnswerer answers;
        QVERIFY(firstRun(w, answers, {clip}));
        for (const QString &s : samples) {
            answers.seen.clear();
            throughChain(w, answers, 0, [s](ReferenceFileDlg *ref) {
                ref->ChooseSample(s);
                if (s.endsWith("gone.mov"))
                    QFile::remove(s);
                ref->RefRepairBtn->click();
            });
            QTRY_VERIFY_WITH_TIMEOUT(!answers.seen.filter("Repair Complete").isEmpty() && w.RepairThread().isFinished(), 120000);
            answers.seen.clear();
            QVERIFY2(column(w.pRepairList, 8) == QStringList{"Awaiting Action"}, qPrintable(s));
            QCOMPARE(w.lstRowButtons.at(0)->pButton->text(), QString("Advance Repair"));
            QVERIFY(w.lstRowButtons.at(0)->pButton->isEnabled());
            QVERIFY(w.pRepairList->isEnabled());
            if (QFileInfo(s).isFile())
                QCOMPARE(digest(s), before[s]);
        }
        QCOMPARE(digest(clip), clipBefore);
    }
};

VM_SHELL_TEST_MAIN(TestShellSample)
#include "tst_shell_sample.moc"
