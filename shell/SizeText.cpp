#include "SizeText.h"

#include <QCoreApplication>

QString FormatSizeMb(quint64 bytes)
{
    const double mb = bytes < 1048576 ? double(bytes) / 1024.0 / 1024.0 : double(bytes) / 1048576.0;
    QString text = QStringLiteral("%1").arg(mb, 0, 'g', 8);
    // 'g' turns to an exponent under 1e-4 MB (about 100 bytes) and from 1e8
    // MB on; nobody reads "4.7683716e-05" as a size.
    if (text.contains('e'))
        text = QString::number(mb, 'f', 8);
    const int dot = text.indexOf('.');
    if (dot >= 0)
        text.truncate(dot + 3);
    return text;
}

QString FormatBytes(qint64 bytes)
{
    if (bytes < 0)
        return QStringLiteral("0 KB");
    if (bytes >= 1073741824)
        return QString::number(double(bytes) / 1073741824.0, 'f', 2) + " GB";
    if (bytes >= 1048576)
        return QString::number(double(bytes) / 1048576.0, 'f', 2) + " MB";
    if (bytes >= 1024)
        return QString::number(double(bytes) / 1024.0, 'f', 2) + " KB";
    return QCoreApplication::translate("Sizes", "%1 bytes").arg(bytes);
}
