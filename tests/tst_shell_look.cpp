// The look of the window by brand, market variant, scale and language: the
// linked rows, the image sheets, the toolbar strips, dragging, menus, and
// translated texts that fit. Built once per brand and variant.

#include "AboutDlg.h"
#include "Brand.h"
#include "Languages.h"
#include "Layouts.h"
#include "Look.h"
#include "PopupMenu.h"
#include "shell_support.h"

#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>

namespace {

struct BrandExpect
{
    const char *name, *title, *settingsFile, *translationFolder, *updateStem, *logo, *info;
    bool languageButton;
    const char *stopColour; // nullptr: the common accent
    int stripItems;         // without a market variant
};
const BrandExpect kBrandExpects[] = {
    {"Halvern", "Halvern Videomend ", "Halvern Works/Halvern Videomend.conf", "/VideoTranslation/EN",
     "HalvernVideomend", ":/images/96-DPI/img_CompanyLogo.png", ":/images/96-DPI/Info.png", true, nullptr, 8},
    {"Quorrel", "Quorrel Videomend ", "Quorrel Works/Quorrel Videomend.conf", "/VideoTranslation/Quorrel/EN",
     "QuorrelVideomend", ":/images/96-DPI/img_CompanyLogoQuorrel.png", ":/images/96-DPI/Info.png", true, nullptr, 8},
    {"Tessalvane", "Tessalvane Videomend", "Tessalvane Works/Tessalvane Videomend.conf",
     "/VideoTranslation/Tessalvane/EN", "TessalvaneVideomend", ":/images/Tessalvane/96-DPI/img_CompanyLogo.png",
     ":/images/Tessalvane/96-DPI/Info1.png", false, "#e31f26", 6},
};

struct MarketExpect
{
    const char *name;
    int language;       // forced, or -1
    bool languageMenu, updateButton;
    const char *date;   // how 2026-03-04 15:16:17 shows in the list
    const char *helpKey;
    int strip[2];       // items of each page's strip; ticks until it stops
};
const MarketExpect kMarketExpects[] = {
    {"None", -1, true, true, "Wed Mar 04 2026 15:16:17", nullptr, {8, 22}},
    {"Japan", 5, false, false, "2026 Mar 04 Wed 15:16:17", "JA/HelpLink_JA", {4, 12}},
    {"Korea", 7, false, true, "Wed Mar 04 2026 15:16:17", nullptr, {6, 18}},
    {"China", 6, false, true, "Wed Mar 04 2026 15:16:17", "CN/HelpLink_CN", {6, 22}},
};

template <class Row, size_t N> const Row &Pick(const Row (&rows)[N], const char *name)
{
    for (const Row &r : rows)
        if (qstrcmp(r.name, name) == 0)
            return r;
    return rows[0];
}
const BrandExpect &ThisBrand() { return Pick(kBrandExpects, brand::Current().name); }
const MarketExpect &ThisMarket() { return Pick(kMarketExpects, brand::Market().name); }

int StripItems()
{
    return ThisMarket().language >= 0 ? ThisMarket().strip[0] : ThisBrand().stripItems;
}

const char *const kLanguageSlots[languages::kCount] = {
    "LoadEnglishLanguages", "LoadGermanLanguages", "LoadFrenchLanguages", "LoadItalianLanguages",
    "LoadSpanishLanguages", "LoadJapaneseLanguages", "LoadChineseLanguages", "LoadKoreanLanguages",
    "LoadDutchLanguages", "LoadBrazilLanguages", "LoadHindiLanguages"};

// Drags by (40, 25) from `at`; true if the window followed.
bool Drags(QWidget *w, QPoint at)
{
    const QPoint before = w->pos(), to = at + QPoint(40, 25);
    const auto send = [w](QEvent::Type type, QPoint local, Qt::MouseButtons buttons) {
        QMouseEvent e(type, local, w->mapToGlobal(local), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      buttons, Qt::NoModifier);
        QApplication::sendEvent(w, &e);
    };
    send(QEvent::MouseButtonPress, at, Qt::LeftButton);
    send(QEvent::MouseMove, to, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, to, Qt::NoButton);
    const bool moved = w->pos() == before + QPoint(40, 25);
    w->move(before);
    return moved;
}

// The strip of a page as 0/1 per item, in strip order.
QString Shown(const VideoRepairWindow &w, int page)
{
    QString s;
    for (QWidget *item : w.StripItems(page))
        s += item->isVisibleTo(item->window()) ? '1' : '0';
    return s;
}

} // namespace

