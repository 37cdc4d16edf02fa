#include "MyTreeWidget.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

void MyTreeWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space) {
        event->ignore();
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

void MyTreeWidget::contextMenuEvent(QContextMenuEvent *) {}

bool MyTreeWidget::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const QModelIndex index = indexAt(help->pos());
        if (index.isValid() && index.data(Qt::ToolTipRole).toString().isEmpty()) {
            const QRect cell = visualRect(index);
            if (itemDelegate(index)->sizeHint(viewOptions(), index).width() > cell.width())
                QToolTip::showText(help->globalPos(), index.data().toString(), viewport(), cell);
            else
                QToolTip::hideText();
            return true;
        }
    }
    return QTreeWidget::viewportEvent(event);
}

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
