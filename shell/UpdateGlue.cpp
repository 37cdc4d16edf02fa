// The window's side of the software update: what the update dialogs are
// told of settings, language and brand, and how the program ends for the
// installer.

#include "Languages.h"
#include "Look.h"
#include "Startup.h"
#include "UpdateDialogs.h"
#include "VideoRepairWindow.h"
#include "mux/FfmpegRunner.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QSettings>
#include <QUrl>

namespace {

class WindowUpdateHost : public update::Host
{
public:
    explicit WindowUpdateHost(VideoRepairWindow *window) : m_window(window) {}

    std::unique_ptr<QSettings> Settings() const override { return startup::OpenSettings(); }
    QString LanguageFolder() const override
    {
        const languages::Language *l = languages::ByType(m_window->nLanguage);
        return l ? QString::fromLatin1(l->folder) : QString();
    }
    QString FileStem() const override { return startup::UpdateFileStem(); }
    QString ProductName() const override { return startup::ProductName(); }
    void ShowMessage(const char *context, const char *title, const char *text) override
    {
        m_window->pMessageDlg->ShowMessage(context, title, text);
    }
    void Dress(QDialog *dialog, int designWidth, int designHeight) const override
    {
        const float scale = startup::DialogScale();
        look::InstallFontSubstitutes();
        dialog->setStyleSheet(look::StyleSheet());
        look::ScaleForm(dialog, scale);
        dialog->setFixedSize(look::Scaled(designWidth, scale), look::Scaled(designHeight, scale));
        look::DragByAnyPress(dialog);
    }
    void QuitForUpdate() override { m_window->EndForUpdate(); }

private:
    VideoRepairWindow *m_window;
};

} // namespace

void VideoRepairWindow::onUpdateWizard() { CheckForUpdate(true); }

void VideoRepairWindow::CheckForUpdate(bool manual)
{
    switch (brand::Market().update) {
    case UpdateWay::None:
        return;
    case UpdateWay::OpenLink:
        if (manual) {
            const QUrl page(startup::OpenSettings()->value("CN/CN_Update_Lnk").toString().trimmed());
            if (page.scheme() == "http" || page.scheme() == "https")
                QDesktopServices::openUrl(page);
        }
        return;
    case UpdateWay::Check:
        break;
    }
    if (QDialog *open = update::OpenUpdateDialog()) {
        open->raise();
        open->activateWindow();
        return;
    }
    // A check runs its own local loop; a second one may not start inside it.
    static bool checking = false;
    if (checking)
        return;
    checking = true;
    if (!m_updateHost)
        m_updateHost = std::make_unique<WindowUpdateHost>(this);
    QCheckUpdate check(*m_updateHost, manual, this);
    checking = false;
}

void VideoRepairWindow::EndForUpdate()
{
    if (pApp.bRepairRunning || m_repairThread.isRunning()) {
        OnStopProcess();
        mux::KillRunning();
        m_repairThread.wait();
    }
    m_saveThread.wait(); // copies leave nothing half-written; let the last one end
    // The installer ends the program without asking about unsaved results:
    // they stay in the work folder rather than go.
    bKeepWorkFolder = true;
    ExitCleanup();
    QCoreApplication::quit();
}
