#pragma once
// Where a run keeps its work: the folder "Repaired" beside the source (or in
// the chosen location), hidden until the user saves.
//
// Linux has no hidden attribute; the file managers (GNOME Files, Dolphin,
// Thunar) hide the names listed in a ".hidden" file of the parent folder, so
// that is what hiding means here. Making it visible takes the name out again.

#include <QString>

namespace workfolder {

constexpr char kRepairedName[] = "Repaired";
constexpr char kLogName[] = "logFile.txt";
constexpr char kHiddenList[] = ".hidden";

// Adds "Repaired" to parent/.hidden unless it is listed already.
bool MarkHidden(const QString &parent);
// Takes "Repaired" out of parent/.hidden; leaves every other line alone and
// removes the list only when it held nothing else.
bool MakeVisible(const QString &parent);
bool IsHidden(const QString &parent);

// The per-user temporary base of a first run. A folder of our own under the
// system's temporary folder, so that clearing its "Repaired" can never touch
// someone else's files.
QString TemporaryBase();

// Where the result of a source ends up: folder + "/Repaired/" + name.
QString OutputPathFor(const QString &workBase, const QString &fileName);

} // namespace workfolder
