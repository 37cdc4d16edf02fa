#include "SampleDialogs.h"

#include "Look.h"
#include "Startup.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QTextEdit>

namespace {
// As the add dialog has always offered it, gaps and all.
const char kSampleFilter[] =
    "Video (*.mov *.mp4 *.f4v *.m4v *.3g2 *.RSV *.rsv *.3gp *.asf *.ASF *.wmv *.WMV*.AVI *.avi *.DIVX *.divx "
    "*.FLV *.flv *.mpg *.mpeg *.MPG *.MPEG *.mkv *.MKV *.webm *.WEBM *.DAT *.dat *.voc *.VOC)";

QPushButton *MakeButton(QWidget *parent, const char *name, const char *kind)
{
    auto *b = new QPushButton(parent);
    b->setObjectName(name);
    b->setProperty(kind, true);
    b->setFont(look::ButtonFont());
    b->setCursor(Qt::PointingHandCursor);
    return b;
}

QLabel *MakeTitle(QWidget *parent, float scale, int width)
{
    auto *l = new QLabel(parent);
    l->setObjectName("TitleLabl");
    l->setFont(look::TitleFont());
    look::Place(l, scale, 0, 0, width, 34);
    return l;
}
} // namespace

// --- AdvancedRepairDlg ---

AdvancedRepairDlg::AdvancedRepairDlg(QWidget *parent, const QString &strPath)
    : FramelessDialog(parent), strFailedFilePath(strPath)
{
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setObjectName("AdvancedRepair");
    setModal(true);
    const float s = fScale;
    TitleLabl = MakeTitle(this, s, 510);
    String_label = new QLabel(this);
    String_label->setObjectName("String_label");
    String_label->setTextFormat(Qt::RichText);
    String_label->setWordWrap(true);
    String_label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    look::Place(String_label, s, 24, 48, 462, 164);
    LearnMoreLink = MakeButton(this, "LearnMoreLink", "link");
    LearnMoreLink->setFont(look::ListFont());
    look::Place(LearnMoreLink, s, 24, 226, 110, 32);
    cancle = MakeButton(this, "cancle", "secondary");
    look::Place(cancle, s, 280, 226, 100, 32);
    NextBtn = MakeButton(this, "NextBtn", "accent");
    look::Place(NextBtn, s, 390, 226, 100, 32);
    setFixedSize(look::Scaled(510, s), look::Scaled(275, s));

    connect(NextBtn, &QPushButton::clicked, this, &AdvancedRepairDlg::OnclickedNextDialog);
    connect(cancle, &QPushButton::clicked, this, &AdvancedRepairDlg::OnCancle);
    connect(LearnMoreLink, &QPushButton::clicked, this, &AdvancedRepairDlg::LearnMore);
    Retranslate();
}

void AdvancedRepairDlg::Retranslate()
{
    TitleLabl->setText(tr("Add Sample Video"));
    String_label->setText(
        tr("<html><body style=\"font-family:'Calibri Light,sans-serif'; font-size:10pt;\">"
           "<p><b>Advance Repair</b></p>"
           "<p>Use this option to repair severely damaged videos. </p>"
           "<p>Click &quot;Next&quot; to add a 'sample video' of the same format, shot using the same device.</p>"
           "<p>The sample and the damaged video remain unchanged during repair process.</p></body></html>"));
    NextBtn->setText(tr("Next"));
    cancle->setText(tr("Cancel"));
    LearnMoreLink->setText(tr("Learn More"));
}

void AdvancedRepairDlg::OnclickedNextDialog()
{
    hide();
    Q_EMIT NextDialog();
}

void AdvancedRepairDlg::OnCancle() { close(); }

// --- ReferenceFileDlg ---

