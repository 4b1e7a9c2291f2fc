#include "qt/PixtaneWidget.h"
#include "retouch/BrightnessDialog.h"
#include "retouch/CommandBar.h"
#include "retouch/MainWindow.h"
#include "retouch/TransformBar.h"

#include <algorithm>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QStatusBar>

namespace
{

constexpr int MOST_PIXELS = 500;

/// What the keys do now, by tool.
QString HintFor(const std::string& strTool)
{
    if (strTool == "hand")
        return QObject::tr("Drag to move the picture");
    if (strTool == "wand")
        return QObject::tr("Click a colour; the tolerance changes what was picked last");
    if (strTool == "transform")
        return QObject::tr("Drag inside or by a handle, or the arrow keys; Enter applies, Esc puts back");
    if (strTool == "lasso")
        return QObject::tr("Alt goes on as a polygon");
    if (strTool == "polygon")
        return QObject::tr("Double click or Ctrl closes, Delete takes a corner back");
    return QObject::tr("Shift: equal sides, Space: move the shape");
}

} // namespace

void CMainWindow::MakeMenus()
{
    MakeFileMenu();
    MakeEditMenu();
    MakeImageMenu();
    MakeSelectMenu();
    MakeViewMenu();
}

void CMainWindow::MakeFileMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&File"));
    pMenu->addAction(tr("&Open..."), QKeySequence::Open, this, &CMainWindow::ChooseFile);
    m_pRecentMenu = pMenu->addMenu(tr("Open &Recent"));
    connect(m_pRecentMenu, &QMenu::aboutToShow, this, &CMainWindow::FillRecentMenu);
    pMenu->addAction(tr("Open &Sample Picture"), this, [this] { OpenFile({}); });
    pMenu->addSeparator();
    pMenu->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
}

void CMainWindow::MakeEditMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&Edit"));
    m_pUndo = AddCommand(*pMenu, {}, {QKeySequence::Undo}, "undo");
    m_pRedo = AddCommand(*pMenu, {}, {QKeySequence(tr("Ctrl+Shift+Z")), QKeySequence(tr("Ctrl+Y"))}, "redo");
}

void CMainWindow::MakeImageMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&Image"));
    AddCommand(*pMenu, tr("&Auto Contrast"), {QKeySequence(tr("Ctrl+Shift+L"))}, "auto-contrast");
    pMenu->addAction(tr("&Brightness and Contrast..."), QKeySequence(tr("Ctrl+B")), this,
                     [this] { CBrightnessDialog(this, [this](const std::string& str) { Execute(str); }).exec(); });
    AddCommand(*pMenu, tr("&Revert to Original"), {}, "revert");
}

void CMainWindow::MakeSelectMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&Select"));
    AddCommand(*pMenu, tr("&All"), {QKeySequence(tr("Ctrl+A"))}, "select-all");
    AddCommand(*pMenu, tr("&None"), {QKeySequence(tr("Ctrl+D"))}, "select-none");
    AddCommand(*pMenu, tr("&Reselect"), {QKeySequence(tr("Ctrl+Shift+D"))}, "reselect");
    AddCommand(*pMenu, tr("&Inverse"), {QKeySequence(tr("Ctrl+Shift+I"))}, "invert");
    AddCommand(*pMenu, tr("&Colour Range"), {QKeySequence(tr("Ctrl+Alt+C"))}, "pick-colour");
    pMenu->addSeparator();
    pMenu->addAction(tr("&Grow..."), this, [this] { AskPixels(tr("Grow the selection by pixels:"), "grow"); });
    pMenu->addAction(tr("&Shrink..."), this, [this] { AskPixels(tr("Shrink the selection by pixels:"), "shrink"); });
    pMenu->addAction(tr("&Feather..."), QKeySequence(tr("Shift+F6")), this,
                     [this] { AskPixels(tr("Soften the selection's edge by pixels:"), "feather-selection"); });
    pMenu->addAction(tr("&Transform"), this, [this] { Execute("tool transform"); });
    pMenu->addSeparator();
    m_pHideOutline = AddSwitch(*pMenu, tr("&Hide Outline"), QKeySequence(tr("Ctrl+H")), "hide-outline", "show-outline");
    m_pStillOutline = AddSwitch(*pMenu, tr("Outline &Stands Still"), {}, "still-outline", "crawling-outline");
    m_pTint = AddSwitch(*pMenu, tr("&Tint What Is Not Selected"), QKeySequence(tr("Ctrl+T")), "tint", "no-tint");
}

