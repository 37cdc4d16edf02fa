#pragma once
// The about box: the brand's product name and logo, the version, the system
// the program runs on, and links to the licence and the help.

#include "Dialogs.h"

#include <QUrl>

class QLabel;

class AboutDlg : public FramelessDialog
{
    Q_OBJECT
public:
    explicit AboutDlg(QWidget *parent = nullptr);
    // "<distribution> (<kernel> <version>, <architecture>)".
    static QString SystemLine();
    QUrl LicenseUrl() const;
    QUrl SupportUrl() const;

    QLabel *TitleLabl = nullptr;
    QLabel *LogoLabl = nullptr;
    QLabel *ProductLabl = nullptr;
    QLabel *VersionLabl = nullptr;
    QLabel *SystemLabl = nullptr;

public Q_SLOTS:
    void OpenLicense();
    void OpenSupport();

protected:
    void Retranslate() override;
};
