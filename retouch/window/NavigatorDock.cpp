#include "window/NavigatorDock.h"

#include <QVBoxLayout>

CNavigatorDock::CNavigatorDock(QWidget* pParent, CPixtaneWidget& large, CRetoucher& retoucher)
    : QDockWidget(tr("Navigator"), pParent), m_pSmall(new CPixtaneWidget(this)),
      m_pNavigator(std::make_unique<CNavigator>(m_pSmall->Host(), large.Host(), retoucher))
{
    constexpr QSize SMALL(220, 160);
    setObjectName("navigator");
    setFeatures(DockWidgetClosable);
    setAllowedAreas(Qt::RightDockWidgetArea);
    m_pSmall->setFixedSize(SMALL);
    m_pSmall->setAccessibleName(tr("Navigator"));
    m_pSmall->setAccessibleDescription(tr("The whole photo; drag the frame to scroll"));
    m_pSmall->setAcceptDrops(false);
    m_pSmall->focusProxy()->setFocusPolicy(Qt::NoFocus); // The keys stay with the photo.
    auto* const pColumn = new QWidget(this);
    pColumn->setAutoFillBackground(true);
    auto* const pLayout = new QVBoxLayout(pColumn);
    pLayout->setContentsMargins({});
    pLayout->addWidget(m_pSmall);
    pLayout->addStretch();
    setWidget(pColumn);
}
