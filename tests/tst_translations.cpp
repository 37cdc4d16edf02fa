// The shipped translations: complete, faithful to the source's placeholders and
// layout, and compiled with a Qt catalogue under the name the program loads.

#include "Languages.h"

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

const char *const kCatalogues[] = {"LANG_DE.ts", "LANG_FR.ts", "LANG_IT.ts", "LANG_ES.ts", "LANG_JA.ts", "LANG_CN.ts",
                                   "LANG_KO.ts", "LANG_DU.ts", "LANG_BR.ts", "LANG_HI.ts", "qt_HI.ts"};

} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    // Every message finished, names and commands kept, and placeholders,
    // line breaks, outer blanks, markup or mnemonics as in the source.
    void catalogues()
    {
        for (const char *file : kCatalogues) {
            const QVector<Message> messages = ReadTs(QStringLiteral(VM_TRANSLATIONS_SRC "/") + file);
            QVERIFY2(!messages.isEmpty(), file);
            for (const Message &m : messages) {
                const QString where = QString(file) + " " + m.context + ": " + m.source.left(40);
                const QString &t = m.translation;
                QVERIFY2(m.finished && !t.isEmpty(), qPrintable("not finished: " + where));
                for (const QString &name : kNames)
                    QVERIFY2(!m.source.contains(name) || t.contains(name), qPrintable("name changed: " + where));
                const QString kept = QString("%\\d+|\\n|^\\s+|\\s+$|") + (m.source.startsWith('<') ? "<[^>]*>" : "&");
                QVERIFY2(Matches(t, kept) == Matches(m.source, kept), qPrintable("layout differs: " + where));
            }
        }
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
