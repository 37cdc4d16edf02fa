#pragma once
// Copies a repaired file to the user's destination without ever overwriting:
// "base.ext", then "base(1).ext", "base(2).ext"... The name is claimed with an
// exclusive create, so a file that appears between the test and the copy is
// never clobbered. A copy that fails or comes out short leaves nothing behind.

#include <QString>

namespace savedcopy {

// base = up to the first dot, ext = after the last dot: a.b.mp4 -> a.mp4.
QString FirstTarget(const QString &source, const QString &destination);

struct Result
{
    bool ok = false;
    QString target; // the file written, when ok
    QString error;  // why not, when not ok
};

Result CopyToDestination(const QString &source, const QString &destination);

} // namespace savedcopy
