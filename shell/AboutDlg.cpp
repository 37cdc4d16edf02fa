#include "AboutDlg.h"

#include "Brand.h"
#include "Languages.h"
#include "Look.h"
#include "Startup.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSysInfo>
#include <QVBoxLayout>

AboutDlg::AboutDlg(QWidget *parent) : FramelessDialog(parent)
{
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setModal(true);
    const float s = fScale;
    const BrandRow &b = brand::Current();

    TitleLabl = new QLabel(this);
    TitleLabl->setObjectName("TitleLabl");
    TitleLabl->setFont(look::TitleFont());
    TitleLabl->setFixedHeight(look::Scaled(34, s));

    LogoLabl = new QLabel(this);
    LogoLabl->setObjectName("LogoLabl");
    LogoLabl->setFixedSize(look::Scaled(120, s), look::Scaled(40, s));
    const QString folder = look::ImageFolder(s);
    if (!folder.isEmpty())
        LogoLabl->setStyleSheet(QStringLiteral("border-image:url(%1);")
                                    .arg(look::ImagePath(b, folder, QString::fromUtf8(b.companyLogo))));
    else
        LogoLabl->setPixmap(look::ProductIcon().pixmap(look::Scaled(40, s)));

    ProductLabl = new QLabel(this);
    ProductLabl->setFont(look::Font("Segoe UI semibold", 13, true));
    VersionLabl = new QLabel(this);
    SystemLabl = new QLabel(this);
    SystemLabl->setWordWrap(true);
    for (QLabel *l : {VersionLabl, SystemLabl})
        l->setFont(look::ListFont());

    auto *license = new QPushButton(this);
    license->setObjectName("LicenseBtn");
    auto *support = new QPushButton(this);
    support->setObjectName("SupportBtn");
    for (QPushButton *link : {license, support}) {
        link->setProperty("link", true);
        link->setFont(look::ListFont());
        link->setCursor(Qt::PointingHandCursor);
    }
    auto *ok = new QPushButton(this);
    ok->setObjectName("OkBtn");
    ok->setProperty("accent", true);
    ok->setFont(look::ButtonFont());
    ok->setMinimumSize(look::Scaled(100, s), look::Scaled(32, s));
    connect(license, &QPushButton::clicked, this, &AboutDlg::OpenLicense);
    connect(support, &QPushButton::clicked, this, &AboutDlg::OpenSupport);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto *text = new QVBoxLayout;
    text->setSpacing(look::Scaled(4, s));
    for (QWidget *w : std::initializer_list<QWidget *>{ProductLabl, VersionLabl, SystemLabl})
        text->addWidget(w);
    auto *links = new QHBoxLayout;
    links->addWidget(license);
    links->addWidget(support);
    links->addStretch(1);
    text->addLayout(links);
    auto *body = new QHBoxLayout;
    body->setContentsMargins(look::Scaled(24, s), look::Scaled(16, s), look::Scaled(24, s), 0);
    body->setSpacing(look::Scaled(18, s));
    body->addWidget(LogoLabl, 0, Qt::AlignTop);
    body->addLayout(text, 1);
    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(look::Scaled(24, s), look::Scaled(12, s), look::Scaled(20, s), look::Scaled(16, s));
    buttons->addStretch(1);
    buttons->addWidget(ok);
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(TitleLabl);
    outer->addLayout(body);
    outer->addLayout(buttons);
    setFixedWidth(look::Scaled(480, s));
    Retranslate();
}

QString AboutDlg::SystemLine()
{
    return QStringLiteral("%1 (%2 %3, %4)")
        .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
             QSysInfo::currentCpuArchitecture());
}

QUrl AboutDlg::LicenseUrl() const
{
    return QUrl::fromLocalFile(languages::LicensePage(shellApp.strAppDir, shellApp.nLanguage));
}

QUrl AboutDlg::SupportUrl() const
{
    return languages::HelpUrl(shellApp.strAppDir, shellApp.nLanguage, languages::HelpTopic::About);
}

void AboutDlg::OpenLicense()
{
    QDesktopServices::openUrl(LicenseUrl());
}

void AboutDlg::OpenSupport()
{
    const QUrl url = SupportUrl();
    if (!url.isEmpty())
        QDesktopServices::openUrl(url);
}

void AboutDlg::Retranslate()
{
    TitleLabl->setText(tr("About"));
    ProductLabl->setText(startup::ProductName().trimmed());
    VersionLabl->setText(tr("Version %1").arg(QStringLiteral(VM_VERSION)));
    SystemLabl->setText(tr("System: %1").arg(SystemLine()));
    findChild<QPushButton *>("LicenseBtn")->setText(tr("License"));
    findChild<QPushButton *>("SupportBtn")->setText(tr("Support"));
    findChild<QPushButton *>("OkBtn")->setText(QCoreApplication::translate("MessageDlg", "OK"));
}
