#include "window/MainWindow.h"

#include "document/ScreenColours.h"
#include "qt/PixtaneWidget.h"
#include "qtdesktop/QtDesktop.h"
#include "window/HeldInput.h"
#include "window/HistoryDock.h"
#include "window/Label.h"
#include "window/NavigatorDock.h"
#include "window/PhotoFiles.h"
#include "window/RecentFiles.h"
#include "window/RecoveryQuestion.h"
#include "window/StatusTexts.h"

#include <algorithm>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>

namespace
{

const char* const PLACE = "windowPlace";
const char* const NAVIGATOR = "navigator";
const char* const HISTORY = "history";
constexpr int FOCUS_FRAME = 2;
constexpr DWORD BACKGROUND = RGB(58, 60, 64);

/// The names that tools keep settings under, each once.
std::vector<const char*> SettingsNames()
{
    std::vector<const char*> vNames;
    for (const Tool& tool : Tools())
    {
        const auto isSame = [&](const char* pszName) { return std::string(pszName) == tool.pszSettings; };
        if (tool.pszSettings && std::ranges::none_of(vNames, isSame))
            vNames.push_back(tool.pszSettings);
    }
    return vNames;
}

} // namespace

CMainWindow::CMainWindow()
    : m_pView(new CPixtaneWidget(this)), m_retoucher(m_pView->Host(), CRetoucher::LongWork::InBackground)
{
    setCentralWidget(m_pView);
    m_pFiles = new CPhotoFiles(*this, m_retoucher, [this](const std::string& strCommand) { Execute(strCommand); });
    m_pFiles->setParent(this);
    m_pView->View().SetBackgroundColor(BACKGROUND);
    m_pView->SetFocusFrame(FOCUS_FRAME);
    m_pView->setAccessibleName(tr("Photo"));
    m_pView->SetToolKeys([this](UINT uKey) { return UsesKey(uKey); });
    MakePanels();
    MakeMenus();
    MakePalette();
    MakeOptionsBar();
    MakeSessionBars();
    MakeStatusBar();
    RestoreSettings();
    m_retoucher.SetListener([this](const std::string& strError) { OnChanged(strError); });
    m_pHeldInput = std::make_unique<CHeldInput>(
        *m_pView, [this] { return m_retoucher.IsBusy(); }, [this] { return m_retoucher.State().work.has_value(); },
        [this](std::function<void()> call) { m_retoucher.WhenIdle(std::move(call)); });
    Refresh();
    connect(m_pView, &CPixtaneWidget::DisplayChanged, this, &CMainWindow::UpdateZoomLabel);
    connect(m_pView, &CPixtaneWidget::DisplayChanged, this, &CMainWindow::UpdatePointerLabels);
    connect(m_pView, &CPixtaneWidget::MouseMoved, this, &CMainWindow::FollowPointer);
    connect(m_pView, &CPixtaneWidget::FilesDropped, this, [this](const QStringList& vPaths) { OpenFirst(vPaths); });
    qApp->installEventFilter(this);
    RestorePlace();
}

CMainWindow::~CMainWindow()
{
    m_retoucher.SetListener({});
    QSettings().setValue(PLACE, saveGeometry());
    QSettings().setValue(NAVIGATOR, !m_pNavigator->isHidden());
    QSettings().setValue(HISTORY, !m_pHistory->isHidden());
    KeepSettings();
    delete m_pNavigator; // It looks at the program, which goes before the windows.
}

void CMainWindow::MakePanels()
{
    constexpr int ROOMY = 1600; // Smaller screens have better use for the place.
    const bool bRoom = screen()->availableSize().width() >= ROOMY;
    m_pNavigator = new CNavigatorDock(this, *m_pView, m_retoucher);
    m_pHistory = new CHistoryDock(this, [this](const std::string& strCommand) { Execute(strCommand); });
    addDockWidget(Qt::RightDockWidgetArea, m_pNavigator);
    addDockWidget(Qt::RightDockWidgetArea, m_pHistory);
    m_pNavigator->setVisible(QSettings().value(NAVIGATOR, bRoom).toBool());
    m_pHistory->setVisible(QSettings().value(HISTORY, bRoom).toBool());
    resizeDocks({m_pNavigator, m_pHistory}, {1, screen()->availableSize().height()}, Qt::Vertical);
}

