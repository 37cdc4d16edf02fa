// The shipped translations: complete, faithful to the source's placeholders and
// layout, really translated, drawable with the installed fonts, and compiled
// with a Qt catalogue under the name the program loads.

#include "Languages.h"

#include <QFontDatabase>
#include <QRawFont>
#include <QRegularExpression>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

struct Message
{
    QString context, source, translation;
    bool finished;
};

QVector<Message> ReadTs(const QString &path)
{
    QVector<Message> out;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return out;
    QXmlStreamReader xml(&f);
    QString context;
    Message m;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("source"))
            m = {context, xml.readElementText(), QString(), false};
        else if (xml.name() == QLatin1String("translation")) {
            // "unfinished", "obsolete" and "vanished" all mean not shipped as is.
            m.finished = xml.attributes().value("type").isEmpty();
            m.translation = xml.readElementText();
            out.push_back(m);
        }
    }
    return xml.hasError() ? QVector<Message>() : out;
}

QStringList Matches(const QString &text, const QString &pattern)
{
    QStringList all;
    for (auto it = QRegularExpression(pattern).globalMatch(text); it.hasNext();)
        all << it.next().captured();
    all.sort();
    return all;
}

// Names and commands stay as they are in every language.
const QStringList kNames = {"Halvern Videomend", "FFmpeg", "MPlayer", "sudo apt-get install ffmpeg",
                            "sudo apt-get install mplayer"};

struct Catalogue
{
    const char *file;
    QFontDatabase::WritingSystem script;
    // Words the language writes as English does (loanwords, "OK", "No").
    const char *sameAsEnglish;
};

const Catalogue kCatalogues[] = {
    {"LANG_DE.ts", QFontDatabase::Latin, "OK|Hindi| Status"},
    {"LANG_FR.ts", QFontDatabase::Latin, "OK|Hindi|Menu| Action"},
    {"LANG_IT.ts", QFontDatabase::Latin, "OK|Hindi|Menu|No"},
    {"LANG_ES.ts", QFontDatabase::Latin, "Hindi|No|%1 bytes"},
    {"LANG_JA.ts", QFontDatabase::Japanese, "OK"},
    {"LANG_CN.ts", QFontDatabase::SimplifiedChinese, ""},
    {"LANG_KO.ts", QFontDatabase::Korean, ""},
    {"LANG_DU.ts", QFontDatabase::Latin, "OK|Hindi|Menu|Help| Status|%1 bytes"},
    {"LANG_BR.ts", QFontDatabase::Latin, "OK|Hindi|Menu| Status|%1 bytes"},
    {"LANG_HI.ts", QFontDatabase::Devanagari, ""},
    {"qt_HI.ts", QFontDatabase::Devanagari, ""},
};

} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void catalogue_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(kCatalogues)); ++i)
            QTest::newRow(kCatalogues[i].file) << i;
    }

    void catalogue()
    {
        QFETCH(int, index);
        const Catalogue &c = kCatalogues[index];
        const QVector<Message> messages = ReadTs(QStringLiteral(VM_TRANSLATIONS_SRC "/") + c.file);
        QVERIFY(!messages.isEmpty());
        const QStringList same = QString(c.sameAsEnglish).split('|', Qt::SkipEmptyParts);
        QSet<uint> chars;
        for (const Message &m : messages) {
            const QString where = m.context + ": " + m.source.left(40);
            const QString &t = m.translation;
            QVERIFY2(m.finished && !t.isEmpty(), qPrintable("not finished: " + where));
            for (const QString &name : kNames)
                QVERIFY2(!m.source.contains(name) || t.contains(name), qPrintable("name changed: " + where));
            QVERIFY2(t != m.source || kNames.contains(t) || same.contains(t), qPrintable("left in English: " + where));
            // Placeholders, line breaks, outer blanks, markup or mnemonics as in the source.
            const QString kept = QString("%\\d+|\\n|^\\s+|\\s+$|") + (m.source.startsWith('<') ? "<[^>]*>" : "&");
            QVERIFY2(Matches(t, kept) == Matches(m.source, kept), qPrintable("layout differs: " + where));
            for (uint u : t.toUcs4())
                if (u != '\n')
                    chars.insert(u);
        }

        // Some installed family of the language's script, with the default
        // font for what it lacks, draws every character.
        const QRawFont base = QRawFont::fromFont(QFont());
        const QStringList families = QFontDatabase().families(c.script);
        QVERIFY2(!families.isEmpty(), "no installed font for this script");
        QString missing;
        for (const QString &family : families) {
            const QRawFont raw = QRawFont::fromFont(QFont(family));
            missing.clear();
            for (uint u : chars)
                if (!raw.supportsCharacter(u) && !base.supportsCharacter(u))
                    missing += QString::fromUcs4(&u, 1);
            if (missing.isEmpty())
                break;
        }
        QVERIFY2(missing.isEmpty(), qPrintable("no glyph for: " + missing));
    }

    // What the build puts beside the program: both files of every language
    // load, and Qt's own buttons are translated in all but English.
    void compiledFiles()
    {
        for (int n = 0; n < languages::kCount; ++n) {
            const languages::Language *l = languages::ByType(n);
            const QString folder = languages::Folder(QStringLiteral(VM_SHELL_DIR), n);
            QTranslator own, qt;
            QVERIFY2(own.load(l->ownFile, folder), l->ownFile);
            QVERIFY2(qt.load(l->qtFile, folder), l->qtFile);
            if (n == 0)
                continue;
            QVERIFY(!own.translate("VideoRepairWin", "Repair").isEmpty());
            QVERIFY2(!qt.translate("QPlatformTheme", "Cancel").isEmpty(), l->qtFile);
        }
    }
};

QTEST_MAIN(TestTranslations)
#include "tst_translations.moc"
