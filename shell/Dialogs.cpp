#include "Dialogs.h"

#include "Brand.h"
#include "Look.h"
#include "Startup.h"
#include "repair/RepairState.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

QString UiText::text() const
{
    if (!source)
        return QString();
    QString s = QCoreApplication::translate(context, source);
    for (const QString &a : args)
        s = s.arg(a);
    return s;
}

// The brand's info image of the scale's folder; the drawn badge where the
// scale has no folder.
static void SetInfoIcon(QLabel *label, float scale)
{
    const QString image = look::DialogIconSheet(brand::Current(), scale);
    if (image.isEmpty()) {
        label->setStyleSheet(look::BadgeStyle(scale));
    } else {
        label->setText(QString());
        label->setStyleSheet(image);
    }
}

// --- FramelessDialog ---

FramelessDialog::FramelessDialog(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    look::InstallFontSubstitutes();
    fScale = startup::DialogScale();
    setStyleSheet(look::StyleSheet());
}

void FramelessDialog::ScaleForm(int designWidth, int designHeight)
{
    look::ScaleForm(this, fScale);
    setFixedSize(look::Scaled(designWidth, fScale), look::Scaled(designHeight, fScale));
}

void FramelessDialog::CentreOnScreen()
{
    adjustSize();
    QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect desk = screen->availableGeometry();
    move(desk.center().x() - width() / 2, desk.center().y() - height() / 2);
}

void FramelessDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
    QDialog::changeEvent(event);
}

void FramelessDialog::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        m_dragging = true;
        m_dragOffset = event->globalPos() - frameGeometry().topLeft();
    }
    QDialog::mousePressEvent(event);
}

void FramelessDialog::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragging && (event->buttons() & Qt::LeftButton)) {
        move(event->globalPos() - m_dragOffset);
        event->accept();
        return;
    }
    QDialog::mouseMoveEvent(event);
}

void FramelessDialog::mouseReleaseEvent(QMouseEvent *event)
{
    m_dragging = false;
    QDialog::mouseReleaseEvent(event);
}

// --- PromptDialog ---

PromptDialog::PromptDialog(QWidget *parent, Icon icon, const QStringList &buttonNames)
    : FramelessDialog(parent)
{
    setModal(true);
    const float s = fScale;
    TitleLabl = new QLabel(this);
    TitleLabl->setObjectName("TitleLabl");
    TitleLabl->setFont(look::TitleFont());
    TitleLabl->setFixedHeight(look::Scaled(34, s));

    IconLabl = new QLabel(icon == Icon::Info ? "i" : "?", this);
    IconLabl->setObjectName("IconLabl");
    IconLabl->setAlignment(Qt::AlignCenter);
    IconLabl->setFixedSize(look::Scaled(36, s), look::Scaled(36, s));
    if (icon == Icon::Info)
        SetInfoIcon(IconLabl, s);
    else
        IconLabl->setStyleSheet(look::BadgeStyle(s));

    TextLabl = new QLabel(this);
    TextLabl->setObjectName("TextLabl");
    TextLabl_2 = new QLabel(this);
    TextLabl_2->setObjectName("TextLabl_2");
    for (QLabel *l : {TextLabl, TextLabl_2}) {
        l->setWordWrap(true);
        l->setFont(look::ListFont());
        l->setMinimumWidth(look::Scaled(360, s));
    }

    auto *lines = new QVBoxLayout;
    lines->setSpacing(look::Scaled(6, s));
    lines->addWidget(TextLabl);
    lines->addWidget(TextLabl_2);
    auto *body = new QHBoxLayout;
    body->setContentsMargins(look::Scaled(24, s), look::Scaled(16, s), look::Scaled(24, s), 0);
    body->setSpacing(look::Scaled(16, s));
    body->addWidget(IconLabl, 0, Qt::AlignTop);
    body->addLayout(lines, 1);

    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(look::Scaled(24, s), look::Scaled(12, s), look::Scaled(20, s),
                                look::Scaled(16, s));
    buttons->setSpacing(look::Scaled(10, s));
    buttons->addStretch(1);
    for (const QString &name : buttonNames) {
        auto *b = new QPushButton(this);
        b->setObjectName(name);
        b->setProperty(name == "NoBtn" ? "secondary" : "accent", true);
        b->setFont(look::ButtonFont());
        b->setMinimumSize(look::Scaled(100, s), look::Scaled(32, s));
        b->setCursor(Qt::PointingHandCursor);
        buttons->addWidget(b);
    }

    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    outer->addWidget(TitleLabl);
    outer->addLayout(body);
    outer->addLayout(buttons);
    outer->setSizeConstraint(QLayout::SetFixedSize);
    setMinimumWidth(look::Scaled(460, s));
}

