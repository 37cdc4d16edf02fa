#include "repair/SavedCopy.h"

#include <QFile>
#include <QFileInfo>
#include <QtDebug>

namespace savedcopy {

namespace {
QString candidate(const QString &destination, const QString &base, const QString &ext, int n)
{
    return destination + "/" + base + (n == 0 ? QString() : QStringLiteral("(%1)").arg(n)) + ext;
}
} // namespace

QString FirstTarget(const QString &source, const QString &destination)
{
    const QFileInfo info(source);
    const QString ext = info.suffix().isEmpty() ? QString() : "." + info.suffix();
    return candidate(destination, info.baseName(), ext, 0);
}

Result CopyToDestination(const QString &source, const QString &destination)
{
    Result r;
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly)) {
        r.error = QStringLiteral("cannot read %1").arg(source);
        return r;
    }
    const QFileInfo info(source);
    const QString ext = info.suffix().isEmpty() ? QString() : "." + info.suffix();
    QFile out;
    for (int n = 0;; ++n) {
        out.setFileName(candidate(destination, info.baseName(), ext, n));
        if (out.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            break;
        if (!out.exists() || n > 100000) {
            r.error = QStringLiteral("cannot create a file in %1").arg(destination);
            return r;
        }
    }
    const qint64 want = in.size();
    qint64 copied = 0;
    QByteArray buf(1 << 20, '\0');
    while (true) {
        const qint64 got = in.read(buf.data(), buf.size());
        if (got <= 0)
            break;
        if (out.write(buf.constData(), got) != got)
            break;
        copied += got;
    }
    const bool flushed = out.flush();
    out.close();
    if (copied != want || !flushed || out.error() != QFileDevice::NoError) {
        out.remove();
        r.error = QStringLiteral("copy to %1 was cut short").arg(out.fileName());
        return r;
    }
    r.ok = true;
    r.target = out.fileName();
    qDebug().noquote() << "Copied to:" << r.target;
    return r;
}

} // namespace savedcopy
