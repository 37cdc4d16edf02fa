// The window's look by brand, scale and language: the layout tables, the
// image sheets, the two toolbar strips and their menus, the about box.

#include "VideoRepairWindow.h"

#include "AboutDlg.h"
#include "Brand.h"
#include "Layouts.h"
#include "Look.h"
#include "PopupMenu.h"
#include "Startup.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QTimer>

namespace {
using LanguageSlot = void (VideoRepairWindow::*)();
const LanguageSlot kFirstPageSlots[languages::kCount] = {
    &VideoRepairWindow::LoadEnglishLanguages, &VideoRepairWindow::LoadGermanLanguages,
    &VideoRepairWindow::LoadFrenchLanguages,  &VideoRepairWindow::LoadItalianLanguages,
    &VideoRepairWindow::LoadSpanishLanguages, &VideoRepairWindow::LoadJapaneseLanguages,
    &VideoRepairWindow::LoadChineseLanguages, &VideoRepairWindow::LoadKoreanLanguages,
    &VideoRepairWindow::LoadDutchLanguages,   &VideoRepairWindow::LoadBrazilLanguages,
    &VideoRepairWindow::LoadHindiLanguages};
const LanguageSlot kSecondPageSlots[languages::kCount] = {
    &VideoRepairWindow::LoadEnglishLanguages2, &VideoRepairWindow::LoadGermanLanguages2,
    &VideoRepairWindow::LoadFrenchLanguages2,  &VideoRepairWindow::LoadItalianLanguages2,
    &VideoRepairWindow::LoadSpanishLanguages2, &VideoRepairWindow::LoadJapaneseLanguages2,
    &VideoRepairWindow::LoadChineseLanguages2, &VideoRepairWindow::LoadKoreanLanguages2,
    &VideoRepairWindow::LoadDutchLanguages2,   &VideoRepairWindow::LoadBrazilLanguages2,
    &VideoRepairWindow::LoadHindiLanguages2};

// Companion programs that "More Tools" could start; this program has none.
struct CompanionTool
{
    const char *name;
    const char *program;
};
const std::vector<CompanionTool> kCompanionTools;
} // namespace

// --- Brand and layout ---

void VideoRepairWindow::SetUpBrand()
{
    const BrandRow &b = brand::Current();
    if (b.stopTextColour)
        stopBtn->setStyleSheet(QStringLiteral("QPushButton {background: #ffffff; color: %1; border: 1px solid %1;}"
                                              "QPushButton:hover {background: #fdecec;}")
                                   .arg(QString::fromLatin1(b.stopTextColour)));
    const bool moreTools = shellApp.nOptionShowAsDisabled != 1;
    for (int page : {1, 2}) {
        const QList<QWidget *> kept = StripItems(page);
        const QList<QWidget *> all =
            page == 1 ? QList<QWidget *>{SeperateLbl_1, LanguageBtn_1, SeperateLbl_3, AbutBtn_1, HelpBtn_1,
                                         SeperateLbl_4, UpdateBtn_1, SeperateLbl_5}
                      : QList<QWidget *>{SeperateLbl_2, LanguageBtn_2, SeperateLbl_6, AbutBtn_2, HelpBtn_2,
                                         SeperateLbl_7, UpdateBtn_2, SeperateLbl_8};
        for (QWidget *w : all)
            if (!kept.contains(w))
                w->hide();
        (page == 1 ? MoreToolsBtn_1 : MoreToolsBtn_2)->setVisible(moreTools);
    }
}

QList<QWidget *> VideoRepairWindow::StripItems(int page) const
{
    const bool language = brand::HasLanguageMenu();
    const bool update = brand::HasUpdateButton();
    // A button that isn't there takes the separator after it along.
    QList<QWidget *> items;
    if (page == 1) {
        items << SeperateLbl_1;
        if (language)
            items << LanguageBtn_1 << SeperateLbl_3;
        items << AbutBtn_1 << HelpBtn_1 << SeperateLbl_4;
        if (update)
            items << UpdateBtn_1 << SeperateLbl_5;
    } else {
        items << SeperateLbl_2;
        if (language)
            items << LanguageBtn_2 << SeperateLbl_6;
        items << AbutBtn_2 << HelpBtn_2 << SeperateLbl_7;
        if (update)
            items << UpdateBtn_2 << SeperateLbl_8;
    }
    return items;
}

void VideoRepairWindow::ApplyLayout()
{
    const bool moreTools = shellApp.nOptionShowAsDisabled != 1;
    const std::vector<layouts::Rect> table = layouts::For(nLanguage, moreTools);
    for (const layouts::Rect &r : table)
        if (QWidget *w = findChild<QWidget *>(QLatin1String(r.name)))
            look::Place(w, fScale, r.x, r.y, r.w, r.h);

    // Each toolbar row ends at the right edge; x rises in the strip's order.
    for (int page : {1, 2}) {
        QList<QWidget *> row;
        if (moreTools)
            row << (page == 1 ? MoreToolsBtn_1 : MoreToolsBtn_2);
        row << (page == 1 ? MenuBtn_1 : MenuBtn_2) << StripItems(page);
        int right = layouts::kToolbarRight;
        for (int i = row.size() - 1; i >= 0; --i) {
            const layouts::Rect *r = layouts::Find(table, row[i]->objectName().toLatin1().constData());
            if (!r)
                continue;
            right -= r->w;
            look::Place(row[i], fScale, right, r->y, r->w, r->h);
            right -= layouts::kToolbarGap * (r->w == 1 ? 2 : 1);
        }
    }
}

