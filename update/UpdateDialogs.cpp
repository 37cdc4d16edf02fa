#include "UpdateDialogs.h"

#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QNetworkInterface>
#include <QPointer>
#include <QProcess>
#include <QScreen>
#include <QSettings>
#include <QTimer>
#include <QtDebug>
#include <climits>
#ifdef VM_UPDATE_DIRECT_LINK
#include <QNetworkAccessManager>
#include <QNetworkReply>
#endif

using namespace update;

namespace update {

namespace {
QPointer<QDialog> g_openDialog;

// The per-language key of the server's address: the delivered way, or the
// second way's key when that is built.
#ifdef VM_UPDATE_DIRECT_LINK
constexpr char kLinkKey[] = "/UpdateLink";
#else
constexpr char kLinkKey[] = "/UpdateNewLink";
#endif

QString BaseAddress(const Host &host)
{
    const QString folder = host.LanguageFolder();
    if (folder.isEmpty())
        return QString();
    return host.Settings()->value(folder + kLinkKey).toString().trimmed();
}

void CentreOnScreen(QWidget *w)
{
    if (QScreen *screen = QGuiApplication::primaryScreen()) {
        const QRect desk = screen->availableGeometry();
        w->move(desk.center().x() - w->width() / 2, desk.center().y() - w->height() / 2);
    }
}

constexpr Qt::WindowFlags kDialogFlags = Qt::Dialog | Qt::FramelessWindowHint;
} // namespace

QDialog *OpenUpdateDialog()
{
    return g_openDialog && g_openDialog->isVisible() ? g_openDialog.data() : nullptr;
}

bool Host::IsOnline() const
{
    if (networkSeam != Network::Ask)
        return networkSeam == Network::Online;
    for (const QNetworkInterface &i : QNetworkInterface::allInterfaces()) {
        const auto f = i.flags();
        if ((f & QNetworkInterface::IsUp) && (f & QNetworkInterface::IsRunning) && !(f & QNetworkInterface::IsLoopBack))
            return true;
    }
    return false;
}

void Host::Dress(QDialog *, int, int) const {}

bool Host::StartInstaller(const QString &path)
{
    return QProcess::startDetached(path, {}, QFileInfo(path).path());
}

} // namespace update

// --- The check ---

QCheckUpdate::QCheckUpdate(Host &host, bool bManualCheck, QWidget *parent)
    : QDialog(parent, kDialogFlags), m_host(host)
{
    setupUi(this);
    setWindowTitle(host.ProductName());
    host.Dress(this, 320, 80);
    hide();
    updState.bManualCheck = bManualCheck;
    m_result = RunCheck();
    if (m_result == Result::None && updState.bManualCheck)
        m_host.ShowMessage("QCheckUpdate", QT_TRANSLATE_NOOP("QCheckUpdate", "Update"),
                           QT_TRANSLATE_NOOP("QCheckUpdate", "No update available."));
    updState.bManualCheck = false;
    close();
}

