#include "Languages.h"

#include "Brand.h"
#include "Startup.h"

#include <QCoreApplication>
#include <QSettings>
#include <QUrl>
#include <QFileInfo>
#include <QTranslator>
#include <memory>

namespace languages {

namespace {
const Language kLanguages[kCount] = {
    {0, QT_TRANSLATE_NOOP("Languages", "English"), "EN", "LANG_EN", "qt_en",
     {180, 150, 70, 130, 130}, {120, 100, 80, 120, 120, 110, 110}},
    {1, QT_TRANSLATE_NOOP("Languages", "German"), "DE", "LANG_DE", "qt_de",
     {160, 130, 110, 130, 130}, {120, 100, 80, 110, 110, 120, 100}},
    {2, QT_TRANSLATE_NOOP("Languages", "French"), "FR", "LANG_FR", "qt_fr",
     {160, 150, 90, 130, 130}, {120, 100, 70, 125, 110, 130, 100}},
    {3, QT_TRANSLATE_NOOP("Languages", "Italian"), "IT", "LANG_IT", "qt_it",
     {160, 150, 130, 130, 130}, {120, 70, 120, 110, 110, 120, 110}},
    {4, QT_TRANSLATE_NOOP("Languages", "Spanish"), "ES", "LANG_ES", "qt_es",
     {160, 150, 90, 130, 130}, {120, 100, 80, 125, 110, 120, 110}},
    {5, QT_TRANSLATE_NOOP("Languages", "Japanese"), "JA", "LANG_JA", "qt_ja",
     {180, 150, 70, 130, 130}, {130, 100, 80, 120, 120, 110, 110}},
    {6, QT_TRANSLATE_NOOP("Languages", "Chinese"), "CN", "LANG_CN", "qt_zh_CN",
     {180, 150, 70, 130, 130}, {130, 100, 80, 120, 120, 100, 110}},
    {7, QT_TRANSLATE_NOOP("Languages", "Korean"), "KO", "LANG_KO", "qt_KO",
     {160, 150, 70, 140, 140}, {130, 100, 80, 120, 120, 110, 110}},
    {8, QT_TRANSLATE_NOOP("Languages", "Dutch"), "DU", "LANG_DU", "qt_DU",
     {180, 150, 100, 130, 130}, {120, 100, 80, 120, 120, 110, 110}},
    {9, QT_TRANSLATE_NOOP("Languages", "Portuguese Brazil"), "BR", "LANG_BR", "qt_PO",
     {180, 130, 123, 130, 130}, {120, 100, 110, 120, 120, 110, 110}},
    {10, QT_TRANSLATE_NOOP("Languages", "Hindi"), "HI", "LANG_HI", "qt_HE",
     {180, 150, 70, 130, 130}, {120, 100, 80, 120, 120, 110, 110}},
};

// Installed translators; replaced as a pair on every switch.
std::unique_ptr<QTranslator> g_own, g_qt;

const char *const kHelpFiles[] = {"about.html", "adding-files.html", "repairing.html",
                                  "advanced-repair.html", "preview-and-save.html"};
} // namespace

const Language *ByType(int n)
{
    return n >= 0 && n < kCount ? &kLanguages[n] : nullptr;
}

QString MenuText(int n)
{
    const Language *l = ByType(n);
    return l ? QCoreApplication::translate("Languages", l->menuText) : QString();
}

QString Folder(const QString &appDir, int n)
{
    const Language *l = ByType(n);
    return l ? appDir + "/VideoTranslation/" + QString::fromUtf8(brand::Current().translationSub) + l->folder
             : QString();
}

bool Install(int n, const QString &appDir)
{
    for (std::unique_ptr<QTranslator> *t : {&g_own, &g_qt}) {
        if (*t) {
            QCoreApplication::removeTranslator(t->get());
            t->reset();
        }
    }
    const Language *l = ByType(n);
    if (!l)
        return false;
    const QString folder = Folder(appDir, n);
    auto own = std::make_unique<QTranslator>();
    // A variant that forces its language may bring its own wording of it.
    const MarketRow &market = brand::Market();
    const char *ownFile = market.forcedLanguage == n && market.ownFileOverride ? market.ownFileOverride : l->ownFile;
    const bool ownLoaded = own->load(ownFile, folder);
    if (ownLoaded) {
        QCoreApplication::installTranslator(own.get());
        g_own = std::move(own);
    }
    auto qt = std::make_unique<QTranslator>();
    if (qt->load(l->qtFile, folder)) {
        QCoreApplication::installTranslator(qt.get());
        g_qt = std::move(qt);
    }
    return ownLoaded;
}

QString HelpPage(const QString &appDir, int n, HelpTopic topic)
{
    const Language *l = ByType(n);
    const QString file = kHelpFiles[int(topic)];
    if (l) {
        const QString own = appDir + "/help/" + l->folder + "/" + file;
        if (QFileInfo::exists(own))
            return own;
    }
    return appDir + "/help/EN/" + file;
}

QString HelpFile(const QString &appDir, int n)
{
    const Language *l = ByType(n);
    return l ? appDir + "/HelpVideo_" + l->folder + ".html" : QString();
}

QUrl HelpUrl(const QString &appDir, int n, HelpTopic topic)
{
    if (const char *key = brand::Market().helpLinkKey) {
        const QUrl page(startup::OpenSettings()->value(key).toString().trimmed());
        return page.scheme() == "http" || page.scheme() == "https" ? page : QUrl();
    }
    if (brand::Current().help == HelpKind::LanguageFile) {
        const QString file = HelpFile(appDir, n);
        return QFileInfo(file).isFile() ? QUrl::fromLocalFile(file) : QUrl();
    }
    return QUrl::fromLocalFile(HelpPage(appDir, n, topic));
}

QString LicensePage(const QString &appDir, int n)
{
    const Language *l = ByType(n);
    const QString own = l ? appDir + "/help/" + l->folder + "/license.html" : QString();
    return l && QFileInfo::exists(own) ? own : appDir + "/help/EN/license.html";
}

} // namespace languages