void CMainWindow::MakeViewMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&View"));
    AddCommand(*pMenu, tr("Zoom &In"), {QKeySequence::ZoomIn, QKeySequence(tr("Ctrl+="))}, "zoom-in");
    AddCommand(*pMenu, tr("Zoom &Out"), {QKeySequence::ZoomOut}, "zoom-out");
    AddCommand(*pMenu, tr("&Fit"), {QKeySequence(tr("Ctrl+0"))}, "fit");
    AddCommand(*pMenu, tr("O&ne to One"), {QKeySequence(tr("Ctrl+1"))}, "one-to-one");
    pMenu->addSeparator();
    pMenu->addAction(tr("Hold B to see the original, Space for the hand"))->setEnabled(false);
}

QAction* CMainWindow::AddCommand(QMenu& menu, const QString& strText, const QList<QKeySequence>& vKeys,
                                 const std::string& strCommand)
{
    QAction* pAction = menu.addAction(strText, this, [this, strCommand] { Execute(strCommand); });
    pAction->setShortcuts(vKeys);
    return pAction;
}

QAction* CMainWindow::AddSwitch(QMenu& menu, const QString& strText, const QKeySequence& key, const std::string& strOn,
                                const std::string& strOff)
{
    QAction* pAction = menu.addAction(strText);
    pAction->setCheckable(true);
    pAction->setShortcut(key);
    connect(pAction, &QAction::triggered, this, [this, strOn, strOff](bool bOn) { Execute(bOn ? strOn : strOff); });
    return pAction;
}

void CMainWindow::AskPixels(const QString& strQuestion, const std::string& strCommand)
{
    bool bGiven = false;
    const int iPixels = QInputDialog::getInt(this, windowTitle(), strQuestion, 5, 1, MOST_PIXELS, 1, &bGiven);
    if (bGiven)
        Execute(strCommand + " " + std::to_string(iPixels));
}

void CMainWindow::MakePalette()
{
    auto* pBar = new QToolBar(tr("Tools"), this);
    pBar->setMovable(false);
    pBar->setIconSize({24, 24});
    addToolBar(Qt::LeftToolBarArea, pBar);
    m_pTools = new CChoiceGroup(*pBar, "tool",
                                {{"hand", QT_TRANSLATE_NOOP("CChoiceGroup", "Hand"), "H"},
                                 {"rectangle", QT_TRANSLATE_NOOP("CChoiceGroup", "Rectangle"), "M"},
                                 {"ellipse", QT_TRANSLATE_NOOP("CChoiceGroup", "Ellipse"), "E"},
                                 {"lasso", QT_TRANSLATE_NOOP("CChoiceGroup", "Lasso"), "L"},
                                 {"polygon", QT_TRANSLATE_NOOP("CChoiceGroup", "Polygon"), "P"},
                                 {"wand", QT_TRANSLATE_NOOP("CChoiceGroup", "Magic wand"), "W"},
                                 {"transform", QT_TRANSLATE_NOOP("CChoiceGroup", "Transform the selection"), "T"}},
                                [this](const std::string& strCommand) { Execute(strCommand); });
}

void CMainWindow::MakeOptionsBar()
{
    auto* const pBar = m_pOptions = new QToolBar(tr("Options"), this);
    pBar->setMovable(false);
    pBar->setIconSize({20, 20});
    addToolBar(Qt::TopToolBarArea, pBar);
    m_pRules = new CChoiceGroup(*pBar, "rule",
                                {{"new", QT_TRANSLATE_NOOP("CChoiceGroup", "New selection"), "1"},
                                 {"add", QT_TRANSLATE_NOOP("CChoiceGroup", "Add to selection"), "2"},
                                 {"subtract", QT_TRANSLATE_NOOP("CChoiceGroup", "Subtract from selection"), "3"},
                                 {"intersect", QT_TRANSLATE_NOOP("CChoiceGroup", "Intersect with selection"), "4"}},
                                [this](const std::string& strCommand) { Execute(strCommand); });
    pBar->addSeparator();
    m_pFeather = AddNumber(*pBar, tr(" &Feather "), MOST_PIXELS, tr(" px"), "feather");
    m_pFeather->setToolTip(tr("How soft the edge of new shapes is"));
    m_pTolerance = AddNumber(*pBar, tr("  &Tolerance "), 255, {}, "tolerance");
    m_pTolerance->setToolTip(tr("How far colours may differ for the magic wand and the colour range"));
}

