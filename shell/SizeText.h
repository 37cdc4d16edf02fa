#pragma once
// Size texts of the lists and the space messages.

#include <QString>
#include <QtGlobal>

// Megabytes, whatever the size (3 GB shows as 3072), at most two places
// behind the point, cut rather than rounded.
QString FormatSizeMb(quint64 bytes);
// "1.50 GB", "12.00 MB", "3.25 KB", "512 bytes"; a negative count is "0 KB".
QString FormatBytes(qint64 bytes);