QCheckUpdate::Result QCheckUpdate::RunCheck()
{
    const QString folder = UpdateFolder();
    const QString stem = m_host.FileStem();
    updState.strVersionFilePath = folder + "/" + ServerName(stem, FetchKind::VersionFile);
    updState.strInstallerPath = folder + "/" + ServerName(stem, FetchKind::Installer);
    if (!m_host.IsOnline())
        return Result::Offline;
    qDebug() << "System has a network connection.";
    updState.bMajorUpdate = updState.bMinorUpdate = false;

    const QString base = BaseAddress(m_host);
    if (base.isEmpty())
        return Result::None; // a fresh install asks no server
    const QUrl url(base + ServerName(stem, FetchKind::VersionFile));
    if (!url.isValid() || !FolderIsOurs(folder, true)) {
        qWarning() << "Update: no usable address or folder:" << url.toString() << folder;
        return Result::None;
    }
    QFile::remove(updState.strVersionFilePath);
    const FetchResult fetched = Fetch(url, updState.strVersionFilePath, FetchKind::VersionFile);
    QByteArray text;
    if (fetched.ok && fetched.bytes >= kMinVersionFileBytes) {
        QFile f(updState.strVersionFilePath);
        if (f.open(QIODevice::ReadOnly))
            text = f.read(limits.versionMaxBytes);
    } else if (!fetched.ok) {
        qWarning() << "Update: the version file didn't come:" << fetched.error;
    }
    // Read once; nothing else needs it.
    QFile::remove(updState.strVersionFilePath);
    RemoveFolderIfEmpty();
    if (text.isEmpty())
        return Result::None;

    const QString current = m_host.Settings()->value("Version").toString().trimmed();
    if (current.isEmpty())
        return Result::None;
    const QString latest = LatestVersionOf(text);
    qDebug() << "Stored:" << latest;
    const VersionVerdict verdict = CompareVersions(current, latest);
    updState.bMajorUpdate = verdict.bMajorUpdate;
    updState.bMinorUpdate = verdict.bMinorUpdate;
    (verdict.bMinorUpdate ? updState.strMinorVersion : updState.strMajorVersion) = latest;
    if (!verdict.bMajorUpdate && !verdict.bMinorUpdate)
        return Result::None;

    updState.bManualCheck = false;
    updState.bUpdateOffered = true;
    hide();
    QShowUpdate offer(m_host, parentWidget());
    CentreOnScreen(&offer);
    offer.exec();
    return Result::Offered;
}

// --- The offer ---

QShowUpdate::QShowUpdate(Host &host, QWidget *parent) : QDialog(parent, kDialogFlags), m_host(host)
{
    setupUi(this);
    host.Dress(this, 460, 200);
    Retranslate();
    connect(UpdateButton, &QPushButton::clicked, this, &QShowUpdate::DownloadApp);
    connect(CancelButton, &QPushButton::clicked, this, &QShowUpdate::CancelDownload);
    g_openDialog = this;
}

void QShowUpdate::Retranslate()
{
    retranslateUi(this);
    if (updState.bMinorUpdate)
        textEdit->setPlainText(tr("A new minor update ") + updState.strMinorVersion +
                               tr(" is available. Click Update to proceed further."));
    else
        textEdit->setPlainText(tr("A new major release ") + updState.strMajorVersion +
                               tr(" is available. Click Update to proceed further."));
}

void QShowUpdate::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
    QDialog::changeEvent(event);
}

void QShowUpdate::DownloadApp()
{
    hide();
    auto *download = new QDownloadApp(m_host, parentWidget());
    CentreOnScreen(download);
    download->show();
}

void QShowUpdate::CancelDownload() { close(); }

// --- The download thread ---

QDownloadThread::~QDownloadThread()
{
    m_stop = true;
    m_condition.wakeAll();
    wait();
}

void QDownloadThread::Start(const QString &url, const QString &fileName, quint64 minSize)
{
    QMutexLocker lock(&m_mutex);
    strUrl = url;
    strFileName = fileName;
    ullMinSize = minSize;
    if (isRunning())
        m_condition.wakeAll();
    else
        start(QThread::LowPriority);
}

void QDownloadThread::run()
{
    m_mutex.lock();
    const QUrl url(strUrl);
    const QString path = UpdateFolder() + "/" + strFileName;
    const quint64 minSize = ullMinSize;
    m_mutex.unlock();

    Q_EMIT OnDownloadStart();
    const FetchResult r = Fetch(url, path, FetchKind::Installer, &m_stop);
    if (r.ok && quint64(r.bytes) >= minSize && !m_stop) {
        Q_EMIT OnDownloadFinish(path);
        return;
    }
    qWarning() << "Update: the installer didn't come whole:" << (r.ok ? QStringLiteral("short") : r.error);
    QFile::remove(path);
    Q_EMIT OnDownloadFailed();
}

// --- The download ---

