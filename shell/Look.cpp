#include "Look.h"

#include "Brand.h"
#include "Languages.h"

#include <QEvent>
#include <QFile>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QRegularExpression>
#include <QWidget>

// The resources live in a static library: register them by hand.
static void InitShellResources()
{
    Q_INIT_RESOURCE(videomend);
    Q_INIT_RESOURCE(videomend_images);
}

namespace look {

void InstallFontSubstitutes()
{
    static bool done = false;
    if (done)
        return;
    done = true;
    for (const char *family : {"Segoe UI", "Segoe UI semibold", "Segoe UI Semibold", "Calibri Light"})
        QFont::insertSubstitutions(family, {"DejaVu Sans Condensed", "DejaVu Sans", "Sans Serif"});
}

QFont Font(const char *family, int points, bool bold, bool underline)
{
    QFont f{QString::fromLatin1(family)};
    f.setPointSize(points);
    f.setBold(bold);
    f.setUnderline(underline);
    return f;
}

QFont ListFont() { return Font("Segoe UI", 10); }
QFont TitleFont() { return Font("Segoe UI semibold", 10, true); }
QFont ButtonFont() { return Font("Segoe UI Semibold", 10, true); }

QString StyleSheet()
{
    static const bool registered = (InitShellResources(), true);
    Q_UNUSED(registered);
    QFile f(":/style/videomend.qss");
    if (!f.open(QIODevice::ReadOnly))
        return QString();
    // The sheet is written in the first brand's colours.
    const BrandPalette &first = brand::kBrands[0].palette;
    const BrandPalette &own = brand::Current().palette;
    QString sheet = QString::fromUtf8(f.readAll());
    const std::pair<const char *, const char *> swaps[] = {{first.accent, own.accent}, {first.hover, own.hover},
                                                           {first.pressed, own.pressed}, {first.light, own.light}};
    for (const auto &swap : swaps)
        sheet.replace(QLatin1String(swap.first), QLatin1String(swap.second), Qt::CaseInsensitive);
    return sheet;
}

QString BadgeStyle(float scale)
{
    return QStringLiteral("QLabel { background: #1a6fd1; color: white; border-radius: %1px;"
                          " font-weight: bold; font-size: %2px; }")
        .arg(Scaled(18, scale))
        .arg(Scaled(20, scale));
}

QIcon ProductIcon()
{
    QIcon icon;
    for (int size : {16, 32, 64, 128}) {
        QPixmap pm(size, size);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        const qreal s = size;
        p.setPen(Qt::NoPen);
        p.setBrush(QColor("#1a6fd1"));
        p.drawRoundedRect(QRectF(0, 0, s, s), s * 0.2, s * 0.2);
        // A play mark with a small plaster across it.
        QPainterPath play;
        play.moveTo(s * 0.36, s * 0.26);
        play.lineTo(s * 0.76, s * 0.5);
        play.lineTo(s * 0.36, s * 0.74);
        play.closeSubpath();
        p.setBrush(Qt::white);
        p.drawPath(play);
        p.translate(s * 0.5, s * 0.5);
        p.rotate(-35);
        p.setBrush(QColor("#f4b400"));
        p.drawRoundedRect(QRectF(-s * 0.3, -s * 0.07, s * 0.6, s * 0.14), s * 0.05, s * 0.05);
        p.end();
        icon.addPixmap(pm);
    }
    return icon;
}

QString ImageFolder(float scale)
{
    if (scale == 1.0f)
        return QStringLiteral("96-DPI");
    if (scale == 1.25f)
        return QStringLiteral("125-DPI");
    if (scale >= 1.5f)
        return QStringLiteral("144-DPI");
    return QString();
}

QString ImagePath(const BrandRow &brand, const QString &folder, const QString &file)
{
    static const bool registered = (InitShellResources(), true);
    Q_UNUSED(registered);
    return QStringLiteral(":/images/") + QString::fromUtf8(brand.imageRoot) + folder + '/' + file;
}

QString AddImageCode(int language, bool pressed)
{
    static const char *const kCodes[languages::kCount] = {"EN", "GR", "FR", "IT", "ES", "JN",
                                                          "CN", "KO", "DU", "BR", "HE"};
    if (language == 10 && pressed)
        return QStringLiteral("HI"); // Hindi's pressed image has a code of its own
    return QString::fromLatin1(kCodes[language >= 0 && language < languages::kCount ? language : 0]);
}

namespace {
// Toolbar and list buttons drawn as an icon, with a grey form when disabled.
const std::pair<const char *, const char *> kIconButtons[] = {
    {"MenuBtn_1", "Menu"},          {"MenuBtn_2", "Menu"},         {"AbutBtn_1", "About"},
    {"AbutBtn_2", "About"},         {"HelpBtn_1", "Help"},         {"HelpBtn_2", "Help"},
    {"UpdateBtn_1", "Update"},      {"UpdateBtn_2", "Update"},     {"MoreToolsBtn_1", "MoreTools"},
    {"MoreToolsBtn_2", "MoreTools"}, {"MiniMaBtn", "Minimise"},    {"MiniMiseBtn2", "Minimise"},
    {"closeBtn", "Close"},          {"closeBtn_2", "Close"},       {"BackBtn", "Back"},
    {"AddFileBtn", "Add"},          {"RemoveBtn", "Remove"},
};
} // namespace

QHash<QString, QString> ImageSheets(const BrandRow &brand, const QString &folder, int language)
{
    QHash<QString, QString> sheets;
    if (folder.isEmpty())
        return sheets;
    const auto path = [&](const QString &file) { return ImagePath(brand, folder, file); };
    for (const auto &button : kIconButtons)
        sheets.insert(button.first, QStringLiteral("QPushButton {image: url(%1);}QPushButton:disabled {image: url(%2);}")
                                        .arg(path(QString::fromLatin1(button.second) + ".png"),
                                             path(QString::fromLatin1(button.second) + "Dis.png")));
    // The image draws the button's frame: the common sheet's dashed border goes.
    sheets.insert("add_filebtn",
                  QStringLiteral("QPushButton {border: none; background: transparent;}"
                                 "QPushButton:enabled {border-image: url(%1);}QPushButton:pressed {border-image: url(%2)}")
                      .arg(path("Add file" + AddImageCode(language, false) + ".png"),
                           path("Add filepress" + AddImageCode(language, true) + ".png")));
    const QString logo = QStringLiteral("QLabel {image: url(%1);}").arg(path("img_Product.png"));
    sheets.insert("logoLabl_1", logo);
    sheets.insert("logoLabl_2", logo);
    return sheets;
}

QString ListSheet(const BrandRow &brand, float scale)
{
    // The steps that have a sheet, and the factor its lengths are drawn at.
    float factor = 0.0f;
    if (scale == 1.0f || scale == 1.25f || scale == 1.5f || scale == 2.0f)
        factor = scale;
    else if (scale >= 2.5f)
        factor = 2.5f;
    if (factor == 0.0f)
        return QString();
    if (factor > 1.5f && !brand.ownListSheets)
        factor = 1.5f; // one sheet serves 1.5, 2.0 and 2.5 and more
    const QString folder = ImageFolder(factor);
    const auto path = [&](const char *file) { return ImagePath(brand, folder, QString::fromLatin1(file)); };
    const int indicator = factor >= 1.5f ? 24 : Scaled(16, factor);
    return QStringLiteral("QTreeView::indicator {width: %1px; height: %1px;}"
                          "QTreeView::indicator:checked {image: url(%2);}"
                          "QTreeView::indicator:unchecked {image: url(%3);}"
                          "QTreeView::indicator:indeterminate {image: url(%4);}"
                          "QTreeView {selection-background-color: %5;}"
                          "QHeaderView::section {padding: %6px %7px; background: %5;}")
        .arg(indicator)
        .arg(path("CheckOn.png"), path("CheckOff.png"), path("CheckPart.png"),
             QString::fromLatin1(brand.palette.light))
        .arg(Scaled(3, factor))
        .arg(Scaled(4, factor));
}

QString DialogIconSheet(const BrandRow &brand, float scale)
{
    const QString folder = ImageFolder(scale);
    if (folder.isEmpty())
        return QString();
    return QStringLiteral("border-image:url(%1);").arg(ImagePath(brand, folder, QString::fromUtf8(brand.infoImage)));
}

QStringList SheetUrls(const QString &sheet)
{
    QStringList urls;
    static const QRegularExpression url(QStringLiteral("url\\(([^)]*)\\)"));
    for (auto it = url.globalMatch(sheet); it.hasNext();)
        urls << it.next().captured(1).trimmed();
    return urls;
}

namespace {
class PressDrag : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *window = static_cast<QWidget *>(watched);
        switch (event->type()) {
        case QEvent::MouseButtonPress: {
            auto *e = static_cast<QMouseEvent *>(event);
            if (e->button() == Qt::LeftButton) {
                m_dragging = true;
                m_offset = e->globalPos() - window->frameGeometry().topLeft();
            }
            break;
        }
        case QEvent::MouseMove: {
            auto *e = static_cast<QMouseEvent *>(event);
            if (m_dragging && (e->buttons() & Qt::LeftButton)) {
                window->move(e->globalPos() - m_offset);
                return true;
            }
            break;
        }
        case QEvent::MouseButtonRelease:
            m_dragging = false;
            break;
        default:
            break;
        }
        return false;
    }

private:
    bool m_dragging = false;
    QPoint m_offset;
};
} // namespace

void DragByAnyPress(QWidget *window)
{
    window->installEventFilter(new PressDrag(window));
}

void Place(QWidget *widget, float scale, int x, int y, int w, int h)
{
    widget->setGeometry(Scaled(x, scale), Scaled(y, scale), Scaled(w, scale), Scaled(h, scale));
}

void ScaleForm(QWidget *root, float scale)
{
    if (scale == 1.0f)
        return;
    for (QWidget *w : root->findChildren<QWidget *>()) {
        if (w->objectName().isEmpty() || w->objectName().startsWith("qt_"))
            continue;
        const QRect r = w->geometry();
        Place(w, 1.0f, Scaled(r.x(), scale), Scaled(r.y(), scale), Scaled(r.width(), scale),
              Scaled(r.height(), scale));
    }
}

} // namespace look