void CMainWindow::MakeTransformBar()
{
    m_pTransform = new CTransformBar(this,
                                     [this](const std::string& strCommand)
                                     {
                                         Execute(strCommand);
                                         if (!m_retoucher.IsTransforming())
                                             m_pView->setFocus();
                                     });
    addToolBar(Qt::TopToolBarArea, m_pTransform);
    // The picture stays where it is when one bar takes the other's place.
    const int cy = std::max(m_pOptions->sizeHint().height(), m_pTransform->sizeHint().height());
    m_pOptions->setFixedHeight(cy);
    m_pTransform->setFixedHeight(cy);
}

QSpinBox* CMainWindow::AddNumber(QToolBar& bar, const QString& strLabel, int iMost, const QString& strSuffix,
                                 const std::string& strCommand)
{
    auto* pLabel = new QLabel(strLabel, &bar);
    auto* pNumber = new QSpinBox(&bar);
    pNumber->setRange(0, iMost);
    pNumber->setSuffix(strSuffix);
    pLabel->setBuddy(pNumber);
    bar.addWidget(pLabel);
    bar.addWidget(pNumber);
    connect(pNumber, &QSpinBox::valueChanged, this,
            [this, strCommand](int iNumber)
            {
                if (!m_bRefreshing)
                    Execute(strCommand + " " + std::to_string(iNumber));
            });
    connect(pNumber, &QSpinBox::editingFinished, this, [this] { m_pView->setFocus(); });
    return pNumber;
}

void CMainWindow::MakeStatusBar()
{
    m_pPositionLabel = new QLabel(this);
    m_pColourLabel = new QLabel(this);
    m_pSelectionLabel = new QLabel(this);
    m_pZoomLabel = new QLabel(this);
    m_pHintLabel = new QLabel(this);
    statusBar()->addWidget(m_pHintLabel, 1);
    for (QLabel* pLabel : {m_pSelectionLabel, m_pPositionLabel, m_pColourLabel, m_pZoomLabel})
        statusBar()->addPermanentWidget(pLabel);
}

void CMainWindow::Refresh()
{
    const auto name = [](QAction& action, const QString& strWhat, const std::string& strStep)
    {
        action.setEnabled(!strStep.empty());
        action.setText(strStep.empty() ? strWhat : strWhat + " " + QString::fromStdString(strStep));
    };
    name(*m_pUndo, tr("&Undo"),
         m_retoucher.IsTransforming() ? "Transform Selection" : m_retoucher.History().BackName());
    name(*m_pRedo, tr("&Redo"), m_retoucher.History().ForthName());
    m_pHideOutline->setChecked(m_retoucher.IsOutlineHidden());
    m_pStillOutline->setChecked(m_retoucher.IsOutlineStill());
    m_pTint->setChecked(m_retoucher.IsTinted());
    m_pTools->Show(m_retoucher.ToolName());
    m_pRules->Show(m_retoucher.RuleName());
    const QScopedValueRollback<bool> refreshing(m_bRefreshing, true);
    m_pFeather->setValue(m_retoucher.Feather());
    m_pTolerance->setValue(m_retoucher.Tolerance());
    m_pHintLabel->setText(m_retoucher.IsPickingColour() ? tr("Click the colour in the picture")
                                                        : HintFor(m_retoucher.ToolName()));
    const bool bTransforming = m_retoucher.IsTransforming();
    m_pOptions->setVisible(!bTransforming);
    m_pTransform->SetUsable(bTransforming);
    const CRect rcBox = bTransforming ? m_retoucher.TransformRect() : m_retoucher.SelectionBox();
    if (bTransforming)
        m_pTransform->Show(rcBox, {m_retoucher.Photo()->Width(), m_retoucher.Photo()->Height()});
    m_pSelectionLabel->setText(rcBox.IsRectEmpty() ? QString()
                                                   : tr("Selection %1 \u00D7 %2 at %3, %4")
                                                         .arg(rcBox.Width())
                                                         .arg(rcBox.Height())
                                                         .arg(rcBox.left)
                                                         .arg(rcBox.top));
}
