#include "SaveDialogs.h"

#include "Look.h"
#include "repair/SavedCopy.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>

// --- SaveDlgClass ---

SaveDlgClass::SaveDlgClass(QWidget *parent) : FramelessDialog(parent)
{
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setObjectName("SaveDlg");
    setModal(true);
    const float s = fScale;
    TitleLabl = new QLabel(this);
    TitleLabl->setObjectName("TitleLabl");
    TitleLabl->setFont(look::TitleFont());
    look::Place(TitleLabl, s, 0, 0, 494, 34);
    defaultLoc = new QRadioButton(this);
    defaultLoc->setObjectName("defaultLoc");
    look::Place(defaultLoc, s, 24, 44, 446, 24);
    customLoc = new QRadioButton(this);
    customLoc->setObjectName("customLoc");
    look::Place(customLoc, s, 24, 70, 446, 24);
    for (QRadioButton *r : {defaultLoc, customLoc}) {
        r->setFont(look::ListFont());
        r->setCursor(Qt::PointingHandCursor);
    }
    RefPath_Edit = new QTextEdit(this);
    RefPath_Edit->setObjectName("RefPath_Edit");
    RefPath_Edit->setReadOnly(true);
    RefPath_Edit->setLineWrapMode(QTextEdit::NoWrap);
    RefPath_Edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    RefPath_Edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    RefPath_Edit->setFont(look::ListFont());
    look::Place(RefPath_Edit, s, 44, 98, 330, 28);
    auto button = [this, s](const char *name, const char *kind, int x, int y, int w, int h) {
        auto *b = new QPushButton(this);
        b->setObjectName(name);
        b->setProperty(kind, true);
        b->setFont(look::ButtonFont());
        b->setCursor(Qt::PointingHandCursor);
        look::Place(b, s, x, y, w, h);
        return b;
    };
    LocBrowse_Btn = button("LocBrowse_Btn", "secondary", 384, 98, 86, 28);
    cancle = button("cancle", "secondary", 264, 136, 100, 30);
    Save = button("Save", "accent", 370, 136, 100, 30);
    setFixedSize(look::Scaled(494, s), look::Scaled(177, s));

    connect(defaultLoc, &QRadioButton::clicked, this, &SaveDlgClass::OnDefaultLoc);
    connect(customLoc, &QRadioButton::clicked, this, &SaveDlgClass::OnChnageLocOfRepairedFiles);
    connect(LocBrowse_Btn, &QPushButton::clicked, this, &SaveDlgClass::OnBrowseBtn);
    connect(Save, &QPushButton::clicked, this, &SaveDlgClass::OnSaveFiles);
    connect(cancle, &QPushButton::clicked, this, &SaveDlgClass::OnCancle);
    Retranslate();
}

void SaveDlgClass::Retranslate()
{
    TitleLabl->setText(tr("Save Files"));
    defaultLoc->setText(tr("Save repaired file at source location."));
    customLoc->setText(tr("Save file at custom location."));
    LocBrowse_Btn->setText(tr("Browse"));
    Save->setText(tr("Save"));
    cancle->setText(tr("Cancel"));
}

void SaveDlgClass::Prepare()
{
    LocBrowse_Btn->setEnabled(false);
    defaultLoc->setChecked(true);
    customLoc->setChecked(false);
    RefPath_Edit->clear();
    strCustomPath.clear();
    Save->setEnabled(true);
}

void SaveDlgClass::OnDefaultLoc()
{
    LocBrowse_Btn->setEnabled(false);
    RefPath_Edit->clear();
    Q_EMIT KeepWorkFolder(true);
    Save->setEnabled(true);
}

void SaveDlgClass::OnChnageLocOfRepairedFiles()
{
    LocBrowse_Btn->setEnabled(true);
    strCustomPath.clear();
    RefPath_Edit->clear();
    Save->setEnabled(false);
    Q_EMIT KeepWorkFolder(false);
}

void SaveDlgClass::OnBrowseBtn()
{
    ChooseFolder(QFileDialog::getExistingDirectory(this, tr("Select Folder"), QDir::homePath(),
                                                   QFileDialog::ShowDirsOnly));
}

void SaveDlgClass::ChooseFolder(const QString &folder)
{
    // Only this dialog's own path: the run's chosen folder decides where the
    // results are found, and must not move with it.
    strCustomPath = folder;
    RefPath_Edit->setPlainText(folder);
    Save->setEnabled(!folder.isEmpty());
}

void SaveDlgClass::OnSaveFiles()
{
    if (defaultLoc->isChecked()) {
        LocBrowse_Btn->setEnabled(false);
        Q_EMIT SavedMsg();
    } else if (customLoc->isChecked() && !strCustomPath.isEmpty()) {
        Q_EMIT CustomLocation(strCustomPath);
    }
}

void SaveDlgClass::OnCancle()
{
    close();
    RefPath_Edit->clear();
}

// --- ThreadFileSaving ---

ThreadFileSaving::~ThreadFileSaving()
{
    m_condition.wakeAll();
    wait();
}

bool ThreadFileSaving::StartSaving(const QStringList &list, const QString &destination)
{
    if (isRunning())
        return false;
    QMutexLocker lock(&m_mutex);
    lstFiles = list;
    strDestination = destination;
    m_saved.clear();
    m_unsaved.clear();
    lock.unlock();
    start(QThread::LowPriority);
    return true;
}

QStringList ThreadFileSaving::Saved() const
{
    QMutexLocker lock(&m_mutex);
    return m_saved;
}

QStringList ThreadFileSaving::Unsaved() const
{
    QMutexLocker lock(&m_mutex);
    return m_unsaved;
}

void ThreadFileSaving::run()
{
    {
        QMutexLocker lock(&m_mutex);
        for (int i = 0; i < lstFiles.size(); ++i) {
            // Before the copy: the bar shows the files done so far.
            Q_EMIT ProgressValue(unsigned(i));
            const savedcopy::Result r = savedcopy::CopyToDestination(lstFiles.at(i), strDestination);
            if (r.ok)
                m_saved << r.target;
            else
                m_unsaved << lstFiles.at(i);
        }
    }
    Q_EMIT ProgressFinish();
}
