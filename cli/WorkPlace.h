#pragma once
// The folders a command works in, seen from videomend-cli: what was there
// before the run, so that only what the run made is taken away again, and a
// move of a result that never overwrites.

#include "repair/SavedCopy.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QStringList>

class WorkPlace
{
public:
    // Records what base/Repaired and base/.hidden hold now.
    explicit WorkPlace(const QString &base);
    const QString &base() const { return m_base; }

    // Removes what appeared in base/Repaired since then, except the files in
    // keep; the Repaired folder too when the run made it and it ends empty.
    // Unless a kept file stays in it, the "Repaired" line the run added to
    // .hidden goes again (and a .hidden that was there is never lost).
    void cleanUp(const QSet<QString> &keep) const;

private:
    QString m_base;
    bool m_repairedExisted = false;
    QStringList m_before;
    bool m_hiddenExisted = false;
    bool m_listedBefore = false;
    QByteArray m_hiddenBytes;
};

// Moves file into dir under the first free name of name.ext, name(1).ext...
// (name up to the first dot): a rename on the same filesystem, else a copy
// after which the file is removed. Never overwrites.
savedcopy::Result MoveToFolder(const QString &file, const QString &dir);
