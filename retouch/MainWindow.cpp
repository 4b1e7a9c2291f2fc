#include "retouch/MainWindow.h"

#include "qt/PixtaneWidget.h"
#include "qtdesktop/QtDesktop.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>

namespace
{

constexpr int MOST_RECENT_FILES = 8;
constexpr DWORD BACKGROUND = RGB(58, 60, 64);
const char* const RECENT_FILES = "recentFiles";
const char* const SELECTOR_SETTINGS = "selectorSettings";

} // namespace

CMainWindow::CMainWindow() : m_pView(new CPixtaneWidget(this)), m_retoucher(m_pView->Host())
{
    setCentralWidget(m_pView);
    m_pView->View().SetBackgroundColor(BACKGROUND);
    m_pView->setAccessibleName(tr("Photo"));
    m_pView->SetToolKeys([](UINT uKey)
                         { return uKey == VK_SPACE || uKey == VK_DELETE || (uKey >= VK_LEFT && uKey <= VK_DOWN); });
    MakeMenus();
    MakePalette();
    MakeOptionsBar();
    MakeTransformBar();
    MakeStatusBar();
    RestoreSettings();
    m_retoucher.SetListener([this] { Refresh(); });
    Refresh();
    connect(m_pView, &CPixtaneWidget::DisplayChanged, this, &CMainWindow::UpdateZoomLabel);
    connect(m_pView, &CPixtaneWidget::DisplayChanged, this, &CMainWindow::UpdatePointerLabels);
    connect(m_pView, &CPixtaneWidget::MouseMoved, this, &CMainWindow::FollowPointer);
    connect(m_pView, &CPixtaneWidget::FilesDropped, this,
            [this](const QStringList& vPaths) { OpenFile(vPaths.value(0)); });
    qApp->installEventFilter(this);
    resize(QSize(1100, 780).boundedTo(screen()->availableSize()));
}

CMainWindow::~CMainWindow()
{
    m_retoucher.SetListener({});
    KeepSettings();
}

void CMainWindow::Execute(const std::string& strCommand)
{
    std::string strError;
    if (!m_retoucher.Execute(strCommand, strError))
        QMessageBox::warning(this, tr("That is not possible"), QString::fromStdString(strError));
}

void CMainWindow::RestoreSettings()
{
    const QByteArray settings = QSettings().value(SELECTOR_SETTINGS).toByteArray();
    if (settings.isEmpty())
        return;
    const std::vector<BYTE> vSettings(settings.begin(), settings.end());
    if (!m_retoucher.TakeSelectorSettings(vSettings))
        statusBar()->showMessage(tr("The settings of the selection tools are of another version and were left out."));
}

void CMainWindow::KeepSettings()
{
    const std::vector<BYTE> vSettings = m_retoucher.SelectorSettings();
    QSettings().setValue(SELECTOR_SETTINGS, QByteArray(reinterpret_cast<const char*>(vSettings.data()),
                                                       static_cast<qsizetype>(vSettings.size())));
}

void CMainWindow::FillRecentMenu()
{
    m_pRecentMenu->clear();
    for (const QString& strPath : QSettings().value(RECENT_FILES).toStringList())
        m_pRecentMenu->addAction(QFileInfo(strPath).fileName(), this, [this, strPath] { OpenFile(strPath); });
    if (m_pRecentMenu->isEmpty())
        m_pRecentMenu->addAction(tr("None yet"))->setEnabled(false);
}

void CMainWindow::RememberRecent(const QString& strPath)
{
    QSettings settings;
    QStringList vPaths = settings.value(RECENT_FILES).toStringList();
    vPaths.removeAll(strPath);
    vPaths.prepend(strPath);
    settings.setValue(RECENT_FILES, vPaths.mid(0, MOST_RECENT_FILES));
}

void CMainWindow::ChooseFile()
{
    const QString strPath =
        QFileDialog::getOpenFileName(this, tr("Open a photo"), {}, tr("Photos (*.jpg *.jpeg *.png)"));
    if (!strPath.isEmpty())
        OpenFile(strPath);
}

void CMainWindow::OpenFile(const QString& strPath)
{
    const QString strAbsolute = QFileInfo(strPath).absoluteFilePath();
    const std::string strCommand = strPath.isEmpty() ? "open-sample" : "open " + strAbsolute.toStdString();
    std::string strError;
    if (!m_retoucher.Execute(strCommand, strError))
    {
        QMessageBox::warning(this, tr("The photo could not be opened"), QString::fromStdString(strError));
        return;
    }
    if (!strPath.isEmpty())
        RememberRecent(strAbsolute);
    ShowOpened(strPath.isEmpty() ? tr("Sample") : QFileInfo(strPath).fileName());
}

void CMainWindow::ShowOpened(const QString& strName)
{
    m_bFitWhenShown = !isVisible();
    setWindowTitle(strName + " - retouch");
    statusBar()->clearMessage();
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
    if (pKey->key() != Qt::Key_B || pKey->modifiers() != Qt::NoModifier)
        return QMainWindow::eventFilter(pWatched, pEvent);
    if (!pKey->isAutoRepeat())
        Execute(pEvent->type() == QEvent::KeyPress ? "show-original" : "show-result");
    return true;
}

void CMainWindow::UpdateZoomLabel()
{
    m_pZoomLabel->setText(tr("%1 %").arg(m_pView->View().GetZoom() * 100, 0, 'f', 1));
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
        m_pPositionLabel->clear();
        m_pColourLabel->clear();
        return;
    }
    const BYTE* pPixel = pPhoto->Row(pt.y) + 4 * pt.x;
    m_pPositionLabel->setText(tr("%1, %2").arg(pt.x).arg(pt.y));
    m_pColourLabel->setText(tr("R %1  G %2  B %3").arg(pPixel[2]).arg(pPixel[1]).arg(pPixel[0]));
}
