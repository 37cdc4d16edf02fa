#include "cli/WorkPlace.h"

#include "repair/WorkFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>

namespace {
constexpr QDir::Filters kEverything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

QString repairedOf(const QString &base) { return base + "/" + workfolder::kRepairedName; }
} // namespace

WorkPlace::WorkPlace(const QString &base) : m_base(base)
{
    const QDir repaired(repairedOf(base));
    m_repairedExisted = repaired.exists();
    if (m_repairedExisted)
        m_before = repaired.entryList(kEverything);
    QFile hidden(base + "/" + workfolder::kHiddenList);
    m_hiddenExisted = hidden.exists();
    m_listedBefore = workfolder::IsHidden(base);
    if (hidden.open(QIODevice::ReadOnly))
        m_hiddenBytes = hidden.readAll();
}

void WorkPlace::cleanUp(const QSet<QString> &keep) const
{
    QDir repaired(repairedOf(m_base));
    QSet<QString> keepClean;
    for (const QString &k : keep)
        keepClean << QDir::cleanPath(QFileInfo(k).absoluteFilePath());
    bool kept = false;
    if (repaired.exists()) {
        for (const QString &name : repaired.entryList(kEverything)) {
            const QString path = repaired.absoluteFilePath(name);
            if (m_before.contains(name))
                continue;
            if (keepClean.contains(QDir::cleanPath(path))) {
                kept = true;
                continue;
            }
            const QFileInfo info(path);
            if (info.isDir() && !info.isSymLink())
                QDir(path).removeRecursively();
            else
                QFile::remove(path);
        }
        if (!m_repairedExisted && repaired.isEmpty(kEverything))
            QDir(m_base).rmdir(workfolder::kRepairedName);
    }
    if (kept || m_listedBefore || !workfolder::IsHidden(m_base))
        return;
    workfolder::MakeVisible(m_base);
    QFile hidden(m_base + "/" + workfolder::kHiddenList);
    if (m_hiddenExisted && !hidden.exists() && hidden.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        hidden.write(m_hiddenBytes);
}

savedcopy::Result MoveToFolder(const QString &file, const QString &dir)
{
    const QFileInfo info(file);
    const QString ext = info.suffix().isEmpty() ? QString() : "." + info.suffix();
    const QByteArray from = QFile::encodeName(info.absoluteFilePath());
    for (int n = 0; n < 100000; ++n) {
        const QString target =
            QDir(dir).absoluteFilePath(info.baseName() + (n ? QStringLiteral("(%1)").arg(n) : QString()) + ext);
        if (target == info.absoluteFilePath())
            continue;
        if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, QFile::encodeName(target).constData(),
                        RENAME_NOREPLACE) == 0)
            return {true, target, QString()};
        if (errno != EEXIST)
            break; // another filesystem, or one that can't rename without replacing: copy
    }
    savedcopy::Result r = savedcopy::CopyToDestination(file, dir);
    if (r.ok)
        QFile::remove(file);
    return r;
}
