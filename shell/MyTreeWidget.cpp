#include "MyTreeWidget.h"

#include <QKeyEvent>

void MyTreeWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space) {
        event->ignore();
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

void MyTreeWidget::contextMenuEvent(QContextMenuEvent *) {}

CustomButton::CustomButton(quint32 id, QWidget *parent) : QPushButton(parent), ID(id)
{
    setFlat(true);
    setFocusPolicy(Qt::NoFocus);
    setStyleSheet("QPushButton {border: none;outline: none;background-color: transparent;}"
                  "QPushButton:focus {border: none;outline: none;background-color: transparent;}");
}

void CustomButton::SetHiddenInRow(bool hidden)
{
    m_hiddenInRow = hidden;
    setVisible(!hidden);
}

void CustomButton::setVisible(bool visible)
{
    QPushButton::setVisible(visible && !m_hiddenInRow);
}

void CustomButton::mousePressEvent(QMouseEvent *event)
{
    QPushButton::mousePressEvent(event);
    Q_EMIT MousePressed(ID);
}
