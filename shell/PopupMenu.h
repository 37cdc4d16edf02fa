#pragma once
// The menus behind the toolbar's buttons: opened a little below the button,
// or against the window's right edge.

#include <QMenu>

class QPushButton;

class PopupMenu : public QMenu
{
    Q_OBJECT
public:
    PopupMenu(QPushButton *button, bool bRightAligned, QWidget *parent = nullptr);
    float fScale = 1.0f;

protected:
    void showEvent(QShowEvent *event) override;

private:
    QPushButton *m_button;
    bool m_bRightAligned;
};
