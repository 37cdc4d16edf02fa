#pragma once
// What the update needs from the program around it: the settings, the
// language, the brand's file stem, how to speak to the user, how to end.
// The window supplies one; tests supply their own.

#include <QString>
#include <memory>

class QDialog;
class QSettings;

namespace update {

class Host
{
public:
    virtual ~Host() = default;
    // The store with Version, AverageUpdateSize and <XX>/UpdateNewLink.
    virtual std::unique_ptr<QSettings> Settings() const = 0;
    // <XX> of the current language; empty when no language is set.
    virtual QString LanguageFolder() const = 0;
    // The brand's part of the names on the server, e.g. "HalvernVideomend".
    virtual QString FileStem() const = 0;
    virtual QString ProductName() const = 0;
    // Whether any network is up; the check says nothing without one.
    virtual bool IsOnline() const;
    // A one-button message, modal; texts are sources translated in `context`.
    virtual void ShowMessage(const char *context, const char *title, const char *text) = 0;
    // Style and scale of a dialog whose form is designWidth x designHeight.
    virtual void Dress(QDialog *dialog, int designWidth, int designHeight) const;
    // Starts the downloaded installer on its own; false if it didn't start.
    virtual bool StartInstaller(const QString &path);
    // Ends the program for the installer: the work in progress first.
    virtual void QuitForUpdate() = 0;
};

} // namespace update
