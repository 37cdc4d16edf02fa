#include "Startup.h"

#include "Languages.h"
#include "SingleInstance.h"
#include "VideoRepairWindow.h"
#include "mux/FfmpegRunner.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>
#include <QtDebug>
#include <cstdio>

ShellValues shellApp;

UpdateWay UpdateWayFor(MarketVariant variant)
{
    return brand::kMarkets[int(variant)].update;
}

namespace startup {

QString ProductName()
{
    return QString::fromUtf8(brand::Current().productName);
}

std::unique_ptr<QSettings> OpenSettings()
{
    return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                       QString::fromUtf8(brand::Current().organisation),
                                       QString::fromUtf8(brand::Current().application));
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
    const int forced = brand::Market().forcedLanguage;
    return forced >= 0 ? forced : OpenSettings()->value(kLanguageKey, 0).toInt();
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

QString DataDir(const QString &appDir)
{
    // Beside the program in a build or bundle; under share/ once installed.
    const QString installed = QDir::cleanPath(appDir + "/../share/videomend");
    if (!QFileInfo(appDir + "/VideoTranslation").isDir() && QFileInfo(installed + "/VideoTranslation").isDir())
        return installed;
    return appDir;
}

QStringList FileArguments(const QStringList &arguments, const QString &cwd)
{
    QStringList files;
    const QDir base(cwd);
    for (const QString &a : arguments.mid(1)) {
        const QString path = a.startsWith(QLatin1String("file:")) ? QUrl(a).toLocalFile() : a;
        if (!path.isEmpty())
            files << QDir::cleanPath(base.absoluteFilePath(path));
    }
    return files;
}

QString UpdateFileStem()
{
    return QString::fromUtf8(brand::Current().updateStem);
}

int Run(int argc, char **argv)
{
    // 1. Build switches: the brand and market rows linked in, see Brand.h.
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
    QCoreApplication::setApplicationVersion(QStringLiteral(VM_VERSION));
    app.processEvents();

    // 6-7.
    shellApp.strAppDir = DataDir(QCoreApplication::applicationDirPath());
    FindPlayer(QCoreApplication::applicationDirPath());
    shellApp.strFfmpegDir = mux::FfmpegDir();

    // 8-9.
    {
        auto settings = OpenSettings();
        shellApp.nLanguage = ReadLanguage();
        shellApp.nOptionShowAsDisabled = settings->value("OptionShowAsDisabled", 0).toInt();
    }
    languages::Install(shellApp.nLanguage, shellApp.strAppDir);

    // 10. A window already open takes the files and comes to the front.
    const QStringList files = FileArguments(app.arguments(), QDir::currentPath());
    SingleInstance instance;
    switch (instance.Start(files)) {
    case SingleInstance::Role::Handed:
        std::fprintf(stderr, "%s is already running; its window takes the files.\n", brand::Current().application);
        return 0;
    case SingleInstance::Role::Failed:
        // Better a second window than none.
        std::fprintf(stderr, "%s: no word from a window already open; opening this one.\n", brand::Current().application);
        break;
    case SingleInstance::Role::First:
        break;
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
    // Queued: a notice about the files (already listed, say) opens over the window, not before it.
    QObject::connect(&instance, &SingleInstance::FilesReceived, &window, &VideoRepairWindow::TakeFiles,
                     Qt::QueuedConnection);
    if (!files.isEmpty())
        QTimer::singleShot(0, &window, [&window, files] { window.TakeFiles(files); });
    // Once after start-up, silently: only a newer version says anything.
    QTimer::singleShot(0, &window, [&window] { window.CheckForUpdate(false); });
    return app.exec();
}

} // namespace startup
