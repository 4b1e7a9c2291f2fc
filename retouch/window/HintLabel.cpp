#include "window/HintLabel.h"

#include <algorithm>
#include <QApplication>
#include <QKeyEvent>
#include <utility>

namespace
{

Qt::KeyboardModifier ModifierOf(int iKey)
{
    switch (iKey)
    {
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    default:
        return Qt::NoModifier;
    }
}

} // namespace

CHintLabel::CHintLabel(QWidget* pParent) : QLabel(pParent)
{
    // It gives way to the numbers, and does not keep the window wide.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setAccessibleName(tr("Hint"));
    qApp->installEventFilter(this);
}

void CHintLabel::Show(const Tool& tool, const QString& strHint)
{
    m_pTool = &tool;
    m_strHint = strHint;
    Update();
}

bool CHintLabel::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pEvent->type() == QEvent::KeyPress)
        Hold(m_held | ModifierOf(static_cast<QKeyEvent*>(pEvent)->key()));
    else if (pEvent->type() == QEvent::KeyRelease)
        Hold(m_held & ~Qt::KeyboardModifiers(ModifierOf(static_cast<QKeyEvent*>(pEvent)->key())));
    else if (pEvent->type() == QEvent::WindowDeactivate)
        Hold(Qt::NoModifier); // The release goes to another window.
    return QLabel::eventFilter(pWatched, pEvent);
}

void CHintLabel::Hold(Qt::KeyboardModifiers held)
{
    if (std::exchange(m_held, held) != held)
        Update();
}

QString CHintLabel::HeldText(Qt::KeyboardModifier eKey, UINT uKey, const QString& strAlways) const
{
    if (!m_held.testFlag(eKey))
        return {};
    const auto it = std::ranges::find(m_pTool->vHeldHints, uKey, &HeldHint::uKey);
    const QString strTool =
        it == m_pTool->vHeldHints.end() ? QString() : QCoreApplication::translate("Tool", it->pszText);
    return strTool.isEmpty() || strAlways.isEmpty() ? strTool + strAlways : strTool + ", " + strAlways;
}

void CHintLabel::Update()
{
    if (!m_pTool)
        return;
    QStringList vTexts = {HeldText(Qt::ShiftModifier, VK_SHIFT, tr("Shift+wheel: sideways")),
                          HeldText(Qt::ControlModifier, VK_CONTROL, tr("Ctrl+wheel: zoom")),
                          HeldText(Qt::AltModifier, VK_MENU, {})};
    vTexts.removeAll(QString());
    setText(vTexts.isEmpty() ? m_strHint : vTexts.join("; "));
    setToolTip(text());
}
