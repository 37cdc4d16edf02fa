#include "Look.h"

#include <QFile>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QWidget>

// The resources live in a static library: register them by hand.
static void InitShellResources()
{
    Q_INIT_RESOURCE(videomend);
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
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
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