class TestShellLook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        pApp.reset();
        startup::OpenSettings()->clear();
        shellApp.fDpiScale = 1.0f;
        shellApp.nOptionShowAsDisabled = 0;
        languages::Install(-1, QString());
    }

    // What the linked brand and variant change, seen from the window.
    void linkedRows()
    {
        const BrandExpect &b = ThisBrand();
        const MarketExpect &m = ThisMarket();
        startup::WriteLanguage(0);
        QCOMPARE(startup::ReadLanguage(), m.language >= 0 ? m.language : 0);
        if (m.language >= 0) // the variant's own translation file is built and found
            QVERIFY(languages::Install(m.language, VM_SHELL_DIR));
        QTemporaryDir dir;
        const QString clip = dir.filePath("clip.mov");
        writeBytes(clip, "x");
        QFile f(clip);
        QVERIFY(f.open(QIODevice::ReadWrite));
        QVERIFY(f.setFileTime(QDateTime(QDate(2026, 3, 4), QTime(15, 16, 17)), QFileDevice::FileModificationTime));
        f.close();

        TestWindow w;
        QCOMPARE(w.ProductLabl_1->text(), QString(b.title));
        QCOMPARE(w.label_2->text(), QString(b.title));
        QCOMPARE(w.windowTitle(), QString(b.title).trimmed());
        QVERIFY(startup::OpenSettings()->fileName().endsWith(b.settingsFile));
        QCOMPARE(startup::UpdateFileStem(), QString(b.updateStem));
        QVERIFY(w.pMessageDlg->findChild<QLabel *>("IconLabl")->styleSheet().contains(b.info));
        QVERIFY(languages::Folder("/app", 0).endsWith(b.translationFolder));
        QCOMPARE(w.StripItems(1).contains(w.LanguageBtn_1), b.languageButton && m.languageMenu);
        QCOMPARE(w.LanguageBtn_1->menu() != nullptr, b.languageButton && m.languageMenu);
        QCOMPARE(w.StripItems(2).contains(w.UpdateBtn_2), m.updateButton);
        QCOMPARE(w.StripItems(1).size(), StripItems());
        w.stopBtn->ensurePolished();
        QCOMPARE(w.stopBtn->palette().color(QPalette::ButtonText).name(),
                 QString(b.stopColour ? b.stopColour : "#ffffff"));
        w.AddFiles({clip});
        QCOMPARE(w.pFileList->topLevelItem(0)->text(VideoRepairWindow::fcModified), QString::fromUtf8(m.date));
        if (m.helpKey) {
            startup::OpenSettings()->setValue(m.helpKey, "https://help.example/videomend");
            QCOMPARE(w.HelpUrl(), QUrl("https://help.example/videomend"));
        }
        // Every widget of both pages has its rectangle.
        for (QFrame *page : {w.AddFile_frame, w.frame_2})
            for (QWidget *c : page->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
                QVERIFY2(c->inherits("QTreeView") || layouts::Find(layouts::For(0, true), qPrintable(c->objectName())),
                         qPrintable(c->objectName()));
        // "More Tools" has no companion programs to offer.
        QVERIFY(!w.MoreToolsBtn_1->isEnabled() && w.MoreToolsBtn_1->menu()->isEmpty());
        AboutDlg about;
        QVERIFY(about.ProductLabl->text() == QString(b.title).trimmed());
        QVERIFY(about.LogoLabl->styleSheet().contains(b.logo));
        QVERIFY(about.SystemLabl->text().contains(QSysInfo::kernelVersion()));
        QVERIFY(QFileInfo(about.LicenseUrl().toLocalFile()).isFile());
    }

    // Every image of every sheet, for every brand, scale and language, loads
    // at its folder's size; the folders and list sheets follow the scale.
    void sheets()
    {
        struct Step { float scale; const char *folder; bool listSheet; };
        const Step steps[] = {{1.0f, "96-DPI", true},   {1.1f, "", false},         {1.25f, "125-DPI", true},
                              {1.4f, "", false},        {1.5f, "144-DPI", true},   {1.75f, "144-DPI", false},
                              {2.0f, "144-DPI", true},  {2.25f, "144-DPI", false}, {2.5f, "144-DPI", true},
                              {3.0f, "144-DPI", true}};
        for (const BrandRow &b : brand::kBrands) {
            QSet<QString> listSheets;
            for (const Step &step : steps) {
                const QString folder = look::ImageFolder(step.scale);
                QCOMPARE(folder, QString(step.folder));
                const QString list = look::ListSheet(b, step.scale);
                QCOMPARE(!list.isEmpty(), step.listSheet);
                if (!list.isEmpty())
                    listSheets << list;
                QStringList sheets{list, look::DialogIconSheet(b, step.scale)};
                for (int n = 0; n < languages::kCount; ++n)
                    sheets << look::ImageSheets(b, folder, n).values();
                if (!folder.isEmpty())
                    sheets << "url(" + look::ImagePath(b, folder, b.companyLogo) + ")";
                for (const QString &sheet : sheets) {
                    for (const QString &url : look::SheetUrls(sheet)) {
                        const QImage image(url), base(QString(url).replace(QRegularExpression("/\\d+-DPI/"), "/96-DPI/"));
                        QVERIFY2(!image.isNull() && !base.isNull(), qPrintable(url));
                        const double factor = url.contains("/125-DPI/") ? 1.25 : url.contains("/144-DPI/") ? 1.5 : 1.0;
                        QCOMPARE(image.size(), QSize(qRound(base.width() * factor), qRound(base.height() * factor)));
                    }
                }
            }
            QCOMPARE(listSheets.size(), b.ownListSheets ? 5 : 3);
        }
        // Strictly between the steps the window keeps the form's look.
        shellApp.fDpiScale = 1.1f;
        TestWindow w;
        QVERIFY(w.MenuBtn_1->styleSheet().isEmpty() && !w.MenuBtn_1->text().isEmpty());
        QVERIFY(w.pFileList->styleSheet().isEmpty());
        QCOMPARE(w.width(), 935);
    }

    // The strip tick by tick: each item at its phase, hidden in reverse, the
    // stop; a second click restarts; a language switch doesn't disturb it.
    void strip()
    {
        const int items = StripItems(), ticksToStop = ThisMarket().strip[1];
        TestWindow w;
        w.show();
        // Start-up: only the second page's strip is driven.
        w.MenuBtn_2->setChecked(false);
        QTRY_VERIFY(!w.pToolbarTimer);
        QCOMPARE(Shown(w, 1), QString(items, '1'));
        QCOMPARE(Shown(w, 2), QString(items, '0'));

        w.UpdateBtn_1->setEnabled(false);
        for (bool checked : {false, true}) {
            w.MenuBtn_1->click();
            QCOMPARE(w.MenuBtn_1->isChecked(), checked);
            w.pToolbarTimer->stop();
            for (int tick = 1; tick <= ticksToStop; ++tick) {
                QVERIFY2(w.pToolbarTimer, qPrintable(QString("stopped before tick %1").arg(tick)));
                if (tick == 7) {
                    QMetaObject::invokeMethod(&w, kLanguageSlots[checked ? 0 : 1]); // mid-strip
                    QCOMPARE(w.nLanguage, checked ? 0 : 1);
                }
                w.OnToolBarTimerSlot();
                const int done = qMin(tick / 2, items);
                const QString expect = checked ? QString(done, '1') + QString(items - done, '0')
                                               : QString(items - done, '1') + QString(done, '0');
                QCOMPARE(Shown(w, 1), expect);
            }
            QVERIFY(!w.pToolbarTimer);
        }
        QVERIFY(w.UpdateBtn_1->isEnabled() || !ThisMarket().updateButton);

        // Two quick clicks: the first timer goes, the phase starts again, and
        // what the first run hid stays hidden until its turn comes.
        w.MenuBtn_1->click();
        QPointer<QTimer> first = w.pToolbarTimer;
        first->stop();
        for (int tick = 0; tick < 4; ++tick)
            w.OnToolBarTimerSlot();
        w.MenuBtn_1->click();
        QVERIFY(!first && w.pToolbarTimer);
        QCOMPARE(w.fToolbarPhase, 0.0f);
        QCOMPARE(Shown(w, 1), QString(items - 2, '1') + "00");
    }

    void dragAndMenus()
    {
        TestWindow w;
        w.show();
        QVERIFY(Drags(&w, {300, 29}));
        QVERIFY(!Drags(&w, {300, 30}));
        AboutDlg about(&w);
        about.show();
        QVERIFY(Drags(&about, {about.width() / 2, about.height() - 10}));
        QDialog update; // the update dialogs are dressed with this
        look::DragByAnyPress(&update);
        update.resize(300, 200);
        update.show();
        QVERIFY(Drags(&update, {150, 150}));

        for (float scale : {1.0f, 2.0f}) {
            for (bool right : {false, true}) {
                PopupMenu menu(w.MenuBtn_1, right);
                menu.fScale = scale;
                menu.addAction("x");
                menu.popup({100, 100});
                const int x = right ? w.x() + w.width() - menu.width() - int(18 * scale) : 100;
                QCOMPARE(menu.pos(), QPoint(x, 100 + int(12 * scale)));
                menu.close();
            }
        }
    }

    // Every translated text of both pages fits its rectangle.
    void textsFit()
    {
        QTemporaryDir dir;
        writeBytes(dir.filePath("clip.mov"), "x");
        QStringList misfits;
        for (int n = 0; n < languages::kCount; ++n) {
            TestWindow w;
            QMetaObject::invokeMethod(&w, kLanguageSlots[n]);
            w.AddFiles({dir.filePath("clip.mov")});
            // What each page shows, in the state that shows the most of it.
            const auto shown = [&w](QWidget *page) {
                QList<QWidget *> out;
                for (QWidget *c : page->findChildren<QWidget *>())
                    if (c->isVisibleTo(&w))
                        out << c;
                return out;
            };
            QList<QWidget *> all = shown(w.AddFile_frame);
            w.OnRepairMOVFiles();
            QVERIFY(!w.LanguageBtn_2->isEnabled()); // a run keeps its language
            all += shown(w.frame_2);
            const QString what = languages::MenuText(n) + ": ";
            for (QWidget *widget : all) {
                const QString text = widget->property("text").toString();
                if (text.isEmpty() || widget->objectName() == "FileNameLabl" || widget->inherits("QTreeView"))
                    continue;
                auto *label = qobject_cast<QLabel *>(widget);
                const bool fits = label && label->wordWrap()
                                      ? label->heightForWidth(label->width()) <= label->height()
                                      : widget->sizeHint().width() <= widget->width();
                if (!fits)
                    misfits << what + widget->objectName() + " \"" + text + "\"";
            }
            if (w.ChnageLoc_Btn->geometry().right() > w.width())
                misfits << what + "ChnageLoc_Btn";
        }
        QVERIFY2(misfits.isEmpty(), qPrintable(misfits.join('\n')));
    }

    // Pictures of the window for a person to look at, when asked for.
    void screenshots()
    {
        const QString out = qEnvironmentVariable("VM_SCREENS_DIR");
        if (out.isEmpty())
            QSKIP("VM_SCREENS_DIR not set");
        shellApp.fDpiScale = qEnvironmentVariable("VM_SCREEN_SCALE", "1").toFloat();
        const QString tag = QString(brand::Current().name) + "-" + QString::number(int(shellApp.fDpiScale * 100));
        QTemporaryDir dir;
        writeBytes(dir.filePath("holiday clip.mov"), QByteArray(3 << 20, 'x'));
        const auto shoot = [&](QWidget *w, const QString &name) {
            QTest::qWait(400);
            w->screen()->grabWindow(w->winId()).save(out + "/" + tag + "-" + name + ".png");
        };
        for (int n : {0, 5, 10}) {
            TestWindow w;
            QMetaObject::invokeMethod(&w, kLanguageSlots[n]);
            w.show();
            shoot(&w, QString("add-") + languages::ByType(n)->folder);
            if (n != 0)
                continue;
            w.AddFiles({dir.filePath("holiday clip.mov")});
            shoot(&w, "list");
            w.OnRepairMOVFiles();
            shoot(&w, "run");
            AboutDlg about(&w);
            about.show();
            shoot(&about, "about");
        }
    }
};

VM_SHELL_TEST_MAIN(TestShellLook)
#include "tst_shell_look.moc"