QPushButton *PromptDialog::Button(const QString &objectName) const
{
    return findChild<QPushButton *>(objectName);
}

void PromptDialog::SetTexts(const UiText &title, const UiText &line1, const UiText &line2)
{
    m_title = title;
    m_line1 = line1;
    m_line2 = line2;
    Retranslate();
}

QString PromptDialog::Title() const { return TitleLabl->text(); }

QString PromptDialog::Text() const
{
    return m_line2.isEmpty() ? TextLabl->text() : TextLabl->text() + "\n" + TextLabl_2->text();
}

void PromptDialog::Retranslate()
{
    TitleLabl->setText(m_title.text());
    TextLabl->setText(m_line1.text());
    TextLabl_2->setText(m_line2.text());
    TextLabl_2->setVisible(!m_line2.isEmpty());
    RetranslateButtons();
}

// --- MessageDlg, QuestionDlg, CloseApplicationDlg, StopDlg ---

MessageDlg::MessageDlg(QWidget *parent) : PromptDialog(parent, Icon::Info, {"OkBtn"})
{
    connect(Button("OkBtn"), &QPushButton::clicked, this, &QDialog::accept);
    RetranslateButtons();
}

void MessageDlg::RetranslateButtons() { Button("OkBtn")->setText(tr("OK")); }

void MessageDlg::ShowMessage(const char *context, const char *title, const char *text,
                             const QStringList &args)
{
    SetTexts(UiText(context, title), UiText(context, text, args));
    CentreOnScreen();
    exec();
}

QuestionDlg::QuestionDlg(QWidget *parent) : PromptDialog(parent, Icon::Question, {"YesBtn", "NoBtn"})
{
    connect(Button("YesBtn"), &QPushButton::clicked, this, &QDialog::accept);
    connect(Button("NoBtn"), &QPushButton::clicked, this, &QDialog::reject);
    RetranslateButtons();
}

void QuestionDlg::RetranslateButtons()
{
    Button("YesBtn")->setText(tr("Yes"));
    Button("NoBtn")->setText(tr("No"));
}

bool QuestionDlg::Ask(const char *context, const char *title, const char *text)
{
    SetTexts(UiText(context, title), UiText(context, text));
    CentreOnScreen();
    return exec() == QDialog::Accepted;
}

CloseApplicationDlg::CloseApplicationDlg(QWidget *parent)
    : PromptDialog(parent, Icon::Info, {"YesBtn", "NoBtn"})
{
    for (const char *name : {"YesBtn", "NoBtn"}) {
        QPushButton *b = Button(name);
        connect(b, &QPushButton::clicked, this, [this, b] {
            strExitAnswer = b->objectName();
            accept();
        });
    }
    RetranslateButtons();
}

void CloseApplicationDlg::RetranslateButtons()
{
    Button("YesBtn")->setText(tr("Yes"));
    Button("NoBtn")->setText(tr("No"));
}

QString CloseApplicationDlg::Ask(const char *context, const char *text)
{
    strExitAnswer.clear();
    SetTexts(UiText("Messages", QT_TRANSLATE_NOOP("Messages", "Exit")), UiText(context, text));
    CentreOnScreen();
    exec();
    return strExitAnswer;
}

