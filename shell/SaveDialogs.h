#pragma once
// Saving finished files: the choice of where, and the thread that copies.

#include "Dialogs.h"

#include <QMutex>
#include <QStringList>
#include <QThread>
#include <QWaitCondition>

class QRadioButton;
class QTextEdit;

// Reused for each save; OnClickedSaveButton sets its state at each opening.
class SaveDlgClass : public FramelessDialog
{
    Q_OBJECT
public:
    explicit SaveDlgClass(QWidget *parent);
    QLabel *TitleLabl = nullptr;
    QRadioButton *defaultLoc = nullptr;
    QRadioButton *customLoc = nullptr;
    QTextEdit *RefPath_Edit = nullptr;
    QPushButton *LocBrowse_Btn = nullptr;
    QPushButton *Save = nullptr;
    QPushButton *cancle = nullptr;
    QString strCustomPath;

    void Prepare();
    // The answer of the folder dialog behind Browse; empty when it was cancelled.
    void ChooseFolder(const QString &folder);

Q_SIGNALS:
    void CustomLocation(const QString &path);
    void SavedMsg();
    // Whether the work folder is to stay at exit, as the chosen way implies.
    void KeepWorkFolder(bool keep);

public Q_SLOTS:
    void OnCancle();
    void OnBrowseBtn();
    void OnChnageLocOfRepairedFiles();
    void OnSaveFiles();
    void OnDefaultLoc();

protected:
    void Retranslate() override;
};

// Copies a list of files into one folder, one at a time, never overwriting.
class ThreadFileSaving : public QThread
{
    Q_OBJECT
public:
    ~ThreadFileSaving() override;
    // Starts a copy of the list; refused (false) while one runs.
    bool StartSaving(const QStringList &list, const QString &strDestination);
    // Of the last list, once ProgressFinish came: the files written, and the
    // sources that could not be copied.
    QStringList Saved() const;
    QStringList Unsaved() const;

Q_SIGNALS:
    void ProgressValue(unsigned int n);
    void ProgressFinish();

protected:
    void run() override;

private:
    QStringList lstFiles;
    QString strDestination;
    QStringList m_saved, m_unsaved;
    mutable QMutex m_mutex;
    QWaitCondition m_condition;
};
