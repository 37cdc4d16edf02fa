#include "UpdateCore.h"

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QRegularExpression>
#include <QTimer>
#include <QVersionNumber>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace update {

UpdateState updState;
Limits limits;
Network networkSeam = Network::Ask;

namespace {

constexpr qint64 kReadBuffer = 1 << 20;
constexpr int kMaxRedirects = 10;

struct FetchLimits
{
    int totalMs; // 0: none
    int stallMs;
    qint64 maxBytes;
};

FetchLimits LimitsFor(FetchKind kind)
{
    if (kind == FetchKind::VersionFile)
        return {limits.checkMs, limits.checkMs, limits.versionMaxBytes};
    return {0, limits.stallMs, limits.installerMaxBytes};
}

// One try. Bytes go to the file as they come; the file is made with the
// first byte of a successful answer and removed again on any failure.
FetchResult FetchOnce(const QUrl &url, const QString &target, const FetchLimits &lim,
                      const std::atomic<bool> *stop)
{
    FetchResult r;
    QNetworkAccessManager nam;
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(kMaxRedirects);
    QNetworkReply *reply = nam.get(request);
    reply->setReadBufferSize(kReadBuffer);

    QFile out(target);
    QEventLoop loop;
    QElapsedTimer total, quiet;
    total.start();
    quiet.start();
    auto fail = [&](const QString &why) {
        if (r.error.isEmpty())
            r.error = why;
        if (reply->isRunning())
            reply->abort();
    };
    QObject::connect(reply, &QNetworkReply::readyRead, &loop, [&] {
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        if (status < 200 || status > 299) {
            fail(QStringLiteral("HTTP status %1").arg(status));
            return;
        }
        if (!out.isOpen() && !out.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            fail(out.errorString());
            return;
        }
        const QByteArray chunk = reply->readAll();
        if (r.bytes + chunk.size() > lim.maxBytes) {
            fail(QStringLiteral("more than %1 bytes").arg(lim.maxBytes));
            return;
        }
        if (out.write(chunk) != chunk.size()) {
            fail(out.errorString());
            return;
        }
        r.bytes += chunk.size();
        if (!chunk.isEmpty())
            quiet.restart();
    });
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, &loop, [&] {
        if (stop && *stop)
            fail(QStringLiteral("stopped"));
        else if (lim.totalMs > 0 && total.elapsed() >= lim.totalMs)
            fail(QStringLiteral("no answer within %1 ms").arg(lim.totalMs));
        else if (quiet.elapsed() >= lim.stallMs)
            fail(QStringLiteral("no data for %1 ms").arg(lim.stallMs));
    });
    tick.start(qMax(1, qMin(limits.tickMs, qMin(lim.stallMs, lim.totalMs > 0 ? lim.totalMs : lim.stallMs))));
    if (!reply->isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    tick.stop();

    if (r.error.isEmpty() && reply->error() != QNetworkReply::NoError)
        r.error = reply->errorString();
    if (r.error.isEmpty()) {
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        if (status < 200 || status > 299)
            r.error = QStringLiteral("HTTP status %1").arg(status);
    }
    if (r.error.isEmpty() && out.isOpen() && !out.flush())
        r.error = out.errorString();
    out.close();
    delete reply;
    r.ok = r.error.isEmpty();
    if (!r.ok) {
        out.remove();
        r.bytes = 0;
    }
    return r;
}

} // namespace

QString ServerName(const QString &stem, FetchKind kind)
{
    for (const FetchRow &row : kFetchRows)
        if (row.kind == kind)
            return stem + QLatin1String(row.suffix);
    return QString();
}

QString UpdateFolder()
{
    return QDir::tempPath() + "/updatetmp-" + QString::number(::getuid());
}

bool FolderIsOurs(const QString &folder, bool create)
{
    const QByteArray path = QFile::encodeName(folder);
    if (create && ::mkdir(path.constData(), 0700) != 0 && errno != EEXIST)
        return false;
    struct stat st;
    if (::lstat(path.constData(), &st) != 0 || !S_ISDIR(st.st_mode) || st.st_uid != ::getuid())
        return false;
    return (st.st_mode & 077) == 0 || ::chmod(path.constData(), 0700) == 0;
}

void RemoveFolderIfEmpty()
{
    const QString folder = UpdateFolder();
    if (FolderIsOurs(folder, false))
        ::rmdir(QFile::encodeName(folder).constData()); // fails, as it should, when anything is left
}

void RemoveUpdateFiles()
{
    const QString folder = UpdateFolder();
    if (!FolderIsOurs(folder, false))
        return;
    for (const QString &f : {updState.strVersionFilePath, updState.strInstallerPath})
        if (!f.isEmpty() && QFileInfo(f).path() == folder)
            QFile::remove(f);
    RemoveFolderIfEmpty();
}

FetchResult Fetch(const QUrl &url, const QString &target, FetchKind kind, const std::atomic<bool> *stop)
{
    FetchResult r;
    const QString scheme = url.scheme().toLower();
    if (!url.isValid() || (scheme != "http" && scheme != "https")) {
        r.error = QStringLiteral("not an http(s) address");
        return r;
    }
    FetchLimits lim = LimitsFor(kind);
    QElapsedTimer clock;
    clock.start();
    r = FetchOnce(url, target, lim, stop);
    if (r.ok || (stop && *stop))
        return r;
    if (lim.totalMs > 0) {
        lim.totalMs -= int(clock.elapsed());
        if (lim.totalMs <= 0)
            return r;
        lim.stallMs = lim.totalMs;
    }
    return FetchOnce(url, target, lim, stop);
}

QString LatestVersionOf(const QByteArray &text)
{
    static const QRegularExpression form(QStringLiteral("^\\d{1,2}\\.\\d\\.\\d\\.\\d$"));
    for (const QByteArray &line : text.split('\n')) {
        const QString s = QString::fromLatin1(line).trimmed();
        if (!s.isEmpty())
            return form.match(s).hasMatch() ? s : QString();
    }
    return QString();
}

VersionVerdict CompareVersions(const QString &current, const QString &latest)
{
    VersionVerdict v;
    const QVersionNumber cur = QVersionNumber::fromString(current);
    const QVersionNumber lat = QVersionNumber::fromString(latest);
    if (cur.isNull() || lat.isNull() || QVersionNumber::compare(cur, lat) >= 0)
        return v;
    auto majorLength = [](const QString &s) {
        const int dot = s.indexOf('.');
        return dot < 0 ? s.size() : dot;
    };
    // A place past the end of a string, or no digit, counts as less than any digit.
    auto digitAt = [](const QString &s, int i) { return i < s.size() && s[i].isDigit() ? s[i].digitValue() : -1; };
    const int mc = majorLength(current);
    const int ml = majorLength(latest);
    const QString cut = latest.left(ml + 6);
    if (cut.left(ml).toInt() > current.left(mc).toInt()) {
        v.bMajorUpdate = true;
        return v;
    }
    for (int k : {1, 3, 5}) {
        if (digitAt(cut, ml + k) > digitAt(current, mc + k)) {
            v.bMinorUpdate = true;
            break;
        }
    }
    return v;
}

} // namespace update
