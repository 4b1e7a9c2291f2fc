#include "program/Limits.h"
#include "qt/PixtaneWidget.h"
#include "window/BrightnessDialog.h"
#include "window/HelpPages.h"
#include "window/HintLabel.h"
#include "window/HistoryDock.h"
#include "window/Label.h"
#include "window/MainWindow.h"
#include "window/NavigatorDock.h"
#include "window/OptionsBar.h"
#include "window/PhotoFiles.h"
#include "window/StatusTexts.h"
#include "window/StraightenBar.h"
#include "window/TransformBar.h"
#include "window/WorkBar.h"

#include <algorithm>
#include <QColor>
#include <QCoreApplication>
#include <QInputDialog>
#include <QMenuBar>
#include <QStatusBar>

void CMainWindow::MakeMenus()
{
    MakeFileMenu();
    MakeEditMenu();
    MakeImageMenu();
    MakeSelectMenu();
    MakeViewMenu();
    MakeHelpMenu();
}

void CMainWindow::MakeFileMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&File"));
    pMenu->addAction(tr("&Open..."), QKeySequence::Open, m_pFiles, &CPhotoFiles::Choose);
    m_pRecentMenu = pMenu->addMenu(tr("Open &Recent"));
    connect(m_pRecentMenu, &QMenu::aboutToShow, this, &CMainWindow::FillRecentMenu);
    pMenu->addAction(tr("Open Sa&mple Picture"), this, [this] { OpenFile({}); });
    pMenu->addSeparator();
    pMenu->addAction(tr("&Save"), QKeySequence::Save, m_pFiles, [this] { m_pFiles->Save(); });
    pMenu->addAction(tr("Save &As..."), QKeySequence(tr("Ctrl+Shift+S")), m_pFiles, [this] { m_pFiles->SaveAs(); });
    pMenu->addAction(tr("&JPEG Quality..."), m_pFiles, &CPhotoFiles::AskQuality);
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
    AddCommand(*pMenu, tr("&Crop to Selection"), {}, "crop-to-selection");
    AddCommand(*pMenu, tr("Turn &Left"), {QKeySequence(tr("Ctrl+["))}, "turn-left");
    AddCommand(*pMenu, tr("&Turn Right"), {QKeySequence(tr("Ctrl+]"))}, "turn-right");
    AddCommand(*pMenu, tr("&Mirror"), {}, "mirror");
    AddCommand(*pMenu, tr("&Flip"), {}, "flip");
    AddCommand(*pMenu, tr("&Revert to Original"), {}, "revert");
}

void CMainWindow::MakeSelectMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&Select"));
    AddCommand(*pMenu, tr("&All"), {QKeySequence(tr("Ctrl+A"))}, "select-all");
    m_vOnSelection += AddCommand(*pMenu, tr("&None"), {QKeySequence(tr("Ctrl+D"))}, "select-none");
    AddCommand(*pMenu, tr("&Reselect"), {QKeySequence(tr("Ctrl+Shift+D"))}, "reselect");
    AddCommand(*pMenu, tr("&Inverse"), {QKeySequence(tr("Ctrl+Shift+I"))}, "invert");
    AddCommand(*pMenu, tr("&Colour Range"), {QKeySequence(tr("Ctrl+Alt+C"))}, "pick-colour");
    pMenu->addSeparator();
    m_vOnSelection +=
        pMenu->addAction(tr("&Grow..."), this, [this] { AskPixels(tr("Grow the selection by pixels:"), "grow"); });
    m_vOnSelection += pMenu->addAction(tr("&Shrink..."), this,
                                       [this] { AskPixels(tr("Shrink the selection by pixels:"), "shrink"); });
    m_vOnSelection +=
        pMenu->addAction(tr("&Feather..."), QKeySequence(tr("Shift+F6")), this,
                         [this] { AskPixels(tr("Soften the selection's edge by pixels:"), "feather-selection"); });
    m_vOnSelection += pMenu->addAction(tr("&Transform"), this, [this] { Execute("tool transform"); });
    pMenu->addSeparator();
    m_pHideOutline = AddSwitch(*pMenu, tr("&Hide Outline"), QKeySequence(tr("Ctrl+H")), "hide-outline", "show-outline");
    m_pStillOutline = AddSwitch(*pMenu, tr("Out&line Stands Still"), {}, "still-outline", "crawling-outline");
    m_pTint = AddSwitch(*pMenu, tr("Tint &What Is Not Selected"), QKeySequence(tr("Ctrl+T")), "tint", "no-tint");
}

void CMainWindow::MakeViewMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&View"));
    AddCommand(*pMenu, tr("Zoom &In"), {QKeySequence::ZoomIn, QKeySequence(tr("Ctrl+="))}, "zoom-in");
    AddCommand(*pMenu, tr("Zoom &Out"), {QKeySequence::ZoomOut}, "zoom-out");
    AddCommand(*pMenu, tr("&Fit"), {QKeySequence(tr("Ctrl+0"))}, "fit");
    AddCommand(*pMenu, tr("O&ne to One"), {QKeySequence(tr("Ctrl+1"))}, "one-to-one");
    pMenu->addSeparator();
    const auto addPanel = [&](QDockWidget& panel, const QString& strText, const QString& strKey)
    {
        QAction* const pAction = panel.toggleViewAction();
        pAction->setText(strText);
        pAction->setShortcut(QKeySequence(strKey));
        pMenu->addAction(pAction);
    };
    addPanel(*m_pNavigator, tr("Na&vigator"), tr("N"));
    addPanel(*m_pHistory, tr("&History"), tr("Shift+N"));
    pMenu->addSeparator();
    pMenu->addAction(tr("Hold B to see the original, Space for the hand"))->setEnabled(false);
}