ReferenceFileDlg::ReferenceFileDlg(QWidget *parent, const QString &strPath)
    : FramelessDialog(parent), strFailedFilePath(strPath)
{
    setObjectName("ReferenceFileDlg");
    setModal(true);
    const float s = fScale;
    TitleLabl = MakeTitle(this, s, 514);
    String_label = new QLabel(this);
    String_label->setObjectName("String_label");
    String_label->setFont(look::ListFont());
    look::Place(String_label, s, 24, 50, 466, 22);
    RefPath_Edit = new QTextEdit(this);
    RefPath_Edit->setObjectName("RefPath_Edit");
    RefPath_Edit->setReadOnly(true);
    RefPath_Edit->setLineWrapMode(QTextEdit::NoWrap);
    RefPath_Edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    RefPath_Edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    RefPath_Edit->setFont(look::ListFont());
    look::Place(RefPath_Edit, s, 24, 78, 372, 30);
    RefBrowse_Btn = MakeButton(this, "RefBrowse_Btn", "secondary");
    look::Place(RefBrowse_Btn, s, 404, 78, 86, 30);
    refe_CheckBox = new QCheckBox(this);
    refe_CheckBox->setObjectName("refe_CheckBox");
    refe_CheckBox->setFont(look::ListFont());
    look::Place(refe_CheckBox, s, 24, 122, 466, 24);
    cancle = MakeButton(this, "cancle", "secondary");
    look::Place(cancle, s, 284, 178, 100, 32);
    RefRepairBtn = MakeButton(this, "RefRepairBtn", "accent");
    look::Place(RefRepairBtn, s, 390, 178, 100, 32);
    setFixedSize(look::Scaled(514, s), look::Scaled(232, s));

    connect(RefBrowse_Btn, &QPushButton::clicked, this, &ReferenceFileDlg::OnBrowseRefrenceFile);
    connect(cancle, &QPushButton::clicked, this, &ReferenceFileDlg::OnCancle);
    Retranslate();
    Prepare();
}

void ReferenceFileDlg::Prepare()
{
    RefPath_Edit->clear();
    refe_CheckBox->setChecked(false);
    refe_CheckBox->setEnabled(false);
    RefRepairBtn->setEnabled(false);
}

void ReferenceFileDlg::OpenChooseVideo()
{
    bChooseVideoTitle = true;
    Retranslate();
    Prepare();
    RefRepairBtn->setStyleSheet(QStringLiteral("color: white;"));
    CentreOnScreen();
    exec();
}

void ReferenceFileDlg::Retranslate()
{
    TitleLabl->setText(bChooseVideoTitle ? tr("Choose Video") : startup::ProductName());
    String_label->setText(tr("Add a sample video:"));
    RefBrowse_Btn->setText(tr("Browse"));
    RefRepairBtn->setText(tr("Repair"));
    cancle->setText(tr("Cancel"));
    refe_CheckBox->setText(tr("Apply to all files of same format."));
}

void ReferenceFileDlg::OnBrowseRefrenceFile()
{
    ChooseSample(QFileDialog::getOpenFileName(this, tr("Add File"), QString(), kSampleFilter));
}

void ReferenceFileDlg::ChooseSample(const QString &path)
{
    strSamplePath = path;
    if (path.isEmpty())
        return;
    Q_EMIT SampleChosen(path);
    RefPath_Edit->setPlainText(path);
    RefRepairBtn->setEnabled(true);
    refe_CheckBox->setEnabled(true);
    strSamplePathCopy = path;
}

void ReferenceFileDlg::OnHideDialog() { hide(); }

void ReferenceFileDlg::OnCancle()
{
    Q_EMIT Cancelled();
    close();
}

// --- ReferenceRepairedDlg ---

ReferenceRepairedDlg::ReferenceRepairedDlg(QWidget *parent) : FramelessDialog(parent)
{
    setModal(true);
    const float s = fScale;
    TextLabl = new QLabel(this);
    TextLabl->setObjectName("TextLabl");
    TextLabl->setFont(look::ListFont());
    look::Place(TextLabl, s, 24, 40, 400, 40);
    OkBtn = MakeButton(this, "OkBtn", "accent");
    look::Place(OkBtn, s, 324, 100, 100, 32);
    setFixedSize(look::Scaled(448, s), look::Scaled(150, s));
    connect(OkBtn, &QPushButton::clicked, this, &ReferenceRepairedDlg::OnOk);
    Retranslate();
}

void ReferenceRepairedDlg::Retranslate()
{
    TextLabl->setText(tr("Video file repaired successfully!"));
    OkBtn->setText(tr("OK"));
}

void ReferenceRepairedDlg::OnOk() { accept(); }
