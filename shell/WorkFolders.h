#pragma once
// The "Repaired" folders that runs of this window write into, and what each
// held before the first run touched it, so that clearing a folder removes only
// what this program made: a folder it created goes as a whole, one that was
// there before keeps the user's files (and its visibility).

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

class WorkFolderLedger
{
public:
    // Notes the folder before a run may write into it. A folder noted earlier
    // (and not cleared since) keeps its first note.
    void Note(const QString &repairedFolder);
    // Removes what was added since the note and forgets the folder. A folder
    // that was never noted is left alone.
    void Clear(const QString &repairedFolder);
    void ClearAll();
    // Leaves the folder to the user as it stands: it is no longer cleared.
    void Forget(const QString &repairedFolder) { m_entries.remove(Key(repairedFolder)); }
    QStringList Folders() const { return m_entries.keys(); }

private:
    struct Entry
    {
        bool existed = false;
        bool hiddenBefore = false;
        QSet<QString> names;
    };
    static QString Key(const QString &folder);
    QMap<QString, Entry> m_entries;
};