void CMainWindow::MakeHelpMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&Help"));
    pMenu->addAction(tr("&Shortcuts"), QKeySequence(Qt::Key_F1), this, [this] { ShowShortcuts(*this, *menuBar()); });
    pMenu->addAction(tr("&About retouch"), this, [this] { ShowAbout(*this); });
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
    std::vector<Choice> vChoices;
    for (const Tool& tool : Tools())
        vChoices.push_back({tool.pszWord, tool.pszText, tool.pszKey, tool.icon});
    m_pTools =
        new CChoiceGroup(*pBar, "tool", vChoices, [this](const std::string& strCommand) { Execute(strCommand); });
}

void CMainWindow::MakeOptionsBar()
{
    m_pOptions = new COptionsBar(
        this, [this](const std::string& strCommand) { Execute(strCommand); }, [this] { m_pView->setFocus(); });
    addToolBar(Qt::TopToolBarArea, m_pOptions);
}

void CMainWindow::MakeSessionBars()
{
    const auto execute = [this](const std::string& strCommand)
    {
        Execute(strCommand);
        m_retoucher.WhenIdle(
            [this]
            {
                if (!m_retoucher.State().bInSession)
                    m_pView->setFocus();
            });
    };
    m_pTransform = new CTransformBar(this, execute);
    m_pStraighten = new CStraightenBar(this, execute);
    // The picture stays where it is when one bar takes the other's place.
    int cy = 0;
    for (QToolBar* const pBar : std::initializer_list<QToolBar*>{m_pOptions, m_pTransform, m_pStraighten})
        cy = std::max(cy, pBar->sizeHint().height());
    for (QToolBar* const pBar : std::initializer_list<QToolBar*>{m_pOptions, m_pTransform, m_pStraighten})
        pBar->setFixedHeight(cy);
    addToolBar(Qt::TopToolBarArea, m_pTransform);
    addToolBar(Qt::TopToolBarArea, m_pStraighten);
}

void CMainWindow::MakeStatusBar()
{
    m_pTexts = new CStatusTexts(this, TEXT_COUNT);
    m_pHint = new CHintLabel(this);
    statusBar()->addWidget(m_pHint, 1);
    m_pWork = new CWorkBar(this, [this] { return m_retoucher.State(); });
    statusBar()->addPermanentWidget(m_pWork);
    statusBar()->addPermanentWidget(m_pTexts);
    m_pCancel = new QAction(tr("Cancel"), this);
    m_pCancel->setShortcut(Qt::Key_Escape);
    m_pCancel->setEnabled(false);
    connect(m_pCancel, &QAction::triggered, this, [this] { Execute("cancel"); });
    addAction(m_pCancel);
}

void CMainWindow::NameSteps(const ProgramState& state)
{
    const auto name = [](QAction& action, const QString& strWhat, const std::string& strStep)
    {
        action.setEnabled(!strStep.empty());
        const QString strName = AsLabel(QCoreApplication::translate("History", strStep.c_str()));
        action.setText(strStep.empty() ? strWhat : strWhat + " " + strName);
    };
    name(*m_pUndo, tr("&Undo"), state.strUndo);
    name(*m_pRedo, tr("&Redo"), state.strRedo);
    if (state.strUndo.empty() && state.bForgot)
        m_pUndo->setText(tr("&Undo (earlier steps were let go to save memory)"));
}

void CMainWindow::Refresh()
{
    const ProgramState state = m_retoucher.State();
    if (std::exchange(m_uPhotos, state.uPhotos) != state.uPhotos)
        ShowOpened(state);
    ShowTitle(state);
    NameSteps(state);
    m_pHideOutline->setChecked(state.bOutlineHidden);
    m_pStillOutline->setChecked(state.bOutlineStill);
    m_pTint->setChecked(state.bTinted);
    m_pTools->Show(state.strTool);
    m_pOptions->Show(state);
    m_pHint->Show(*FindTool(state.strTool), QCoreApplication::translate("Tool", state.strHint.c_str()));
    m_pTransform->SetUsable(state.frame.has_value());
    if (state.frame)
        m_pTransform->Show(*state.frame, state.szPhoto);
    m_pStraighten->SetUsable(state.angle.has_value());
    if (state.angle)
        m_pStraighten->Show(*state.angle);
    m_pHistory->Show(state, m_retoucher.Photo());
    m_pCancel->setEnabled(state.work.has_value());
    m_pWork->Show(state);
    const CRect rcBox = state.frame.value_or(state.rcSelection);
    if (state.picked)
    {
        const QString strColour =
            QColor(GetRValue(*state.picked), GetGValue(*state.picked), GetBValue(*state.picked)).name();
        m_pTexts->SetText(TEXT_PICKED, QString("<span style=\"background-color:%1\">&nbsp; &nbsp; &nbsp;</span> %2")
                                           .arg(strColour, tr("Picked %1").arg(strColour)));
    }
    m_pTexts->SetText(TEXT_SELECTION, rcBox.IsRectEmpty() ? QString()
                                                          : tr("Selection %L1 \u00D7 %L2 at %L3, %L4")
                                                                .arg(rcBox.Width())
                                                                .arg(rcBox.Height())
                                                                .arg(rcBox.left)
                                                                .arg(rcBox.top));
    for (QAction* const pAction : m_vOnSelection)
        pAction->setEnabled(!rcBox.IsRectEmpty());
    m_pTools->Enable("transform", !rcBox.IsRectEmpty());
}
