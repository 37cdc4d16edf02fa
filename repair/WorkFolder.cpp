#include "repair/WorkFolder.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QTextStream>
#include <unistd.h>

namespace workfolder {

namespace {
QStringList readList(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(f.readAll()).split('\n');
}

bool writeList(const QString &path, const QStringList &lines)
{
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    f.write(lines.join('\n').toUtf8());
    return f.commit();
}
} // namespace

bool IsHidden(const QString &parent)
{
    return readList(parent + "/" + kHiddenList).contains(kRepairedName);
}

bool MarkHidden(const QString &parent)
{
    const QString path = parent + "/" + kHiddenList;
    QStringList lines = readList(path);
    if (lines.contains(kRepairedName))
        return true;
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    lines << kRepairedName << QString();
    return writeList(path, lines);
}

bool MakeVisible(const QString &parent)
{
    const QString path = parent + "/" + kHiddenList;
    if (!QFile::exists(path))
        return true;
    QStringList lines = readList(path);
    if (!lines.contains(kRepairedName))
        return true;
    lines.removeAll(kRepairedName);
    bool onlyBlank = true;
    for (const QString &l : lines)
        onlyBlank = onlyBlank && l.trimmed().isEmpty();
    if (onlyBlank)
        return QFile::remove(path);
    return writeList(path, lines);
}

QString TemporaryBase()
{
    const QString base = QDir::tempPath() + QStringLiteral("/videomend-%1").arg(::getuid());
    QDir().mkpath(base);
    QFile::setPermissions(base, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return base;
}

QString OutputPathFor(const QString &workBase, const QString &fileName)
{
    QString base = workBase;
    if (base.endsWith('/') && base.size() > 1)
        base.chop(1);
    return base + "/" + kRepairedName + "/" + fileName;
}

} // namespace workfolder
