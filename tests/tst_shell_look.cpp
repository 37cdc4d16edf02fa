// What the brand and market variant change, and the image sheets of every
// brand, scale and language. Built once per brand and variant.

#include "AboutDlg.h"
#include "Brand.h"
#include "Languages.h"
#include "Look.h"
#include "shell_support.h"

#include <QImage>

namespace {

// Where each brand keeps its settings, translations and update files.
struct BrandExpect
{
    const char *name, *settingsFile, *translationFolder, *updateStem;
    bool languageButton;
};
const BrandExpect kBrandExpects[] = {
    {"Halvern", "Halvern Works/Halvern Videomend.conf", "/VideoTranslation/EN", "HalvernVideomend", true},
    {"Quorrel", "Quorrel Works/Quorrel Videomend.conf", "/VideoTranslation/Quorrel/EN", "QuorrelVideomend", true},
    {"Tessalvane", "Tessalvane Works/Tessalvane Videomend.conf", "/VideoTranslation/Tessalvane/EN",
     "TessalvaneVideomend", false},
};

// A market variant's forced language (or -1), whether it offers the
// language menu and the update, and its help link's key.
struct MarketExpect
{
    const char *name;
    int language;
    bool languageMenu, updateButton;
    const char *helpKey;
};
const MarketExpect kMarketExpects[] = {
    {"None", -1, true, true, nullptr},
    {"Japan", 5, false, false, "JA/HelpLink_JA"},
    {"Korea", 7, false, true, nullptr},
    {"China", 6, false, true, "CN/HelpLink_CN"},
};

template <class Row, size_t N> const Row &Pick(const Row (&rows)[N], const char *name)
{
    for (const Row &r : rows)
        if (qstrcmp(r.name, name) == 0)
            return r;
    return rows[0];
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

    // What the linked brand and variant change: where settings, translations
    // and updates live, the forced language, and what the window offers.
    void linkedRows()
    {
        const BrandExpect &b = Pick(kBrandExpects, brand::Current().name);
        const MarketExpect &m = Pick(kMarketExpects, brand::Market().name);
        startup::WriteLanguage(0);
        QCOMPARE(startup::ReadLanguage(), m.language >= 0 ? m.language : 0);
        if (m.language >= 0) // the variant's own translation file is built and found
            QVERIFY(languages::Install(m.language, VM_SHELL_DIR));
        QVERIFY(startup::OpenSettings()->fileName().endsWith(b.settingsFile));
        QCOMPARE(startup::UpdateFileStem(), QString(b.updateStem));
        QVERIFY(languages::Folder("/app", 0).endsWith(b.translationFolder));

        TestWindow w;
        QCOMPARE(w.LanguageBtn_1->menu() != nullptr, b.languageButton && m.languageMenu);
        QCOMPARE(w.StripItems(2).contains(w.UpdateBtn_2), m.updateButton);
        if (m.helpKey) {
            startup::OpenSettings()->setValue(m.helpKey, "https://help.example/videomend");
            QCOMPARE(w.HelpUrl(), QUrl("https://help.example/videomend"));
        }
        QVERIFY(QFileInfo(AboutDlg().LicenseUrl().toLocalFile()).isFile());
    }

    // Every image of every sheet, for every brand, scale and language, loads
    // at its folder's size.
    void sheets()
    {
        for (const BrandRow &b : brand::kBrands) {
            for (float scale : {1.0f, 1.1f, 1.25f, 1.75f, 2.0f, 3.0f}) {
                const QString folder = look::ImageFolder(scale);
                QStringList sheets{look::ListSheet(b, scale), look::DialogIconSheet(b, scale)};
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
        }
    }
};

VM_SHELL_TEST_MAIN(TestShellLook)
#include "tst_shell_look.moc"
