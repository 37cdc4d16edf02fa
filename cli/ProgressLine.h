#pragma once
// The progress line of videomend-cli: figures in, one line of text out, so
// the drawing can be tested without a terminal.

#include <QString>
#include <QtGlobal>
#include <cmath>

namespace cliprogress {

// The share (0..1) of the whole command that is done. A file counts one unit
// in each run it takes part in; within a file, the k-th stage (0-based) of the
// engine fills [1 - 2^-k, 1 - 2^-(k+1)] of its unit, since the number of stages
// isn't known beforehand.
inline double Overall(int doneUnits, int totalUnits, int stage, qint64 value, qint64 range)
{
    if (totalUnits <= 0)
        return 0;
    const double inStage = range > 0 ? qBound(0.0, double(value) / double(range), 1.0) : 0.0;
    const double start = 1.0 - std::ldexp(1.0, -stage);
    const double inFile = start + inStage * std::ldexp(1.0, -(stage + 1));
    return qBound(0.0, (doneUnits + inFile) / totalUnits, 1.0);
}

// "1 min 20 s", "45 s", "2 h 5 min".
inline QString Duration(qint64 seconds)
{
    if (seconds >= 3600)
        return QStringLiteral("%1 h %2 min").arg(seconds / 3600).arg(seconds % 3600 / 60);
    if (seconds >= 60)
        return QStringLiteral("%1 min %2 s").arg(seconds / 60).arg(seconds % 60);
    return QStringLiteral("%1 s").arg(seconds);
}

class Line
{
public:
    // The line for the share done so far. The bar and the percentage never go
    // back: a share below one shown before shows the earlier one.
    QString text(double done, const QString &file, const QString &stage, qint64 elapsedMs, int columns = 80)
    {
        m_best = qMax(m_best, qBound(0.0, done, 1.0));
        constexpr int kBar = 24;
        const int filled = int(m_best * kBar);
        QString line = QStringLiteral("[%1%2] %3% ")
                           .arg(QString(filled, QLatin1Char('#')), QString(kBar - filled, QLatin1Char('.')))
                           .arg(int(m_best * 100), 3);
        QString tail = QStringLiteral(": ") + stage;
        // An estimate from the pace so far, once there is a pace to speak of.
        if (m_best >= 0.02 && m_best < 1 && elapsedMs >= 3000)
            tail += QStringLiteral(", about %1 left").arg(Duration(qint64(elapsedMs / 1000.0 * (1 - m_best) / m_best) + 1));
        const int room = qMax(8, columns - 1 - line.size() - tail.size());
        line += file.size() > room ? QStringLiteral("...") + file.right(room - 3) : file;
        return (line + tail).left(qMax(1, columns - 1));
    }

private:
    double m_best = 0;
};

} // namespace cliprogress
