#pragma once

#include "program/Navigator.h"

#include <memory>
#include <QDockWidget>

class CPixtaneWidget;

/// The navigator at the window's right edge.
class CNavigatorDock : public QDockWidget
{
public:
    /// Both must outlive it.
    CNavigatorDock(QWidget* pParent, CPixtaneWidget& large, CRetoucher& retoucher);

private:
    CPixtaneWidget* m_pSmall;
    std::unique_ptr<CNavigator> m_pNavigator;
};
