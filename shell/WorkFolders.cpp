#include "WorkFolders.h"

#include "repair/WorkFolder.h"

#include <QDir>
#include <QFileInfo>

namespace {
constexpr QDir::Filters kEverything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
}

QString WorkFolderLedger::Key(const QString &folder)
{
    return QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
}

void WorkFolderLedger::Note(const QString &repairedFolder)
{
    const QString key = Key(repairedFolder);
    if (m_entries.contains(key))
        return;
    Entry e;
    const QFileInfo info(key);
    e.existed = info.exists();
    e.hiddenBefore = workfolder::IsHidden(info.path());
    if (info.isDir()) {
        const QStringList names = QDir(key).entryList(kEverything);
        e.names = QSet<QString>(names.begin(), names.end());
    }
    m_entries.insert(key, e);
}

void WorkFolderLedger::Clear(const QString &repairedFolder)
{
    const QString key = Key(repairedFolder);
    auto it = m_entries.find(key);
    if (it == m_entries.end())
        return;
    const Entry e = it.value();
    m_entries.erase(it);

    const QFileInfo folder(key);
    if (folder.isDir() && !folder.isSymLink()) {
        for (const QFileInfo &f : QDir(key).entryInfoList(kEverything)) {
            if (e.names.contains(f.fileName()))
                continue;
            if (f.isDir() && !f.isSymLink())
                QDir(f.filePath()).removeRecursively();
            else
                QFile::remove(f.filePath());
        }
        if (!e.existed)
            QDir().rmdir(key);
    }
    // The run listed the folder in the parent's .hidden; take that back
    // unless the user had it hidden already.
    const QString parent = folder.path();
    if (!e.hiddenBefore && workfolder::IsHidden(parent))
        workfolder::MakeVisible(parent);
}

void WorkFolderLedger::ClearAll()
{
    for (const QString &folder : m_entries.keys())
        Clear(folder);
}