void CMainWindow::Execute(const std::string& strCommand)
{
    std::string strError;
    if (!m_retoucher.Execute(strCommand, strError))
        QMessageBox::warning(this, tr("That is not possible"), QString::fromStdString(strError));
}

void CMainWindow::RestorePlace()
{
    constexpr QSize FRAME(16, 56); // Not known before the window is shown.
    constexpr QSize COMFORTABLE(1100, 780);
    if (!restoreGeometry(QSettings().value(PLACE).toByteArray()))
        resize(COMFORTABLE.boundedTo(screen()->availableSize() - FRAME));
}

void CMainWindow::RestoreSettings()
{
    for (const char* const pszName : SettingsNames())
    {
        const QByteArray settings = QSettings().value(pszName).toByteArray();
        const std::vector<BYTE> vSettings(settings.begin(), settings.end());
        if (!settings.isEmpty() && !m_retoucher.TakeSettings(pszName, vSettings))
            statusBar()->showMessage(tr("The settings of some tools are of another version and were left out."));
    }
}

void CMainWindow::KeepSettings()
{
    for (const char* const pszName : SettingsNames())
    {
        const std::vector<BYTE> vSettings = m_retoucher.Settings(pszName);
        QSettings().setValue(pszName, QByteArray(reinterpret_cast<const char*>(vSettings.data()),
                                                 static_cast<qsizetype>(vSettings.size())));
    }
}

bool CMainWindow::UsesKey(UINT uKey) const
{
    const auto vKeys = FindTool(m_retoucher.State().strTool)->vKeys;
    return std::ranges::find(vKeys, uKey) != vKeys.end();
}

void CMainWindow::FillRecentMenu()
{
    m_pRecentMenu->clear();
    for (const RecentFile& file : RecentFiles())
        m_pRecentMenu->addAction(AsLabel(file.strText), this, [this, file] { OpenFile(file.strPath); });
    if (m_pRecentMenu->isEmpty())
        m_pRecentMenu->addAction(tr("None yet"))->setEnabled(false);
}

void CMainWindow::OpenFile(const QString& strPath) { m_pFiles->Open(strPath); }

void CMainWindow::OpenFirst(const QStringList& vPaths) { m_pFiles->OpenFirst(vPaths); }

void CMainWindow::KeepWork()
{
    m_retoucher.KeepSteps(SessionFolder());
    OfferRecovery(*this, [this](const std::string& strCommand) { Execute(strCommand); });
}

void CMainWindow::closeEvent(QCloseEvent* pEvent)
{
    if (m_bMayClose || !m_pFiles->WouldLose())
        return QMainWindow::closeEvent(pEvent);
    pEvent->ignore();
    m_pFiles->BeforeLosing(
        [this]
        {
            m_bMayClose = true;
            close();
        });
}

void CMainWindow::ShowOpened(const ProgramState& state)
{
    const QString strPath = QString::fromStdString(state.strPath);
    if (!strPath.isEmpty())
        RememberRecent(strPath);
    m_pFiles->WarnOfCutOff();
    m_bFitWhenShown = !isVisible();
    statusBar()->clearMessage();
    ShowColours();
}

void CMainWindow::ShowColours()
{
    const CPhoto* const pPhoto = m_retoucher.Photo();
    const QByteArray profile = pPhoto ? pPhoto->Origin().profile : QByteArray();
    if (std::exchange(m_profile, profile) == profile)
        return;
    CPixtaneWidget::Colours convert;
    if (const auto pColours = CScreenColours::For(profile))
        convert = [pColours](auto... arguments) { pColours->Convert(arguments...); };
    m_pView->SetColours(convert);
    m_pNavigator->SetColours(convert);
    if (!profile.isEmpty() && !CScreenColours::IsUsable(profile))
        statusBar()->showMessage(tr("The photo's colour profile cannot be used; its colours are shown as sRGB."));
}

