#pragma once
// The way from a row that waits for a sample to the run with one: a page that
// explains the step, then the choice of the sample video.

#include "Dialogs.h"

class QCheckBox;
class QTextEdit;

// Told anew for each click on "Advance Repair".
class AdvancedRepairDlg : public FramelessDialog
{
    Q_OBJECT
public:
    AdvancedRepairDlg(QWidget *parent, const QString &strPath);
    QLabel *TitleLabl = nullptr;
    QLabel *String_label = nullptr;
    QPushButton *NextBtn = nullptr;
    QPushButton *cancle = nullptr;
    QPushButton *LearnMoreLink = nullptr;
    QString strFailedFilePath;

Q_SIGNALS:
    void NextDialog();
    void LearnMore();

public Q_SLOTS:
    void OnclickedNextDialog();
    void OnCancle();

protected:
    void Retranslate() override;
};

// One instance for the window's life; each opening starts cleared.
class ReferenceFileDlg : public FramelessDialog
{
    Q_OBJECT
public:
    explicit ReferenceFileDlg(QWidget *parent, const QString &strPath = QString());
    QLabel *TitleLabl = nullptr;
    QLabel *String_label = nullptr;
    QTextEdit *RefPath_Edit = nullptr;
    QPushButton *RefBrowse_Btn = nullptr;
    QPushButton *RefRepairBtn = nullptr;
    QPushButton *cancle = nullptr;
    QCheckBox *refe_CheckBox = nullptr;
    QString strFailedFilePath;
    QString strSamplePath;
    QString strSamplePathCopy;
    bool bChooseVideoTitle = false;

    // Clears the path and the box, as each opening needs.
    void Prepare();
    // The step after the explanation: titled "Choose Video", centred, modal.
    void OpenChooseVideo();
    // The answer of the file dialog behind Browse; empty when it was cancelled.
    void ChooseSample(const QString &path);

Q_SIGNALS:
    void RepairFile();
    void SampleChosen(const QString &path);
    void Cancelled();

public Q_SLOTS:
    void OnBrowseRefrenceFile();
    void OnHideDialog();
    void OnCancle();

protected:
    void Retranslate() override;
};

// Made once and never opened, kept for the day a run with a sample reports alone.
class ReferenceRepairedDlg : public FramelessDialog
{
    Q_OBJECT
public:
    explicit ReferenceRepairedDlg(QWidget *parent);
    QLabel *TextLabl = nullptr;
    QPushButton *OkBtn = nullptr;

public Q_SLOTS:
    void OnOk();

protected:
    void Retranslate() override;
};
