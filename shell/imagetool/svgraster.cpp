// Build tool: rasterises the program's SVG images into the three DPI folders
// of each brand's image root and writes the resource file that lists them.
//
//   svgraster <svg dir> <out dir> <qrc file> <ts>:<code>:<pressed code>...
//
// Colours in the SVGs are tokens (#ACCENT, #LIGHT, #PRESS) replaced by the
// brand's palette; @NAME@ is the brand's name, @CAPTION@ the add button's
// caption (its translation of "Add File"), @SIZE@ a font size at which the
// text fits.

#include "Brand.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>
#include <QXmlStreamReader>
#include <cmath>
#include <cstdio>

namespace {

struct Icon
{
    const char *svg;
    const char *png; // without ".png"
    int w, h;        // design size
    bool disabledForm;
};

const Icon kIcons[] = {
    {"menu.svg", "Menu", 18, 18, true},         {"about.svg", "About", 18, 18, true},
    {"help.svg", "Help", 18, 18, true},         {"update.svg", "Update", 18, 18, true},
    {"moretools.svg", "MoreTools", 18, 18, true}, {"minimise.svg", "Minimise", 14, 14, true},
    {"close.svg", "Close", 14, 14, true},       {"back.svg", "Back", 26, 26, true},
    {"add.svg", "Add", 18, 18, true},           {"remove.svg", "Remove", 18, 18, true},
    {"check-on.svg", "CheckOn", 16, 16, false}, {"check-off.svg", "CheckOff", 16, 16, false},
    {"check-part.svg", "CheckPart", 16, 16, false}, {"product.svg", "img_Product", 28, 28, false},
};
constexpr int kAddW = 160, kAddH = 150, kCaptionRoom = 140, kLogoNameRoom = 78;
constexpr char kGrey[] = "#b4bdc7";

struct Folder
{
    const char *name;
    double factor;
};
const Folder kFolders[] = {{"96-DPI", 1.0}, {"125-DPI", 1.25}, {"144-DPI", 1.5}};

QString g_out;
QStringList g_qrc;
int g_failures = 0;

QString ReadText(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

QString Themed(QString svg, const BrandPalette &p, bool disabled)
{
    svg.replace("#ACCENT", disabled ? kGrey : p.accent);
    svg.replace("#LIGHT", p.light);
    svg.replace("#PRESS", p.pressed);
    return svg;
}

void Render(const QString &svg, const QString &resource, int w, int h, double factor)
{
    QSvgRenderer renderer(svg.toUtf8());
    const QSize size(qRound(w * factor), qRound(h * factor));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    const QString file = g_out + "/images/" + resource;
    QDir().mkpath(QFileInfo(file).path());
    if (!renderer.isValid() || !image.save(file, "PNG")) {
        std::fprintf(stderr, "svgraster: cannot make %s\n", qPrintable(resource));
        ++g_failures;
        return;
    }
    g_qrc << QStringLiteral("    <file alias=\"%1\">%2</file>").arg(resource.toHtmlEscaped(), file.toHtmlEscaped());
}

// The translation of "Add File" in a .ts file; the source where there is none.
QString Caption(const QString &tsPath)
{
    QFile f(tsPath);
    if (!f.open(QIODevice::ReadOnly))
        return QStringLiteral("Add File");
    QXmlStreamReader xml(&f);
    bool match = false;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("source"))
            match = xml.readElementText() == QLatin1String("Add File");
        else if (match && xml.name() == QLatin1String("translation")) {
            const QString t = xml.readElementText().trimmed();
            return t.isEmpty() ? QStringLiteral("Add File") : t;
        }
    }
    return QStringLiteral("Add File");
}

// The largest bold size up to `largest` pixels at which `text` fits `room`.
int FittingSize(const QString &text, int room, int largest)
{
    for (int size = largest; size > 8; --size) {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(size);
        font.setBold(true);
        if (QFontMetricsF(font).horizontalAdvance(text) <= room)
            return size;
    }
    return 8;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    if (argc < 4) {
        std::fprintf(stderr, "usage: svgraster <svg dir> <out dir> <qrc file> <ts>:<code>:<pressed code>...\n");
        return 2;
    }
    const QString svgDir = QString::fromLocal8Bit(argv[1]);
    g_out = QDir(QString::fromLocal8Bit(argv[2])).absolutePath();
    const QString qrcPath = QString::fromLocal8Bit(argv[3]);

    QStringList roots;
    for (const BrandRow &b : brand::kBrands) {
        const QString root = QString::fromUtf8(b.imageRoot);
        const bool firstOfRoot = !roots.contains(root);
        roots << root;
        for (const Folder &folder : kFolders) {
            const QString dir = root + folder.name + '/';
            // The brand's company logo lies in its root even where it shares one.
            const QString logo = ReadText(svgDir + "/company-logo.svg")
                                     .replace("@NAME@", b.name)
                                     .replace("@SIZE@", QString::number(FittingSize(b.name, kLogoNameRoom, 15)));
            Render(Themed(logo, b.palette, false), dir + b.companyLogo, 120, 40, folder.factor);
            if (!firstOfRoot)
                continue;
            for (const Icon &icon : kIcons) {
                const QString svg = ReadText(svgDir + '/' + icon.svg);
                Render(Themed(svg, b.palette, false), dir + icon.png + ".png", icon.w, icon.h, folder.factor);
                if (icon.disabledForm)
                    Render(Themed(svg, b.palette, true), dir + icon.png + "Dis.png", icon.w, icon.h, folder.factor);
            }
            Render(Themed(ReadText(svgDir + "/info.svg"), b.palette, false), dir + b.infoImage, 36, 36,
                   folder.factor);
            const QString add = ReadText(svgDir + "/add-file.svg");
            for (int i = 4; i < argc; ++i) {
                const QStringList parts = QString::fromLocal8Bit(argv[i]).split(':');
                if (parts.size() != 3)
                    continue;
                const QString caption = Caption(parts[0]);
                QString svg = Themed(add, b.palette, false);
                svg.replace("@CAPTION@", caption.toHtmlEscaped())
                    .replace("@SIZE@", QString::number(FittingSize(caption, kCaptionRoom, 15)));
                QString pressed = svg;
                pressed.replace("#FACE", b.palette.light);
                svg.replace("#FACE", "#ffffff");
                Render(svg, dir + "Add file" + parts[1] + ".png", kAddW, kAddH, folder.factor);
                Render(pressed, dir + "Add filepress" + parts[2] + ".png", kAddW, kAddH, folder.factor);
            }
        }
    }

    QFile qrc(qrcPath);
    if (!qrc.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        std::fprintf(stderr, "svgraster: cannot write %s\n", qPrintable(qrcPath));
        return 1;
    }
    QTextStream out(&qrc);
    out << "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n  <qresource prefix=\"/images\">\n"
        << g_qrc.join('\n') << "\n  </qresource>\n</RCC>\n";
    return g_failures == 0 ? 0 : 1;
}