StopDlg::StopDlg(QWidget *parent) : PromptDialog(parent, Icon::Question, {"YesBtn", "NoBtn"})
{
    setWindowModality(Qt::WindowModal);
    RetranslateButtons();
}

QPushButton *StopDlg::YesBtn() const { return Button("YesBtn"); }
QPushButton *StopDlg::NoBtn() const { return Button("NoBtn"); }

void StopDlg::RetranslateButtons()
{
    YesBtn()->setText(tr("Yes"));
    NoBtn()->setText(tr("No"));
}

// --- repairFinishDialog ---

repairFinishDialog::repairFinishDialog(QWidget *parent) : FramelessDialog(parent)
{
    setupUi(this);
    setModal(true);
    ScaleForm(498, 174);
    TitleLabl->setFont(look::TitleFont());
    TextLabl->setFont(look::ListFont());
    OkBtn->setFont(look::ButtonFont());
    OkBtn->setProperty("accent", true);
    SetInfoIcon(IconLabl, fScale);
    referenceBtn->hide();
    connect(OkBtn, &QPushButton::clicked, this, &repairFinishDialog::OnOK);
    connect(referenceBtn, &QPushButton::clicked, this, &repairFinishDialog::OnReferenceBtn);
}

void repairFinishDialog::ShowResult(const UiText &title, const UiText &text)
{
    m_title = title;
    m_text = text;
    Retranslate();
    CentreOnScreen();
    exec();
}

void repairFinishDialog::OnReferenceBtn() {}

void repairFinishDialog::OnOK() { accept(); }

void repairFinishDialog::Retranslate()
{
    retranslateUi(this);
    TitleLabl->setText(m_title.text());
    TextLabl->setText(m_text.text());
}

// --- InsufficientSpaceDlg ---

InsufficientSpaceDlg::InsufficientSpaceDlg(QWidget *parent) : FramelessDialog(parent)
{
    setupUi(this);
    setModal(true);
    ScaleForm(498, 174);
    TitleLabl->setFont(look::TitleFont());
    for (QLabel *l : {label, label_4, repairedLabl})
        l->setFont(look::ListFont());
    for (QPushButton *b : {BrowseBtn, CancelBtn, OkBtn}) {
        b->setFont(look::ButtonFont());
        b->setCursor(Qt::PointingHandCursor);
    }
    BrowseBtn->setProperty("accent", true);
    OkBtn->setProperty("accent", true);
    SetInfoIcon(IconLabl, fScale);
    connect(BrowseBtn, &QPushButton::clicked, this, &InsufficientSpaceDlg::OnBrowseBtn);
    connect(CancelBtn, &QPushButton::clicked, this, &InsufficientSpaceDlg::onCancel);
    connect(OkBtn, &QPushButton::clicked, this, &InsufficientSpaceDlg::OnOk);
}

void InsufficientSpaceDlg::SetSpaceLine(const QString &available, const QString &required)
{
    m_available = available;
    m_required = required;
    Retranslate();
}

void InsufficientSpaceDlg::Retranslate()
{
    retranslateUi(this);
    if (!m_available.isEmpty())
        repairedLabl->setText(tr("Available Space: %1, Required Space: %2\n").arg(m_available, m_required));
}

void InsufficientSpaceDlg::onCancel() { reject(); }

void InsufficientSpaceDlg::OnOk() { accept(); }

void InsufficientSpaceDlg::OnBrowseBtn()
{
    ChooseFolder(QFileDialog::getExistingDirectory(this, tr("Select Folder"), QDir::homePath(),
                                                   QFileDialog::ShowDirsOnly));
}

void InsufficientSpaceDlg::ChooseFolder(const QString &folder)
{
    strChosenFolder = folder;
    if (folder.isEmpty())
        return; // a cancelled folder dialog leaves the choice open
    pApp.strCustomFolder = folder;
    pApp.bCustomFolderChosen = true;
    accept();
}