void CMainWindow::ShowTitle(const ProgramState& state)
{
    QString strName =
        state.strPath.empty() ? tr("Sample") : QFileInfo(QString::fromStdString(state.strPath)).fileName();
    setWindowTitle(strName.replace("[*]", "[*][*]") + "[*] - retouch");
    setWindowModified(state.bUnsaved);
}

void CMainWindow::OnChanged(const std::string& strError)
{
    Refresh();
    if (!strError.empty())
        QMessageBox::warning(this, tr("That is not possible"), QString::fromStdString(strError));
}

winlite::Picture CMainWindow::TakePicture()
{
    static_cast<winlite::QtDesktop&>(winlite::TheDesktop()).PaintNow();
    return winlite::WindowPicture(m_pView->Host().m_hWnd);
}

void CMainWindow::showEvent(QShowEvent* pEvent)
{
    QMainWindow::showEvent(pEvent);
    // Only now the view has its size.
    if (std::exchange(m_bFitWhenShown, false))
        QMetaObject::invokeMethod(
            this, [this] { Execute("fit"); }, Qt::QueuedConnection);
}

bool CMainWindow::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    const bool bKey = pEvent->type() == QEvent::KeyPress || pEvent->type() == QEvent::KeyRelease;
    if (!bKey || !isActiveWindow())
        return QMainWindow::eventFilter(pWatched, pEvent);
    const auto* pKey = static_cast<QKeyEvent*>(pEvent);
    if (pKey->key() == Qt::Key_Escape && pEvent->type() == QEvent::KeyPress && m_retoucher.CanDrop())
    {
        Execute("drop");
        return true;
    }
    if (pKey->key() != Qt::Key_B || pKey->modifiers() != Qt::NoModifier)
        return QMainWindow::eventFilter(pWatched, pEvent);
    if (!pKey->isAutoRepeat())
        ShowOriginal(pEvent->type() == QEvent::KeyPress);
    return true;
}

void CMainWindow::ShowOriginal(bool bShow)
{
    if (std::exchange(m_bOriginal, bShow) != bShow)
        Execute(bShow ? "show-original" : "show-result");
}

void CMainWindow::changeEvent(QEvent* pEvent)
{
    // The release of B will go to another window.
    if (pEvent->type() == QEvent::ActivationChange && !isActiveWindow())
        ShowOriginal(false);
    QMainWindow::changeEvent(pEvent);
}

void CMainWindow::UpdateZoomLabel()
{
    m_pTexts->SetText(TEXT_ZOOM, tr("%L1 %").arg(m_pView->View().GetZoom() * 100, 0, 'f', 1));
}

void CMainWindow::FollowPointer(QPoint ptWindow)
{
    m_ptPointer = ptWindow;
    UpdatePointerLabels();
}

void CMainWindow::UpdatePointerLabels()
{
    CPhoto* const pPhoto = m_retoucher.Photo();
    CPoint pt(m_ptPointer.x(), m_ptPointer.y());
    m_pView->View().FromWndToBitmap(pt);
    const bool bInside = pPhoto && pt.x >= 0 && pt.x < pPhoto->Width() && pt.y >= 0 && pt.y < pPhoto->Height();
    if (!bInside)
    {
        m_pTexts->SetText(TEXT_POSITION, {});
        m_pTexts->SetText(TEXT_COLOUR, {});
        return;
    }
    const BYTE* pPixel = pPhoto->Row(pt.y) + 4 * pt.x;
    m_pTexts->SetText(TEXT_POSITION, tr("%L1, %L2").arg(pt.x).arg(pt.y));
    m_pTexts->SetText(TEXT_COLOUR, tr("R %1  G %2  B %3").arg(pPixel[2]).arg(pPixel[1]).arg(pPixel[0]));
}