QDownloadApp::QDownloadApp(Host &host, QWidget *parent) : QDialog(parent, kDialogFlags), m_host(host)
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    host.Dress(this, 460, 224);
    connect(OkButton, &QPushButton::clicked, this, &QDialog::close);
    g_openDialog = this;
    Begin();
}

QDownloadApp::~QDownloadApp()
{
    // The thread ends before the dialog goes; a download cut short leaves nothing.
    m_thread.Stop();
    m_thread.wait();
#ifdef VM_UPDATE_DIRECT_LINK
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
        m_file->remove();
    }
#endif
    RemoveFolderIfEmpty();
}

void QDownloadApp::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslateUi(this);
    QDialog::changeEvent(event);
}

void QDownloadApp::Begin()
{
    RemoveUpdateFiles();
    const QString name = QFileInfo(updState.strInstallerPath).fileName();
    const QString base = BaseAddress(m_host);
    const QUrl url(base + name);
    QString error;
    if (base.isEmpty() || !url.isValid())
        error = base.isEmpty() ? tr("no address of the update server is set") : url.errorString();
    else if (!FolderIsOurs(UpdateFolder(), true))
        error = tr("the folder %1 can't be used").arg(UpdateFolder());
    if (!error.isEmpty()) {
        BlankLabels();
        ExeDownLoadProgressBar->hide();
        InfoLabel->setText(tr("Unable to save the file ") + name + " : " + error);
        InfoLabel->show();
        return;
    }
    const quint64 size = m_host.Settings()->value("AverageUpdateSize").toULongLong();
    ullMinSize = size ? size : kDefaultMinSize;
    m_timer = new QTimer(this);
    connect(m_timer, &QTimer::timeout, this, &QDownloadApp::OnTimerLoadSlot);
#ifdef VM_UPDATE_DIRECT_LINK
    m_nam = new QNetworkAccessManager(this);
    m_file = new QFile(updState.strInstallerPath, this);
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    if (url.scheme() != "http" && url.scheme() != "https") {
        QTimer::singleShot(0, this, &QDownloadApp::OnDownloadFailed);
        return;
    }
    OnDownloadStart();
    // The progress signal shows the bar in this way; the timer only ends a stalled reply.
    m_timer->disconnect();
    m_quiet.start();
    connect(m_timer, &QTimer::timeout, this, [this] {
        if (m_reply && m_quiet.elapsed() >= limits.stallMs)
            m_reply->abort();
    });
    m_reply = m_nam->get(request);
    m_reply->setReadBufferSize(1 << 20);
    connect(m_reply, &QNetworkReply::readyRead, this, &QDownloadApp::downloadReadyRead);
    connect(m_reply, &QNetworkReply::downloadProgress, this, &QDownloadApp::OnDownloadProgress);
    connect(m_reply, &QNetworkReply::finished, this, &QDownloadApp::downloadFinished);
#else
    connect(&m_thread, &QDownloadThread::OnDownloadStart, this, &QDownloadApp::OnDownloadStart);
    connect(&m_thread, &QDownloadThread::OnDownloadFailed, this, &QDownloadApp::OnDownloadFailed);
    connect(&m_thread, &QDownloadThread::OnDownloadFinish, this, &QDownloadApp::OnDownloadFinish);
    m_thread.Start(url.toString(), name, ullMinSize);
#endif
}

void QDownloadApp::BlankLabels()
{
    for (QLabel *l : {DownLoadProgressLabel, TimeElapsedLabel, TransferRateLabel, InfoLabel}) {
        l->setText("      ");
        l->hide();
    }
}

void QDownloadApp::OnDownloadStart()
{
    m_clock.restart();
    m_barDivisor = ullMinSize / quint64(INT_MAX) + 1;
    ExeDownLoadProgressBar->reset();
    ExeDownLoadProgressBar->setRange(0, int(ullMinSize / m_barDivisor));
    m_timer->start(50);
}

