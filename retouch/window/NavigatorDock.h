#pragma once

#include "program/Navigator.h"
#include "qt/PixtaneWidget.h"

#include <memory>
#include <QDockWidget>

/// The navigator at the window's right edge.
class CNavigatorDock : public QDockWidget
{
public:
    /// Both must outlive it.
    CNavigatorDock(QWidget* pParent, CPixtaneWidget& large, CRetoucher& retoucher);

    /// As CPixtaneWidget::SetColours.
    void SetColours(const CPixtaneWidget::Colours& convert) { m_pSmall->SetColours(convert); }

private:
    CPixtaneWidget* m_pSmall;
    std::unique_ptr<CNavigator> m_pNavigator;
};
