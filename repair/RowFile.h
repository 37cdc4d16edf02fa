#pragma once
// Which file a result row stands for, and whether it is a result at all.

#include <QString>
#include <QtGlobal>

// Smaller outputs are containers without media: a muxer that wrote only
// headers has failed.
constexpr qint64 kMinResultBytes = 2048;

// The finished file of a row from its output path (column 1) and name
// (column 0): in the custom folder when one was chosen; a DAT source is
// finished as .mov and an RSV source as .mp4, with the name up to its first dot.
QString FileOfRow(const QString &outputPath, const QString &fileName);

// Exists and holds at least kMinResultBytes.
bool IsUsableResult(const QString &path);
