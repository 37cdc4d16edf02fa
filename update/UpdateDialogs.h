#pragma once
// The dialogs of the update: the hidden check, the offer, the download.

#include "UpdateCore.h"
#include "UpdateHost.h"
#include "ui_CheckUpdate.h"
#include "ui_DownloadUpdate.h"
#include "ui_ShowUpdateAvail.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>
#include <atomic>

class QTimer;
#ifdef VM_UPDATE_DIRECT_LINK
class QFile;
class QNetworkAccessManager;
class QNetworkReply;
#endif

namespace update {
// The offer or download now open, if any: pressing Update raises it.
QDialog *OpenUpdateDialog();
}

// Checks in its constructor and is never shown. A newer version leads to the
// offer; "none" is said only when the check was asked for.
class QCheckUpdate : public QDialog, public Ui::CheckUpdate
{
    Q_OBJECT
public:
    enum class Result { Offline, None, Offered };
    QCheckUpdate(update::Host &host, bool bManualCheck, QWidget *parent = nullptr);
    Result result() const { return m_result; }

private:
    Result RunCheck();
    update::Host &m_host;
    Result m_result = Result::None;
};

class QShowUpdate : public QDialog, public Ui::ShowUpdateAvail
{
    Q_OBJECT
public:
    QShowUpdate(update::Host &host, QWidget *parent = nullptr);

public Q_SLOTS:
    void DownloadApp();
    void CancelDownload();

protected:
    void changeEvent(QEvent *event) override;

private:
    void Retranslate();
    update::Host &m_host;
};

// Fetches the installer into the update folder.
class QDownloadThread : public QThread
{
    Q_OBJECT
public:
    ~QDownloadThread() override;
    void Start(const QString &url, const QString &fileName, quint64 minSize);
    // Makes a running fetch end soon; what it wrote is removed.
    void Stop() { m_stop = true; }

Q_SIGNALS:
    void OnDownloadStart();
    void OnDownloadFailed();
    void OnDownloadFinish(QString strDownloadPath);

protected:
    void run() override;

private:
    QString strUrl;
    QString strFileName;
    quint64 ullMinSize = 0;
    QMutex m_mutex;
    QWaitCondition m_condition;
    std::atomic<bool> m_stop{false};
};

class QDownloadApp : public QDialog, public Ui::DownloadUpdate
{
    Q_OBJECT
public:
    QDownloadApp(update::Host &host, QWidget *parent = nullptr);
    ~QDownloadApp() override;

public Q_SLOTS:
    void OnDownloadStart();
    void OnDownloadFailed();
    void OnDownloadFinish(QString strDownloadPath);
    void OnTimerLoadSlot();
#ifdef VM_UPDATE_DIRECT_LINK
    void downloadFinished();
    void downloadReadyRead();
    void OnDownloadProgress(qint64 bytesReceived, qint64 bytesTotal);
#endif

protected:
    void changeEvent(QEvent *event) override;

private:
    void Begin();
    void BlankLabels();
    void RunInstaller(const QString &path);
    update::Host &m_host;
    QDownloadThread m_thread;
    QTimer *m_timer = nullptr;
    QElapsedTimer m_clock;
    quint64 ullMinSize = update::kDefaultMinSize;
    quint64 m_barDivisor = 1; // sizes past int are scaled down for the bar
#ifdef VM_UPDATE_DIRECT_LINK
    QNetworkAccessManager *m_nam = nullptr;
    QNetworkReply *m_reply = nullptr;
    QFile *m_file = nullptr;
    qint64 m_received = 0;
    QElapsedTimer m_quiet;
#endif
};
