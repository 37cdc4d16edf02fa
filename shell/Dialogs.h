#pragma once
// The window's reusable dialogs. All are frameless, centred on the screen,
// dragged by any left press, sized by their own scale, and keep their texts
// untranslated so that a language change can show them again.

#include <QDialog>
#include <QPoint>
#include <QString>
#include <QStringList>

#include "ui_InsufficientDlg.h"
#include "ui_repairFinishDialog.h"

class QLabel;
class QPushButton;

// A text of the program kept as its source, translated when shown.
struct UiText
{
    const char *context = nullptr;
    const char *source = nullptr;
    QStringList args; // fills %1, %2... after translation

    UiText() = default;
    UiText(const char *ctx, const char *src, QStringList a = {})
        : context(ctx), source(src), args(std::move(a))
    {
    }
    bool isEmpty() const { return !source; }
    QString text() const;
};

class FramelessDialog : public QDialog
{
    Q_OBJECT
public:
    explicit FramelessDialog(QWidget *parent = nullptr);
    void CentreOnScreen();
    float fScale = 1.0f;

protected:
    // Multiplies the design geometry of the form's widgets by fScale.
    void ScaleForm(int designWidth, int designHeight);
    void changeEvent(QEvent *event) override;
    virtual void Retranslate() {}
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    bool m_dragging = false;
    QPoint m_dragOffset;
};

// Title, icon, one or two lines of text and a row of buttons, built in code.
class PromptDialog : public FramelessDialog
{
    Q_OBJECT
public:
    enum class Icon { Info, Question };
    void SetTexts(const UiText &title, const UiText &line1, const UiText &line2 = UiText());
    QString Title() const;
    QString Text() const; // both lines, joined by a newline when there are two

protected:
    PromptDialog(QWidget *parent, Icon icon, const QStringList &buttonNames);
    QPushButton *Button(const QString &objectName) const;
    void Retranslate() override;
    virtual void RetranslateButtons() = 0;

    QLabel *TitleLabl = nullptr;
    QLabel *IconLabl = nullptr;
    QLabel *TextLabl = nullptr;
    QLabel *TextLabl_2 = nullptr;

private:
    UiText m_title, m_line1, m_line2;
};

// One button: OK.
class MessageDlg : public PromptDialog
{
    Q_OBJECT
public:
    explicit MessageDlg(QWidget *parent = nullptr);
    // Centres and runs the dialog modally.
    void ShowMessage(const char *context, const char *title, const char *text, const QStringList &args = {});

protected:
    void RetranslateButtons() override;
};

// Two buttons: Yes accepts, No rejects.
class QuestionDlg : public PromptDialog
{
    Q_OBJECT
public:
    explicit QuestionDlg(QWidget *parent = nullptr);
    bool Ask(const char *context, const char *title, const char *text);

protected:
    void RetranslateButtons() override;
};

// The question at exit; the answer is the object name of the button pressed.
class CloseApplicationDlg : public PromptDialog
{
    Q_OBJECT
public:
    explicit CloseApplicationDlg(QWidget *parent = nullptr);
    QString Ask(const char *context, const char *text);
    QString strExitAnswer;

protected:
    void RetranslateButtons() override;
};

// Asked while a run goes on, without blocking it: opened window-modal, and
// its buttons are wired by the window.
class StopDlg : public PromptDialog
{
    Q_OBJECT
public:
    explicit StopDlg(QWidget *parent = nullptr);
    QPushButton *YesBtn() const;
    QPushButton *NoBtn() const;

protected:
    void RetranslateButtons() override;
};

class repairFinishDialog : public FramelessDialog, public Ui::repairFinishDialog
{
    Q_OBJECT
public:
    explicit repairFinishDialog(QWidget *parent = nullptr);
    // Sets the title and text, centres and runs modally.
    void ShowResult(const UiText &title, const UiText &text);

public Q_SLOTS:
    void OnReferenceBtn();
    void OnOK();

protected:
    void Retranslate() override;

private:
    UiText m_title, m_text;
};

class InsufficientSpaceDlg : public FramelessDialog, public Ui::InsufficientDlg
{
    Q_OBJECT
public:
    explicit InsufficientSpaceDlg(QWidget *parent = nullptr);
    void SetSpaceLine(const QString &available, const QString &required);
    // The answer of the folder dialog behind Browse.
    void ChooseFolder(const QString &folder);
    QString strChosenFolder;

public Q_SLOTS:
    void onCancel();
    void OnBrowseBtn();
    void OnOk();

protected:
    void Retranslate() override;

private:
    QString m_available, m_required;
};