void QDownloadApp::OnTimerLoadSlot()
{
    quint64 bytes = 0;
    for (const QFileInfo &f : QDir(UpdateFolder()).entryInfoList(QDir::Files))
        bytes += quint64(f.size());
    // The size is an estimate: past it the bar stays full.
    ExeDownLoadProgressBar->setValue(int(qMin(bytes, ullMinSize) / m_barDivisor));
    TimeElapsedLabel->setText(tr("Time Elapsed: ") + QString::number(m_clock.elapsed() / 1000) + tr(" sec ") + "(" +
                              QString::number(double(bytes) / 1048576.0, 'f', 2) + tr(" MB copied) "));
}

void QDownloadApp::OnDownloadFailed()
{
    if (m_timer)
        m_timer->stop();
    BlankLabels();
    RemoveFolderIfEmpty();
    m_host.ShowMessage("QDownloadApp", QT_TRANSLATE_NOOP("QDownloadApp", "Update"),
                       QT_TRANSLATE_NOOP("QDownloadApp", "Update failed \n\n Update failed due to partial download."));
    close();
}

void QDownloadApp::OnDownloadFinish(QString strDownloadPath)
{
    if (m_timer)
        m_timer->stop();
    BlankLabels();
    close();
    RunInstaller(strDownloadPath);
}

void QDownloadApp::RunInstaller(const QString &path)
{
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (m_host.StartInstaller(path)) {
        m_host.QuitForUpdate();
        return;
    }
    qWarning() << "Update: the installer didn't start:" << path;
    QFile::remove(path);
    RemoveFolderIfEmpty();
    m_host.ShowMessage("QDownloadApp", QT_TRANSLATE_NOOP("QDownloadApp", "Update"),
                       QT_TRANSLATE_NOOP("QDownloadApp", "The installer could not be started."));
}

#ifdef VM_UPDATE_DIRECT_LINK
// The second way: the reply's own signals instead of the thread.

void QDownloadApp::downloadReadyRead()
{
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QByteArray chunk = m_reply->readAll();
    const bool fits = m_received + chunk.size() <= limits.installerMaxBytes;
    if (status < 200 || status > 299 || !fits ||
        (!m_file->isOpen() && !m_file->open(QIODevice::WriteOnly | QIODevice::Truncate)) ||
        m_file->write(chunk) != chunk.size()) {
        m_reply->abort();
        return;
    }
    m_received += chunk.size();
    m_quiet.restart();
}

void QDownloadApp::OnDownloadProgress(qint64 bytesReceived, qint64 bytesTotal)
{
    const double seconds = qMax<qint64>(1, m_clock.elapsed()) / 1000.0;
    if (bytesTotal > 0) {
        m_barDivisor = quint64(bytesTotal) / quint64(INT_MAX) + 1;
        ExeDownLoadProgressBar->setRange(0, int(quint64(bytesTotal) / m_barDivisor));
        ExeDownLoadProgressBar->setValue(int(quint64(bytesReceived) / m_barDivisor));
    }
    TimeElapsedLabel->setText(tr("Time Elapsed: ") + QString::number(qint64(seconds)) + tr(" sec ") + "(" +
                              QString::number(double(bytesReceived) / 1048576.0, 'f', 2) + tr(" MB of  ") +
                              QString::number(double(qMax<qint64>(0, bytesTotal)) / 1048576.0, 'f', 2) +
                              tr(" MB copied) "));
    TransferRateLabel->setText(tr("Transfer Rate: ") +
                               QString::number(double(bytesReceived) / 1024.0 / seconds, 'f', 2) + tr(" KB/sec "));
}

void QDownloadApp::downloadFinished()
{
    QNetworkReply *reply = m_reply;
    m_reply = nullptr;
    reply->deleteLater();
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool ok = reply->error() == QNetworkReply::NoError && status >= 200 && status <= 299 &&
                    (!m_file->isOpen() || m_file->flush()) && quint64(m_received) >= ullMinSize;
    m_file->close();
    if (!ok) {
        m_file->remove();
        OnDownloadFailed();
        return;
    }
    OnDownloadFinish(m_file->fileName());
}
#endif
