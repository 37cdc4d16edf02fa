#include "Startup.h"

#include "Dialogs.h"
#include "Languages.h"
#include "VideoRepairWindow.h"
#include "mux/FfmpegRunner.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>
#include <QtDebug>
#include <cstdio>
#include <unistd.h>

ShellValues shellApp;

namespace startup {

std::unique_ptr<QSettings> OpenSettings()
{
    return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, kOrganisation,
                                       kApplication);
}

bool ReadResizeAppforDpi()
{
    auto settings = OpenSettings();
    if (!settings->contains(kResizeKey)) {
        settings->setValue(kResizeKey, 1);
        settings->sync();
    }
    return settings->value(kResizeKey, 1).toBool();
}

int ReadLanguage()
{
    return OpenSettings()->value(kLanguageKey, 0).toInt();
}

void WriteLanguage(int n)
{
    auto settings = OpenSettings();
    settings->setValue(kLanguageKey, n);
    settings->sync();
}

float DialogScale()
{
    return ReadResizeAppforDpi() ? shellApp.fDpiScale : 1.0f;
}

void SetFixedQtEnvironment()
{
    qputenv("QT_SCALE_FACTOR", "1");
    qputenv("QT_AUTO_SCREEN_SCALE_FACTOR", "0");
    qputenv("QT_FONT_DPI", "102");
}

float NextLowerScale(float f)
{
    if (f == 0.0f)
        return 1.0f;
    for (float step = 1.25f; step <= 5.0f; step += 0.25f) {
        if (f > step - 0.25f && f <= step)
            return step - 0.25f;
    }
    return 0.0f;
}

float FitScale(float dpiScale, int workWidth, int workHeight)
{
    float f = dpiScale;
    while (f != 1.0f) {
        if (600.0f * f <= float(workHeight) && 850.0f * f <= float(workWidth))
            break;
        f = NextLowerScale(f);
    }
    return f == 0.0f ? 1.0f : f;
}

float MeasureDpiScale(int &argc, char **argv)
{
    float dpi = 96.0f;
    QRect work(0, 0, 850, 600);
    {
        QGuiApplication probe(argc, argv);
        if (QScreen *screen = QGuiApplication::primaryScreen()) {
            dpi = float(screen->logicalDotsPerInch());
            work = screen->availableGeometry();
        }
    }
    return FitScale(dpi / 96.0f, work.width(), work.height());
}

void FindPlayer(const QString &appDir)
{
    const QFileInfo bundled(appDir + "/mplayer");
    if (bundled.isFile() && bundled.isExecutable())
        shellApp.strPlayerPath = bundled.absoluteFilePath();
    else
        shellApp.strPlayerPath = QStandardPaths::findExecutable("mplayer");
    shellApp.nPlayerMode = 3;
}

QProcess *PlayerProcess()
{
    static QProcess *player = nullptr;
    if (!player)
        player = new QProcess(QCoreApplication::instance());
    return player;
}

SingleInstance::SingleInstance(const QString &key) : m_memory(key) {}

QString SingleInstance::UserKey()
{
    // Per user, and per settings store: two stores are two separate setups.
    const QByteArray store = OpenSettings()->fileName().toUtf8();
    const QByteArray tag = QCryptographicHash::hash(store, QCryptographicHash::Sha1).toHex().left(8);
    return QStringLiteral("%1-%2-%3").arg(kInstanceKey).arg(::getuid()).arg(QString::fromLatin1(tag));
}

void SingleInstance::ClearStale(const QString &key)
{
    // Attaching and detaching a segment that nobody else holds removes it.
    QSharedMemory stale(key);
    if (stale.attach())
        stale.detach();
}

bool SingleInstance::Claim()
{
    ClearStale(m_memory.key());
    return m_memory.create(512, QSharedMemory::ReadWrite);
}

int Run(int argc, char **argv)
{
    // 1. Build switches: constants, see Startup.h.
    // 2-4. Settings and scale.
    float dpiScale = 1.0f;
    if (!ReadResizeAppforDpi()) {
        SetFixedQtEnvironment();
    } else {
        QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
        dpiScale = MeasureDpiScale(argc, argv);
        qputenv("QT_FONT_DPI", QByteArray::number(int(dpiScale * 96.0f)));
    }
    shellApp.fDpiScale = dpiScale;

    // 5.
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
    QApplication app(argc, argv);
    app.processEvents();

    // 6-7.
    shellApp.strAppDir = QCoreApplication::applicationDirPath();
    FindPlayer(shellApp.strAppDir);
    shellApp.strFfmpegDir = mux::FfmpegDir();

    // 8-9.
    {
        auto settings = OpenSettings();
        shellApp.nLanguage = settings->value(kLanguageKey, 0).toInt();
        shellApp.nOptionShowAsDisabled = settings->value("OptionShowAsDisabled", 0).toInt();
    }
    languages::Install(shellApp.nLanguage, shellApp.strAppDir);

    // 10.
    SingleInstance instance;
    if (!instance.Claim()) {
        std::fprintf(stderr, "Halvern Videomend is already running.\n");
        MessageDlg notice;
        // Scripts that start the program may ask the notice to close by itself.
        const int closeAfter = qEnvironmentVariableIntValue("VIDEOMEND_NOTICE_TIMEOUT_MS");
        if (closeAfter > 0)
            QTimer::singleShot(closeAfter, &notice, &QDialog::accept);
        notice.ShowMessage("Messages", QT_TRANSLATE_NOOP("Messages", "Halvern Videomend"),
                           QT_TRANSLATE_NOOP("Messages", "Halvern Videomend is already running."));
        ::exit(0);
    }

    // 11-15.
    qDebug() << "Application started successfully.";
    VideoRepairWindow window;
    if (QScreen *screen = QGuiApplication::primaryScreen()) {
        const QRect desk = screen->availableGeometry();
        window.move(desk.center().x() - window.width() / 2, desk.center().y() - window.height() / 2 - 25);
    }
    window.StartFadeIn();
    window.show();
    return app.exec();
}

} // namespace startup
