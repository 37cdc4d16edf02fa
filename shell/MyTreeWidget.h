#pragma once
// The two lists of the window and the button of a result row.

#include <QPushButton>
#include <QTreeWidget>

// Check marks are set with the mouse only: Space never reaches the view, and
// there is no context menu. A cell cut short shows its whole text as a
// tooltip, unless it has a tooltip of its own.
class MyTreeWidget : public QTreeWidget
{
    Q_OBJECT
public:
    using QTreeWidget::QTreeWidget;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool viewportEvent(QEvent *event) override;
};

// The action button of a result row; tells the window its row's ID.
class CustomButton : public QPushButton
{
    Q_OBJECT
public:
    explicit CustomButton(quint32 id, QWidget *parent = nullptr);
    quint32 ID;
    // The list shows its item widgets again whenever it lays them out; a
    // button that its row hides must stay hidden through that.
    void SetHiddenInRow(bool hidden);
    void setVisible(bool visible) override;

Q_SIGNALS:
    void MousePressed(unsigned int id);

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    bool m_hiddenInRow = false;
};
