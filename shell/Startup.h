#pragma once
// What holds for the whole process of the window: build switches, the
// settings store, the screen scale, the player, the files of the command line.

#include "Brand.h"

#include <QString>
#include <QStringList>
#include <memory>

class QProcess;
class QSettings;

UpdateWay UpdateWayFor(MarketVariant variant);

// Values kept from start-up for the rest of the process.
struct ShellValues
{
    float fDpiScale = 1.0f;
    QString strPlayerPath;
    int nPlayerMode = 3;
    QString strAppDir;    // where VideoTranslation/ and help/ lie
    QString strFfmpegDir;
    int nLanguage = 0;
    int nOptionShowAsDisabled = 0;
};
extern ShellValues shellApp;

namespace startup {

// The brand's product name as titles show it ("Halvern Videomend ").
QString ProductName();
constexpr char kResizeKey[] = "ResizeAppforDPI";
constexpr char kLanguageKey[] = "LanguageType";

// The native store in the user's scope (~/.config/Halvern Works/...).
std::unique_ptr<QSettings> OpenSettings();
// Writes 1 when the key is absent, then returns it.
bool ReadResizeAppforDpi();
// The stored language; a market variant's own language whatever is stored.
int ReadLanguage();
void WriteLanguage(int n);
// The scale the dialogs use: 1.0 when ResizeAppforDPI is off.
float DialogScale();

// QT_SCALE_FACTOR 1, QT_AUTO_SCREEN_SCALE_FACTOR 0, QT_FONT_DPI 102.
void SetFixedQtEnvironment();

// The next lower step of 0.25 above 1; 1.0 for 0, 0.0 outside (1, 5].
float NextLowerScale(float f);
// Steps the scale down until the 850 x 600 design fits the work area.
float FitScale(float dpiScale, int workWidth, int workHeight);
// DPI and work area of the primary screen, read through a short-lived
// QGuiApplication: QT_FONT_DPI only counts if it is set before the real
// application object exists, so the screen has to be asked first.
float MeasureDpiScale(int &argc, char **argv);

// <application folder>/mplayer, else mplayer from PATH.
void FindPlayer(const QString &appDir);
// The one player process of the program, owned by the application object.
QProcess *PlayerProcess();

// Where VideoTranslation/ and help/ lie for a program in appDir.
QString DataDir(const QString &appDir);

// Absolute paths of the files named on a command line (program name
// first), relative ones taken from `cwd`; file: URLs are accepted too.
QStringList FileArguments(const QStringList &arguments, const QString &cwd);

// The brand's part of the update's names on the server ("HalvernVideomend").
QString UpdateFileStem();

// main: the steps of start-up in order, then the event loop.
int Run(int argc, char **argv);

} // namespace startup