void VideoRepairWindow::ApplyImages()
{
    const QString folder = look::ImageFolder(fScale);
    const QHash<QString, QString> sheets = look::ImageSheets(brand::Current(), folder, nLanguage);
    for (auto it = sheets.begin(); it != sheets.end(); ++it) {
        QWidget *w = findChild<QWidget *>(it.key());
        if (!w)
            continue;
        w->setStyleSheet(it.value());
        if (auto *b = qobject_cast<QPushButton *>(w))
            b->setText(QString()); // the image replaces the form's glyph
        else if (auto *l = qobject_cast<QLabel *>(w))
            l->setPixmap(QPixmap());
    }
    const QString listSheet = look::ListSheet(brand::Current(), fScale);
    for (QWidget *list : std::initializer_list<QWidget *>{pFileList, pRepairList})
        if (list && !listSheet.isEmpty())
            list->setStyleSheet(listSheet);
}

// --- The strips ---

void VideoRepairWindow::Init()
{
    MenuBtn_1->setChecked(true);
    StartStrip(1);
    MenuBtn_2->setChecked(true);
    // Kept: the strips share one timer, so this start replaces the first before
    // it ticks and only the second page's strip runs through its phases.
    StartStrip(2);
}

void VideoRepairWindow::StartStrip(int page)
{
    fToolbarPhase = 0.0f;
    delete pToolbarTimer;
    pToolbarTimer = new QTimer(this);
    pToolbarTimer->setInterval(nToolbarInterval);
    connect(pToolbarTimer, &QTimer::timeout, this,
            page == 1 ? &VideoRepairWindow::OnToolBarTimerSlot : &VideoRepairWindow::OnToolBarTimerSlot2);
    pToolbarTimer->start();
}

void VideoRepairWindow::StepStrip(int page)
{
    // Through text and back, so that 0.1, 0.2... compare exactly after any
    // number of steps.
    fToolbarPhase = QString::number(fToolbarPhase + fToolbarStep, 'g', 6).toFloat();
    const bool show = (page == 1 ? MenuBtn_1 : MenuBtn_2)->isChecked();
    const QList<QWidget *> items = StripItems(page);
    for (int k = 1; k <= items.size(); ++k) {
        if (fToolbarPhase != float(k) / 10.0f)
            continue;
        QWidget *item = show ? items[k - 1] : items[items.size() - k];
        item->setVisible(show);
        if (show && item == UpdateBtn_1)
            UpdateBtn_1->setEnabled(true);
    }
    if (fToolbarPhase >= brand::Market().stripEnd && pToolbarTimer) {
        pToolbarTimer->stop();
        pToolbarTimer->deleteLater();
        pToolbarTimer = nullptr;
    }
}

void VideoRepairWindow::OnMenuProduct() { StartStrip(1); }
void VideoRepairWindow::OnSecondMenuProduct() { StartStrip(2); }
void VideoRepairWindow::OnToolBarTimerSlot() { StepStrip(1); }
void VideoRepairWindow::OnToolBarTimerSlot2() { StepStrip(2); }

// --- Menus ---

QMenu *VideoRepairWindow::BuildLanguageMenu(QPushButton *button, bool secondPage)
{
    auto *menu = new PopupMenu(button, false, button);
    for (int n = 0; n < languages::kCount; ++n) {
        QAction *a = menu->addAction(languages::MenuText(n));
        a->setCheckable(true);
        a->setData(n);
        connect(a, &QAction::triggered, this, secondPage ? kSecondPageSlots[n] : kFirstPageSlots[n]);
    }
    button->setMenu(menu);
    return menu;
}

void VideoRepairWindow::CreateMenuBar()
{
    if (!pLanguageMenu && brand::HasLanguageMenu())
        pLanguageMenu = BuildLanguageMenu(LanguageBtn_1, false);
    TickLanguageMenus();
}

void VideoRepairWindow::CreateMenuBar2()
{
    if (!pLanguageMenu2 && brand::HasLanguageMenu())
        pLanguageMenu2 = BuildLanguageMenu(LanguageBtn_2, true);
    TickLanguageMenus();
}

void VideoRepairWindow::EnableLanguageButtons(bool enabled)
{
    LanguageBtn_1->setEnabled(enabled);
    LanguageBtn_2->setEnabled(enabled);
}

void VideoRepairWindow::MoreTool()
{
    for (QPushButton *button : {MoreToolsBtn_1, MoreToolsBtn_2}) {
        auto *menu = new PopupMenu(button, true, button);
        for (const CompanionTool &tool : kCompanionTools)
            menu->addAction(QString::fromUtf8(tool.name));
        button->setMenu(menu);
        button->setEnabled(!menu->isEmpty());
        (button == MoreToolsBtn_1 ? pMoreToolsMenu : pMoreToolsMenu2) = menu;
    }
}

// --- About, geometry ---

void VideoRepairWindow::OnAboutBtnClicked()
{
    if (!pAboutDlg)
        pAboutDlg = new AboutDlg(this);
    pAboutDlg->CentreOnScreen();
    pAboutDlg->exec();
}

void VideoRepairWindow::resizeEvent(QResizeEvent *event)
{
    // Kept: written under one name and read (by OnThisPage) under another.
    QSettings(QString::fromUtf8(brand::Current().name), QString::fromUtf8(brand::Current().name) + "VideomendWindow")
        .setValue("geometry", saveGeometry());
    QWidget::resizeEvent(event);
}

void VideoRepairWindow::OnThisPage(bool bMaximised)
{
    const QSettings geometry(QString::fromUtf8(brand::Current().name),
                             QString::fromUtf8(brand::Current().name) + "VideoGeometrySettings");
    restoreGeometry(geometry.value("geometry").toByteArray());
    if (bMaximised)
        showMaximized();
}
