#include "PopupMenu.h"

#include "Look.h"
#include "Startup.h"

#include <QPushButton>

PopupMenu::PopupMenu(QPushButton *button, bool bRightAligned, QWidget *parent)
    : QMenu(parent), m_button(button), m_bRightAligned(bRightAligned)
{
    fScale = startup::DialogScale();
    setFont(look::ListFont());
}

void PopupMenu::showEvent(QShowEvent *event)
{
    QPoint at = pos() + QPoint(0, look::Scaled(12, fScale));
    const QWidget *main = m_button ? m_button->window() : nullptr;
    if (m_bRightAligned && main && main->isVisible())
        at.setX(main->x() + main->width() - width() - look::Scaled(18, fScale));
    move(at);
    QMenu::showEvent(event);
}
